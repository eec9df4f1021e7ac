// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "hostlog.h"

#include "classes/nvroptions.h"
#include "consoleappender.h"
#include "fileappender.h"
#include "logger.h"

namespace {
LogRecord::Level levelOf(QtMsgType type)
{
    switch (type) {
    case QtDebugMsg: return LogRecord::Debug;
    case QtInfoMsg: return LogRecord::Info;
    case QtWarningMsg: return LogRecord::Warning;
    case QtCriticalMsg: return LogRecord::Error;
    case QtFatalMsg: return LogRecord::Fatal;
    }
    return LogRecord::Debug;
}

void toLog(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    // Qt itself ends the process after a fatal message; the record is written first.
    cuteLoggerInstance()->write(levelOf(type), context.file, context.line, context.function, message);
}
}

HostLog::HostLog(const NvrOptions &options) : m_console(std::make_unique<ConsoleAppender>())
{
    const bool toTerminal = options.logEnabled() && options.logFileName() == QLatin1String("-");
    m_console->setDetailsLevel(toTerminal ? LogRecord::Trace : LogRecord::Warning);
    cuteLoggerInstance()->registerAppender(m_console.get());
    if (options.logEnabled() && !toTerminal) {
        m_file = std::make_unique<FileAppender>(options.logFileName());
        cuteLoggerInstance()->registerAppender(m_file.get());
    }
    m_previousHandler = qInstallMessageHandler(toLog);
}

HostLog::~HostLog()
{
    qInstallMessageHandler(m_previousHandler);
    cuteLoggerInstance()->removeAppender(m_console.get());
    if (m_file)
        cuteLoggerInstance()->removeAppender(m_file.get());
}
