// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "messageboxrecorder.h"
#include "modeltester.h"
#include "models/legendsconverttablemodel.h"
#include "testappdir.h"
#include "testfiles.h"

#include <QSettings>
#include <QSignalSpy>
#include <QTest>

namespace {
QString dataFile() { return TestAppDir::filePath(QStringLiteral("nevradat/legendsconvert.dat")); }

void writeFile(const QList<QStringList> &pairs)
{
    QSettings settings(dataFile(), QSettings::IniFormat);
    settings.beginGroup(QStringLiteral("LegendsConvert"));
    settings.setValue(QStringLiteral("count"), pairs.size());
    for (int key = 0; key < pairs.size(); ++key)
        settings.setValue(QString::number(key), pairs.at(key));
}

QStringList pairs(const LegendsConvertTableModel &model)
{
    QStringList list;
    for (int row = 0; row < model.rowCount(); ++row)
        list << model.index(row, 0).data().toString() + QLatin1Char('=') + model.index(row, 1).data().toString();
    return list;
}
}

class tst_Legends : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { TestAppDir::prepare(); }
    void cleanupTestCase() { TestAppDir::cleanup(); }
    void init() { TestAppDir::clearData(); }

    void conversions_data()
    {
        QTest::addColumn<QString>("legend");
        QTest::addColumn<QString>("fromEmbedded");
        QTest::addColumn<QString>("toEmbedded");

        QTest::newRow("short embedded legend") << "AB" << "Alpha Bravo" << "AB  ";
        QTest::newRow("converted legend") << "Alpha Bravo" << "Alpha Bravo" << "AB  ";
        QTest::newRow("unknown short") << " C " << "C" << " C  ";
        QTest::newRow("unknown long, never cut") << "Unknown" << "Unknown" << "Unknown";
        QTest::newRow("readable forms may repeat: the first wins") << "Nav One" << "Nav One" << "NAV1";
        QTest::newRow("empty") << "" << "" << "    ";
    }

    void conversions()
    {
        QFETCH(QString, legend);
        QFETCH(QString, fromEmbedded);
        QFETCH(QString, toEmbedded);

        writeFile({{QStringLiteral("AB  "), QStringLiteral("Alpha Bravo")},
                   {QStringLiteral("NAV1"), QStringLiteral("Nav One")},
                   {QStringLiteral("N1  "), QStringLiteral("Nav One")}});
        LegendsConvertTableModel model;
        QCOMPARE(model.rowCount(), 0); // the owner reads
        model.readData();
        QCOMPARE(model.convertFromEmbedded(legend), fromEmbedded);
        QCOMPARE(model.convertToEmbedded(legend), toEmbedded);
        QCOMPARE(model.embeddedLegend(QModelIndex()), QStringLiteral("    "));
        QVERIFY(model.convertedLegend(QModelIndex()).isEmpty());
    }

    void edits()
    {
        writeFile({{QStringLiteral("AB  "), QStringLiteral("Alpha Bravo")}, {QStringLiteral("CD  "), QString()}});
        LegendsConvertTableModel model;
        model.readData();
        ModelTester tester(&model);
        MessageBoxRecorder boxes;
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);

        // An embedded legend is unique, compared as padded; committing a row's own legend is no change.
        QVERIFY(!model.setData(model.index(1, 0), QStringLiteral("AB")));
        QCOMPARE(boxes.count(), 1);
        QVERIFY(!model.setData(model.index(0, 0), QStringLiteral("AB")));
        QCOMPARE(boxes.count(), 1);
        QVERIFY(!model.isModified());
        QCOMPARE(changed.count(), 0);

        QVERIFY(model.setData(model.index(1, 0), QStringLiteral("X")));
        QVERIFY(model.setData(model.index(1, 1), QStringLiteral("Alpha Bravo"))); // readable forms may repeat
        QVERIFY(!model.setData(model.index(1, 1), QStringLiteral("Alpha Bravo")));
        QVERIFY(!model.setData(model.index(1, 1), QStringLiteral("Other"), Qt::DisplayRole));
        QCOMPARE(changed.count(), 2);
        QVERIFY(model.isModified());
        QCOMPARE(pairs(model), QStringList({"AB  =Alpha Bravo", "X   =Alpha Bravo"}));

        QVERIFY(model.insertRows(1, 2));
        QCOMPARE(pairs(model), QStringList({"AB  =Alpha Bravo", "    =", "    =", "X   =Alpha Bravo"}));
        QVERIFY(!model.insertRows(5, 1));
        QVERIFY(model.removeRows(2, 1));
        QVERIFY(!model.removeRows(2, 2));

        // Saving and reading back are the editors' test; revert reads the file again.
        QVERIFY(model.submit());
        QVERIFY(model.removeRows(0, 3));
        model.revert();
        QCOMPARE(pairs(model), QStringList({"AB  =Alpha Bravo", "    =", "X   =Alpha Bravo"}));
    }

    void savingLeavesStaleKeys()
    {
        writeFile({{"A   ", "1"}, {"B   ", "2"}, {"C   ", "3"}, {"D   ", "4"}, {"E   ", "5"}});
        LegendsConvertTableModel model;
        model.readData();
        QVERIFY(model.removeRows(1, 2));
        MessageBoxRecorder boxes(QMessageBox::Save);
        QVERIFY(model.askToSave(true));

        QCOMPARE(TestFiles::iniValue(dataFile(), "LegendsConvert/count").toInt(), 3);
        QCOMPARE(TestFiles::iniValue(dataFile(), "LegendsConvert/2").toStringList(), QStringList({"E   ", "5"}));
        QCOMPARE(TestFiles::iniValue(dataFile(), "LegendsConvert/3").toStringList(), QStringList({"D   ", "4"}));
        QCOMPARE(TestFiles::iniValue(dataFile(), "LegendsConvert/4").toStringList(), QStringList({"E   ", "5"}));
        model.readData();
        QCOMPARE(pairs(model), QStringList({"A   =1", "D   =4", "E   =5"}));
    }

    void malformedFile()
    {
        QVERIFY(TestFiles::write(dataFile(), "[LegendsConvert]\ncount=4\n0=AB\n1=\n3=CD  , Charlie, extra\n"));
        LegendsConvertTableModel model;
        model.readData();
        QCOMPARE(pairs(model), QStringList({"AB=", "=", "CD=Charlie"}));

        QVERIFY(TestFiles::write(dataFile(), "[LegendsConvert]\ncount=lots\n0=AB, A\n"));
        model.readData();
        QCOMPARE(model.rowCount(), 0);

        // A damaged count does not make reading look for ever: keys stop at 65534.
        QVERIFY(TestFiles::write(dataFile(),
                                 "[LegendsConvert]\ncount=2147483647\n0=AB, A\n65534=CD, C\n65535=EF, E\n"));
        model.readData();
        QCOMPARE(pairs(model), QStringList({"AB=A", "CD=C"}));
    }
};

QTEST_MAIN(tst_Legends)
#include "tst_legends.moc"
