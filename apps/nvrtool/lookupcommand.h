// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_LOOKUPCOMMAND_H
#define NVR_LOOKUPCOMMAND_H

#include <QStringList>

class NvrTool;

/// "nvrtool lookup": the lookup-table entry nearest to a value.
class LookupCommand
{
public:
    static int run(NvrTool &tool, const QStringList &arguments);
};

#endif
