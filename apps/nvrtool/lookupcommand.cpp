// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "lookupcommand.h"

#include "classes/lookuptable.h"
#include "classes/memory.h"
#include "nvrtool.h"

#include <QCommandLineParser>
#include <QFileInfo>

int LookupCommand::run(NvrTool &tool, const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Finds the entry of a lookup table nearest to a value: "
                                                    "its index, display text and code."));
    if (!tool.parse(parser, arguments, QStringLiteral("lookup"), QStringLiteral("FILE GROUP VALUE")))
        return tool.exitCode();
    const QStringList positional = parser.positionalArguments();
    if (positional.size() != 3)
        return tool.usageError(QStringLiteral("lookup: FILE GROUP VALUE expected"));
    bool ok = false;
    const double value = positional.at(2).toDouble(&ok);
    if (!ok)
        return tool.usageError(QStringLiteral("lookup: not a number: %1").arg(positional.at(2)));
    if (!QFileInfo(positional.first()).isFile())
        return tool.fail(QStringLiteral("no such file: %1").arg(positional.first()));

    LookUpTable table(positional.first(), positional.at(1));
    table.readData();
    const int index = table.displayValueIndex(value);
    if (index < 0)
        return tool.fail(QStringLiteral("no entries in group %1 of %2").arg(positional.at(1), positional.first()));
    tool.print(QStringLiteral("%1\t%2\t%3\n")
                   .arg(index)
                   .arg(NvrTool::escaped(table.displayValues().at(index)),
                        Memory::IntToHexString(uchar(table.values().at(index))))
                   .toUtf8());
    return NvrTool::Success;
}
