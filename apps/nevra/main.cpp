// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "mainwindow.h"

#include "classes/datafolderlock.h"
#include "classes/nvroptions.h"
#include "hostlog.h"
#include "kvcore.h"
#include "logger.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDir>
#include <QMessageBox>

#include <memory>

namespace {
std::unique_ptr<QCoreApplication> makeApplication(int &argc, char **argv)
{
    // A headless start must work where no display exists, so it gets no GUI application.
    for (int i = 1; i < argc; ++i) {
        if (qstrcmp(argv[i], "-nogui") == 0)
            return std::make_unique<QCoreApplication>(argc, argv);
    }
    return std::make_unique<QApplication>(argc, argv);
}

/**
 * Takes the data folder for this run. A folder another program holds is
 * reported (log, terminal, and a box unless messages are off) and the host
 * does not start: its saves would overwrite the other program's.
 */
bool lockDataFolder(DataFolderLock &lock, const NvrOptions &options)
{
    if (lock.tryLock())
        return true;
    if (!lock.isHeldElsewhere()) {
        // A folder that cannot hold a lock file cannot take the libraries either; their saves say so.
        LOG_WARNING(QStringLiteral("Starting without the data folder lock"));
        return true;
    }
    const QString advice = QCoreApplication::translate(
        "main", "Only one program at a time may change the libraries. Close it, then start Nevra again.");
    LOG_ERROR(QStringLiteral("%1 %2").arg(lock.errorString(), advice));
    if (options.showMessages())
        QMessageBox::critical(nullptr, QCoreApplication::translate("main", "Nevra"),
                              lock.errorString() + QLatin1Char('\n') + advice);
    return false;
}
}

int main(int argc, char **argv)
{
    QCoreApplication::setOrganizationName(QStringLiteral("Nevra"));
    QCoreApplication::setApplicationName(QStringLiteral("nevra"));
    QCoreApplication::setApplicationVersion(QStringLiteral(NEVRA_VERSION));
    std::unique_ptr<QCoreApplication> app = makeApplication(argc, argv);

    NvrOptions options(QCoreApplication::arguments());
    g_nvrOptions = &options;

    HostLog log(options);
    LOG_INFO(QStringLiteral("Nevra %1 started").arg(QCoreApplication::applicationVersion()));
    // The products library is looked up from the working directory; started from a desktop menu or a
    // link in bin/, that would be the user's home. Keep it beside the other libraries instead.
    if (!QDir::setCurrent(KvCore::applicationDirPath()))
        LOG_WARNING(QStringLiteral("Cannot change to %1").arg(KvCore::applicationDirPath()));

    int result = 0;
    if (options.hideGui()) {
        LOG_INFO(QStringLiteral("Started without a window; exiting"));
    } else {
        DataFolderLock lock(DataFolderLock::applicationDataFolder());
        if (lockDataFolder(lock, options)) {
            MainWindow window(&options);
            window.show();
            result = app->exec();
        } else {
            result = 1;
        }
    }

    LOG_INFO(QStringLiteral("Nevra ended"));
    g_nvrOptions = nullptr;
    return result;
}
