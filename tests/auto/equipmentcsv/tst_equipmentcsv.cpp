// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "messageboxrecorder.h"
#include "models/audiosystemsmodel.h"
#include "models/bluetoothdevices.h"
#include "models/lowimpedanceintercomsmodel.h"
#include "models/musicsystemsmodel.h"
#include "models/nonaircraftradios.h"
#include "models/serialdatadevices.h"
#include "testappdir.h"

#include <QAbstractItemModelTester>
#include <QBrush>
#include <QBuffer>
#include <QTest>

namespace {
const QByteArray header("Id,Name,Company,Model,C4,C5,C6,C7,C8,C9,C10,C11,C12,C13\n");

struct Library
{
    QString className;
    QString fileName;
};

const QList<Library> allLibraries = {
    {QStringLiteral("AudioSystemsModel"), QStringLiteral("audiosystems.csv")},
    {QStringLiteral("LowImpedanceIntercomsModel"), QStringLiteral("lowimpedance-intercoms.csv")},
    {QStringLiteral("MusicSystemsModel"), QStringLiteral("musicsystems.csv")},
    {QStringLiteral("BluetoothDevices"), QStringLiteral("bluetoothdevices.csv")},
    {QStringLiteral("NonAircraftRadios"), QStringLiteral("non-aircraftradios.csv")},
    {QStringLiteral("SerialDataDevices"), QStringLiteral("serialdatadevices.csv")},
};

/// The library of that class: the singleton's instance(), or a new object owned by the caller.
NvrCsvModel *library(const QString &className)
{
    if (className == QLatin1String("AudioSystemsModel"))
        return AudioSystemsModel::instance();
    if (className == QLatin1String("LowImpedanceIntercomsModel"))
        return LowImpedanceIntercomsModel::instance();
    if (className == QLatin1String("MusicSystemsModel"))
        return MusicSystemsModel::instance();
    if (className == QLatin1String("BluetoothDevices"))
        return new BluetoothDevices;
    if (className == QLatin1String("NonAircraftRadios"))
        return new NonAircraftRadios;
    return new SerialDataDevices;
}

bool isSingleton(const QString &className)
{
    return className.endsWith(QLatin1String("Model"));
}

QString dataPath(const QString &fileName)
{
    return TestAppDir::filePath(QStringLiteral("nevradat/") + fileName);
}

bool writeData(const QString &fileName, const QByteArray &rows)
{
    QFile file(dataPath(fileName));
    return file.open(QFile::WriteOnly) && file.write(header + rows) > 0;
}

QByteArray readData(const QString &fileName)
{
    QFile file(dataPath(fileName));
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList row(const QAbstractItemModel &model, int r)
{
    QStringList cells;
    for (int c = 0; c < model.columnCount(); ++c)
        cells << model.index(r, c).data(Qt::EditRole).toString();
    return cells;
}
}

class tst_EquipmentCsv : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { TestAppDir::prepare(); }
    void cleanupTestCase() { TestAppDir::cleanup(); }
    void init() { TestAppDir::clearData(); }
    void cleanup();

    void recordsAndFlags();
    void refusalsLeaveTheTableUnchanged();
    void newRecords();
    void askToSave();
    void libraries_data();
    void libraries();
    void displayStrings_data();
    void displayStrings();
    void radioTypeAndProfileLists();

private:
    static void expectBox(const MessageBoxRecorder &boxes, int count, const QString &title, const QString &text);
};

void tst_EquipmentCsv::cleanup()
{
    AudioSystemsModel::destroyInstance();
    LowImpedanceIntercomsModel::destroyInstance();
    MusicSystemsModel::destroyInstance();
}

void tst_EquipmentCsv::expectBox(const MessageBoxRecorder &boxes, int count, const QString &title,
                                 const QString &text)
{
    QCOMPARE(boxes.count(), count);
    QCOMPARE(boxes.last().title, title);
    QCOMPARE(boxes.last().text, text);
    QCOMPARE(boxes.last().icon, QMessageBox::Warning);
    QCOMPARE(boxes.last().buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
}

void tst_EquipmentCsv::recordsAndFlags()
{
    QVERIFY(writeData(QStringLiteral("audiosystems.csv"), "5,Stored Name,Acme,X1\n200,,Beta,Y2\nabc,,Gamma,Z3\n"));
    AudioSystemsModel *model = AudioSystemsModel::instance();
    QCOMPARE(model->rowCount(), 3);
    QCOMPARE(model->id(model->index(0, 7)), 5);
    QCOMPARE(model->id(model->index(1, 0)), 200);
    QCOMPARE(model->id(model->index(2, 0)), 0);
    QCOMPARE(model->id(QModelIndex()), 0);
    QCOMPARE(model->index(0, 1).data().toString(), QStringLiteral("Acme X1"));
    QCOMPARE(model->index(0, 1).data(Qt::EditRole).toString(), QStringLiteral("Stored Name"));

    const QModelIndex factory = model->index(0, 2);
    const QModelIndex user = model->index(1, 2);
    QVERIFY(!(model->flags(factory) & Qt::ItemIsEditable));
    QVERIFY(model->flags(user) & Qt::ItemIsEditable);
    QVERIFY(!(model->flags(model->index(1, 0)) & Qt::ItemIsEditable));
    QCOMPARE(user.data(Qt::ToolTipRole).toString(), QStringLiteral("Double click to edit."));
    QVERIFY(!factory.data(Qt::ToolTipRole).isValid());
    QCOMPARE(user.data(Qt::BackgroundRole).value<QBrush>(), QBrush(Qt::white));
    QCOMPARE(factory.data(Qt::BackgroundRole).value<QBrush>(), QBrush(QColor(50, 102, 255, 40)));
    model->editAll = true;
    QVERIFY(model->flags(factory) & Qt::ItemIsEditable);
    QVERIFY(model->flags(model->index(1, 0)) & Qt::ItemIsEditable);
    QCOMPARE(factory.data(Qt::BackgroundRole).value<QBrush>(), QBrush(Qt::white));

    QCOMPARE(model->locate(200u), model->index(1, 0));
    QVERIFY(!model->locate(7u).isValid());
    QCOMPARE(model->locate(QStringLiteral("Beta"), QStringLiteral("Y2")), model->index(1, 2));
    QVERIFY(!model->locate(QStringLiteral("beta"), QStringLiteral("Y2")).isValid());
    QVERIFY(!model->locate(QStringLiteral("Beta"), QStringLiteral("X1")).isValid());
    QVERIFY(!model->isModified());
}

void tst_EquipmentCsv::refusalsLeaveTheTableUnchanged()
{
    QVERIFY(writeData(QStringLiteral("musicsystems.csv"), "200,,Acme,X1\n201,,Beta,X1\n202,,Acme,Y2\n"));
    MusicSystemsModel *model = MusicSystemsModel::instance();
    MessageBoxRecorder boxes;
    const QString duplicate = QStringLiteral("'Acme' - 'X1' already exists in the file.");
    auto csv = [model] {
        QBuffer buffer;
        model->toCSV(&buffer);
        return buffer.data();
    };
    const QByteArray original = csv();
    auto unchanged = [&] { return csv() == original && !model->isModified(); };

    QVERIFY(!model->setData(model->index(0, 2), QStringLiteral("Acme")));
    QVERIFY(!model->setData(model->index(0, 0), 200)); // the same value, as a number
    QVERIFY(!model->setData(model->index(1, 2), QStringLiteral("Acme")));
    expectBox(boxes, 1, QStringLiteral("Duplicate Record"), duplicate);
    QVERIFY(!model->setData(model->index(2, 3), QStringLiteral("X1")));
    expectBox(boxes, 2, QStringLiteral("Duplicate Record"), duplicate);
    QVERIFY(!model->setData(model->index(2, 3), QStringLiteral("x"), Qt::DisplayRole));
    QVERIFY(unchanged());

    QVERIFY(!model->insertRows(3, 2));
    QCOMPARE(boxes.count(), 2);
    QVERIFY(!model->insertRows(-1, 1));
    expectBox(boxes, 3, QStringLiteral("Add New Records"), QStringLiteral("Error adding new records.!"));
    QVERIFY(unchanged());

    // A change of letter case only is a different key.
    QTest::ignoreMessage(QtDebugMsg, "NvrCsvModel::setData r,c,v=2,3,x1");
    QVERIFY(model->setData(model->index(2, 3), QStringLiteral("x1")));
    QVERIFY(model->isModified());

    QVERIFY(model->insertRows(1, 1));
    QCOMPARE(row(*model, 1).mid(0, 4), (QStringList{"203", "", "Company", "New Model"}));
    QVERIFY(!model->insertRows(4, 1));
    expectBox(boxes, 4, QStringLiteral("Add New Record"),
              QStringLiteral("Unable to add New Record - 'Company - New Model' already exists in the file.\n"
                             "Change the Company and Model to something unique."));
    QCOMPARE(model->rowCount(), 4);

    QByteArray full;
    for (int id = 0; id < 256; ++id)
        full += QByteArray::number(id) + ",,Maker " + QByteArray::number(id) + ",M\n";
    QVERIFY(writeData(QStringLiteral("musicsystems.csv"), full));
    model->revert();
    QCOMPARE(model->rowCount(), 256);
    QVERIFY(!model->insertRows(0, 1));
    expectBox(boxes, 5, QStringLiteral("Add New Record"), QStringLiteral("Unable to add New Record - the list is full!"));
    QCOMPARE(model->rowCount(), 256);
    QVERIFY(!model->isModified());
}

void tst_EquipmentCsv::newRecords()
{
    QByteArray rows = "201,,Acme,X1\n";
    for (int id = 203; id <= 255; ++id)
        rows += QByteArray::number(id) + ",,Maker,M" + QByteArray::number(id) + "\n";
    QVERIFY(writeData(QStringLiteral("audiosystems.csv"), rows));
    AudioSystemsModel *model = AudioSystemsModel::instance();
    QAbstractItemModelTester tester(model);
    MessageBoxRecorder boxes;

    // The smallest free user id first, wherever the row goes.
    QVERIFY(model->insertRows(0, 1));
    QCOMPARE(row(*model, 0), (QStringList{"200", "", "Company", "New Model", "", "", "", "", "", "", "", "", "0", ""}));
    QVERIFY(model->isModified());
    QVERIFY(model->submit());
    QVERIFY(!model->isModified());
    QVERIFY(readData(QStringLiteral("audiosystems.csv"))
                .contains("\"200\",\"\",\"Company\",\"New Model\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"0\",\"\"\n"));
    QVERIFY(model->setData(model->index(0, 3), QStringLiteral("First")));
    QVERIFY(model->insertRows(999, 1)); // past the end: appended
    QCOMPARE(model->id(model->index(model->rowCount() - 1, 0)), 202);
    QVERIFY(model->setData(model->index(model->rowCount() - 1, 3), QStringLiteral("Second")));

    // With every user id taken, a new record gets the factory id 0 and is read-only.
    QVERIFY(model->insertRows(model->rowCount(), 1));
    const QModelIndex fallback = model->index(model->rowCount() - 1, 3);
    QCOMPARE(model->id(fallback), 0);
    QCOMPARE(fallback.data().toString(), QStringLiteral("New Model"));
    QVERIFY(!(model->flags(fallback) & Qt::ItemIsEditable));
    model->editAll = true;
    QVERIFY(model->flags(fallback) & Qt::ItemIsEditable);

    QVERIFY(model->removeRows(model->rowCount() - 1, 1));
    QCOMPARE(model->rowCount(), 56);
    QVERIFY(model->isModified());
    model->revert();
    QVERIFY(!model->isModified());
    QCOMPARE(model->rowCount(), 55);
    QCOMPARE(boxes.count(), 0);
}

void tst_EquipmentCsv::askToSave()
{
    QVERIFY(writeData(QStringLiteral("bluetoothdevices.csv"), "200,,Acme,X1\n"));
    const QByteArray original = readData(QStringLiteral("bluetoothdevices.csv"));
    BluetoothDevices model;
    MessageBoxRecorder boxes;
    QVERIFY(model.askToSave(true));
    QCOMPARE(boxes.count(), 0);

    QVERIFY(model.setData(model.index(0, 3), QStringLiteral("X2")));
    boxes.setAnswer(QMessageBox::Discard);
    QVERIFY(model.askToSave(false));
    QCOMPARE(boxes.last().text, QStringLiteral("The file 'BluetoothDevices' has been modified."));
    QCOMPARE(boxes.last().informativeText, QStringLiteral("Do you want to save your changes?"));
    QCOMPARE(boxes.last().icon, QMessageBox::Question);
    QCOMPARE(boxes.last().buttons, QMessageBox::Save | QMessageBox::Discard);
    QVERIFY(model.isModified());
    QCOMPARE(readData(QStringLiteral("bluetoothdevices.csv")), original);

    boxes.setAnswer(QMessageBox::Cancel);
    QVERIFY(!model.askToSave(true));
    QCOMPARE(boxes.last().buttons, QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);

    boxes.setAnswer(QMessageBox::NoButton); // the default button: Save
    QVERIFY(model.askToSave(true));
    QCOMPARE(boxes.count(), 3);
    QVERIFY(!model.isModified());
    QVERIFY(readData(QStringLiteral("bluetoothdevices.csv")).contains("\"Acme\",\"X2\""));
}

void tst_EquipmentCsv::libraries_data()
{
    QTest::addColumn<QString>("className");
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<QVariantMap>("defaults");
    const QVariantMap audio = {{QStringLiteral("12"), QStringLiteral("0")}};
    const QVariantMap radio = {{QStringLiteral("4"), QStringLiteral("1")}, {QStringLiteral("9"), QStringLiteral("0")}};
    for (const Library &l : allLibraries) {
        const QVariantMap defaults = l.className == QLatin1String("NonAircraftRadios") ? radio
                                     : isSingleton(l.className)                       ? audio
                                                                                       : QVariantMap();
        QTest::newRow(qPrintable(l.className)) << l.className << l.fileName << defaults;
    }
}

void tst_EquipmentCsv::libraries()
{
    QFETCH(QString, className);
    QFETCH(QString, fileName);
    QFETCH(QVariantMap, defaults);

    QVERIFY(writeData(fileName, "1,,Acme,X1\n"));
    NvrCsvModel *model = library(className);
    QScopedPointer<NvrCsvModel> owned(isSingleton(className) ? nullptr : model);
    QCOMPARE(model->objectName(), className);
    QVERIFY(!model->parent());
    QCOMPARE(model->rowCount(), 1);
    QCOMPARE(model->columnCount(), 14);

    MessageBoxRecorder boxes;
    QVERIFY(model->insertRows(1, 1));
    for (int c = 4; c < 14; ++c)
        QCOMPARE(model->index(1, c).data(Qt::EditRole).toString(), defaults.value(QString::number(c)).toString());

    // A singleton lives until destroyed; a new one, like every other library object, reads the file anew.
    NvrCsvModel *again = library(className);
    QScopedPointer<NvrCsvModel> ownedAgain(isSingleton(className) ? nullptr : again);
    QCOMPARE(again == model, isSingleton(className));
    if (isSingleton(className)) {
        cleanup();
        again = library(className);
    }
    QCOMPARE(again->rowCount(), 1);
    QVERIFY(!again->isModified());

    // Without a file the library is empty, and the first save creates the file.
    QVERIFY(QFile::remove(dataPath(fileName)));
    cleanup();
    NvrCsvModel *empty = library(className);
    QScopedPointer<NvrCsvModel> ownedEmpty(isSingleton(className) ? nullptr : empty);
    QCOMPARE(empty->rowCount(), 0);
    QVERIFY(empty->submit());
    QCOMPARE(readData(fileName), QByteArray("\n")); // a header line of no columns
    QCOMPARE(boxes.count(), 0);
}

void tst_EquipmentCsv::displayStrings_data()
{
    QTest::addColumn<QString>("className");
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("display");
    QTest::addColumn<bool>("editable");

    const QByteArray audio = "300,n,Acme,X1,0.5,f,1.0,g,2,h,3,i,1,s\n";
    const QString audioClass = QStringLiteral("AudioSystemsModel");
    QTest::newRow("audio MIC output") << audioClass << audio << 4 << "0.5 Vrms" << true;
    QTest::newRow("audio phones input") << audioClass << audio << 6 << "1.0 Vrms" << true;
    QTest::newRow("audio level 8") << audioClass << audio << 8 << "2 Vrms" << true;
    QTest::newRow("audio level 10") << audioClass << audio << 10 << "3 Vrms" << true;
    QTest::newRow("audio free text") << audioClass << audio << 5 << "f" << true;
    QTest::newRow("audio flag set") << audioClass << audio << 12 << "Yes" << true;
    QTest::newRow("audio flag other") << audioClass << QByteArray("300,,A,B,,,,,,,,,2\n") << 12 << "No" << true;
    QTest::newRow("audio summary") << audioClass << audio << 13 << "Acme X1 [MIC Output = 0.5, Phones Input = 1.0]"
                                   << true;
    QTest::newRow("intercom millivolts") << "LowImpedanceIntercomsModel" << QByteArray("300,,A,B,30,,30\n") << 6
                                         << "30 mVrms" << true;
    QTest::newRow("intercom MIC in volts") << "LowImpedanceIntercomsModel" << QByteArray("300,,A,B,30,,30\n") << 4
                                           << "30 Vrms" << true;
    QTest::newRow("music phones in volts") << "MusicSystemsModel" << QByteArray("300,,A,B,30,,30\n") << 6
                                           << "30 Vrms" << true;
    QTest::newRow("bluetooth plain") << "BluetoothDevices" << QByteArray("300,,A,B,1,,,,,,,,1\n") << 12 << "1" << true;
    QTest::newRow("serial plain") << "SerialDataDevices" << QByteArray("300,,A,B,0.5\n") << 4 << "0.5" << true;

    const QString radios = QStringLiteral("NonAircraftRadios");
    const QByteArray receiver = "300,,Acme,R1,1,1.2,t,0.3,600,1,2,s\n";
    const QByteArray transceiver = "300,,Acme,R1,2,1.2,t,0.3,600,0,9,s\n";
    QTest::newRow("radio type") << radios << receiver << 4 << "Receiver" << true;
    QTest::newRow("radio type past the list") << radios << QByteArray("300,,A,B,7\n") << 4 << "Not Installed" << true;
    QTest::newRow("radio type not a number") << radios << QByteArray("300,,A,B,x\n") << 4 << "Unknown" << true;
    QTest::newRow("radio Rx output") << radios << receiver << 5 << "1.2 Vrms" << true;
    QTest::newRow("receiver MIC input") << radios << receiver << 7 << "0.3 Vrms" << true;
    QTest::newRow("receiver MIC impedance") << radios << receiver << 8 << "600 Ohms" << true;
    QTest::newRow("transceiver MIC input") << radios << transceiver << 7 << "0.3" << false;
    QTest::newRow("transceiver MIC impedance") << radios << transceiver << 8 << "600" << false;
    QTest::newRow("radio flag") << radios << receiver << 9 << "Yes" << true;
    QTest::newRow("radio profile") << radios << receiver << 10 << "A2DP (Advanced Audio Distribution Profile" << true;
    QTest::newRow("radio profile past the list") << radios << transceiver << 10 << "None" << true;
    QTest::newRow("radio summary") << radios << receiver << 11 << "Acme R1 [MIC Input = 0.3, Rx Output = 1.2]" << true;
}

void tst_EquipmentCsv::displayStrings()
{
    QFETCH(QString, className);
    QFETCH(QByteArray, line);
    QFETCH(int, column);
    QFETCH(QString, display);
    QFETCH(bool, editable);

    for (const Library &l : allLibraries) {
        if (l.className == className)
            QVERIFY(writeData(l.fileName, line));
    }
    NvrCsvModel *model = library(className);
    QScopedPointer<NvrCsvModel> owned(isSingleton(className) ? nullptr : model);
    const QModelIndex index = model->index(0, column);
    QCOMPARE(index.data().toString(), display);
    QCOMPARE(bool(model->flags(index) & Qt::ItemIsEditable), editable);
    QCOMPARE(index.data(Qt::EditRole).toString(), QString::fromLatin1(line).trimmed().section(',', column, column));
}

void tst_EquipmentCsv::radioTypeAndProfileLists()
{
    QVERIFY(writeData(QStringLiteral("non-aircraftradios.csv"), "300,,A,B,7,,,,,,x\n301,,C,D,2,,,,,,1\n"));
    NonAircraftRadios radios;
    QCOMPARE(radios.radioType(radios.index(0, 9)), 3);
    QCOMPARE(radios.bluetoothProfile(radios.index(0, 0)), 0);
    QCOMPARE(radios.radioType(radios.index(1, 0)), 2);
    QCOMPARE(radios.bluetoothProfile(radios.index(1, 0)), 1);
    QCOMPARE(radios.radioType(QModelIndex()), 0);
    QCOMPARE(NonAircraftRadios::radioTypes(), (QStringList{"Unknown", "Receiver", "Transceiver", "Not Installed"}));
    QCOMPARE(NonAircraftRadios::bluetoothProfiles(),
             (QStringList{"Unknown", "HFP (Hands Free Profile)", "A2DP (Advanced Audio Distribution Profile", "None"}));

    // Switching a radio to type 1 opens its MIC input columns.
    radios.editAll = false;
    QVERIFY(!(radios.flags(radios.index(1, 7)) & Qt::ItemIsEditable));
    QVERIFY(radios.setData(radios.index(1, 4), 1));
    QVERIFY(radios.flags(radios.index(1, 7)) & Qt::ItemIsEditable);
}

QTEST_MAIN(tst_EquipmentCsv)
#include "tst_equipmentcsv.moc"
