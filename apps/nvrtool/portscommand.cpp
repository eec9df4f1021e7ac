// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "portscommand.h"

#include "classes/portinventory.h"
#include "classes/serialport.h"
#include "nvrtool.h"

#include <QCommandLineParser>
#include <QMap>

namespace {
QByteArray escapedLine(const QStringList &fields)
{
    QStringList escaped;
    for (const QString &field : fields)
        escaped.append(NvrTool::escaped(field));
    return escaped.join(QLatin1Char('\t')).toUtf8() + '\n';
}
}

int PortsCommand::run(NvrTool &tool, const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Lists the COM ports by number: the number, the name with its manufacturer, the device it "
                       "names, VID:PID and serial number, tab-separated; then, numbered -, the serial devices "
                       "that have no COM number yet."));
    if (!tool.parse(parser, arguments, QStringLiteral("ports")))
        return tool.exitCode();
    if (!parser.positionalArguments().isEmpty())
        return tool.usageError(QStringLiteral("ports: unexpected argument: %1").arg(parser.positionalArguments().first()));
    const QMap<int, QString> map = SerialPort::availablePorts();
    QByteArray text;
    const QList<PortInventory::Entry> entries = PortInventory::current();
    const auto columns = [](const PortInventory::Entry &entry) {
        return QStringList{entry.device, entry.vidPid, entry.serialNumber};
    };
    for (auto it = map.cbegin(); it != map.cend(); ++it) {
        QStringList fields{QString::number(it.key()), it.value().trimmed()};
        for (const PortInventory::Entry &entry : entries) {
            if (entry.number == it.key())
                fields += columns(entry);
        }
        text += escapedLine(fields);
    }
    for (const PortInventory::Entry &entry : entries) {
        if (entry.number == 0)
            text += escapedLine(QStringList{QStringLiteral("-"), entry.manufacturer} + columns(entry));
    }
    tool.print(text);
    return NvrTool::Success;
}
