// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "libcommand.h"

#include "classes/libraryexport.h"
#include "kvcore.h"
#include "libimportcommand.h"
#include "librarytable.h"
#include "nvrtool.h"

#include <QAbstractItemModel>
#include <QCommandLineParser>
#include <QFileInfo>

int LibCommand::run(NvrTool &tool, const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Writes a library's table (export), or merges the user records of another "
                                                        "installation's library file into it (import). Libraries: %1.")
                                         .arg(LibraryTable::names().join(QLatin1String(", "))));
    parser.addOption({QStringLiteral("format"), QStringLiteral("csv (default) or json."), QStringLiteral("format"),
                      QStringLiteral("csv")});
    if (!tool.parse(parser, arguments, QStringLiteral("lib"), QStringLiteral("export NAME | import NAME FILE")))
        return tool.exitCode();
    const QStringList positional = parser.positionalArguments();
    if (positional.value(0) == QLatin1String("import")) {
        if (positional.size() != 3)
            return tool.usageError(QStringLiteral("lib import: 'import NAME FILE' expected"));
        return LibImportCommand::run(tool, positional.at(1), positional.at(2));
    }
    if (positional.size() != 2 || positional.first() != QLatin1String("export"))
        return tool.usageError(QStringLiteral("lib: 'export NAME' or 'import NAME FILE' expected"));
    const QString format = parser.value(QStringLiteral("format"));
    if (format != QLatin1String("csv") && format != QLatin1String("json"))
        return tool.usageError(QStringLiteral("lib export: unknown format: %1").arg(format));
    const LibraryTable::Entry *library = LibraryTable::find(positional.at(1));
    if (!library) {
        return tool.usageError(QStringLiteral("lib export: unknown library: %1 (known: %2)")
                                   .arg(positional.at(1), LibraryTable::names().join(QLatin1String(", "))));
    }
    const QString dataDirectory = KvCore::applicationDirPath() + QLatin1String("/nevradat");
    if (!QFileInfo(dataDirectory).isDir())
        return tool.fail(QStringLiteral("no data directory: %1").arg(dataDirectory));
    const QString problem = LibraryTable::problem(*library, dataDirectory);
    if (!problem.isEmpty())
        return tool.fail(problem);

    const QAbstractItemModel *model = library->open();
    tool.print(format == QLatin1String("json") ? LibraryExport::toJson(*model) : LibraryExport::toCsv(*model));
    library->close();
    return NvrTool::Success;
}
