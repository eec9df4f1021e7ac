// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "mainwindow.h"

#include "classes/nvroptions.h"
#include "consoleappender.h"
#include "fileappender.h"
#include "kvcore.h"
#include "logger.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDir>

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
}

int main(int argc, char **argv)
{
    QCoreApplication::setOrganizationName(QStringLiteral("Nevra"));
    QCoreApplication::setApplicationName(QStringLiteral("nevra"));
    QCoreApplication::setApplicationVersion(QStringLiteral(NEVRA_VERSION));
    std::unique_ptr<QCoreApplication> app = makeApplication(argc, argv);

    NvrOptions options(QCoreApplication::arguments());
    g_nvrOptions = &options;

    ConsoleAppender console;
    console.setDetailsLevel(LogRecord::Warning);
    cuteLoggerInstance()->registerAppender(&console);
    std::unique_ptr<FileAppender> logFile;
    if (options.logEnabled()) {
        logFile = std::make_unique<FileAppender>(options.logFileName());
        cuteLoggerInstance()->registerAppender(logFile.get());
    }
    LOG_INFO(QStringLiteral("Nevra %1 started").arg(QCoreApplication::applicationVersion()));
    // The products library is looked up from the working directory; started from a desktop menu or a
    // link in bin/, that would be the user's home. Keep it beside the other libraries instead.
    if (!QDir::setCurrent(KvCore::applicationDirPath()))
        LOG_WARNING(QStringLiteral("Cannot change to %1").arg(KvCore::applicationDirPath()));

    int result = 0;
    if (options.hideGui()) {
        LOG_INFO(QStringLiteral("Started without a window; exiting"));
    } else {
        MainWindow window(&options);
        window.show();
        result = app->exec();
    }

    LOG_INFO(QStringLiteral("Nevra ended"));
    cuteLoggerInstance()->removeAppender(&console);
    if (logFile)
        cuteLoggerInstance()->removeAppender(logFile.get());
    g_nvrOptions = nullptr;
    return result;
}
