// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
//
// Whole-process time from starting the host to its window's first paint,
// which the host marks with the log line "Window shown". The anchor is a
// program that shows an empty main window and marks it the same way, so
// the difference is what the host's own start costs (options, libraries,
// sixteen pages). Runs on the display in DISPLAY, else offscreen; rounds
// alternate between the two programs.
// Usage: bench_hoststart [rounds]

#include "processtiming.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>
#include <QThread>

namespace {
// Milliseconds from start to the marker line in logFile, or -1.
double timeToWindow(const QString &program, const QStringList &arguments, const QString &logFile)
{
    QFile::remove(logFile);
    QElapsedTimer timer;
    timer.start();
    QProcess process;
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, arguments);
    if (!process.waitForStarted(30000))
        return -1;
    double ms = -1;
    while (timer.elapsed() < 60000 && process.state() == QProcess::Running) {
        QFile file(logFile);
        if (file.open(QIODevice::ReadOnly) && file.readAll().contains("Window shown")) {
            ms = double(timer.nsecsElapsed()) / 1e6;
            break;
        }
        QThread::usleep(500);
    }
    process.kill();
    process.waitForFinished(30000);
    return ms;
}
}

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    const int rounds = ProcessTiming::rounds(argc, argv, 10);
    if (rounds == 0)
        return 2;
    QTextStream out(stdout);
    QTextStream err(stderr);
    qputenv("QT_LOGGING_RULES", "qt.qpa.*=false");
    if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QString platform = qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") ? QStringLiteral("xcb on ")
            + qEnvironmentVariable("DISPLAY") : qEnvironmentVariable("QT_QPA_PLATFORM");

    QTemporaryDir dir;
    const QString hostLog = dir.filePath(QStringLiteral("host.log"));
    const QString anchorLog = dir.filePath(QStringLiteral("anchor.log"));
    ProcessTiming host;
    ProcessTiming anchor;
    for (int round = 0; round < rounds; ++round) {
        const double hostMs = timeToWindow(QStringLiteral(NEVRA_BINARY),
                                           {QStringLiteral("-noconnect"), QStringLiteral("-logfile"), hostLog}, hostLog);
        const double anchorMs = timeToWindow(QStringLiteral(ANCHOR_BINARY), {anchorLog}, anchorLog);
        if (hostMs < 0 || anchorMs < 0) {
            err << (hostMs < 0 ? "the host" : "the anchor") << " showed no window within 60 s\n";
            return 1;
        }
        host.add(hostMs);
        anchor.add(anchorMs);
    }
    out << "host start to first painted window, whole process, " << rounds << " rounds, platform " << platform
        << "\n";
    host.print(out, "nevra -noconnect:");
    anchor.print(out, "anchor, empty main window:");
    out << "host / anchor (medians): " << host.median() / anchor.median() << "\n";
    return 0;
}
