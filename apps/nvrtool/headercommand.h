// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_HEADERCOMMAND_H
#define NVR_HEADERCOMMAND_H

#include <QStringList>

class NvrTool;

/// "nvrtool header decode" and "nvrtool header encode": product headers in files.
class HeaderCommand
{
public:
    static int run(NvrTool &tool, const QStringList &arguments);

private:
    static int decode(NvrTool &tool, const QStringList &arguments);
    static int encode(NvrTool &tool, const QStringList &arguments);
};

#endif
