// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "classes/datafolderlock.h"
#include "classes/rtsfile.h"
#include "filedialogchooser.h"
#include "kvtableview.h"
#include "messageboxrecorder.h"
#include "models/headsetsmodel.h"
#include "models/musicsystemsmodel.h"
#include "models/nvrlibraries.h"
#include "models/rtstablemodel.h"
#include "shippedlibraries.h"
#include "testappdir.h"
#include "toolrun.h"
#include "widgets/legendsconverttableeditwidget.h"
#include "widgets/musicsystemstableeditwidget.h"
#include "widgets/rtstableeditwidget.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QPushButton>
#include <QSet>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

namespace {

ToolRun runTool(const QStringList &arguments)
{
    return ToolRun::run(QStringLiteral(NVRTOOL_BINARY),
                        arguments + QStringList{"--data", TestAppDir::filePath("nevradat")});
}

QByteArray contents(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool write(const QString &fileName, const QByteArray &bytes)
{
    QFile file(fileName);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

// Records as another installation saved them: a factory record, new user records, one that is
// here already in other letter case and blanks, and one repeated within the file.
const QByteArray s_otherMusicSystems =
    "\"Id\",\"Name\",\"Company\",\"Model\",\"MIC Output\",\"MIC Output Description\",\"Phones Input\","
    "\"Phones Input Description\",\"Aux Output\",\"Aux Output Description\",\"Aux Input\",\"Aux Input Description\","
    "\"Stereo\",\"Select String\"\n"
    "\"2\",\"\",\"Generic\",\"Factory Only There\",\"1.00\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"0\",\"\"\n"
    "\"230\",\"\",\"Acme\",\"Tuner X\",\"0.80\",\"line out\",\"\",\"\",\"\",\"\",\"\",\"\",\"1\",\"\"\n"
    "\"231\",\"\",\" generic \",\"MUSIC PLAYER \",\"1.00\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"1\",\"\"\n"
    "\"232\",\"\",\"ACME\",\"tuner x\",\"0.80\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"1\",\"\"\n"
    "\"240\",\"\",\"Zeta\",\"Z1\",\"0.50\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"0\",\"\"\n";

/// A user file of the radios or headsets as another installation's QSettings wrote it.
void writeIniLibrary(const QString &fileName, const QString &group, const QList<QStringList> &records)
{
    QSettings settings(fileName, QSettings::IniFormat);
    settings.beginGroup(group);
    settings.setValue(QStringLiteral("count"), records.size());
    settings.setValue(QStringLiteral("autoincid"), 250);
    for (int key = 0; key < records.size(); ++key)
        settings.setValue(QString::number(key), records.at(key));
    settings.endGroup();
    settings.sync();
}

}

class tst_LibraryImport : public QObject
{
    Q_OBJECT

    QTemporaryDir m_other;
    QString other(const QString &name) const { return m_other.filePath(name); }

private Q_SLOTS:
    void initTestCase()
    {
        TestAppDir::prepare();
        QVERIFY(m_other.isValid());
        QVERIFY(write(other("musicsystems.csv"), s_otherMusicSystems));
        // Lower-case group and keys, as the other system's settings class may write them.
        writeIniLibrary(other("radiosuser.dat"), QStringLiteral("rts"),
                        {{"5", "Old Factory", "F1", "2", "7.75", "", "0.250", "", "0"},
                         {"200", "Acme", "R1", "2", "7.75", "", "0.250", "", "0"},
                         {"201", " becker ", "ar 6201", "2", "7.75", "", "0.110", "", "0"},
                         {"203", "Acme", "R2", "1", "7.75", "", "", "", "1"}});
        writeIniLibrary(other("headsetsuser.dat"), QStringLiteral("HeadSets"),
                        {{"204", "Acme", "H1", "4.00", "150", "", "0.5", ""},
                         {"205", "BOSE", " a20", "4.00", "160", "", "0.6", ""}});
        QVERIFY(write(other("junk.csv"), QByteArray("\x89PNG\r\n\x1a\n\0\0\0\rIHDR binary,,,,\n", 22)));
        QVERIFY(write(other("junk.dat"), "just some notes\nnot a library\n"));
    }
    void cleanupTestCase() { TestAppDir::cleanup(); }
    void init()
    {
        QVERIFY(ShippedLibraries::install(QStringLiteral(NEVRADAT_SOURCE)));
        // The radio and headset files are made on first use, as on a fresh installation.
        RtsFile::instance();
        NvrLibraries::headSets();
        RtsFile::destroyInstance();
        NvrLibraries::destroyAll();
    }
    void cleanup() { ShippedLibraries::forget(); }

    void toolMergesAnotherInstallation_data()
    {
        QTest::addColumn<QString>("library");
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("summary");
        QTest::addColumn<QStringList>("added"); // company, model pairs now in the library

        QTest::newRow("csv") << "musicsystems" << "musicsystems.csv" << "imported 2, skipped 2 already present"
                             << QStringList{"Acme", "Tuner X", "Zeta", "Z1"};
        QTest::newRow("radios") << "radios" << "radiosuser.dat" << "imported 2, skipped 1 already present"
                                << QStringList{"Acme", "R1", "Acme", "R2"};
        QTest::newRow("headsets") << "headsets" << "headsetsuser.dat" << "imported 1, skipped 1 already present"
                                  << QStringList{"Acme", "H1"};
    }

    void toolMergesAnotherInstallation()
    {
        QFETCH(QString, library);
        QFETCH(QString, file);
        QFETCH(QString, summary);
        QFETCH(QStringList, added);
        ToolRun result = runTool({"lib", "import", library, other(file)});
        QVERIFY2(result.exitCode == 0 && result.err.isEmpty(), result.err);
        QCOMPARE(result.out, (library + ": " + summary + '\n').toUtf8());

        // The records are there under fresh user ids, each once, and factory records of the other file are not.
        QAbstractItemModel *model = nullptr;
        int companyColumn = 1;
        if (library == QLatin1String("musicsystems")) {
            model = MusicSystemsModel::instance();
            companyColumn = 2;
        } else if (library == QLatin1String("radios")) {
            RtsFile::instance();
            model = RtsTableModel::instance();
        } else {
            model = NvrLibraries::headSets();
        }
        QSet<int> ids;
        int found = 0;
        for (int row = 0; row < model->rowCount(); ++row) {
            const int id = model->index(row, 0).data(Qt::EditRole).toInt();
            QVERIFY2(!ids.contains(id), qPrintable(QString::number(id)));
            ids.insert(id);
            const QString company = model->index(row, companyColumn).data(Qt::EditRole).toString();
            const QString name = model->index(row, companyColumn + 1).data(Qt::EditRole).toString();
            QVERIFY(company != QLatin1String("Old Factory") && name != QLatin1String("Factory Only There"));
            for (int i = 0; i < added.size(); i += 2) {
                if (company == added.at(i) && name == added.at(i + 1)) {
                    ++found;
                    QVERIFY(id >= 200);
                }
            }
        }
        QCOMPARE(found, added.size() / 2);

        // A second run finds everything present and changes nothing.
        const int skippedFirst = summary.section(QLatin1Char(' '), 3, 3).toInt();
        result = runTool({"lib", "import", library, other(file)});
        QCOMPARE(result.out, QStringLiteral("%1: imported 0, skipped %2 already present\n")
                                 .arg(library)
                                 .arg(skippedFirst + added.size() / 2)
                                 .toUtf8());
    }

    void toolRefusals_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QByteArray>("needle");
        QTest::newRow("junk csv") << QStringList{"lib", "import", "musicsystems", other("junk.csv")} << 1
                                  << QByteArray("junk.csv is not a file of this library");
        QTest::newRow("csv of another library")
            << QStringList{"lib", "import", "serialdatadevices", other("musicsystems.csv")} << 1
            << QByteArray("its columns are not this library's");
        QTest::newRow("junk radios") << QStringList{"lib", "import", "radios", other("junk.dat")} << 1
                                     << QByteArray("junk.dat is not a file of this library");
        QTest::newRow("missing file") << QStringList{"lib", "import", "headsets", other("none.dat")} << 1
                                      << QByteArray("Cannot read");
        QTest::newRow("no user records") << QStringList{"lib", "import", "products", other("junk.dat")} << 2
                                         << QByteArray("products has no user records");
        QTest::newRow("unknown library") << QStringList{"lib", "import", "headphones", other("junk.dat")} << 2
                                         << QByteArray("unknown library: headphones");
    }

    void toolRefusals()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, exitCode);
        QFETCH(QByteArray, needle);
        const QByteArray before = contents(TestAppDir::filePath("nevradat/musicsystems.csv"));
        const QByteArray radiosBefore = contents(TestAppDir::filePath("nevradat/radiosuser.dat"));
        const ToolRun result = runTool(arguments);
        QCOMPARE(result.exitCode, exitCode);
        QVERIFY2(result.err.contains(needle) && result.err.count('\n') == 1, result.err);
        QVERIFY(result.out.isEmpty());
        QCOMPARE(contents(TestAppDir::filePath("nevradat/musicsystems.csv")), before);
        QCOMPARE(contents(TestAppDir::filePath("nevradat/radiosuser.dat")), radiosBefore);
    }

    void toolWaitsForTheLock()
    {
        DataFolderLock lock(TestAppDir::filePath("nevradat"));
        QVERIFY(lock.tryLock());
        const QByteArray before = contents(TestAppDir::filePath("nevradat/musicsystems.csv"));
        const ToolRun result = runTool({"lib", "import", "musicsystems", other("musicsystems.csv")});
        QCOMPARE(result.exitCode, 1);
        QVERIFY2(result.err.contains(QByteArray::number(QCoreApplication::applicationPid())), result.err);
        QCOMPARE(contents(TestAppDir::filePath("nevradat/musicsystems.csv")), before);
    }

    void pageImportAndExport()
    {
        MusicSystemsTableEditWidget page;
        page.resize(900, 500);
        page.show();
        QVERIFY(QTest::qWaitForWindowExposed(&page));
        auto *importButton = page.findChild<QPushButton *>(QStringLiteral("importButton"));
        auto *exportButton = page.findChild<QPushButton *>(QStringLiteral("exportButton"));
        QVERIFY(importButton && exportButton && importButton->isVisible());
        QAbstractItemModel *view = page.tableView()->model();
        const int rows = view->rowCount();
        {
            MessageBoxRecorder boxes;
            FileDialogChooser chooser(other("junk.csv"));
            QTest::mouseClick(importButton, Qt::LeftButton);
            QTRY_VERIFY(boxes.count() == 1);
            QVERIFY(boxes.last().text.contains(QLatin1String("is not a file of this library")));
            QCOMPARE(view->rowCount(), rows);
        }
        {
            MessageBoxRecorder boxes;
            FileDialogChooser chooser(other("musicsystems.csv"));
            QTest::mouseClick(importButton, Qt::LeftButton);
            QTRY_VERIFY(boxes.count() == 1);
            QVERIFY2(boxes.last().text.contains(QLatin1String("imported 2, skipped 2 already present")),
                     qPrintable(boxes.last().text));
            QCOMPARE(view->rowCount(), rows + 2);
            // Saved at once: nothing left to save, and the file holds the new records.
            QVERIFY(contents(TestAppDir::filePath("nevradat/musicsystems.csv")).contains("Tuner X"));
            QVERIFY(!page.findChild<QPushButton *>(QStringLiteral("submitButton"))->isEnabled());
        }
        {
            // Two rows selected: the question offers them alone, and the suffix picks JSON.
            page.tableView()->selectRow(0);
            page.tableView()->selectionModel()->select(view->index(view->rowCount() - 1, 0),
                                                       QItemSelectionModel::Select | QItemSelectionModel::Rows);
            MessageBoxRecorder boxes(QMessageBox::Yes);
            FileDialogChooser chooser(other("chosen.json"));
            QTest::mouseClick(exportButton, Qt::LeftButton);
            QTRY_VERIFY(QFile::exists(other("chosen.json")));
            const QJsonArray records = QJsonDocument::fromJson(contents(other("chosen.json"))).array();
            QCOMPARE(records.size(), 2);
            QVERIFY(records.at(0).toObject().contains(QLatin1String("Company")));
        }

        // The radios page edits through a filter proxy; the merge reaches the table behind it.
        RtsTableEditWidget radios;
        radios.show();
        QVERIFY(QTest::qWaitForWindowExposed(&radios));
        {
            MessageBoxRecorder boxes;
            FileDialogChooser chooser(other("radiosuser.dat"));
            QTest::mouseClick(radios.findChild<QPushButton *>(QStringLiteral("importButton")), Qt::LeftButton);
            QTRY_VERIFY(boxes.count() == 1);
            QVERIFY2(boxes.last().text.contains(QLatin1String("imported 2, skipped 1 already present")),
                     qPrintable(boxes.last().text));
            QVERIFY(RtsTableModel::instance()->locateRt(QStringLiteral("Acme"), QStringLiteral("R2")).isValid());
        }

        // Libraries without user records offer no Import.
        LegendsConvertTableEditWidget legends;
        legends.show();
        QVERIFY(QTest::qWaitForWindowExposed(&legends));
        QVERIFY(!legends.findChild<QPushButton *>(QStringLiteral("importButton"))->isVisible());
    }
};

QTEST_MAIN(tst_LibraryImport)
#include "tst_libraryimport.moc"
