// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_NVRTOOL_H
#define NVR_NVRTOOL_H

#include <QByteArray>
#include <QStringList>

class QCommandLineParser;

/**
 * The command-line tool: one command per run, its results on standard
 * output. run() returns the exit code: 0 on success, 1 when the work failed
 * (one line on standard error says what), 2 when the command line is wrong.
 */
class NvrTool
{
public:
    enum ExitCode { Success = 0, Failure = 1, UsageError = 2 };

    NvrTool();
    ~NvrTool();
    int run(const QStringList &arguments);

private:
    int address(const QStringList &arguments);
    int header(const QStringList &arguments);
    int headerDecode(const QStringList &arguments);
    int headerEncode(const QStringList &arguments);
    int ports(const QStringList &arguments);
    int wav(const QStringList &arguments);
    int lib(const QStringList &arguments);
    int lookup(const QStringList &arguments);
    int monitor(const QStringList &arguments);

    /**
     * Parses a command's own arguments with the options every command takes
     * (--help, --data) added. False when the run ends here: help was shown
     * or the line was wrong; m_exitCode tells which.
     */
    bool parse(QCommandLineParser &parser, const QStringList &arguments, const QString &command,
               const QString &positional = QString());
    /// Points the library at the data directory given with --data, if any.
    bool useDataDirectory(const QString &directory);
    /// The bytes of a file, or of standard input for "-".
    bool readInput(const QString &fileName, QByteArray &bytes);

    int fail(const QString &message);
    int usageError(const QString &message);
    void print(const QByteArray &text);

    QString m_dataDirectory;
    int m_exitCode = Success;
};

#endif
