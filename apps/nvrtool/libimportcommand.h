// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_LIBIMPORTCOMMAND_H
#define NVR_LIBIMPORTCOMMAND_H

#include <QString>

class NvrTool;

/// "nvrtool lib import": merges another installation's user records into a library and saves it.
class LibImportCommand
{
public:
    /// name and fileName as given on the command line; the data folder is already chosen.
    static int run(NvrTool &tool, const QString &name, const QString &fileName);
};

#endif
