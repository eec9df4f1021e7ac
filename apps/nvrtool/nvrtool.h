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
 *
 * Each command is a class of its own with a static run(tool, arguments);
 * the helpers here are what all of them share.
 */
class NvrTool
{
public:
    enum ExitCode { Success = 0, Failure = 1, UsageError = 2 };

    NvrTool();
    ~NvrTool();
    int run(const QStringList &arguments);

    /**
     * Parses a command's own arguments with the options every command takes
     * (--help, --data) added. False when the run ends here: help was shown
     * or the line was wrong; exitCode() tells which.
     */
    bool parse(QCommandLineParser &parser, const QStringList &arguments, const QString &command,
               const QString &positional = QString());
    int exitCode() const;
    /// The bytes of a file, or of standard input for "-".
    bool readInput(const QString &fileName, QByteArray &bytes);

    /// Messages go to standard error on one line each, escaped().
    int fail(const QString &message);
    int usageError(const QString &message);
    void warn(const QString &message);
    void print(const QByteArray &text);
    /// text with every control character written as \xNN, so that one value stays on one line.
    static QString escaped(const QString &text);

private:
    /// Points the library at the data directory given with --data, if any.
    bool useDataDirectory(const QString &directory);

    QString m_dataDirectory;
    int m_exitCode = Success;
};

#endif
