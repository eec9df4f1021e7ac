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


#define START_PAIR(pair) QVERIFY2((pair).start() && (pair).openPeer(), qPrintable((pair).error()))

namespace {
const char *const openFn = "virtual bool SerialPort::open(const QString&, int, int, int, int, const SerialPort::Mode&)";
const char *const closeFn = "void SerialPort::close()";
const char *const writeFn = "int SerialPort::writeBuffer(const QByteArray&, const int&)";

QString entry(LogRecord::Level level, const char *function, const QString &text)
{
    return QStringLiteral("src/nvrcore/classes/serialport %1 %2: %3")
        .arg(LogRecord::levelToString(level), QLatin1String(function), text);
}

QStringList entries(const LogCapture &log)
{
    QStringList result;
    for (const LogRecord &r : log.records())
        result.append(QStringLiteral("%1 %2 %3: %4")
                          .arg(r.file, LogRecord::levelToString(r.level), r.function, r.message));
    return result;
}

bool openPort(SerialPort &port, const QString &name, SerialPort::Mode mode = SerialPort::Synchronous)
{
    return port.open(name, 9600, 0, 8, 1, mode);
}
}

class tst_SerialPort : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void cleanup();
    void openAndClose();
    void failedOpenKeepsThePort_data();
    void failedOpenKeepsThePort();
    void comNamesOpenTheirLinks_data();
    void comNamesOpenTheirLinks();
    void trafficAndLineControl();
    void responseTimeout();
    void polledRead();
    void settingNames();
    void portMap_data();
    void portMap();
    void availablePortsFindsLinks();
    void vanishingPeer();
    void closingFromAHandler();

private:
    static void link(const QString &comName, const QString &target);
};

void tst_SerialPort::initTestCase()
{
    TestAppDir::prepare();
}

void tst_SerialPort::cleanupTestCase()
{
    TestAppDir::cleanup();
}

void tst_SerialPort::cleanup()
{
    QDir(TestAppDir::filePath(QStringLiteral("ports"))).removeRecursively();
}

void tst_SerialPort::link(const QString &comName, const QString &target)
{
    QDir(TestAppDir::path()).mkpath(QStringLiteral("ports"));
    QVERIFY(QFile::link(target, TestAppDir::filePath(QStringLiteral("ports/") + comName)));
}

void tst_SerialPort::openAndClose()
{
    PtyPair first, second;
    START_PAIR(first);
    START_PAIR(second);
    LogCapture log;
    auto *port = new SerialPort;
    QStringList events;
    connect(port, &SerialPort::opened, this, [&](const QString &name) { events << QStringLiteral("opened ") + name; });
    connect(port, &SerialPort::closed, this, [&](const QString &name) { events << QStringLiteral("closed ") + name; });

    QVERIFY(port->open(first.portA(), 19200, 2, 7, 2, SerialPort::Synchronous));
    QVERIFY(port->isOpen());
    // Reopening closes the open port first, with its log line and signal.
    QVERIFY(openPort(*port, second.portA()));
    const QString a = first.portA(), b = second.portA();
    QCOMPARE(events, (QStringList{QStringLiteral("opened ") + a, QStringLiteral("closed ") + a,
                                  QStringLiteral("opened ") + b}));
    const QString settingsA = QStringLiteral("Baud=19200 Parity=EVEN Data=7 Stop=2");
    const QString settingsB = QStringLiteral("Baud=9600 Parity=NONE Data=8 Stop=1");
    QCOMPARE(entries(log),
             (QStringList{entry(LogRecord::Trace, openFn, QStringLiteral("[%1] Opening --> %2...").arg(a, settingsA)),
                          entry(LogRecord::Info, openFn, QStringLiteral("[%1] Opened --> %2.").arg(a, settingsA)),
                          entry(LogRecord::Trace, openFn, QStringLiteral("[%1] Opening --> %2...").arg(b, settingsB)),
                          entry(LogRecord::Info, closeFn, QStringLiteral("[%1] Closed.").arg(a)),
                          entry(LogRecord::Info, openFn, QStringLiteral("[%1] Opened --> %2.").arg(b, settingsB))}));

    log.clear();
    events.clear();
    port->close();
    QVERIFY(!port->isOpen());
    QVERIFY(port->portName().isEmpty());
    QVERIFY(port->baudRate().isEmpty());
    port->close();
    QCOMPARE(events, QStringList{QStringLiteral("closed ") + b});
    QCOMPARE(entries(log), QStringList{entry(LogRecord::Info, closeFn, QStringLiteral("[%1] Closed.").arg(b))});

    // Destroying an open port closes it the same way.
    QVERIFY(openPort(*port, a));
    log.clear();
    QSignalSpy closed(port, &SerialPort::closed);
    delete port;
    QCOMPARE(closed.count(), 1);
    QCOMPARE(closed.at(0).at(0).toString(), a);
    QCOMPARE(entries(log), QStringList{entry(LogRecord::Info, closeFn, QStringLiteral("[%1] Closed.").arg(a))});
}

void tst_SerialPort::failedOpenKeepsThePort_data()
{
    QTest::addColumn<SerialPort::Mode>("mode");
    QTest::newRow("polled") << SerialPort::Synchronous;
    QTest::newRow("signalled") << SerialPort::Asynchronous;
}

void tst_SerialPort::failedOpenKeepsThePort()
{
    QFETCH(SerialPort::Mode, mode);
    LogCapture log;
    SerialPort port;
    QSignalSpy errors(&port, &SerialPort::error);
    QSignalSpy received(&port, &SerialPort::dataReceived);
    QSignalSpy written(&port, &SerialPort::bytesWritten);

    QVERIFY(!openPort(port, QStringLiteral("COM97"), mode));
    const QString message = QStringLiteral("[COM97] Failed to open port.");
    QCOMPARE(entries(log).last(), entry(LogRecord::Error, openFn, message));
    QCOMPARE(errors.count(), 1);
    QCOMPARE(errors.at(0).at(0).toString(), message);
    QCOMPARE(port.portName(), QStringLiteral("COM97"));
    QVERIFY(!port.isOpen());
    QCOMPARE(port.baudRate(), QStringLiteral("9600"));

    // The unopened port is wired in signalled mode all the same.
    auto *device = port.findChild<QSerialPort *>();
    QVERIFY(device);
    Q_EMIT device->readyRead();
    Q_EMIT device->bytesWritten(5);
    const int wired = mode == SerialPort::Asynchronous ? 1 : 0;
    QCOMPARE(received.count(), wired);
    QCOMPARE(written.count(), wired);
    if (wired)
        QCOMPARE(written.at(0).at(0).value<qint64>(), qint64(5));

    // Writes to the unopened port fail in the write wait.
    log.clear();
    QCOMPARE(port.writeBuffer("ab", 0), 0);
    QVERIFY(log.contains(LogRecord::Error, QStringLiteral("[COM97] Tx FAIL")));
}

void tst_SerialPort::comNamesOpenTheirLinks_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << QStringLiteral("COM5");
    QTest::newRow("device prefix") << QStringLiteral("\\\\.\\COM5");
}

void tst_SerialPort::comNamesOpenTheirLinks()
{
    QFETCH(QString, name);
    PtyPair pair;
    START_PAIR(pair);
    link(QStringLiteral("COM5"), pair.portA());
    LogCapture log;
    SerialPort port;
    QSignalSpy opened(&port, &SerialPort::opened);

    QVERIFY(openPort(port, name));
    QCOMPARE(port.portName(), QStringLiteral("COM5"));
    QCOMPARE(opened.at(0).at(0).toString(), QStringLiteral("COM5"));
    QCOMPARE(log.messages(),
             (QStringList{QStringLiteral("[%1] Opening --> Baud=9600 Parity=NONE Data=8 Stop=1...").arg(name),
                          QStringLiteral("[COM5] Opened --> Baud=9600 Parity=NONE Data=8 Stop=1.")}));
    QCOMPARE(port.writeBuffer("hi", 0), 2);
    QCOMPARE(pair.peerRead(2), QByteArray("hi"));

    port.close();
    QVERIFY(QFile::remove(TestAppDir::filePath(QStringLiteral("ports/COM5"))));
    log.clear();
    QVERIFY(!openPort(port, name));
    QVERIFY(log.contains(LogRecord::Error, QStringLiteral("[COM5] Failed to open port.")));
}

void tst_SerialPort::trafficAndLineControl()
{
    PtyPair pair;
    START_PAIR(pair);
    SerialPort port;
    QCOMPARE(port.writeBuffer("ab", 100), 0); // no port
    QVERIFY(!port.setDtr(true));
    QVERIFY(!port.setRts(true));
    QCOMPARE(port.lineStatus(), 0);
    QVERIFY(openPort(port, pair.portA()));
    const QString name = pair.portA();
    LogCapture log;

    QCOMPARE(port.writeBuffer(QByteArray("\x01\xab\xff\x00", 4), 0), 4);
    QCOMPARE(pair.peerRead(4), QByteArray("\x01\xab\xff\x00", 4));
    QCOMPARE(port.writeString(QString::fromLatin1("A\xe9"), 0), 2);
    QCOMPARE(pair.peerRead(2), QByteArray("A\xe9"));
    QCOMPARE(port.writeBuffer(QByteArray(), 0), 0);
    // A pseudo-terminal has no modem lines: the calls fail, but are logged.
    QVERIFY(!port.setDtr(true));
    QVERIFY(!port.setDtr(false));
    QVERIFY(!port.setRts(true));
    QVERIFY(!port.setRts(false));
    const char *dtrFn = "bool SerialPort::setDtr(const bool&)";
    const char *rtsFn = "bool SerialPort::setRts(const bool&)";
    QCOMPARE(entries(log), (QStringList{entry(LogRecord::Trace, writeFn, QStringLiteral("[%1] Tx: 01abff00").arg(name)),
                                        entry(LogRecord::Trace, writeFn, QStringLiteral("[%1] Tx: 41e9").arg(name)),
                                        entry(LogRecord::Trace, writeFn, QStringLiteral("[%1] Tx: ").arg(name)),
                                        entry(LogRecord::Error, writeFn, QStringLiteral("[%1] Tx FAIL").arg(name)),
                                        entry(LogRecord::Info, dtrFn, QStringLiteral("[%1] DTR Set").arg(name)),
                                        entry(LogRecord::Info, dtrFn, QStringLiteral("[%1] DTR Clr").arg(name)),
                                        entry(LogRecord::Info, rtsFn, QStringLiteral("[%1] RTS Set").arg(name)),
                                        entry(LogRecord::Info, rtsFn, QStringLiteral("[%1] RTS Clr").arg(name))}));

    // Without tracing only the failure is logged.
    log.clear();
    port.traceEnabled = false;
    QCOMPARE(port.writeBuffer("xyz", 0), 3);
    QCOMPARE(pair.peerRead(3), QByteArray("xyz"));
    QCOMPARE(port.writeBuffer(QByteArray(), 0), 0);
    QVERIFY(!port.setDtr(true));
    QVERIFY(!port.setRts(false));
    QCOMPARE(log.messages(), QStringList{QStringLiteral("[%1] Tx FAIL").arg(name)});
}

void tst_SerialPort::responseTimeout()
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

void tst_SerialPort::polledRead()
{
    PtyPair pair;
    START_PAIR(pair);
    SerialPort port;
    QCOMPARE(port.readBuffer(1, 10, 100), QByteArray()); // no port
    QVERIFY(openPort(port, pair.portA()));
    QElapsedTimer clock;

    // The count is a threshold: everything there is comes back. (Sleeping
    // without an event loop leaves the bytes queued at the device.)
    QVERIFY(pair.peerWrite("abcdef"));
    QThread::msleep(100);
    QCOMPARE(port.readBuffer(2, 10, 100), QByteArray("abcdef"));

    // Fewer than the count: one interval's sleep after the poll that brought them.
    QVERIFY(pair.peerWrite("xyz"));
    QThread::msleep(100);
    clock.start();
    QCOMPARE(port.readBuffer(10, 200, 1000), QByteArray("xyz"));
    QVERIFY2(clock.elapsed() >= 200 && clock.elapsed() < 900, qPrintable(QString::number(clock.elapsed())));

    // Polls that bring nothing wait 5 ms each, never the interval; there are timeout / interval of them.
    clock.start();
    QCOMPARE(port.readBuffer(1, 1000, 3000), QByteArray());
    QVERIFY2(clock.elapsed() < 900, qPrintable(QString::number(clock.elapsed())));
    clock.start();
    QCOMPARE(port.readBuffer(1, 4, 400), QByteArray());
    QVERIFY2(clock.elapsed() >= 480 && clock.elapsed() < 1800, qPrintable(QString::number(clock.elapsed())));
    QCOMPARE(port.readBuffer(1, 0, 100), QByteArray());

    // A time-out below the interval makes no poll at all.
    QVERIFY(pair.peerWrite("now"));
    QTest::qWait(100);
    clock.start();
    QCOMPARE(port.readBuffer(1, 1000, 900), QByteArray("now"));
    QVERIFY(clock.elapsed() < 500);
}

void tst_SerialPort::settingNames()
{
    const SerialPort port;
    QStringList names;
    for (int i = 0; i <= 6; ++i)
        names << port.parity(i);
    QCOMPARE(names.join(QLatin1Char('|')), QStringLiteral("NONE|INVALID|EVEN|ODD|SPACE|MARK|"));
    names.clear();
    for (int i = 0; i <= 4; ++i)
        names << port.stopBits(i);
    QCOMPARE(names.join(QLatin1Char('|')), QStringLiteral("Unknown|1|2|1.5|Unknown"));
    QCOMPARE(port.baudRate(115200) + port.dataBits(7), QStringLiteral("1152007"));
    QVERIFY((port.portName() + port.baudRate() + port.parity() + port.dataBits() + port.stopBits()).isEmpty());
}

using PortList = QList<QPair<QString, QString>>;
using PortNumbers = QMap<int, QString>;

void tst_SerialPort::portMap_data()
{
    QTest::addColumn<PortList>("ports");
    QTest::addColumn<PortNumbers>("expected");
    const auto p = [](const char *name, const char *maker) {
        return qMakePair(QString::fromLatin1(name), QString::fromLatin1(maker));
    };
    QTest::newRow("ordered by number, COM names only")
        << PortList{p("COM10", "Acme"), p("COM2", "Bolt"), p("LPT1", "Acme"), p("com3", "lower case")}
        << PortNumbers{{2, QStringLiteral("COM2 Bolt")}, {10, QStringLiteral("COM10 Acme")}};
    QTest::newRow("later same number replaces")
        << PortList{p("COM3", "first"), p("COM03", "second")} << PortNumbers{{3, QStringLiteral("COM03 second")}};
    QTest::newRow("no manufacturer ends in a blank")
        << PortList{p("COM4", "")} << PortNumbers{{4, QStringLiteral("COM4 ")}};
    QTest::newRow("found anywhere in the name")
        << PortList{p("ttyCOM7x", "Z")} << PortNumbers{{7, QStringLiteral("ttyCOM7x Z")}};
    QTest::newRow("none") << PortList{p("ttyUSB0", "Acme")} << PortNumbers{};
}

void tst_SerialPort::portMap()
{
    QFETCH(PortList, ports);
    QFETCH(PortNumbers, expected);
    QCOMPARE(SerialPort::portMap(ports), expected);
}

void tst_SerialPort::availablePortsFindsLinks()
{
    PtyPair pair;
    START_PAIR(pair);
    QVERIFY(!SerialPort::availablePorts().contains(42));
    link(QStringLiteral("COM42"), pair.portA());
    link(QStringLiteral("COM43"), TestAppDir::filePath(QStringLiteral("nothing-here")));
    const PortNumbers ports = SerialPort::availablePorts();
    QCOMPARE(ports.value(42), QStringLiteral("COM42 "));
    QVERIFY(!ports.contains(43));
}

void tst_SerialPort::vanishingPeer()
{
    LogCapture log;
    SerialPort port;
    QSignalSpy timeouts(&port, &SerialPort::readtimeout);
    {
        PtyPair pair;
        START_PAIR(pair);
        QVERIFY(openPort(port, pair.portA(), SerialPort::Asynchronous));
        pair.stop();
        const QString name = pair.portA();
        QCOMPARE(port.writeBuffer(QByteArray(4096, 'x'), 300), 0);
        QVERIFY(log.contains(LogRecord::Error, QStringLiteral("[%1] Tx FAIL").arg(name)));
        QVERIFY(timeouts.wait(5000));
        QCOMPARE(port.readBuffer(1, 10, 50), QByteArray());
    }
    QCOMPARE(timeouts.count(), 1);

    PtyPair fresh;
    START_PAIR(fresh);
    QVERIFY(openPort(port, fresh.portA(), SerialPort::Asynchronous));
    QCOMPARE(port.writeBuffer("ok", 0), 2);
    QCOMPARE(fresh.peerRead(2), QByteArray("ok"));
}

void tst_SerialPort::closingFromAHandler()
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

QTEST_GUILESS_MAIN(tst_SerialPort)
#include "tst_serialport.moc"
