// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "fileappender.h"

FileAppender::FileAppender(const QString &fileName) : m_file(fileName)
{
}

FileAppender::~FileAppender() = default;

QString FileAppender::fileName() const
{
    return m_file.fileName();
}

void FileAppender::append(const LogRecord &record)
{
    if (!m_file.isOpen() && !m_file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Text))
        return;
    m_file.write(record.toString().toUtf8());
    m_file.write("\n");
    m_file.flush();
}
