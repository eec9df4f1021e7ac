// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "classes/serialport.h"
#include "logcapture.h"
#include "ptypair.h"
#include "testappdir.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QPointer>
#include <QSerialPort>
#include <QSignalSpy>
#include <QTest>
#include <QThread>
#include <QTimer>

namespace {
using PortList = QList<QPair<QString, QString>>;
using PortNumbers = QMap<int, QString>;

bool openPort(SerialPort &port, const QString &name, SerialPort::Mode mode = SerialPort::Synchronous)
{
    return port.open(name, 9600, 0, 8, 1, mode);
}

void link(const QString &comName, const QString &target)
{
    QDir(TestAppDir::path()).mkpath("ports");
    QVERIFY(QFile::link(target, TestAppDir::filePath("ports/" + comName)));
}
}

class tst_SerialPort : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { TestAppDir::prepare(); }
    void cleanupTestCase() { TestAppDir::cleanup(); }
    void cleanup() { QDir(TestAppDir::filePath("ports")).removeRecursively(); }

    void openAndClose()
    {
        PtyPair first, second;
        START_PAIR(first);
        START_PAIR(second);
        LogCapture log;
        auto *port = new SerialPort;
        QStringList events;
        connect(port, &SerialPort::opened, this, [&](const QString &name) { events << "opened " + name; });
        connect(port, &SerialPort::closed, this, [&](const QString &name) { events << "closed " + name; });

        QVERIFY(port->open(first.portA(), 19200, 2, 7, 2, SerialPort::Synchronous));
        QVERIFY(port->isOpen());
        // Reopening closes the open port first, with its signal.
        QVERIFY(openPort(*port, second.portA()));
        const QString a = first.portA(), b = second.portA();
        QCOMPARE(events, (QStringList{"opened " + a, "closed " + a, "opened " + b}));
        // The log states the settings the port took.
        QVERIFY(log.contains(LogRecord::Info,
                             QStringLiteral("[%1] Opened --> Baud=19200 Parity=EVEN Data=7 Stop=2.").arg(a)));

        // A second close does nothing; destroying an open port closes it the same way.
        events.clear();
        port->close();
        port->close();
        QCOMPARE(events, QStringList{"closed " + b});
        QVERIFY(!port->isOpen());
        QVERIFY(port->portName().isEmpty() && port->baudRate().isEmpty());
        QVERIFY(openPort(*port, a));
        events.clear();
        delete port;
        QCOMPARE(events, QStringList{"closed " + a});
    }

    void failedOpenKeepsThePort()
    {
        LogCapture log;
        SerialPort port;
        QSignalSpy errors(&port, &SerialPort::error);

        QVERIFY(!openPort(port, "COM97"));
        QCOMPARE(errors, QList<QVariantList>{{QStringLiteral("[COM97] Failed to open port.")}});
        QCOMPARE(port.portName(), QStringLiteral("COM97"));
        QVERIFY(!port.isOpen());
        QCOMPARE(port.baudRate(), QStringLiteral("9600"));

        // Writes to the unopened port fail in the write wait.
        QCOMPARE(port.writeBuffer("ab", 0), 0);
        QVERIFY(log.contains(LogRecord::Error, QStringLiteral("[COM97] Tx FAIL")));
    }

    void comNamesOpenTheirLinks_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("plain") << "COM5";
        QTest::newRow("device prefix") << "\\\\.\\COM5";
    }

    void comNamesOpenTheirLinks()
    {
        QFETCH(QString, name);
        PtyPair pair;
        START_PAIR(pair);
        link("COM5", pair.portA());
        LogCapture log;
        SerialPort port;
        QSignalSpy opened(&port, &SerialPort::opened);

        QVERIFY(openPort(port, name));
        QCOMPARE(port.portName(), QStringLiteral("COM5"));
        QCOMPARE(opened.at(0).at(0).toString(), QStringLiteral("COM5"));
        QCOMPARE(port.writeBuffer("hi", 0), 2);
        QCOMPARE(pair.peerRead(2), QByteArray("hi"));

        port.close();
        QVERIFY(QFile::remove(TestAppDir::filePath("ports/COM5")));
        QVERIFY(!openPort(port, name));
        QCOMPARE(log.messages().last(), QStringLiteral("[COM5] Failed to open port."));
    }

    void trafficAndLineControl()
    {
        PtyPair pair;
        START_PAIR(pair);
        SerialPort port;
        QCOMPARE(port.writeBuffer("ab", 100), 0); // no port
        QVERIFY(!port.setDtr(true));
        QCOMPARE(port.lineStatus(), 0);
        QVERIFY(openPort(port, pair.portA()));
        const QString name = pair.portA();
        LogCapture log;

        QCOMPARE(port.writeBuffer(QByteArray("\x01\xab\xff\x00", 4), 0), 4);
        QCOMPARE(pair.peerRead(4), QByteArray("\x01\xab\xff\x00", 4));
        QCOMPARE(port.writeString(QString::fromLatin1("A\xe9"), 0), 2);
        QCOMPARE(pair.peerRead(2), QByteArray("A\xe9"));
        QCOMPARE(port.writeBuffer(QByteArray(), 0), 0);
        // A pseudo-terminal has no modem lines: the calls fail.
        QVERIFY(!port.setDtr(true));
        QVERIFY(!port.setRts(false));
        QVERIFY(log.contains(LogRecord::Trace, QStringLiteral("[%1] Tx: 01abff00").arg(name)));
        QVERIFY(log.contains(LogRecord::Error, QStringLiteral("[%1] Tx FAIL").arg(name)));

        // Without tracing only the failure is logged.
        log.clear();
        port.traceEnabled = false;
        QCOMPARE(port.writeBuffer("xyz", 0), 3);
        QCOMPARE(pair.peerRead(3), QByteArray("xyz"));
        QCOMPARE(port.writeBuffer(QByteArray(), 0), 0);
        QVERIFY(!port.setDtr(false));
        QVERIFY(!port.setRts(true));
        QCOMPARE(log.messages(), QStringList{QStringLiteral("[%1] Tx FAIL").arg(name)});
    }

    void responseTimeout()
    {
        PtyPair pair;
        START_PAIR(pair);
        SerialPort port;
        QVERIFY(openPort(port, pair.portA()));
        QSignalSpy timeouts(&port, &SerialPort::readtimeout);

        QCOMPARE(port.writeBuffer("q", 0), 1);
        QVERIFY(!port.findChild<QTimer *>(QString(), Qt::FindDirectChildrenOnly)->isActive());

        QElapsedTimer clock;
        clock.start();
        QCOMPARE(port.writeBuffer("q", 500), 1);
        QVERIFY(pair.peerWrite("late"));
        QVERIFY(pair.waitQueuedAtA(4)); // before the time-out can fire, however slow the relay
        QVERIFY(timeouts.wait(5000));
        QVERIFY2(clock.elapsed() >= 475, qPrintable(QString::number(clock.elapsed()))); // coarse timers may be 5% early
        QTest::qWait(700);
        QCOMPARE(timeouts.count(), 1);
        // The late answer was thrown away, so it cannot mix with the next exchange.
        QCOMPARE(port.readBuffer(1, 10, 50), QByteArray());

        // An answer stops the time-out and arrives as one int per byte.
        timeouts.clear();
        QVERIFY(openPort(port, pair.portA(), SerialPort::Asynchronous));
        QSignalSpy written(&port, &SerialPort::bytesWritten);
        QList<QVariant> bytes;
        connect(&port, &SerialPort::dataReceived, this, [&](const QList<QVariant> &chunk) { bytes += chunk; });
        QCOMPARE(port.writeBuffer("ask", 500), 3);
        QTRY_COMPARE(written.count(), 1);
        QCOMPARE(written.at(0).at(0).value<qint64>(), qint64(3));
        QCOMPARE(pair.peerRead(5), QByteArray("qqask")); // after the two earlier requests
        QVERIFY(pair.peerWrite(QByteArray("\x00\x7f\x80\xff", 4)));
        QTRY_COMPARE(bytes.size(), 4);
        QCOMPARE(bytes, (QList<QVariant>{0, 127, 128, 255}));
        QCOMPARE(bytes.at(3).userType(), int(QMetaType::Int));
        QTest::qWait(900);
        QCOMPARE(timeouts.count(), 0);
    }

    void polledRead()
    {
        PtyPair pair;
        START_PAIR(pair);
        SerialPort port;
        QCOMPARE(port.readBuffer(1, 10, 100), QByteArray()); // no port
        QVERIFY(openPort(port, pair.portA()));
        QElapsedTimer clock;

        // The count is a threshold: everything there is comes back. (Without an
        // event loop the bytes stay queued at the device until the read.)
        QVERIFY(pair.peerWrite("abcdef"));
        QVERIFY(pair.waitQueuedAtA(6));
        QCOMPARE(port.readBuffer(2, 10, 100), QByteArray("abcdef"));

        // Exactly the count, the usual fixed-size answer, ends the read at once.
        QVERIFY(pair.peerWrite("four"));
        QVERIFY(pair.waitQueuedAtA(4));
        clock.start();
        QCOMPARE(port.readBuffer(4, 1000, 10000), QByteArray("four"));
        QVERIFY2(clock.elapsed() < 800, qPrintable(QString::number(clock.elapsed())));

        // Fewer than the count: one interval's sleep after the poll that brought them.
        QVERIFY(pair.peerWrite("xyz"));
        QVERIFY(pair.waitQueuedAtA(3));
        clock.start();
        QCOMPARE(port.readBuffer(10, 200, 2000), QByteArray("xyz"));
        QVERIFY2(clock.elapsed() >= 200 && clock.elapsed() < 1500, qPrintable(QString::number(clock.elapsed())));

        // Polls that bring nothing wait 5 ms each, never the interval; there are timeout / interval of them.
        clock.start();
        QCOMPARE(port.readBuffer(1, 1000, 3000), QByteArray());
        QVERIFY2(clock.elapsed() < 2500, qPrintable(QString::number(clock.elapsed())));
        clock.start();
        QCOMPARE(port.readBuffer(1, 4, 400), QByteArray());
        QVERIFY2(clock.elapsed() >= 480, qPrintable(QString::number(clock.elapsed())));
        QCOMPARE(port.readBuffer(1, 0, 100), QByteArray());
    }

    void deviceLoss_data()
    {
        QTest::addColumn<SerialPort::Mode>("mode");
        QTest::newRow("polled") << SerialPort::Synchronous;
        QTest::newRow("signalled") << SerialPort::Asynchronous;
    }

    void deviceLoss()
    {
        QFETCH(SerialPort::Mode, mode);
        PtyPair pair;
        START_PAIR(pair);
        SerialPort port;
        QVERIFY(openPort(port, pair.portA(), mode));
        QSignalSpy lost(&port, &SerialPort::connectionLost);
        QSignalSpy closed(&port, &SerialPort::closed);
        LogCapture log;

        pair.closePeer();
        pair.stop();
        if (mode == SerialPort::Synchronous) {
            // A polled read notices it without an event loop, and ends early.
            QElapsedTimer clock;
            clock.start();
            QCOMPARE(port.readBuffer(1, 10, 3000), QByteArray());
            QVERIFY2(clock.elapsed() < 2000, qPrintable(QString::number(clock.elapsed())));
            QCOMPARE(lost.count(), 1);
        }
        QTRY_COMPARE(lost.count(), 1);
        QCOMPARE(lost.at(0).at(0).toString(), pair.portA());
        QCOMPARE(closed.count(), 1);
        QVERIFY(!port.isOpen());

        // Nothing spins on the dead device: a busy loop would use about 2000 ms of CPU here.
        const qint64 cpuBefore = processCpuMs();
        QTest::qWait(2000);
        QVERIFY2(processCpuMs() - cpuBefore < 1000, qPrintable(QString::number(processCpuMs() - cpuBefore)));
        QCOMPARE(lost.count(), 1);
        const QStringList errors = log.messages(LogRecord::Error);
        QCOMPARE(errors.size(), 1);
        QVERIFY2(errors.first().startsWith(QStringLiteral("[%1] Connection lost: ").arg(pair.portA())),
                 qPrintable(errors.first()));
        QCOMPARE(port.writeBuffer("x", 0), 0);
    }

    void portMap_data()
    {
        QTest::addColumn<PortList>("ports");
        QTest::addColumn<PortNumbers>("expected");
        QTest::newRow("ordered by number, COM names only")
            << PortList{{"COM10", "Acme"}, {"COM2", "Bolt"}, {"LPT1", "Acme"}, {"com3", "lower case"}}
            << PortNumbers{{2, "COM2 Bolt"}, {10, "COM10 Acme"}};
        QTest::newRow("later same number replaces")
            << PortList{{"COM3", "first"}, {"COM03", "second"}} << PortNumbers{{3, "COM03 second"}};
        QTest::newRow("no manufacturer ends in a blank") << PortList{{"COM4", ""}} << PortNumbers{{4, "COM4 "}};
        QTest::newRow("found anywhere in the name") << PortList{{"ttyCOM7x", "Z"}}
                                                    << PortNumbers{{7, "ttyCOM7x Z"}};
    }

    void portMap()
    {
        QFETCH(PortList, ports);
        QFETCH(PortNumbers, expected);
        QCOMPARE(SerialPort::portMap(ports), expected);
    }

    void availablePortsFindsLinks()
    {
        PtyPair pair;
        START_PAIR(pair);
        QVERIFY(!SerialPort::availablePorts().contains(42));
        link("COM42", pair.portA());
        link("COM43", TestAppDir::filePath("nothing-here"));
        const PortNumbers ports = SerialPort::availablePorts();
        QCOMPARE(ports.value(42), QStringLiteral("COM42 "));
        QVERIFY(!ports.contains(43));
    }

    void closingFromAHandler()
    {
        // A host may close the port from a handler of the port's own signal: the
        // port object must outlive that delivery, and still go soon after.
        PtyPair pair;
        START_PAIR(pair);
        SerialPort port;
        QVERIFY(openPort(port, pair.portA(), SerialPort::Asynchronous));
        QPointer<QSerialPort> device = port.findChild<QSerialPort *>();
        bool survivedClose = false;
        connect(&port, &SerialPort::dataReceived, this, [&] {
            port.close();
            survivedClose = !device.isNull();
        });
        QSignalSpy closed(&port, &SerialPort::closed);
        QVERIFY(pair.peerWrite("bye"));
        QVERIFY(closed.wait(5000));
        QVERIFY(survivedClose);
        QTRY_VERIFY(device.isNull());
        QVERIFY(!port.isOpen());
    }
};

QTEST_GUILESS_MAIN(tst_SerialPort)
#include "tst_serialport.moc"
