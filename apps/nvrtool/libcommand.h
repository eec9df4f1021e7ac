// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_LIBCOMMAND_H
#define NVR_LIBCOMMAND_H

#include <QStringList>

class NvrTool;

/// "nvrtool lib export": a library's table as CSV or JSON; "lib import" is handed to LibImportCommand.
class LibCommand
{
public:
    static int run(NvrTool &tool, const QStringList &arguments);
};

#endif
