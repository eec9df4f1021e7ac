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
#include "testfiles.h"

#include <QAbstractItemModelTester>
#include <QBuffer>
#include <QTest>

#include <memory>

namespace {
const QMap<QString, QString> fileNames = {
    {QStringLiteral("AudioSystemsModel"), QStringLiteral("audiosystems.csv")},
    {QStringLiteral("LowImpedanceIntercomsModel"), QStringLiteral("lowimpedance-intercoms.csv")},
    {QStringLiteral("MusicSystemsModel"), QStringLiteral("musicsystems.csv")},
    {QStringLiteral("BluetoothDevices"), QStringLiteral("bluetoothdevices.csv")},
    {QStringLiteral("NonAircraftRadios"), QStringLiteral("non-aircraftradios.csv")},
    {QStringLiteral("SerialDataDevices"), QStringLiteral("serialdatadevices.csv")},
};

/// The singleton's instance() (its class deletes it), or a new library object.
std::shared_ptr<NvrCsvModel> library(const QString &name)
{
    const auto keep = [](NvrCsvModel *) {};
    if (name == QLatin1String("AudioSystemsModel"))
        return {AudioSystemsModel::instance(), keep};
    if (name == QLatin1String("LowImpedanceIntercomsModel"))
        return {LowImpedanceIntercomsModel::instance(), keep};
    if (name == QLatin1String("MusicSystemsModel"))
        return {MusicSystemsModel::instance(), keep};
    if (name == QLatin1String("BluetoothDevices"))
        return std::make_shared<BluetoothDevices>();
    if (name == QLatin1String("NonAircraftRadios"))
        return std::make_shared<NonAircraftRadios>();
    return std::make_shared<SerialDataDevices>();
}

QString dataPath(const QString &name)
{
    return TestAppDir::filePath(QStringLiteral("nevradat/") + fileNames.value(name));
}

QByteArray readData(const QString &name) { return TestFiles::read(dataPath(name)); }

bool writeData(const QString &name, const QByteArray &rows)
{
    return TestFiles::write(dataPath(name), "Id,Name,Company,Model,C4,C5,C6,C7,C8,C9,C10,C11,C12,C13\n" + rows);
}

QByteArray csv(NvrCsvModel *model)
{
    QBuffer buffer;
    model->toCSV(&buffer);
    return buffer.data();
}

void expectWarning(const MessageBoxRecorder &boxes, int count, const QString &text)
{
    QCOMPARE(boxes.count(), count);
    QCOMPARE(boxes.last().text, text);
}
}

class tst_EquipmentCsv : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { TestAppDir::prepare(); }
    void cleanupTestCase() { TestAppDir::cleanup(); }
    void init() { TestAppDir::clearData(); }

    void cleanup()
    {
        AudioSystemsModel::destroyInstance();
        LowImpedanceIntercomsModel::destroyInstance();
        MusicSystemsModel::destroyInstance();
    }

    void recordsAndFlags()
    {
        QVERIFY(writeData(QStringLiteral("AudioSystemsModel"), "5,Stored,Acme,X1\n200,,Beta,Y2\nabc,,Gamma,Z3\n"));
        AudioSystemsModel *model = AudioSystemsModel::instance();
        QCOMPARE(model->id(model->index(2, 0)), 0);
        QCOMPARE(model->index(0, 1).data().toString(), QStringLiteral("Acme X1"));

        const QModelIndex factory = model->index(0, 2);
        const QModelIndex user = model->index(1, 2);
        const QModelIndex userId = model->index(1, 0);
        QVERIFY(!(model->flags(factory) & Qt::ItemIsEditable));
        QVERIFY(model->flags(user) & Qt::ItemIsEditable);
        QVERIFY(!(model->flags(userId) & Qt::ItemIsEditable));
        QVERIFY(!(model->flags(QModelIndex()) & Qt::ItemIsEditable)); // an invalid index counts as a factory record
        model->editAll = true;
        QVERIFY(model->flags(factory) & model->flags(userId) & model->flags(QModelIndex()) & Qt::ItemIsEditable);

        QCOMPARE(model->locate(200u), userId);
        QVERIFY(!model->locate(7u).isValid());
        QCOMPARE(model->locate(QStringLiteral("Beta"), QStringLiteral("Y2")), user);
        QVERIFY(!model->locate(QStringLiteral("beta"), QStringLiteral("Y2")).isValid());
    }

    void refusalsLeaveTheTableUnchanged()
    {
        const QString name = QStringLiteral("MusicSystemsModel");
        QVERIFY(writeData(name, "200,,Acme,X1\n201,,Beta,X1\n202,,Acme,Y2\n"));
        MusicSystemsModel *model = MusicSystemsModel::instance();
        MessageBoxRecorder boxes;
        const QByteArray original = csv(model);
        const QString duplicate = QStringLiteral("'Acme' - 'X1' already exists in the file.");

        QVERIFY(!model->setData(model->index(0, 2), QStringLiteral("Acme")));
        QVERIFY(!model->setData(model->index(0, 0), 200)); // the same value, as a number
        QVERIFY(!model->setData(model->index(1, 2), QStringLiteral("Acme")));
        expectWarning(boxes, 1, duplicate);
        QVERIFY(!model->setData(model->index(2, 3), QStringLiteral("X1"))); // the same check for the model column
        QCOMPARE(boxes.count(), 2);
        QVERIFY(!model->setData(model->index(2, 3), QStringLiteral("x"), Qt::DisplayRole));
        QVERIFY(!model->insertRows(3, 2));
        QVERIFY(!model->insertRows(-1, 1));
        expectWarning(boxes, 3, QStringLiteral("Error adding new records.!"));
        QCOMPARE(csv(model), original);
        QVERIFY(!model->isModified());

        // A change of letter case only makes a different key.
        QTest::ignoreMessage(QtDebugMsg, "NvrCsvModel::setData r,c,v=2,3,x1");
        QVERIFY(model->setData(model->index(2, 3), QStringLiteral("x1")));
        QVERIFY(model->insertRows(1, 1));
        QVERIFY(!model->insertRows(4, 1));
        expectWarning(boxes, 4,
                      QStringLiteral("Unable to add New Record - 'Company - New Model' already exists in the file.\n"
                                     "Change the Company and Model to something unique."));
        QCOMPARE(model->rowCount(), 4);

        QByteArray full;
        for (int id = 0; id < 256; ++id)
            full += QByteArray::number(id) + ",,Maker " + QByteArray::number(id) + ",M\n";
        QVERIFY(writeData(name, full));
        model->revert();
        QVERIFY(!model->insertRows(0, 1));
        expectWarning(boxes, 5, QStringLiteral("Unable to add New Record - the list is full!"));
        QCOMPARE(model->rowCount(), 256);
    }

    void newRecords()
    {
        const QString name = QStringLiteral("AudioSystemsModel");
        QByteArray rows = "201,,Acme,X1\n";
        for (int id = 203; id <= 255; ++id)
            rows += QByteArray::number(id) + ",,Maker,M" + QByteArray::number(id) + "\n";
        QVERIFY(writeData(name, rows));
        AudioSystemsModel *model = AudioSystemsModel::instance();
        QAbstractItemModelTester tester(model);
        MessageBoxRecorder boxes;

        // The smallest free user id first, wherever the row goes.
        QVERIFY(model->insertRows(0, 1));
        QVERIFY(model->isModified());
        QVERIFY(model->submit());
        QVERIFY(!model->isModified());
        QVERIFY(readData(name).contains(
            "\n\"200\",\"\",\"Company\",\"New Model\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"0\",\"\"\n"));
        QVERIFY(model->setData(model->index(0, 3), QStringLiteral("First")));
        QVERIFY(model->insertRows(999, 1)); // past the end: appended
        QCOMPARE(model->id(model->index(55, 0)), 202);
        QVERIFY(model->setData(model->index(55, 3), QStringLiteral("Second")));

        // With every user id taken, a new record gets the factory id 0 and is read-only.
        QVERIFY(model->insertRows(56, 1));
        QCOMPARE(model->id(model->index(56, 0)), 0);
        QCOMPARE(model->model(model->index(56, 0)), QStringLiteral("New Model"));
        QVERIFY(!(model->flags(model->index(56, 3)) & Qt::ItemIsEditable));

        QVERIFY(model->removeRows(56, 1));
        model->revert();
        QCOMPARE(model->rowCount(), 55);
        QCOMPARE(boxes.count(), 0);
    }

    void askToSave()
    {
        const QString name = QStringLiteral("BluetoothDevices");
        QVERIFY(writeData(name, "200,,Acme,X1\n"));
        const QByteArray original = readData(name);
        BluetoothDevices model;
        MessageBoxRecorder boxes(QMessageBox::Discard);
        QVERIFY(model.askToSave(true));
        QCOMPARE(boxes.count(), 0);

        QVERIFY(model.setData(model.index(0, 3), QStringLiteral("X2")));
        QVERIFY(model.askToSave(false));
        QCOMPARE(boxes.last().text, QStringLiteral("The file 'BluetoothDevices' has been modified."));
        QCOMPARE(boxes.last().buttons, QMessageBox::Save | QMessageBox::Discard);
        QVERIFY(model.isModified());
        QCOMPARE(readData(name), original);

        boxes.queueAnswers({QMessageBox::Cancel, QMessageBox::NoButton}); // then the default button, Save
        QVERIFY(!model.askToSave(true));
        QCOMPARE(boxes.last().buttons, QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
        QVERIFY(model.askToSave(true));
        QVERIFY(!model.isModified());
        QVERIFY(readData(name).contains("\"Acme\",\"X2\""));
    }

    void libraries_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("defaults"); // columns 4 to 13 of a new record
        for (const QString &name : fileNames.keys()) {
            const bool radio = name == QLatin1String("NonAircraftRadios");
            const bool audio = name.endsWith(QLatin1String("Model"));
            QTest::newRow(qPrintable(name)) << name << (radio ? "1,,,,,0,,,," : audio ? ",,,,,,,,0," : ",,,,,,,,,");
        }
    }

    void libraries()
    {
        QFETCH(QString, name);
        QFETCH(QString, defaults);
        const bool singleton = name.endsWith(QLatin1String("Model"));

        QVERIFY(writeData(name, "1,,Acme,X1\n"));
        const auto model = library(name);
        MessageBoxRecorder boxes;
        QVERIFY(model->insertRows(1, 1));
        QStringList added;
        for (int c = 4; c < 14; ++c)
            added << model->index(1, c).data(Qt::EditRole).toString();
        QCOMPARE(added.join(QLatin1Char(',')), defaults);

        // A singleton lives until destroyed; a new one, like any other library object, reads the file anew.
        QCOMPARE(library(name) == model, singleton);
        cleanup();
        QCOMPARE(library(name)->rowCount(), 1);

        // Without a file the library is empty, and the first save creates the file.
        QVERIFY(QFile::remove(dataPath(name)));
        cleanup();
        QVERIFY(library(name)->submit());
        QCOMPARE(readData(name), QByteArray("\n"));
    }

    void displayStrings_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<int>("column");
        QTest::addColumn<QString>("display");
        QTest::addColumn<bool>("editable");

        const QString audio = QStringLiteral("AudioSystemsModel");
        const QByteArray levels = "300,n,Acme,X1,0.5,f,1.0,g,2,h,3,i,1,s\n";
        QTest::newRow("audio MIC output") << audio << levels << 4 << "0.5 Vrms" << true;
        QTest::newRow("audio flag set") << audio << levels << 12 << "Yes" << true;
        QTest::newRow("audio flag other") << audio << QByteArray("300,,A,B,,,,,,,,,2\n") << 12 << "No" << true;
        QTest::newRow("audio summary")
            << audio << levels << 13 << "Acme X1 [MIC Output = 0.5, Phones Input = 1.0]" << true;
        const QByteArray thirty = "300,,A,B,30,,30\n";
        QTest::newRow("intercom phones in mV") << "LowImpedanceIntercomsModel" << thirty << 6 << "30 mVrms" << true;
        QTest::newRow("intercom MIC out in V") << "LowImpedanceIntercomsModel" << thirty << 4 << "30 Vrms" << true;
        QTest::newRow("music phones in V") << "MusicSystemsModel" << thirty << 6 << "30 Vrms" << true;
        QTest::newRow("serial plain") << "SerialDataDevices" << QByteArray("300,,A,B,0.5\n") << 4 << "0.5" << true;

        const QString radios = QStringLiteral("NonAircraftRadios");
        const QByteArray receiver = "300,,Acme,R1,1,1.2,t,0.3,600,1,2,s\n";
        const QByteArray transceiver = "300,,Acme,R1,2,1.2,t,0.3,600,0,9,s\n";
        QTest::newRow("radio type") << radios << receiver << 4 << "Receiver" << true;
        QTest::newRow("radio type past the list")
            << radios << QByteArray("300,,A,B,7\n") << 4 << "Not Installed" << true;
        QTest::newRow("radio type not a number") << radios << QByteArray("300,,A,B,x\n") << 4 << "Unknown" << true;
        QTest::newRow("receiver MIC input") << radios << receiver << 7 << "0.3 Vrms" << true;
        QTest::newRow("receiver MIC impedance") << radios << receiver << 8 << "600 Ohms" << true;
        QTest::newRow("transceiver MIC input") << radios << transceiver << 7 << "0.3" << false;
        QTest::newRow("radio profile")
            << radios << receiver << 10 << "A2DP (Advanced Audio Distribution Profile" << true;
        QTest::newRow("radio profile past the list") << radios << transceiver << 10 << "None" << true;
        QTest::newRow("radio summary")
            << radios << receiver << 11 << "Acme R1 [MIC Input = 0.3, Rx Output = 1.2]" << true;
    }

    void displayStrings()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, line);
        QFETCH(int, column);
        QFETCH(QString, display);
        QFETCH(bool, editable);

        QVERIFY(writeData(name, line));
        const auto model = library(name);
        const QModelIndex index = model->index(0, column);
        QCOMPARE(index.data().toString(), display);
        QCOMPARE(bool(model->flags(index) & Qt::ItemIsEditable), editable);
        QCOMPARE(index.data(Qt::EditRole).toString(), QString::fromLatin1(line).trimmed().section(',', column, column));
    }
};

QTEST_MAIN(tst_EquipmentCsv)
#include "tst_equipmentcsv.moc"
