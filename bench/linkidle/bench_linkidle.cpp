// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
//
// CPU time that owners of a serial link use while the device is away (the far
// end of a pseudo-terminal pair killed, as a pulled adapter leaves it), per
// minute, beside the same programs connected to an idle device and beside
// "cat" reading an idle pseudo-terminal. The owners are "nvrtool monitor" and
// this program run with --hold, which keeps a SerialLink open in an event loop
// as the host's terminal page does (the host itself needs a display).
// Each figure is measured over a window of the given seconds and scaled to a minute.
// Usage: bench_linkidle [seconds per window, default 10]

#include "classes/seriallink.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>
#include <QThread>

#include <unistd.h>

namespace {

qint64 cpuMs(qint64 pid)
{
    QFile stat(QStringLiteral("/proc/%1/stat").arg(pid));
    if (!stat.open(QIODevice::ReadOnly))
        return -1;
    const QByteArray line = stat.readAll();
    const QList<QByteArray> fields = line.mid(line.lastIndexOf(')') + 2).split(' ');
    return fields.size() < 13 ? -1
                              : (fields.at(11).toLongLong() + fields.at(12).toLongLong()) * 1000 / ::sysconf(_SC_CLK_TCK);
}

bool waitForLink(const QString &path)
{
    for (int i = 0; i < 500 && !QFileInfo::exists(path); ++i)
        QThread::msleep(10);
    return QFileInfo::exists(path);
}

/// A socat pair whose end B is the device; restart() brings it back under the same paths.
class Pair
{
public:
    explicit Pair(const QString &dir) : a(dir + QStringLiteral("/A")), b(dir + QStringLiteral("/B")) {}
    ~Pair() { stop(); }
    bool start()
    {
        QFile::remove(a);
        QFile::remove(b);
        socat.start(QStringLiteral("socat"), {QStringLiteral("pty,raw,echo=0,link=") + a,
                                              QStringLiteral("pty,raw,echo=0,link=") + b});
        return socat.waitForStarted() && waitForLink(a) && waitForLink(b);
    }
    void stop()
    {
        socat.kill();
        socat.waitForFinished();
    }
    const QString a, b;
    QProcess socat;
};

/// CPU milliseconds per minute that the processes use over the window.
double perMinute(const QList<qint64> &pids, int seconds)
{
    qint64 before = 0, after = 0;
    for (qint64 pid : pids)
        before += cpuMs(pid);
    QThread::sleep(seconds);
    for (qint64 pid : pids)
        after += cpuMs(pid);
    return double(after - before) * 60.0 / seconds;
}

int hold(const QString &port)
{
    SerialLink link;
    if (!link.open(port, 9600, 0, 8, 1, SerialPort::Asynchronous)) {
        QTextStream(stderr) << link.errorString() << '\n';
        return 1;
    }
    return QCoreApplication::exec();
}

}

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    if (argc == 3 && qstrcmp(argv[1], "--hold") == 0)
        return hold(QString::fromLocal8Bit(argv[2]));
    const int seconds = argc > 1 ? QString::fromLocal8Bit(argv[1]).toInt() : 10;
    QTextStream out(stdout);
    if (seconds <= 0) {
        out << "usage: " << argv[0] << " [seconds per window > 0]\n";
        return 2;
    }
    QTemporaryDir dir;
    Pair monitorPair(dir.filePath(QStringLiteral("m"))), holderPair(dir.filePath(QStringLiteral("h"))),
        anchorPair(dir.filePath(QStringLiteral("c")));
    QDir(dir.path()).mkpath(QStringLiteral("m"));
    QDir(dir.path()).mkpath(QStringLiteral("h"));
    QDir(dir.path()).mkpath(QStringLiteral("c"));
    if (!monitorPair.start() || !holderPair.start() || !anchorPair.start()) {
        out << "socat did not make pseudo-terminals\n";
        return 1;
    }

    QProcess monitor, holder, cat;
    monitor.setStandardOutputFile(QProcess::nullDevice());
    monitor.setStandardErrorFile(QProcess::nullDevice());
    monitor.start(QStringLiteral(NVRTOOL_BINARY), {QStringLiteral("monitor"), QStringLiteral("--port"), monitorPair.a});
    holder.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--hold"), holderPair.a});
    cat.setStandardInputFile(anchorPair.a);
    cat.setStandardOutputFile(QProcess::nullDevice());
    cat.start(QStringLiteral("cat"), QStringList());
    if (!monitor.waitForStarted() || !holder.waitForStarted() || !cat.waitForStarted()) {
        out << "a program did not start\n";
        return 1;
    }
    QThread::sleep(1); // past the start-up work

    const double anchor = perMinute({cat.processId()}, seconds);
    const double monitorIdle = perMinute({monitor.processId()}, seconds);
    const double holderIdle = perMinute({holder.processId()}, seconds);
    monitorPair.stop();
    holderPair.stop();
    QThread::sleep(1);
    const bool alive = monitor.state() == QProcess::Running && holder.state() == QProcess::Running;
    const double monitorAway = perMinute({monitor.processId()}, seconds);
    const double holderAway = perMinute({holder.processId()}, seconds);

    out << "CPU ms per minute, measured over " << seconds << " s windows\n";
    out << qSetFieldWidth(44) << Qt::left << "anchor: cat on an idle pseudo-terminal" << qSetFieldWidth(0) << anchor
        << '\n';
    out << qSetFieldWidth(44) << "nvrtool monitor, device idle" << qSetFieldWidth(0) << monitorIdle << '\n';
    out << qSetFieldWidth(44) << "nvrtool monitor, device away" << qSetFieldWidth(0) << monitorAway << '\n';
    out << qSetFieldWidth(44) << "SerialLink owner (host stand-in), idle" << qSetFieldWidth(0) << holderIdle << '\n';
    out << qSetFieldWidth(44) << "SerialLink owner (host stand-in), away" << qSetFieldWidth(0) << holderAway << '\n';
    out << "(a busy loop would be about 60000)\n";
    if (!alive)
        out << "a program ended while the device was away\n";
    monitor.kill();
    holder.kill();
    cat.kill();
    monitor.waitForFinished();
    holder.waitForFinished();
    cat.waitForFinished();
    return alive ? 0 : 1;
}
