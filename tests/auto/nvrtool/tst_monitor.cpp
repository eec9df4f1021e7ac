// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "classes/seriallink.h"
#include "ptypair.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

namespace {
const QString stampPattern = QStringLiteral("\\d\\d:\\d\\d:\\d\\d\\.\\d\\d\\d ");

/// nvrtool monitor as a script runs it: pipes on all three standard streams.
class Monitor : public QProcess
{
public:
    explicit Monitor(const QStringList &arguments)
    {
        start(QStringLiteral(NVRTOOL_BINARY), QStringList{QStringLiteral("monitor")} + arguments);
    }
    ~Monitor() override
    {
        if (state() != NotRunning) {
            kill();
            waitForFinished();
        }
    }
    QByteArray out;
    QByteArray err;
    /// Writes to the monitor's standard input now, not when an event loop next runs.
    void send(const QByteArray &bytes)
    {
        write(bytes);
        waitForBytesWritten(5000);
    }
    void collect()
    {
        out += readAllStandardOutput();
        err += readAllStandardError();
    }
    /// Waits for the text on the stream, reading as it comes.
    bool waitFor(const QByteArray &text, QByteArray Monitor::*stream, int timeoutMs = 10000)
    {
        QElapsedTimer clock;
        clock.start();
        while (!(this->*stream).contains(text) && clock.elapsed() < timeoutMs) {
            waitForReadyRead(50);
            collect();
        }
        return (this->*stream).contains(text);
    }
    bool finishedWith(int code, int timeoutMs = 10000)
    {
        const bool finished = waitForFinished(timeoutMs);
        collect();
        return finished && exitStatus() == NormalExit && exitCode() == code;
    }
};
}

class tst_Monitor : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void showsAndSends_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QByteArray>("sent");
        QTest::addColumn<QByteArray>("answer");
        QTest::addColumn<QString>("shown"); // a pattern for standard output

        QTest::newRow("text, cr by default") << QStringList() << QByteArray("ID\r") << QByteArray("OK 1\r\n")
                                             << QStringLiteral("OK 1\r\n");
        QTest::newRow("hex, crlf") << QStringList{"--hex", "--eol", "crlf"} << QByteArray("ID\r\n")
                                   << QByteArray("A\x01\xff ", 4) << QStringLiteral("RX 41 01 FF 20  A.. \n");
        QTest::newRow("timestamps at line starts, lf")
            << QStringList{"--timestamps", "--eol", "lf"} << QByteArray("ID\n") << QByteArray("a\nbc\n")
            << QStringLiteral("%1a\n%1bc\n").arg(stampPattern);
        QTest::newRow("hex with timestamps, none") << QStringList{"--hex", "--timestamps", "--eol", "none"}
                                                   << QByteArray("ID") << QByteArray("\r")
                                                   << QStringLiteral("%1RX 0D  \\.\n").arg(stampPattern);
    }

    void showsAndSends()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QByteArray, sent);
        QFETCH(QByteArray, answer);
        QFETCH(QString, shown);
        PtyPair pair;
        START_PAIR(pair);
        QTemporaryDir dir;
        const QString logName = dir.filePath("monitor.log");
        Monitor monitor(arguments + QStringList{"--port", pair.portA(), "--log", logName});
        QVERIFY(monitor.waitForStarted());

        monitor.send("ID\n");
        QCOMPARE(pair.peerRead(sent.size(), 10000), sent);
        QVERIFY(pair.peerWrite(answer));
        const QRegularExpression expected(QRegularExpression::anchoredPattern(shown));
        QElapsedTimer clock;
        clock.start();
        while (!expected.match(QString::fromLatin1(monitor.out)).hasMatch() && clock.elapsed() < 10000) {
            monitor.waitForReadyRead(50);
            monitor.collect();
        }
        QVERIFY2(expected.match(QString::fromLatin1(monitor.out)).hasMatch(), monitor.out.toHex(' ').constData());

        // The end of the input leaves time for answers, then ends the run.
        clock.start();
        monitor.closeWriteChannel();
        QVERIFY(monitor.finishedWith(0));
        QVERIFY2(clock.elapsed() >= 450, qPrintable(QString::number(clock.elapsed())));
        QCOMPARE(monitor.err, QByteArray());
        QCOMPARE(pair.peerRead(1, 100), QByteArray()); // the line ending and nothing more

        // The log holds what was shown, every line with a time stamp.
        QFile log(logName);
        QVERIFY(log.open(QIODevice::ReadOnly));
        QString logged = QString::fromLatin1(log.readAll());
        QVERIFY2(logged.endsWith('\n'), qPrintable(logged));
        QCOMPARE(logged.remove(QRegularExpression("^" + stampPattern, QRegularExpression::MultilineOption)),
                 QString::fromLatin1(monitor.out).remove(QRegularExpression("^" + stampPattern,
                                                                             QRegularExpression::MultilineOption)));
    }

    void waitsForTheDevice()
    {
        PtyPair pair;
        START_PAIR(pair);
        Monitor monitor({"--port", pair.portA()});
        QVERIFY(monitor.waitForStarted());
        monitor.send("one\n");
        QCOMPARE(pair.peerRead(4, 10000), QByteArray("one\r"));

        pair.closePeer();
        pair.stop();
        const QByteArray lost = "disconnected: " + pair.portA().toLocal8Bit() + '\n';
        QVERIFY2(monitor.waitFor(lost, &Monitor::err), monitor.err.constData());

        // Away: idle (a busy loop would use about 2000 ms), and input is dropped with one note.
        const qint64 cpuBefore = processCpuMs(monitor.processId());
        monitor.send("lost 1\nlost 2\n");
        QTest::qWait(2000);
        const qint64 cpu = processCpuMs(monitor.processId()) - cpuBefore;
        QVERIFY2(cpu < 1000, qPrintable(QString::number(cpu)));
        QVERIFY(monitor.waitFor("not connected", &Monitor::err));
        QVERIFY2(monitor.err.count('\n') == 2, monitor.err.constData());

        START_PAIR(pair);
        const QByteArray back = "reconnected: " + pair.portA().toLocal8Bit() + '\n';
        QVERIFY2(monitor.waitFor(back, &Monitor::err), monitor.err.constData());
        monitor.send("two\n");
        QVERIFY2(pair.peerRead(4, 10000) == "two\r", monitor.err.constData());
        QVERIFY(pair.peerWrite("ok\n"));
        QVERIFY(monitor.waitFor("ok\n", &Monitor::out));
        QCOMPARE(monitor.err.count('\n'), 3);
        QVERIFY(monitor.err.startsWith(lost));
        QVERIFY(monitor.err.endsWith(back));

        // Stopped by a signal while input is still open: exit code 0.
        monitor.terminate();
        QVERIFY(monitor.finishedWith(0));
    }

    void oneOwnerAndStartFailures()
    {
        PtyPair pair;
        START_PAIR(pair);
        {
            // This process holds the port: the monitor says so, with the pid.
            SerialLink link;
            QVERIFY(link.open(pair.portA(), 9600, 0, 8, 1, SerialPort::Asynchronous));
            Monitor monitor({"--port", pair.portA()});
            QVERIFY(monitor.finishedWith(1));
            QVERIFY2(monitor.err.contains(QByteArray::number(QCoreApplication::applicationPid())),
                     monitor.err.constData());
        }

        // The monitor holds it: others are told its pid; SIGINT ends it and frees the port.
        Monitor monitor({"--port", pair.portA()});
        QVERIFY(monitor.waitForStarted());
        monitor.send("x\n");
        QCOMPARE(pair.peerRead(2, 10000), QByteArray("x\r")); // it has the port now
        SerialLink link;
        QVERIFY(!link.open(pair.portA(), 9600, 0, 8, 1, SerialPort::Asynchronous));
        QCOMPARE(link.errorString(),
                 QStringLiteral("%1 is in use by process %2 (nvrtool).").arg(pair.portA()).arg(monitor.processId()));
        ::kill(pid_t(monitor.processId()), SIGINT);
        QVERIFY(monitor.finishedWith(0));
        QVERIFY2(link.open(pair.portA(), 9600, 0, 8, 1, SerialPort::Asynchronous), qPrintable(link.errorString()));

        Monitor missing({"--port", "/dev/no-such-tty"});
        QVERIFY(missing.finishedWith(1));
        QCOMPARE(missing.err, QByteArray("nvrtool: /dev/no-such-tty does not exist.\n"));
        Monitor wrong({"--port", pair.portA(), "--eol", "cr-lf"});
        QVERIFY(wrong.finishedWith(2));
        Monitor help({"--help"});
        QVERIFY(help.finishedWith(0));
        QVERIFY(help.out.contains("default: 9600"));
    }
};

QTEST_GUILESS_MAIN(tst_Monitor)
#include "tst_monitor.moc"
