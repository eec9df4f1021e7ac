// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "portscommand.h"

#include "classes/serialport.h"
#include "nvrtool.h"

#include <QCommandLineParser>
#include <QMap>

int PortsCommand::run(NvrTool &tool, const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Lists the COM ports by number, with their manufacturer."));
    if (!tool.parse(parser, arguments, QStringLiteral("ports")))
        return tool.exitCode();
    if (!parser.positionalArguments().isEmpty())
        return tool.usageError(QStringLiteral("ports: unexpected argument: %1").arg(parser.positionalArguments().first()));
    const QMap<int, QString> map = SerialPort::availablePorts();
    QByteArray text;
    for (auto it = map.cbegin(); it != map.cend(); ++it)
        text += QStringLiteral("%1\t%2\n").arg(it.key()).arg(NvrTool::escaped(it.value().trimmed())).toUtf8();
    tool.print(text);
    return NvrTool::Success;
}
