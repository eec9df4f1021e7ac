// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "consoleappender.h"

#include <cstdio>

void ConsoleAppender::append(const LogRecord &record)
{
    const QByteArray line = record.toString().toLocal8Bit();
    std::fprintf(stderr, "%s\n", line.constData());
    std::fflush(stderr);
}
