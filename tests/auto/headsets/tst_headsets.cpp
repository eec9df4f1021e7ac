// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "messageboxrecorder.h"
#include "modeltester.h"
#include "models/headsetsmodel.h"
#include "testappdir.h"

#include <QBrush>
#include <QFile>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>

namespace {
const QString basePath = QStringLiteral("nevradat/headsetsbase.dat");
const QString userPath = QStringLiteral("nevradat/headsetsuser.dat");

QVariant fileValue(const QString &path, const QString &key)
{
    return QSettings(TestAppDir::filePath(path), QSettings::IniFormat).value(QStringLiteral("HeadSets/") + key);
}

/// Writes a user file: count, optionally autoincid, and the records under keys 0, 1, ...
void writeUserFile(const QList<QStringList> &records, const QVariant &autoIncId = QVariant())
{
    QSettings settings(TestAppDir::filePath(userPath), QSettings::IniFormat);
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

    void factoryTableAndDisplay();
    void edits_data();
    void edits();
    void recordsAndFiles();
    void askToSave();
    void malformedFiles();
};

void tst_HeadSets::factoryTableAndDisplay()
{
    HeadSetsModel factory;
    factory.readData();

    const QList<int> factoryIds = {1, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22};
    QCOMPARE(ids(factory), factoryIds);
    QCOMPARE(row(factory, 0), QStringList({"1", "Default Headset", "", "5.50", "600", "", "", ""}));
    QCOMPARE(row(factory, 5), QStringList({"14", "David Clark", "X11", "4.75", "225",
                                           "100mW (3.87 Vrms) into 225 Ohms - Mono", "0.400",
                                           "400 mVrms @ 114 dB/SPL into 150 Ohms"}));

    // Both files are made: the base file with every record under its row, the user file empty.
    QCOMPARE(fileValue(basePath, QStringLiteral("count")).toInt(), 14);
    QCOMPARE(fileValue(basePath, QStringLiteral("5")).toStringList(), row(factory, 5));
    QCOMPARE(fileValue(userPath, QStringLiteral("count")).toInt(), 0);
    QCOMPARE(fileValue(userPath, QStringLiteral("autoincid")).toInt(), 200);

    // A rebuild of a lost base file keeps the user's records and next id.
    writeUserFile({userRecord(203, QStringLiteral("Acme"))}, 207);
    QVERIFY(QFile::remove(TestAppDir::filePath(basePath)));
    HeadSetsModel rebuilt;
    rebuilt.readData();
    QCOMPARE(ids(rebuilt), factoryIds + QList<int>{203});
    QCOMPARE(rebuilt.nextId(), 207);
    QCOMPARE(fileValue(userPath, QStringLiteral("0")).toStringList(), userRecord(203, QStringLiteral("Acme")));
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
    QCOMPARE(model.phonesLevel(base), 5.47);
    QCOMPARE(model.phonesImpedance(base), 300);
    QCOMPARE(model.micLevel(base), 0.4);

    // The factory record is read-only in every column; the user record in none but the id.
    for (int column = 0; column < HeadSetsModel::ColumnCount; ++column) {
        const QModelIndex cell = base.siblingAtColumn(column);
        QVERIFY(!(model.flags(cell) & Qt::ItemIsEditable));
        QVERIFY(!cell.data(Qt::ToolTipRole).isValid());
        QCOMPARE(cell.data(Qt::BackgroundRole).value<QBrush>(), QBrush(QColor(50, 102, 255, 40)));
        QVERIFY(!model.setData(cell, QStringLiteral("2.00")));
        QCOMPARE(bool(model.flags(user.siblingAtColumn(column)) & Qt::ItemIsEditable), column != 0);
    }
    QCOMPARE(user.data(Qt::ToolTipRole).toString(), QStringLiteral("Double click to edit."));
    QCOMPARE(user.data(Qt::BackgroundRole).value<QBrush>(), QBrush(Qt::white));
    QCOMPARE(model.flags(QModelIndex()), Qt::ItemIsEnabled);

    // The titles answer for either orientation.
    QCOMPARE(model.headerData(8, Qt::Vertical).toString(), QStringLiteral("Select String"));
    QVERIFY(!model.headerData(9, Qt::Horizontal).isValid());
}

void tst_HeadSets::edits_data()
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

void tst_HeadSets::edits()
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
        QCOMPARE(boxes.last().icon, QMessageBox::Warning);
        QCOMPARE(row(model, cell.row()), before);
    }
    QVERIFY(!model.setData(cell, value, Qt::DisplayRole));
}

void tst_HeadSets::recordsAndFiles()
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
    QCOMPARE(boxes.last().title, QStringLiteral("Unable to add New Record"));
    QCOMPARE(boxes.last().text, QStringLiteral("'New Headset' already exists in the file.\n"
                                               "Change its name or model to something unique."));
    QVERIFY(model.setData(model.index(14, 2), QStringLiteral("Z1")));
    QVERIFY(model.insertRows(15, 1));
    QVERIFY(model.setData(model.index(15, 2), QStringLiteral("Z2")));
    QVERIFY(!model.insertRows(0, 2));
    QVERIFY(!model.removeRows(15, 2));

    // Saving writes the user records and the next id. (Reading them back is the editors' test.)
    QVERIFY(model.submit());
    QVERIFY(!model.isModified());
    QCOMPARE(fileValue(userPath, QStringLiteral("count")).toInt(), 2);
    QCOMPARE(fileValue(userPath, QStringLiteral("autoincid")).toInt(), 208);
    QVERIFY(!fileValue(userPath, QStringLiteral("2")).isValid()); // the group was cleared first

    // At most 256 records; revert reads the files again.
    QList<QStringList> many;
    for (int id = 200; id < 442; ++id)
        many << userRecord(id, QStringLiteral("Maker %1").arg(id));
    writeUserFile(many);
    model.revert();
    QCOMPARE(model.rowCount(), 256);
    QCOMPARE(model.nextId(), 442);
    QVERIFY(!model.insertRows(256, 1));
    QCOMPARE(boxes.last().title, QStringLiteral("Unable to add New Record"));
    QCOMPARE(boxes.last().text, QStringLiteral("The list is full!"));
    QVERIFY(model.removeRows(255, 1));
    QVERIFY(model.insertRows(255, 1));
    QCOMPARE(model.id(model.index(255, 0)), 442);

    // submitAll() writes the base records too, under the keys of their rows.
    model.appendNew(23, QStringLiteral("Base"), QStringLiteral("B"), QString(), QString(), QString(), QString(),
                    QString());
    QVERIFY(model.submitAll());
    QCOMPARE(fileValue(basePath, QStringLiteral("count")).toInt(), 15);
    QCOMPARE(fileValue(basePath, QStringLiteral("256")).toStringList().value(1), QStringLiteral("Base"));
}

void tst_HeadSets::askToSave()
{
    HeadSetsModel model;
    model.readData();
    MessageBoxRecorder boxes(QMessageBox::Save);
    QVERIFY(model.askToSave(true));
    QCOMPARE(boxes.count(), 0);
    QVERIFY(model.insertRows(0, 1));
    QVERIFY(model.askToSave(true));
    QCOMPARE(boxes.last().text, QStringLiteral("The HeadSetsModel file has been modified."));
    QVERIFY(!model.isModified());
    QCOMPARE(fileValue(userPath, QStringLiteral("count")).toInt(), 1);
}

void tst_HeadSets::malformedFiles()
{
    HeadSetsModel model;
    model.readData();
    QFile user(TestAppDir::filePath(userPath));
    QVERIFY(user.open(QFile::WriteOnly));
    user.write("[HeadSets]\ncount=4\n0=201, Short\n1=abc, Acme, X, loud, many, , quiet\n3=\n");
    user.close();
    model.revert();
    QCOMPARE(model.rowCount(), 17); // key 2 is missing
    QCOMPARE(row(model, 14), QStringList({"201", "Short", "", "", "", "", "", ""}));
    QCOMPARE(model.id(model.index(15, 0)), 0); // not a number
    QCOMPARE(model.phonesLevel(model.index(15, 0)), 0.0);
    QCOMPARE(model.phonesImpedance(model.index(15, 0)), 0);
    QCOMPARE(model.nextId(), 202); // no stored next id: past the highest user id, at least 200

    // A damaged count does not make reading look for ever; a damaged next id does not reuse ids.
    QVERIFY(user.open(QFile::WriteOnly));
    user.write("[HeadSets]\ncount=2000000000\nautoincid=12\n0=300, A\n");
    user.close();
    model.revert();
    QCOMPARE(model.rowCount(), 15);
    QCOMPARE(model.nextId(), 301);
}

QTEST_MAIN(tst_HeadSets)
#include "tst_headsets.moc"
