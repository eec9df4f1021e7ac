// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "messageboxrecorder.h"
#include "modeltester.h"
#include "models/headsetsmodel.h"
#include "testappdir.h"
#include "testfiles.h"

#include <QFile>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>

namespace {
QString basePath() { return TestAppDir::filePath(QStringLiteral("nevradat/headsetsbase.dat")); }
QString userPath() { return TestAppDir::filePath(QStringLiteral("nevradat/headsetsuser.dat")); }

/// Writes a user file: count, optionally autoincid, and the records under keys 0, 1, ...
void writeUserFile(const QList<QStringList> &records, const QVariant &autoIncId = QVariant())
{
    QSettings settings(userPath(), QSettings::IniFormat);
    settings.beginGroup(QStringLiteral("HeadSets"));
    settings.setValue(QStringLiteral("count"), records.size());
    if (autoIncId.isValid())
        settings.setValue(QStringLiteral("autoincid"), autoIncId);
    for (int key = 0; key < records.size(); ++key)
        settings.setValue(QString::number(key), records.at(key));
}

QStringList userRecord(int id, const QString &name, const QString &model = QStringLiteral("M"))
{
    return {QString::number(id), name, model, QStringLiteral("5.00"), QStringLiteral("300"), QStringLiteral("pd"),
            QStringLiteral("0.500"), QStringLiteral("md")};
}

QStringList row(const HeadSetsModel &model, int row)
{
    QStringList texts;
    for (int column = 0; column < HeadSetsModel::SelectStringColumn; ++column)
        texts << model.index(row, column).data(Qt::EditRole).toString();
    return texts;
}

QList<int> ids(const HeadSetsModel &model)
{
    QList<int> list;
    for (int r = 0; r < model.rowCount(); ++r)
        list << model.id(model.index(r, 0));
    return list;
}
}

class tst_HeadSets : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { TestAppDir::prepare(); }
    void cleanupTestCase() { TestAppDir::cleanup(); }
    void init() { TestAppDir::clearData(); }

    void factoryTableAndDisplay()
    {
        HeadSetsModel factory;
        factory.readData();

        const QList<int> factoryIds = {1, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22};
        QCOMPARE(ids(factory), factoryIds);

        // Both files are made: the base file with every record under its row, the user file empty.
        QCOMPARE(TestFiles::iniValue(basePath(), "HeadSets/count").toInt(), 14);
        QCOMPARE(TestFiles::iniValue(basePath(), "HeadSets/5").toStringList(), row(factory, 5));
        QCOMPARE(TestFiles::iniValue(userPath(), "HeadSets/count").toInt(), 0);
        QCOMPARE(TestFiles::iniValue(userPath(), "HeadSets/autoincid").toInt(), 200);

        // A rebuild of a lost base file keeps the user's records and next id.
        writeUserFile({userRecord(203, QStringLiteral("Acme"))}, 207);
        QVERIFY(QFile::remove(basePath()));
        HeadSetsModel rebuilt;
        rebuilt.readData();
        QCOMPARE(ids(rebuilt), factoryIds + QList<int>{203});
        QCOMPARE(rebuilt.nextId(), 207);
        QCOMPARE(TestFiles::iniValue(userPath(), "HeadSets/0").toStringList(),
                 userRecord(203, QStringLiteral("Acme")));
        QVERIFY(!rebuilt.isModified());

        HeadSetsModel &model = rebuilt;
        const QModelIndex base = model.locate(15u);
        const QModelIndex user = model.locate(QStringLiteral("Acme"), QStringLiteral("M"));
        QCOMPARE(user.column(), int(HeadSetsModel::ManufacturerColumn));
        QCOMPARE(model.locate(203u), user.siblingAtColumn(0));
        QVERIFY(!model.locate(QStringLiteral("acme"), QStringLiteral("M")).isValid());
        QVERIFY(!model.locate(200u).isValid());

        const auto display = [&](const QModelIndex &index, int column) { return index.siblingAtColumn(column).data(); };
        QCOMPARE(display(user, 3).toString(), QStringLiteral("5.00 Vrms"));
        QCOMPARE(display(user, 4).toString(), QStringLiteral("300 Ohms"));
        QCOMPARE(display(user, 8).toString(),
                 QStringLiteral("Acme M [Impedance = 300, MIC Input = 0.500, Phones Output = 5.00]"));

        // The factory record is read-only in every column; the user record in none but the id.
        for (int column = 0; column < HeadSetsModel::ColumnCount; ++column) {
            const QModelIndex cell = base.siblingAtColumn(column);
            QVERIFY(!(model.flags(cell) & Qt::ItemIsEditable));
            QVERIFY(!model.setData(cell, QStringLiteral("2.00")));
            QCOMPARE(bool(model.flags(user.siblingAtColumn(column)) & Qt::ItemIsEditable), column != 0);
        }
    }

    void edits_data()
    {
        QTest::addColumn<int>("column");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("title"); // empty when the value is accepted
        QTest::addColumn<QString>("text");

        const QString invalid = QStringLiteral("Invalid Entry");
        const QString decimals = QStringLiteral("Invalid character entered; use 0-9 and . only!");
        const QString range = QStringLiteral("Out of Range");
        const QString receive = QStringLiteral("The Receive Level must be between 1.00 and 10.0");
        const QString mic = QStringLiteral("The Mic Level must be between 0.01 and 1.00");
        QTest::newRow("phones at the top") << 3 << "10.0" << "" << "";
        QTest::newRow("phones at the bottom") << 3 << "1" << "" << "";
        QTest::newRow("phones above") << 3 << "10.01" << range << receive;
        QTest::newRow("phones decimal comma") << 3 << "1,5" << invalid << decimals;
        QTest::newRow("phones not a number") << 3 << "nan" << range << receive;
        QTest::newRow("impedance") << 4 << "150" << "" << "";
        QTest::newRow("impedance with letters") << 4 << "15O" << invalid
                                                << QStringLiteral("Invalid character entered; use 0-9 only!");
        QTest::newRow("mic at the bottom") << 6 << "0.01" << "" << "";
        QTest::newRow("mic at the top") << 6 << "1.0" << "" << "";
        QTest::newRow("mic below") << 6 << "0.005" << range << mic;
        QTest::newRow("descriptions are free") << 5 << "anything, at all" << "" << "";
        QTest::newRow("manufacturer of a factory model") << 1 << "Bose" << "Duplicate Record"
                                                         << "The name Bose A20 already exists in the file.";
        QTest::newRow("model of another user record") << 2 << "B2" << "Duplicate Record"
                                                      << "The name Acme B2 already exists in the file.";
        QTest::newRow("case makes a new key") << 2 << "b2" << "" << "";
    }

    void edits()
    {
        QFETCH(int, column);
        QFETCH(QString, value);
        QFETCH(QString, title);
        QFETCH(QString, text);

        writeUserFile({userRecord(200, QStringLiteral("Acme"), QStringLiteral("A20")),
                       userRecord(201, QStringLiteral("Acme"), QStringLiteral("B2"))});
        HeadSetsModel model;
        model.readData();
        ModelTester tester(&model);
        const QModelIndex cell = model.locate(200u).siblingAtColumn(column);
        const QStringList before = row(model, cell.row());
        const QString summaryBefore = cell.siblingAtColumn(8).data().toString();
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        MessageBoxRecorder boxes;

        const bool accepted = title.isEmpty();
        QCOMPARE(model.setData(cell, value), accepted);
        QCOMPARE(model.isModified(), accepted);
        QCOMPARE(changed.count(), accepted ? 1 : 0);
        if (accepted) {
            QCOMPARE(boxes.count(), 0);
            QCOMPARE(cell.data(Qt::EditRole).toString(), value);
            // Everything the summary shows follows the edit; the descriptions are not part of it.
            QCOMPARE(changed.first().at(1).toModelIndex().column(), column == 5 ? 5 : 8);
            QCOMPARE(cell.siblingAtColumn(8).data().toString() != summaryBefore, column != 5);
            QVERIFY(!model.setData(cell, value)); // the same again changes nothing
            QCOMPARE(changed.count(), 1);
        } else {
            QCOMPARE(boxes.count(), 1);
            QCOMPARE(boxes.last().title, title);
            QCOMPARE(boxes.last().text, text);
            QCOMPARE(row(model, cell.row()), before);
        }
        QVERIFY(!model.setData(cell, value, Qt::DisplayRole));
    }

    void recordsAndFiles()
    {
        writeUserFile({userRecord(205, QStringLiteral("Acme"))}, 206);
        HeadSetsModel model;
        model.readData();
        ModelTester tester(&model);
        MessageBoxRecorder boxes;

        // A removed id is not given out again.
        QVERIFY(model.removeRows(model.locate(205u).row(), 1));
        QVERIFY(model.isModified());
        QVERIFY(model.insertRows(0, 1));
        QCOMPARE(model.rowCount(), 15);
        QCOMPARE(row(model, 14), QStringList({"206", "New Headset", "Model", "5.50", "600", "", "0.250", ""}));
        QVERIFY(!model.insertRows(14, 1));
        QVERIFY(boxes.last().text.contains(QLatin1String("'New Headset' already exists")));
        QVERIFY(model.setData(model.index(14, 2), QStringLiteral("Z1")));
        QVERIFY(model.insertRows(15, 1));
        QVERIFY(model.setData(model.index(15, 2), QStringLiteral("Z2")));
        QVERIFY(!model.insertRows(0, 2));
        QVERIFY(!model.removeRows(15, 2));

        // Saving, from the question before closing, writes the user records and the next id (read back: editors).
        QVERIFY(model.askToSave(true)); // answered with its default button, Save
        QVERIFY(!model.isModified());
        QCOMPARE(TestFiles::iniValue(userPath(), "HeadSets/count").toInt(), 2);
        QCOMPARE(TestFiles::iniValue(userPath(), "HeadSets/autoincid").toInt(), 208);
        QVERIFY(!TestFiles::iniValue(userPath(), "HeadSets/2").isValid()); // the group was cleared first

        // At most 256 records; revert reads the files again.
        QList<QStringList> many;
        for (int id = 200; id < 442; ++id)
            many << userRecord(id, QStringLiteral("Maker %1").arg(id));
        writeUserFile(many);
        model.revert();
        QCOMPARE(model.rowCount(), 256);
        QCOMPARE(model.nextId(), 442);
        QVERIFY(!model.insertRows(256, 1));
        QVERIFY(boxes.last().text.contains(QLatin1String("full")));
        QVERIFY(model.removeRows(255, 1));
        QVERIFY(model.insertRows(255, 1));
        QCOMPARE(model.id(model.index(255, 0)), 442);

        // submitAll() writes the base records too, under the keys of their rows.
        model.appendNew(23, QStringLiteral("Base"), QStringLiteral("B"), QString(), QString(), QString(), QString(),
                        QString());
        QVERIFY(model.submitAll());
        QCOMPARE(TestFiles::iniValue(basePath(), "HeadSets/count").toInt(), 15);
        QCOMPARE(TestFiles::iniValue(basePath(), "HeadSets/256").toStringList().value(1), QStringLiteral("Base"));
    }

    void malformedFiles()
    {
        HeadSetsModel model;
        model.readData();
        QVERIFY(TestFiles::write(userPath(),
                                 "[HeadSets]\ncount=4\n0=201, Short\n1=abc, Acme, X, loud, many, , quiet\n3=\n"));
        model.revert();
        QCOMPARE(model.rowCount(), 17); // key 2 is missing
        QCOMPARE(row(model, 14), QStringList({"201", "Short", "", "", "", "", "", ""}));
        QCOMPARE(model.id(model.index(15, 0)), 0); // not a number
        QCOMPARE(model.phonesLevel(model.index(15, 0)), 0.0);
        QCOMPARE(model.phonesImpedance(model.index(15, 0)), 0);
        QCOMPARE(model.nextId(), 202); // no stored next id: past the highest user id, at least 200

        // A damaged count does not make reading look for ever; a damaged next id does not reuse ids.
        QVERIFY(TestFiles::write(userPath(), "[HeadSets]\ncount=2000000000\nautoincid=12\n0=300, A\n"));
        model.revert();
        QCOMPARE(model.rowCount(), 15);
        QCOMPARE(model.nextId(), 301);
    }
};

QTEST_MAIN(tst_HeadSets)
#include "tst_headsets.moc"
