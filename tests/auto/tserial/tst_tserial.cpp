// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "classes/tserial.h"
#include "ptypair.h"
#include "testappdir.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

namespace {
QString describe(const termios &tio)
{
    return QStringLiteral("speed %1 iflag %2 oflag %3 cflag %4 lflag %5 cc %6")
        .arg(cfgetospeed(&tio))
        .arg(tio.c_iflag, 0, 16)
        .arg(tio.c_oflag, 0, 16)
        .arg(tio.c_cflag, 0, 16)
        .arg(tio.c_lflag, 0, 16)
        .arg(QString::fromLatin1(QByteArray(reinterpret_cast<const char *>(tio.c_cc), NCCS).toHex()));
}
}

class tst_Tserial : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { TestAppDir::prepare(); }

    void cleanupTestCase()
    {
        QDir(TestAppDir::filePath(QStringLiteral("ports"))).removeRecursively();
        TestAppDir::cleanup();
    }

    void secondConnectAppliesTheSettings_data()
    {
        QTest::addColumn<int>("parity");
        QTest::newRow("none") << int(parityNone);
        QTest::newRow("odd") << int(parityOdd);
        QTest::newRow("even") << int(parityEven);
    }

    void secondConnectAppliesTheSettings()
    {
        QFETCH(int, parity);
        PtyPair pair;
        START_PAIR(pair);
        // Give the device settings of its own, to see whether connect() touches them.
        const int probe = ::open(QFile::encodeName(pair.deviceA()).constData(), O_RDWR | O_NOCTTY | O_NONBLOCK);
        QVERIFY(probe >= 0);
        termios tio{};
        QCOMPARE(::tcgetattr(probe, &tio), 0);
        ::cfsetispeed(&tio, B1200);
        ::cfsetospeed(&tio, B1200);
        tio.c_cflag |= CSTOPB | PARODD;
        tio.c_iflag |= IXON;
        tio.c_lflag |= ICANON | ECHO;
        tio.c_cc[VSTART] = 1;
        tio.c_cc[VSTOP] = 2;
        tio.c_cc[VMIN] = 0;
        tio.c_cc[VTIME] = 7;
        QCOMPARE(::tcsetattr(probe, TCSANOW, &tio), 0);
        QCOMPARE(::tcgetattr(probe, &tio), 0);
        const QString before = describe(tio);

        Tserial line;
        const QByteArray name = QFile::encodeName(pair.portA());
        QCOMPARE(line.connect(name.constData(), 9600, 1, 1, serial_parity(parity)), 0);
        QVERIFY(line.isConnected());
        QCOMPARE(::tcgetattr(probe, &tio), 0);
        QCOMPARE(describe(tio), before);

        QCOMPARE(line.connect(name.constData(), 9600, 1, 1, serial_parity(parity)), 0);
        QCOMPARE(::tcgetattr(probe, &tio), 0);
        ::close(probe);
        QCOMPARE(cfgetospeed(&tio), speed_t(B9600));
        QCOMPARE(tio.c_cflag & (CSIZE | CSTOPB), tcflag_t(CS8));
        QCOMPARE(bool(tio.c_cflag & PARODD), parity == parityOdd);
        QCOMPARE(bool(tio.c_iflag & INPCK), parity != parityNone);
        QCOMPARE(tio.c_lflag & (ICANON | ECHO), tcflag_t(0));
        QCOMPARE(tio.c_iflag & IXON, tcflag_t(0));
        QCOMPARE(tio.c_cc[VSTART], cc_t(0x13));
        QCOMPARE(tio.c_cc[VSTOP], cc_t(0x19));
        // The read time-outs stay as the device had them.
        QCOMPARE(tio.c_cc[VMIN], cc_t(0));
        QCOMPARE(tio.c_cc[VTIME], cc_t(7));
    }

    void connectFailuresAndNames()
    {
        PtyPair pair;
        START_PAIR(pair);
        Tserial line;
        char buffer[4] = {};
        QCOMPARE(line.connect(nullptr, 9600, 1, 1, parityNone), 16);
        QVERIFY(!line.isConnected());
        QCOMPARE(line.connect("/nonexistent/tty", 9600, 1, 1, parityNone), 8);
        QVERIFY(!line.isConnected());
        QCOMPARE(line.connect("COM9", 9600, 1, 1, parityNone), 8);

        // Without a device nothing blocks and nothing is read.
        line.sendArray("ab", 2);
        QCOMPARE(line.getChar(), '\0');
        QCOMPARE(line.getArray(buffer, 4), 0);
        QCOMPARE(line.getNbrOfBytes(), 0);
        QCOMPARE(line.flush_rx(), 0);
        QCOMPARE(line.getArrayIfThere(buffer, 4, 1, 3), 0);

        QDir(TestAppDir::path()).mkpath(QStringLiteral("ports"));
        QVERIFY(QFile::link(pair.portA(), TestAppDir::filePath(QStringLiteral("ports/COM9"))));
        for (const char *name : {"COM9", "\\\\.\\COM9"}) {
            QCOMPARE(line.connect(name, 9600, 1, 1, parityNone), 0);
            line.sendArray("hi", 2);
            QCOMPARE(pair.peerRead(2), QByteArray("hi"));
            line.disconnect();
            QVERIFY(!line.isConnected());
        }

        // Device paths of up to 63 characters fit; a longer one is refused even if it exists.
        QTemporaryDir dir;
        const QString base = dir.path() + QLatin1Char('/');
        QVERIFY(base.size() < 60);
        const QString longest = base + QString(63 - base.size(), QLatin1Char('n'));
        QVERIFY(QFile::link(pair.portA(), longest));
        QVERIFY(QFile::link(pair.portA(), longest + QLatin1Char('n')));
        QCOMPARE(line.connect(QFile::encodeName(longest).constData(), 9600, 1, 1, parityNone), 0);
        line.disconnect();
        QCOMPARE(line.connect(QFile::encodeName(longest + QLatin1Char('n')).constData(), 9600, 1, 1, parityNone), 8);
        QVERIFY(!line.isConnected());
    }

    void transfers()
    {
        PtyPair pair;
        START_PAIR(pair);
        Tserial line;
        const QByteArray name = QFile::encodeName(pair.portA());
        QCOMPARE(line.connect(name.constData(), 115200, 1, 1, parityNone), 0);
        QCOMPARE(line.connect(name.constData(), 115200, 1, 1, parityNone), 0);

        line.sendChar('A');
        line.sendArray("bcd", 3);
        QCOMPARE(pair.peerRead(4), QByteArray("Abcd"));

        // The result is the queued count, which may exceed what was copied.
        char buffer[8];
        memset(buffer, 'x', sizeof buffer);
        QVERIFY(pair.peerWrite("abcdef"));
        QTRY_COMPARE(line.getNbrOfBytes(), 6);
        QCOMPARE(line.getArrayIfThere(buffer, 4, 10, 5), 6);
        QCOMPARE(QByteArray(buffer, 8), QByteArray("abcdxxxx"));

        // Fewer than asked: every poll is made before what is there is copied.
        QElapsedTimer clock;
        clock.start();
        QCOMPARE(line.getArrayIfThere(buffer, 4, 10, 5), 2);
        QVERIFY2(clock.elapsed() >= 50 && clock.elapsed() < 2000, qPrintable(QString::number(clock.elapsed())));
        QCOMPARE(QByteArray(buffer, 4), QByteArray("efcd"));
        QCOMPARE(line.getArrayIfThere(buffer, 4, 10, 5), 0);

        QVERIFY(pair.peerWrite("z"));
        QTRY_COMPARE(line.getNbrOfBytes(), 1);
        QCOMPARE(line.getCharIfThere(10, 0), '\0');
        QCOMPARE(line.getNbrOfBytes(), 1);
        QCOMPARE(line.getCharIfThere(10, 3), 'z');

        QVERIFY(pair.peerWrite("123"));
        QTRY_COMPARE(line.getNbrOfBytes(), 3);
        QCOMPARE(line.flush_rx(), 3);
        QCOMPARE(line.getNbrOfBytes(), 0);

        // Blocking reads, only with data waiting so that they cannot hang.
        QVERIFY(pair.peerWrite("45"));
        QTRY_COMPARE(line.getNbrOfBytes(), 2);
        QCOMPARE(line.getChar(), '4');
        QCOMPARE(line.getArray(buffer, 8), 1);
        QCOMPARE(buffer[0], '5');
    }
};

QTEST_GUILESS_MAIN(tst_Tserial)
#include "tst_tserial.moc"
