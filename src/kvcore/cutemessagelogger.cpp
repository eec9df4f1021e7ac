// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "cutemessagelogger.h"

CuteMessageLogger::CuteMessageLogger(Logger *logger, Logger::LogLevel level, const char *file, int line,
                                     const char *function)
    : m_logger(logger), m_level(level), m_file(file), m_line(line), m_function(function)
{
}

CuteMessageLogger::~CuteMessageLogger()
{
    if (m_streaming && m_logger)
        m_logger->write(m_level, m_file, m_line, m_function, m_streamed.trimmed());
}

void CuteMessageLogger::write(const QString &message)
{
    if (m_logger)
        m_logger->write(m_level, m_file, m_line, m_function, message);
}

void CuteMessageLogger::write(const char *message)
{
    write(QString::fromUtf8(message));
}

QDebug CuteMessageLogger::write()
{
    m_streaming = true;
    return QDebug(&m_streamed);
}
