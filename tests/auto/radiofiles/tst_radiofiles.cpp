// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "classes/rtsfile.h"
#include "messageboxrecorder.h"
#include "models/rtdataobject.h"
#include "models/rtstablemodel.h"
#include "testappdir.h"
#include "testfiles.h"

#include <QFile>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

namespace {
QString basePath() { return TestAppDir::filePath(QStringLiteral("nevradat/radiosbase.dat")); }
QString userPath() { return TestAppDir::filePath(QStringLiteral("nevradat/radiosuser.dat")); }

QStringList recordOf(int id)
{
    RtsTableModel *model = RtsTableModel::instance();
    const QModelIndex index = model->locateRtId(id);
    return index.isValid() ? model->dataObjectAtRow(index.row())->toStringList() : QStringList();
}

// Every default radio by id, manufacturer and model, in the order of the table.
const char defaultNames[] =
    "0 Radio Not Installed ; 1 Default Transceiver ; 2 Default Receiver ; 3 Default PA ; 4 Default CVR ; "
    "5 Default 043 Transceiver ; 6 Default 043 Receiver ; "
    "10 ARC (Cessna) RT328T; 11 Becker AR 6201; 12 Becker AR 3209; 13 Becker AR 4201; 14 Bendix/King KY 96A; "
    "15 Bendix/King KY 97A; 16 Bendix/King KX155/A; 17 Bendix/King KX170B; 18 Bendix/King KX175; "
    "19 Bendix/King KX196A/B; 20 Bendix/King KX1967A; 21 Bendix/King KLX135A; 22 Garmin GNS420W; "
    "23 Garmin GNS430W; 24 Garmin GNS530W; 25 Garmin SL-40; 26 ICOM IC-A210; 27 NARCO COM11B; "
    "28 NARCO COM111B; 29 NARCO COM120; 30 NARCO MK12A; 31 NAT NPX138; 32 NAT NPX136D; 33 NAT NTX403; "
    "34 Skytrac ISAT-200; 35 Technisonic TFM-30; 36 Technisonic TFM-66; 37 Technisonic TFM-138 & D; "
    "38 Technisonic TFM-403; 39 Technisonic TFM-500; 40 Technisonic TDFM-136; 41 Technisonic TDFM-7300; "
    "42 Technisonic TDFM-7000; 43 TKM Inc. MX11; 44 TKM Inc. MX12; 45 TKM Inc. MX170(C); 46 TKM Inc. MX300; "
    "47 TKM Inc. MX385; 48 Wulfsberg C-2000; 49 Wulfsberg C-5000; 50 Wulfsberg P-2000; 51 Wulfsberg RT-30; "
    "52 Wulfsberg RT-138F; 53 Wulfsberg RT-2000; 54 Bendix/King KX155A; 55 Bendix/King KX170; "
    "58 TKM Inc. MX12; 59 TKM Inc. MX170(C); 60 TKM Inc. MX300; 61 TKM Inc. MK12A; 62 NAT AA20-030; "
    "63 NAT AA20-430; 64 NAT AA20-050; 65 NAT AA22-110; 66 NAT AA22-160; 67 NAT AA21-400; 68 NAT PA250; "
    "69 NAT PA700; 70 PowerSonix PSAIR22; 71 PowerSonix PSAIR42; 72 PowerSonix PSAIRq2; "
    "73 PowerSonix PSAMP600; 74 PowerSonix PSAMP1200; 75 Technisonic A790; 76 Honeywell AR COMBI; "
    "77 Universal Avionics CVFDR; 78 L3 FA2100";
}

class tst_RadioFiles : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { TestAppDir::prepare(); }
    void cleanupTestCase() { TestAppDir::cleanup(); }

    void cleanup()
    {
        RtsFile::destroyInstance();
        TestAppDir::clearData();
    }

    void rebuildAndDefaultTable()
    {
        RtsFile *file = RtsFile::instance();
        QCOMPARE(file->baseFileName(), basePath());
        RtsTableModel *model = RtsTableModel::instance();
        QCOMPARE(model->nextUserRtId(), 200);
        QVERIFY(!file->isModified());
        QCOMPARE(TestFiles::iniValue(basePath(), "Rts/count").toInt(), 74);
        QCOMPARE(TestFiles::iniValue(userPath(), "Rts/autoincid").toInt(), 200);
        QVERIFY(!TestFiles::iniValue(basePath(), "Rts/autoincid").isValid());

        const QPointer<RtsTableModel> destroyed = model;
        RtsFile::destroyInstance();
        QVERIFY(destroyed.isNull());

        // The default table is checked after a load from the rebuilt files, so the INI encoding is covered too.
        RtsFile::instance();
        model = RtsTableModel::instance();
        const QStringList entries = QString::fromLatin1(defaultNames).split(QLatin1Char(';'));
        QCOMPARE(model->rowCount(), entries.size());
        for (int row = 0; row < model->rowCount(); ++row) {
            const QModelIndex index = model->index(row, 0);
            const int id = model->rtId(index);
            QCOMPARE(QStringLiteral("%1 %2 %3").arg(id).arg(model->rtName(index), model->rtModel(index)).trimmed(),
                     entries.at(row).trimmed());
            const int type = id < 10 ? QList<int>({0, 1, 2, 3, 4, 1, 2}).at(id)
                                     : id <= 53 ? 1 : id <= 61 ? 2 : id <= 75 ? 3 : 4;
            QCOMPARE(int(model->rtType(index)), type);
            const bool included = model->rtType(index) == Rt::Receiver || id == 0 || id == 23 || id == 24;
            QCOMPARE(recordOf(id).at(8), QString::number(included ? 1 : 0));
        }

        const QList<QPair<QList<int>, QStringList>> levels = {
            {{0}, {"0.00", "", "0.00", ""}}, {{1}, {"7.75", "", "0.250", ""}}, {{2}, {"7.75", "", "", ""}},
            {{3}, {"", "", "0.250", ""}}, {{4}, {"7.75", "", "0.500", ""}}, {{5}, {"2.50", "", "0.250", ""}},
            {{6}, {"2.50", "", "0.100", ""}},
            {{10}, {"4.50", "40 mw (4.5Vrms) into 500 Ohms", "0.120", "120mVrms into 500 Ohms"}},
            {{11}, {"7.75", "100mW (7.75Vrms) into 600 Ohms", "0.110", "110mVrms into 150 Ohms"}},
            {{12}, {"7.75", "100mW (7.75Vrms) into 600 Ohms", "0.120", "120mVrms into 150 Ohms"}},
            {{13, 31, 32, 33}, {"7.75", "100mW (7.75Vrms) into 600 Ohms", "0.100", "100mVrms into 150 Ohms"}},
            {{14, 15, 16, 19, 20, 21}, {"7.07", "100mW (7.07Vrms) into 500 Ohms", "0.100", "100mVrms into 100 Ohms"}},
            {{17, 18}, {"4.50", "40mW (4.50Vrms) into 500 Ohms", "0.120", "120mVrms into 150 Ohms"}},
            {{22, 23, 24}, {"7.07", "100mW (7.07Vrms) into 500 Ohms", "", ""}},
            {{25}, {"6.75", "91mW (6.75Vrms) into 500 Ohms", "0.940", "940mVrms into 150 Ohms"}},
            {{26}, {"5.48", "60mW (5.48Vrms) into 500 Ohms", "0.100", "100mVrms into 600 Ohms"}},
            {{27, 28, 29, 30}, {"4.50", "40mW (4.50Vrms) into 500 Ohms", "0.120", "120mVrms into 500 Ohms"}},
            {{34}, {"9.50", "150mW (9.50Vrms) into 600 Ohms", "0.100", "1.40Vrms into 1000 Ohms"}},
            {{35, 36, 37, 38, 39, 40}, {"10.00", "500mW (17.3Vrms) into 600 Ohms", "0.050", "50mVrms into 200 Ohms"}},
            {{41, 42}, {"10.00", "600mW (19Vrms) into 600 Ohms", "0.050", "50mVrms into 200 Ohms"}},
            {{43, 44, 45, 46, 47}, {"4.50", "40mW (4.5Vrms) into 500 Ohms", "0.120", "120mVrms into 500 Ohms"}},
            {{48, 49, 50, 53}, {"7.75", "100mW (7.75Vrms) into 600 Ohms", "0.250", "250mVrms into 150 Ohms"}},
            {{51, 52}, {"7.75", "100mW (7.75Vrms) into 600 Ohms", "0.250", "250mVrms into 200 Ohms"}},
            {{54}, {"7.07", "100mW (7.07Vrms) into 500 Ohms", "0.000", ""}},
            {{55}, {"0.50", "0.5Vrms into 500 Ohms", "0.000", ""}},
            {{58, 59, 61}, {"4.50", "40mW (4.50Vrms) into 500 Ohms", "", ""}},
            {{60}, {"5.00", "50mW (5.00Vrms) into 500 Ohms", "", ""}},
            {{62, 63, 64, 65, 66}, {"0.00", "", "0.200", "200mVrms into 150 Ohms"}},
            {{67}, {"0.00", "", "0.200", "250mVrms into 150 Ohms"}},
            {{68, 69}, {"0.00", "", "0.005", "5mVrms into 150 Ohms"}},
            {{70, 71, 72, 73, 74}, {"0.00", "", "1.000", "1Vrms into 150 Ohms"}},
            {{75}, {"0.00", "", "0.145", ""}},
            {{76, 77, 78}, {"0.00", "", "0.500", "500mV into 5 KOhms"}}};
        int checked = 0;
        for (const auto &group : levels) {
            for (const int id : group.first) {
                QCOMPARE(recordOf(id).mid(4, 4), group.second);
                ++checked;
            }
        }
        QCOMPARE(checked, 74);
    }

    void userRecordsSurviveARebuild()
    {
        RtsFile *file = RtsFile::instance();
        RtsTableModel *model = RtsTableModel::instance();
        QVERIFY(model->insertRows(model->rowCount(), 1));
        QVERIFY(model->setData(model->index(74, RtsTableModel::ManufacturerColumn), QStringLiteral("Acme")));
        // An edit of a base record's flag is lost when the base file is rebuilt.
        QVERIFY(model->setData(model->locateRtId(14).siblingAtColumn(RtsTableModel::IncludeInRxListColumn), 1));
        QVERIFY(model->submit());
        QVERIFY(file->saveFiles());
        QCOMPARE(TestFiles::iniValue(userPath(), "Rts/autoincid").toInt(), 201);
        RtsFile::destroyInstance();

        QVERIFY(QFile::remove(basePath()));
        RtsFile::instance();
        model = RtsTableModel::instance();
        QCOMPARE(model->rowCount(), 75);
        QCOMPARE(model->nextUserRtId(), 201);
        QCOMPARE(model->rtName(model->locateRtId(200)), QStringLiteral("Acme"));
        QVERIFY(!model->includeInRxList(model->locateRtId(14)));
        QCOMPARE(TestFiles::iniValue(basePath(), "Rts/count").toInt(), 74);
    }

    void roundTripAndKeys()
    {
        RtsFile *file = RtsFile::instance();
        QSignalSpy modified(file, &RtsFile::modifiedChanged);
        file->appendNew(201, QStringLiteral("Acme, Inc."), QStringLiteral("R \"1\""), Rt::Receiver,
                        QStringLiteral("5.00"), QStringLiteral("100mW, 600 Ohms"), QString(), QStringLiteral("=;#"), 1);
        file->appendNew(7, QStringLiteral("Late Default"), QString(), Rt::Pa, QString(), QString(),
                        QStringLiteral("0.250"), QString(), 0);
        file->setModified(true);
        file->setModified(true);
        QCOMPARE(modified.count(), 1);
        QVERIFY(file->saveBaseFile());
        QVERIFY(file->isModified());
        QVERIFY(file->saveUserFile());
        QCOMPARE(modified.count(), 2);
        QCOMPARE(modified.last().at(0).toBool(), false);

        // Base records keep their row as key (row 75 here); user records are counted from 0.
        QCOMPARE(TestFiles::iniValue(basePath(), "Rts/count").toInt(), 75);
        QCOMPARE(TestFiles::iniValue(basePath(), "Rts/75").toStringList().at(1), QStringLiteral("Late Default"));
        QVERIFY(!TestFiles::iniValue(basePath(), "Rts/74").isValid());
        QCOMPARE(TestFiles::iniValue(userPath(), "Rts/count").toInt(), 1);
        QCOMPARE(TestFiles::iniValue(userPath(), "Rts/0").toStringList().at(0), QStringLiteral("201"));

        const QStringList saved = recordOf(201);
        RtsFile::destroyInstance();
        RtsFile::instance();
        QCOMPARE(recordOf(201), saved);
        QCOMPARE(saved.at(5), QStringLiteral("100mW, 600 Ohms"));
        // The base file's key 74 is missing: reading keys 0 to 74 gives one empty record there.
        QCOMPARE(RtsTableModel::instance()->rowCount(), 76);
        QVERIFY(recordOf(7).isEmpty());
    }

    void malformedFilesLoad()
    {
        QVERIFY(TestFiles::write(basePath(), "[Rts]\ncount=4\n0=1, Default Transceiver, , 1, 7.75, , 0.250, , 0\n"
                                             "1=12, Only\n3=abc, Letters, X, two, x.y, , , , yes\n"));
        QVERIFY(TestFiles::write(userPath(), "[Rts]\ncount=lots\n0=200, Lost, X, 1, 1.00, , 0.100, , 0\n"));
        RtsFile::instance();
        RtsTableModel *model = RtsTableModel::instance();
        QCOMPARE(model->rowCount(), 4);
        QCOMPARE(model->nextUserRtId(), 0);
        QCOMPARE(model->rtName(model->index(1, 0)), QStringLiteral("Only"));
        QCOMPARE(model->rtType(model->index(1, 0)), Rt::NotInstalled);
        QCOMPARE(model->dataObjectAtRow(2)->toStringList(), RtDataObject().toStringList());
        QCOMPARE(model->rtId(model->index(3, 0)), 0);
        QCOMPARE(model->rxLevel(model->index(3, 0)), 0.0);
        QCOMPARE(model->index(3, RtsTableModel::SelectStringColumn).data().toString(), QStringLiteral("Letters"));

        // A damaged count does not make the loader build an endless list.
        QVERIFY(TestFiles::write(userPath(), "[Rts]\ncount=2147483647\nautoincid=-5\n"));
        RtsFile::instance()->openFiles();
        QCOMPARE(model->rowCount(), 4 + 65535);
        QCOMPARE(model->nextUserRtId(), -5);
    }

    // A missing key still loads as an empty record, but saving must neither store it (it would land
    // among the base records) nor leave a gap that hides the records after it.
    void damagedFilesSaveWithoutLoss()
    {
        QVERIFY(TestFiles::write(basePath(), "[Rts]\ncount=3\n0=1, Default Transceiver, , 1, 7.75, , 0.250, , 0\n"
                                             "2=12, Kept Base, X, 1, 5.00, , 0.100, , 0\n"));
        QVERIFY(TestFiles::write(userPath(), "[Rts]\ncount=3\nautoincid=203\n0=200, First, X, 1, 5.00, , 0.100, , 0\n"
                                             "2=202, Third, X, 1, 5.00, , 0.100, , 0\n"));
        RtsFile::instance();
        QCOMPARE(RtsTableModel::instance()->rowCount(), 6);
        QVERIFY(RtsFile::instance()->saveFiles());
        RtsFile::destroyInstance();

        RtsFile::instance();
        QCOMPARE(RtsTableModel::instance()->rowCount(), 4);
        for (const int id : {1, 12, 200, 202})
            QVERIFY2(!recordOf(id).isEmpty(), qPrintable(QString::number(id)));
        QCOMPARE(TestFiles::iniValue(basePath(), "Rts/count").toInt(), 2);
        QCOMPARE(TestFiles::iniValue(userPath(), "Rts/count").toInt(), 2);
    }

    void askToSave_data()
    {
        QTest::addColumn<bool>("changed");
        QTest::addColumn<int>("answer");
        QTest::addColumn<bool>("result");
        QTest::addColumn<bool>("saved");
        QTest::newRow("nothing changed") << false << int(QMessageBox::Cancel) << true << false;
        QTest::newRow("save") << true << int(QMessageBox::Save) << true << true;
        QTest::newRow("discard") << true << int(QMessageBox::Discard) << true << false;
        QTest::newRow("cancel") << true << int(QMessageBox::Cancel) << false << false;
    }

    void askToSave()
    {
        QFETCH(bool, changed);
        QFETCH(int, answer);
        QFETCH(bool, result);
        QFETCH(bool, saved);
        RtsFile *file = RtsFile::instance();
        file->appendNew(200, QStringLiteral("Acme"), QStringLiteral("X"), Rt::Transceiver, QStringLiteral("5.00"),
                        QString(), QStringLiteral("0.100"), QString(), 0);
        file->setModified(changed);

        MessageBoxRecorder boxes(static_cast<QMessageBox::StandardButton>(answer));
        QCOMPARE(file->askToSave(), result);
        QCOMPARE(TestFiles::iniValue(userPath(), "Rts/count").toInt(), saved ? 1 : 0);
        QCOMPARE(file->isModified(), changed && !saved);
        QCOMPARE(boxes.count(), changed ? 1 : 0);
        if (changed)
            QVERIFY(boxes.last().text.contains(QLatin1String("Radios")));
    }
};

QTEST_MAIN(tst_RadioFiles)
#include "tst_radiofiles.moc"
