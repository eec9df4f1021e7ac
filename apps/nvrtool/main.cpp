// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "nvrtool.h"

#include <QCoreApplication>

int main(int argc, char **argv)
{
    // Scripts and headless machines have no display: no GUI application.
    QCoreApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("Nevra"));
    QCoreApplication::setApplicationName(QStringLiteral("nvrtool"));
    QCoreApplication::setApplicationVersion(QStringLiteral(NVRTOOL_VERSION));
    NvrTool tool;
    return tool.run(QCoreApplication::arguments());
}
