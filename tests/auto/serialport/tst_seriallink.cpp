// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "classes/portlock.h"
#include "classes/seriallink.h"
#include "ptypair.h"
#include "testappdir.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QSignalSpy>
#include <QTest>

namespace {
bool openLink(SerialLink &link, const QString &name, SerialPort::Mode mode = SerialPort::Asynchronous)
{
    return link.open(name, 9600, 0, 8, 1, mode);
}
}

class tst_SerialLink : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { TestAppDir::prepare(); }
    void cleanupTestCase() { TestAppDir::cleanup(); }
    void cleanup() { QDir(TestAppDir::filePath("ports")).removeRecursively(); }

    void lossAndReturn_data()
    {
        QTest::addColumn<bool>("throughComLink");
        QTest::addColumn<SerialPort::Mode>("mode");
        QTest::newRow("device path, signalled") << false << SerialPort::Asynchronous;
        QTest::newRow("COM number, polled") << true << SerialPort::Synchronous;
    }

    void lossAndReturn()
    {
        QFETCH(bool, throughComLink);
        QFETCH(SerialPort::Mode, mode);
        PtyPair pair;
        START_PAIR(pair);
        QString name = pair.portA();
        if (throughComLink) {
            QDir(TestAppDir::path()).mkpath("ports");
            QVERIFY(QFile::link(pair.portA(), TestAppDir::filePath("ports/COM7")));
            name = QStringLiteral("COM7");
        }
        SerialLink link;
        QVERIFY2(openLink(link, name, mode), qPrintable(link.errorString()));
        QSignalSpy lost(&link, &SerialLink::connectionLost);
        QSignalSpy restored(&link, &SerialLink::connectionRestored);
        const QString deviceLock = PortLock::deviceLockPath(pair.portA());
        const bool lockFolder = QFileInfo(QFileInfo(deviceLock).path()).isWritable();
        QCOMPARE(QFile::exists(deviceLock), lockFolder);

        pair.closePeer();
        pair.stop();
        QTRY_COMPARE(lost.count(), 1);
        QCOMPARE(lost.at(0).at(0).toString(), name);
        QVERIFY(link.isWaiting() && !link.isOpen());
        // The device is free for others while it is away.
        QVERIFY(!QFile::exists(deviceLock));

        // Waiting costs next to nothing; a busy loop would use about 2000 ms here.
        const qint64 cpuBefore = processCpuMs();
        QTest::qWait(2000);
        const qint64 cpu = processCpuMs() - cpuBefore;
        QVERIFY2(cpu < 1000, qPrintable(QString::number(cpu)));
        QCOMPARE(restored.count(), 0);

        START_PAIR(pair);
        QTRY_COMPARE(restored.count(), 1);
        QCOMPARE(restored.at(0).at(0).toString(), name);
        QVERIFY(link.isOpen() && !link.isWaiting());
        QCOMPARE(link.port()->portName(), name);
        QCOMPARE(link.port()->writeBuffer("back", 0), 4);
        QCOMPARE(pair.peerRead(4), QByteArray("back"));

        // Closing on purpose ends the watch: no return is awaited.
        link.close();
        pair.closePeer();
        pair.stop();
        START_PAIR(pair);
        QTest::qWait(3 * SerialLink::watchIntervalMs);
        QVERIFY(!link.isOpen());
        QCOMPARE(lost.count(), 1);
        QCOMPARE(restored.count(), 1);
    }

    void oneOwnerPerDevice()
    {
        PtyPair pair;
        START_PAIR(pair);
        const QString deviceLock = PortLock::deviceLockPath(pair.portA());
        if (!QFileInfo(QFileInfo(deviceLock).path()).isWritable())
            QSKIP("the lock folder cannot be written here");

        // Another serial program holds the device by the lock-folder convention.
        QProcess other;
        other.start("sleep", {"60"});
        QVERIFY(other.waitForStarted());
        {
            QFile lock(deviceLock);
            QVERIFY(lock.open(QIODevice::WriteOnly));
            lock.write(QByteArray::number(other.processId()).rightJustified(10, ' ') + '\n');
        }
        SerialLink link;
        QVERIFY(!openLink(link, pair.portA()));
        QCOMPARE(link.errorString(), QStringLiteral("%1 is in use by process %2 (sleep).")
                                         .arg(pair.portA()).arg(other.processId()));
        QVERIFY(!link.isOpen());

        // Once that program is gone, its lock is stale and taken over.
        other.kill();
        QVERIFY(other.waitForFinished());
        QVERIFY2(openLink(link, pair.portA()), qPrintable(link.errorString()));
        QFile lock(deviceLock);
        QVERIFY(lock.open(QIODevice::ReadOnly));
        QCOMPARE(lock.readAll().trimmed().toLongLong(), QCoreApplication::applicationPid());
        lock.close();

        // A second owner, even in this process, is refused until the first lets go.
        SerialLink second;
        QVERIFY(!openLink(second, pair.portA()));
        QVERIFY2(second.errorString().contains(QStringLiteral("process %1").arg(QCoreApplication::applicationPid())),
                 qPrintable(second.errorString()));
        link.close();
        QVERIFY(!QFile::exists(deviceLock));
        QVERIFY2(openLink(second, pair.portA()), qPrintable(second.errorString()));
    }

    void openFailuresSayWhy()
    {
        SerialLink link;
        QVERIFY(!openLink(link, "COM96"));
        QCOMPARE(link.errorString(), QStringLiteral("COM96 has no device: %1 is not a link to one.")
                                         .arg(TestAppDir::filePath("ports/COM96")));
        const QString missing = TestAppDir::filePath("no-such-tty");
        QVERIFY(!openLink(link, missing));
        QCOMPARE(link.errorString(), QStringLiteral("%1 does not exist.").arg(missing));
        // A failed open is not watched for: nothing comes back on its own.
        QVERIFY(!link.isWaiting());
    }
};

QTEST_GUILESS_MAIN(tst_SerialLink)
#include "tst_seriallink.moc"
