// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_TEST_TOOLRUN_H
#define NVR_TEST_TOOLRUN_H

#include <QByteArray>
#include <QProcess>
#include <QStringList>

/// What a command-line program did: its exit code (-1 when it did not start or end normally) and its output.
struct ToolRun
{
    int exitCode = -1;
    QByteArray out;
    QByteArray err;

    /// Runs program with arguments, input on its standard input, and waits for it to end.
    static ToolRun run(const QString &program, const QStringList &arguments, const QByteArray &input = {})
    {
        QProcess tool;
        tool.start(program, arguments);
        ToolRun result;
        if (!tool.waitForStarted(30000))
            return result;
        tool.write(input);
        tool.closeWriteChannel();
        if (!tool.waitForFinished(60000) || tool.exitStatus() != QProcess::NormalExit)
            return result;
        result.exitCode = tool.exitCode();
        result.out = tool.readAllStandardOutput();
        result.err = tool.readAllStandardError();
        return result;
    }
};

#endif
