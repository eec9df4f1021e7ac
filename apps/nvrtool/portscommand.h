// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_PORTSCOMMAND_H
#define NVR_PORTSCOMMAND_H

#include <QStringList>

class NvrTool;

/// "nvrtool ports": the COM ports by number.
class PortsCommand
{
public:
    static int run(NvrTool &tool, const QStringList &arguments);
};

#endif
