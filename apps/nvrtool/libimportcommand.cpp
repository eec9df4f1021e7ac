// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "libimportcommand.h"

#include "classes/datafolderlock.h"
#include "classes/libraryimport.h"
#include "librarytable.h"
#include "nvrtool.h"

#include <QFileInfo>
#include <QLoggingCategory>

int LibImportCommand::run(NvrTool &tool, const QString &name, const QString &fileName)
{
    const LibraryTable::Entry *library = LibraryTable::find(name);
    if (!library) {
        return tool.usageError(QStringLiteral("lib import: unknown library: %1 (known: %2)")
                                   .arg(name, LibraryTable::names().join(QLatin1String(", "))));
    }
    const QString dataDirectory = DataFolderLock::applicationDataFolder();
    if (!QFileInfo(dataDirectory).isDir())
        return tool.fail(QStringLiteral("no data directory: %1").arg(dataDirectory));
    const QString problem = LibraryTable::problem(*library, dataDirectory);
    if (!problem.isEmpty())
        return tool.fail(problem);
    // Another program saving the same library meanwhile would undo the merge or be undone by it.
    DataFolderLock lock(dataDirectory);
    if (!lock.tryLock())
        return tool.fail(lock.errorString());

    // The models trace every cell they take on standard error; the tool answers in one line there.
    QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false"));
    LibraryImport merge(library->open());
    if (!merge.isSupported()) {
        library->close();
        return tool.usageError(
            QStringLiteral("lib import: %1 has no user records of its own, so there is nothing to merge").arg(name));
    }
    const bool merged = merge.importFile(fileName);
    library->close();
    if (!merged)
        return tool.fail(merge.errorString());
    tool.print(QStringLiteral("%1: %2\n").arg(name, merge.summary()).toUtf8());
    return NvrTool::Success;
}
