// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NEVRA_HOSTLOG_H
#define NEVRA_HOSTLOG_H

#include <QtGlobal>

#include <memory>

class ConsoleAppender;
class FileAppender;
class NvrOptions;

/**
 * Where the host's log goes, for as long as the object lives.
 *
 * The terminal the host was started from shows warnings and errors only;
 * with logging on (-log, -logfile FILE) every record also goes to the log
 * file, and "-logfile -" sends every record to the terminal instead of a
 * file. Qt's own messages, the models' edit traces (plain debug lines)
 * among them, are taken into the same log, so they reach the terminal only
 * when it was asked for.
 */
class HostLog
{
public:
    explicit HostLog(const NvrOptions &options);
    ~HostLog();
    HostLog(const HostLog &) = delete;
    HostLog &operator=(const HostLog &) = delete;

private:
    std::unique_ptr<ConsoleAppender> m_console;
    std::unique_ptr<FileAppender> m_file;
    QtMessageHandler m_previousHandler;
};

#endif
