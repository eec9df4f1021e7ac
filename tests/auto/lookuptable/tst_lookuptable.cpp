// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "classes/lookuptable.h"
#include "logcapture.h"
#include "testappdir.h"
#include "testfiles.h"

#include <QTemporaryDir>
#include <QTest>

class tst_LookUpTable : public QObject
{
    Q_OBJECT
    QTemporaryDir m_dir;
    QString path() const { return m_dir.filePath(QStringLiteral("levels.ini")); }

private Q_SLOTS:
    void initTestCase() { TestAppDir::prepare(); }
    void cleanupTestCase() { TestAppDir::cleanup(); }

    void readDataAndAssign()
    {
        QVERIFY(TestFiles::write(path(), "[other]\ncount=1\n0=9,09\n[volume]\ncount=5\n0=Off,00\n1=-3.5, 0A\n2=10,1FF\n"
                                         "3=High,zz\n4=20,0x14,extra\ndefault=Mid\n"));
        LookUpTable table(path(), QStringLiteral("volume"));
        table.readData();
        table.readData(); // again: replaces, never adds
        QCOMPARE(table.displayValues(), QStringList({"Off", "-3.5", "10", "High", "20"}));
        // Only the low 8 bits of a code count; a code that is not hex reads as 0.
        QCOMPARE(table.values(), QByteArray::fromHex("000AFF0014"));
        QCOMPARE(table.defaultValue(), QStringLiteral("Mid"));

        // Assignment takes the entries and the default, but the target keeps its own file and group.
        const QString missing = m_dir.filePath(QStringLiteral("missing.ini"));
        LookUpTable target(missing, QStringLiteral("b"));
        target = table;
        QCOMPARE(target.displayValues(), table.displayValues());
        QCOMPARE(target.values(), table.values());
        QCOMPARE(target.fileName(), missing);

        // Its own file is missing: the entries go, the default stays, and the log says why.
        LogCapture log;
        target.readData();
        QVERIFY(target.displayValues().isEmpty() && target.values().isEmpty());
        QCOMPARE(target.defaultValue(), QStringLiteral("Mid"));
        QCOMPARE(log.messages(LogRecord::Error), QStringList(missing + QStringLiteral(" does not exist.")));
    }

    void badFiles_data()
    {
        QTest::addColumn<QByteArray>("ini");
        QTest::addColumn<QStringList>("displayValues");
        QTest::addColumn<QByteArray>("values");
        QTest::addColumn<QString>("logged");

        const QString skipped = QStringLiteral("%1 [volume] %2: an entry needs a display text and a code; skipped.");
        QTest::newRow("count not a number")
            << QByteArray("[volume]\ncount=two\n0=1,01\n") << QStringList() << QByteArray() << QString();
        QTest::newRow("one-item entry")
            << QByteArray("[volume]\ncount=3\n0=1,01\n1=5\n2=9,09\n") << QStringList({"1", "9"})
            << QByteArray::fromHex("0109") << skipped.arg("%1", "1");
        QTest::newRow("missing key") << QByteArray("[volume]\ncount=2\n1=9,09\n") << QStringList({"9"})
                                     << QByteArray::fromHex("09") << skipped.arg("%1", "0");
        QTest::newRow("count far beyond the entries")
            << QByteArray("[volume]\ncount=2147483647\n0=1,01\n") << QStringList({"1"}) << QByteArray::fromHex("01")
            << QStringLiteral("%1 [volume]: count is 2147483647, but entries end at 1; the rest skipped.");
        // One entry numbered near the top of int: read at once, the gap reported in one line.
        QTest::newRow("entry numbered in the billions")
            << QByteArray("[volume]\ncount=2147483647\n0=1,01\n2147483646=9,09\n") << QStringList({"1", "9"})
            << QByteArray::fromHex("0109") << QStringLiteral("%1 [volume] 1 to 2147483645: no entries; skipped.");
        QTest::newRow("not an ini file")
            << QByteArray("\x00\x01\xff garbage ===\n", 16) << QStringList() << QByteArray() << QString();
    }

    void badFiles()
    {
        QFETCH(QByteArray, ini);
        QFETCH(QStringList, displayValues);
        QFETCH(QByteArray, values);
        QFETCH(QString, logged);

        QVERIFY(TestFiles::write(path(), ini));
        LogCapture log;
        LookUpTable table(path(), QStringLiteral("volume"));
        table.readData();
        QCOMPARE(table.displayValues(), displayValues);
        QCOMPARE(table.values(), values);
        QCOMPARE(table.defaultValue(), QString());
        QCOMPARE(log.messages(LogRecord::Error), logged.isEmpty() ? QStringList() : QStringList(logged.arg(path())));
    }

    void displayValueIndex_data()
    {
        QTest::addColumn<QStringList>("texts");
        QTest::addColumn<double>("value");
        QTest::addColumn<int>("index");

        const QStringList steps = {"0", "5", "10"};
        QTest::newRow("tie goes to the lower entry") << steps << 7.5 << 1;
        QTest::newRow("nearer above") << steps << 8.0 << 2;
        QTest::newRow("beyond the table") << steps << 12.0 << 2;
        QTest::newRow("sign ignored when snapping") << steps << -8.0 << 2;
        QTest::newRow("below the whole table gives the last index") << QStringList({"5", "10"}) << 2.0 << 1;
        QTest::newRow("text counts as 0") << QStringList({"Off", "1"}) << 0.0 << 0;
        QTest::newRow("exact pass before the magnitudes") << QStringList({"-3", "3"}) << -3.0 << 0;
        QTest::newRow("empty table") << QStringList() << 0.0 << -1;
    }

    void displayValueIndex()
    {
        QFETCH(QStringList, texts);
        QFETCH(double, value);
        QFETCH(int, index);

        QByteArray ini = "[t]\ncount=" + QByteArray::number(texts.size()) + '\n';
        for (int i = 0; i < texts.size(); ++i)
            ini += QByteArray::number(i) + '=' + texts.at(i).toLatin1() + ",0" + QByteArray::number(i) + '\n';
        QVERIFY(TestFiles::write(path(), ini));
        LookUpTable table(path(), QStringLiteral("t"));
        table.readData();
        QCOMPARE(table.displayValueIndex(value), index);
    }
};

QTEST_GUILESS_MAIN(tst_LookUpTable)
#include "tst_lookuptable.moc"
