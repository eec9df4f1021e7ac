// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "fileappender.h"
#include "kvcore.h"
#include "kvcrc.h"
#include "kvfileutils.h"
#include "kvhex.h"
#include "logcapture.h"
#include "logger.h"
#include "testfiles.h"

#include <QTemporaryDir>
#include <QTest>

class tst_KvCore : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void crc32_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("length");
        QTest::addColumn<quint32>("crc");
        QTest::newRow("check value") << QByteArray("123456789") << 9 << 0xCBF43926u;
        QTest::newRow("empty") << QByteArray() << 0 << 0u;
        QTest::newRow("length past the end") << QByteArray("123456789") << 100 << 0xCBF43926u;
        QTest::newRow("one zero byte") << QByteArray(1, '\0') << 1 << 0xD202EF8Du;
    }

    void crc32()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(int, length);
        QFETCH(quint32, crc);
        QCOMPARE(KvCrc::crc32(bytes, length), crc);
    }

    void hex()
    {
        QCOMPARE(KvHex::UintToBuffer(0x12345678u), QByteArray::fromHex("78563412"));
        QCOMPARE(KvHex::BufferToUint(QByteArray::fromHex("00FFFFFFFF"), 1), 0xFFFFFFFFu);
        QCOMPARE(KvHex::BufferToUint(QByteArray::fromHex("01")), 1u); // short buffers read as zero-padded
        QCOMPARE(KvHex::UshortToBuffer(0x2014), QByteArray::fromHex("1420"));
        QCOMPARE(KvHex::IntToString(255), QStringLiteral("0x000000FF"));
        QCOMPARE(KvHex::IntToString(-1), QStringLiteral("0xFFFFFFFF"));
        QCOMPARE(KvHex::BufferToHexString(QByteArray::fromHex("0aff10")), QStringLiteral("0A FF 10"));
        QCOMPARE(KvHex::BufferToHexString(QByteArray()), QString());
    }

    void logRecordsWhereItWasWritten()
    {
        LogCapture log;
        const int line = __LINE__ + 1;
        LOG_INFO(QStringLiteral("[%1] Closed.").arg(QStringLiteral("COM3")));
        LOG_ERROR() << "value" << 42;
        LOG_TRACE("plain");

        const QList<LogRecord> records = log.records();
        QCOMPARE(records.size(), 3);
        QCOMPARE(records[0].level, LogRecord::Info);
        QCOMPARE(records[0].message, QStringLiteral("[COM3] Closed."));
        QCOMPARE(records[0].line, line);
        QCOMPARE(records[0].file, QStringLiteral("tests/auto/kvcore/tst_kvcore"));
        QCOMPARE(records[0].function, QStringLiteral("void tst_KvCore::logRecordsWhereItWasWritten()"));
        QCOMPARE(records[1].level, LogRecord::Error);
        QCOMPARE(records[1].message, QStringLiteral("value 42"));
        QCOMPARE(log.messages(LogRecord::Trace), QStringList{QStringLiteral("plain")});

        QCOMPARE(LogRecord::sourcePath("/home/x/src/nvrcore/classes/serialport.cpp"),
                 QStringLiteral("src/nvrcore/classes/serialport"));
        QCOMPARE(LogRecord::sourcePath("/x/src/proj/apps/nevra/main.cpp"), QStringLiteral("apps/nevra/main"));
        QCOMPARE(LogRecord::sourcePath("C:\\b\\src\\kvcore\\kvhex.cpp"), QStringLiteral("src/kvcore/kvhex"));
    }

    void fileAppenderAppendsLines()
    {
        QTemporaryDir dir;
        FileAppender appender(dir.filePath(QStringLiteral("nevra.log")));
        appender.setDetailsLevel(LogRecord::Info);
        cuteLoggerInstance()->registerAppender(&appender);
        LOG_TRACE("below the level");
        LOG_INFO("first");
        LOG_ERROR("second");
        cuteLoggerInstance()->removeAppender(&appender);
        LOG_ERROR("after removal");

        const QList<QByteArray> lines = TestFiles::read(appender.fileName()).split('\n');
        QCOMPARE(lines.size(), 3); // two records and the empty rest after the last line end
        QVERIFY(lines[0].contains("[Info   ]"));
        QVERIFY(lines[0].endsWith(" first"));
        QVERIFY(lines[1].contains("tests/auto/kvcore/tst_kvcore:"));
        QVERIFY(lines[1].endsWith(" second"));
    }

    void fileExists()
    {
        QTemporaryDir dir;
        const QString file = dir.filePath(QStringLiteral("f"));
        QVERIFY(!KvFileUtils::fileExists(file));
        QVERIFY(TestFiles::write(file, QByteArray()));
        QVERIFY(KvFileUtils::fileExists(file));
        QVERIFY(!KvFileUtils::fileExists(dir.path())); // a folder is not a file
    }

    void dateTimeToString()
    {
        QCOMPARE(KvCore::dateTimeToString(QDateTime(QDate(2024, 2, 29), QTime(7, 5, 9))),
                 QStringLiteral("2024-02-29 07:05:09"));
    }
};

QTEST_GUILESS_MAIN(tst_KvCore)
#include "tst_kvcore.moc"
