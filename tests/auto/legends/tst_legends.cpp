// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "messageboxrecorder.h"
#include "modeltester.h"
#include "models/legendsconverttablemodel.h"
#include "testappdir.h"

#include <QFile>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>

namespace {
const QString filePath = QStringLiteral("nevradat/legendsconvert.dat");

void writeFile(const QList<QStringList> &pairs)
{
    QSettings settings(TestAppDir::filePath(filePath), QSettings::IniFormat);
    settings.beginGroup(QStringLiteral("LegendsConvert"));
    settings.setValue(QStringLiteral("count"), pairs.size());
    for (int key = 0; key < pairs.size(); ++key)
        settings.setValue(QString::number(key), pairs.at(key));
}

QVariant fileValue(const QString &key)
{
    return QSettings(TestAppDir::filePath(filePath), QSettings::IniFormat)
        .value(QStringLiteral("LegendsConvert/") + key);
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

    void conversions_data();
    void conversions();
    void edits();
    void savingLeavesStaleKeys();
    void malformedFile();
};

void tst_Legends::conversions_data()
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

void tst_Legends::conversions()
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

void tst_Legends::edits()
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
    QCOMPARE(boxes.last().title, QStringLiteral("Legend Already Exists"));
    QCOMPARE(boxes.last().text, QStringLiteral("The legend 'AB' already exists in the file."));
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
    QCOMPARE(model.headerData(0, Qt::Vertical).toString(), QStringLiteral("Embedded Legend"));

    // Saving and reading back are the editors' test; revert reads the file again.
    QVERIFY(model.submit());
    QVERIFY(model.removeRows(0, 3));
    model.revert();
    QCOMPARE(pairs(model), QStringList({"AB  =Alpha Bravo", "    =", "X   =Alpha Bravo"}));
}

void tst_Legends::savingLeavesStaleKeys()
{
    writeFile({{"A   ", "1"}, {"B   ", "2"}, {"C   ", "3"}, {"D   ", "4"}, {"E   ", "5"}});
    LegendsConvertTableModel model;
    model.readData();
    QVERIFY(model.removeRows(1, 2));
    MessageBoxRecorder boxes(QMessageBox::Save);
    QVERIFY(model.askToSave(true));
    QCOMPARE(boxes.last().text, QStringLiteral("The file 'LegendsConvertTableModel' has been modified."));

    QCOMPARE(fileValue(QStringLiteral("count")).toInt(), 3);
    QCOMPARE(fileValue(QStringLiteral("2")).toStringList(), QStringList({"E   ", "5"}));
    QCOMPARE(fileValue(QStringLiteral("3")).toStringList(), QStringList({"D   ", "4"}));
    QCOMPARE(fileValue(QStringLiteral("4")).toStringList(), QStringList({"E   ", "5"}));
    model.readData();
    QCOMPARE(pairs(model), QStringList({"A   =1", "D   =4", "E   =5"}));
}

void tst_Legends::malformedFile()
{
    QFile file(TestAppDir::filePath(filePath));
    QVERIFY(file.open(QFile::WriteOnly));
    file.write("[LegendsConvert]\ncount=4\n0=AB\n1=\n3=CD  , Charlie, extra\n");
    file.close();
    LegendsConvertTableModel model;
    model.readData();
    QCOMPARE(pairs(model), QStringList({"AB=", "=", "CD=Charlie"}));

    QVERIFY(file.open(QFile::WriteOnly));
    file.write("[LegendsConvert]\ncount=lots\n0=AB, A\n");
    file.close();
    model.readData();
    QCOMPARE(model.rowCount(), 0);

    // A damaged count does not make reading look for ever: keys stop at 65534.
    QVERIFY(file.open(QFile::WriteOnly));
    file.write("[LegendsConvert]\ncount=2147483647\n0=AB, A\n65534=CD, C\n65535=EF, E\n");
    file.close();
    model.readData();
    QCOMPARE(pairs(model), QStringList({"AB=A", "CD=C"}));
}

QTEST_MAIN(tst_Legends)
#include "tst_legends.moc"
