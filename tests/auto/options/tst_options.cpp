// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "classes/nvroptions.h"
#include "classes/nvroptionsettings.h"
#include "classes/portinventory.h"
#include "formdriver.h"
#include "messageboxrecorder.h"
#include "ptypair.h"
#include "testappdir.h"
#include "testfiles.h"
#include "widgets/portlistwidget.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QFormLayout>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>
#include <QTableWidget>
#include <QTextEdit>

#include <functional>

class tst_Options : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { TestAppDir::prepare(QStringLiteral("Avionics Lab")); }

    void cleanupTestCase()
    {
        QDir(TestAppDir::filePath(QStringLiteral("ports"))).removeRecursively();
        TestAppDir::cleanup();
    }

    void init()
    {
        QDir(QFileInfo(optionsFile()).path()).removeRecursively();
        QDir(TestAppDir::filePath(QStringLiteral("ports"))).removeRecursively();
    }

    void optionsFileAndDefaults()
    {
        QCOMPARE(NvrOptionSettings().fileName(), optionsFile());
        const NvrOptions defaults({});
        QVERIFY(!QFile::exists(optionsFile())); // reading creates nothing

        QVERIFY(QDir().mkpath(optionsFile())); // a folder where the file should be
        QCOMPARE(values(NvrOptions({})), values(defaults));
        NvrOptions({}).saveSettings(); // fails silently
        QVERIFY(QFileInfo(optionsFile()).isDir());
    }

    void fileLayer_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QVariantList>("expected"); // ports, txDelay2, server port, style, initializeWithDefaultData

        const QVariantList defaults{1, 0, 50, 6178, "WindowsVista", false};
        const QByteArray all = "[options]\ncomport=4\ncomport2=7\ntxdelay2=120\nserverport=7001\nstyle=Fusion\n"
                               "initializeWithDefaultData=true\n";
        QTest::newRow("no file") << QByteArray() << QStringList() << defaults;
        QTest::newRow("every key") << all << QStringList() << QVariantList{4, 7, 120, 7001, "Fusion", true};
        QTest::newRow("-port over the file") << all << QStringList{"nevra", "-port", "8000"}
                                             << QVariantList{4, 7, 120, 8000, "Fusion", true};
        QTest::newRow("equal ports") << QByteArray("[options]\ncomport=3\ncomport2=3\n") << QStringList()
                                     << QVariantList{3, 0, 50, 6178, "WindowsVista", false};
        QTest::newRow("values that do not convert")
            << QByteArray("[options]\ncomport=abc\ncomport2=x\ntxdelay2=x\nserverport=x\n"
                          "initializeWithDefaultData=maybe\n")
            << QStringList() << QVariantList{0, 0, 0, 0, "WindowsVista", false};
        QTest::newRow("garbage, keys outside the group")
            << QByteArray("\0\xff\xfe\x01=\x02\n[options\ncomport=9\ncomport2=4\n[other]\ncomport2=6\n", 48)
            << QStringList() << defaults;
    }

    void fileLayer()
    {
        QFETCH(QByteArray, file);
        QFETCH(QStringList, arguments);
        QFETCH(QVariantList, expected);
        if (!file.isEmpty())
            writeOptionsFile(file);
        const NvrOptions options(arguments);
        QCOMPARE(QVariantList({options.comPortNumber(), options.comPort2Number(), options.txDelay2(),
                               int(options.serverPort()), options.style(), options.initializeWithDefaultData()}),
                 expected);
    }

    void switches_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<uint>("flags");
        QTest::addColumn<QString>("logFile"); // empty: the default
        QTest::addColumn<int>("serverPort");

        QTest::newRow("program only") << QStringList{"nevra"} << 0x8Eu << QString() << 6178;
        QTest::newRow("-logfile as given") << QStringList{"nevra", "-logfile", "my.log"} << 0x9Eu << "my.log" << 6178;
        QTest::newRow("-logfile twice") << QStringList{"-logfile", "a", "-logfile", "b"} << 0x9Eu << "a" << 6178;
        QTest::newRow("-noconnect -s") << QStringList{"nevra", "-noconnect", "-s"} << 0x4Eu << QString() << 6178;
        QTest::newRow("every flag") << QStringList{"-qz", "-nogui", "-nomessages", "-noread", "-nosox", "-s", "-log"}
                                    << 0xF1u << QString() << 6178;
        QTest::newRow("other case, part of an argument")
            << QStringList{"-LOG", "-NoGui", "-PORT", "1", "--log", "-s1"} << 0x8Eu << QString() << 6178;
        QTest::newRow("-port low 16 bits") << QStringList{"-port", "70000"} << 0x8Eu << QString() << 4464;
        QTest::newRow("-port not a number") << QStringList{"-port", "abc"} << 0x8Eu << QString() << 0;
        QTest::newRow("-port last") << QStringList{"nevra", "-port"} << 0x8Eu << QString() << 6178;
        QTest::newRow("-port twice") << QStringList{"-port", "100", "-port", "200"} << 0x8Eu << QString() << 100;
    }

    void switches()
    {
        QFETCH(QStringList, arguments);
        QFETCH(uint, flags);
        QFETCH(QString, logFile);
        QFETCH(int, serverPort);
        const NvrOptions options(arguments);
        QCOMPARE(uint(options.flags()), flags);
        QCOMPARE(options.logFileName(), logFile.isEmpty() ? TestAppDir::filePath("nevra.log") : logFile);
        QCOMPARE(int(options.serverPort()), serverPort);
    }

    void saveSettings()
    {
        NvrOptions({}).saveSettings();
        QVERIFY(QFile::exists(optionsFile())); // the organisation's folder is made on the way

        writeOptionsFile("[options]\ntxdelay=100\ncomport=4\ncomport2=4\nmanualurl=http://docs.example/m.htm\n"
                         "style=Fusion\n[other]\nkeep=1\n");
        const NvrOptions options({"nevra", "-port", "9000"});
        options.saveSettings();

        QSettings file(optionsFile(), QSettings::IniFormat);
        file.beginGroup(QStringLiteral("options"));
        QStringList keys = file.childKeys();
        keys.sort();
        QCOMPARE(keys, QStringList({"comport", "comport2", "initializeWithDefaultData", "manualurl", "serverport",
                                    "style",
                                    "txdelay2"}));
        QCOMPARE(QVariantList({file.value("comport").toInt(), file.value("comport2").toInt(),
                               file.value("txdelay2").toInt(), file.value("manualurl").toString(),
                               file.value("serverport").toInt(), file.value("style").toString(),
                               file.value("initializeWithDefaultData").toBool()}),
                 QVariantList({4, 0, 50, "http://docs.example/m.htm", 9000, "Fusion", false}));
        file.endGroup();
        QCOMPARE(file.value("other/keep").toInt(), 1);
        QCOMPARE(values(NvrOptions({"nevra", "-port", "9000"})), values(options));
    }

    void dialogCancelled()
    {
        const QByteArray file = "[options]\ncomport=1\ncomport2=2\n";
        writeOptionsFile(file);
        NvrOptions options({});
        QSignalSpy port(&options, &NvrOptions::comPortNumberChanged);
        QSignalSpy port2(&options, &NvrOptions::comPort2NumberChanged);
        QVERIFY(!editOptions(options, [](QDialog *dialog) {
            QSpinBox *first = spinBox(dialog, 0);
            QSpinBox *second = spinBox(dialog, 1);
            QCOMPARE(dialog->focusWidget(), static_cast<QWidget *>(first));
            QCOMPARE(first->value(), 1);
            QCOMPARE(second->value(), 2);
            // No system port is called COM<n> here, and there are no links: only the heading.
            QCOMPARE(dialog->findChild<QTextEdit *>()->toPlainText(),
                     QStringLiteral("The following COM ports are currently available:\n"));

            QPushButton *ok = dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
            QTest::keyClick(second, Qt::Key_Down);
            QVERIFY(!ok->isEnabled());
            QTest::keyClick(dialog, Qt::Key_Return);
            QVERIFY(dialog->isVisible()); // equal ports cannot be accepted
            // The ports wrap around from 1 to 255.
            QTest::keyClick(first, Qt::Key_Down);
            QCOMPARE(first->value(), 255);
            QVERIFY(ok->isEnabled());
            QTest::keyClick(dialog, Qt::Key_Escape);
        }));
        QCOMPARE(QVariantList({options.comPortNumber(), options.comPort2Number(), port.count(), port2.count()}),
                 QVariantList({1, 2, 0, 0}));
        QCOMPARE(TestFiles::read(optionsFile()), file);
    }

    void dialogAccepted()
    {
        PtyPair pty;
        QVERIFY2(pty.start(), qPrintable(pty.error()));
        QDir ports(TestAppDir::filePath(QStringLiteral("ports")));
        QVERIFY(ports.mkpath(QStringLiteral(".")));
        QVERIFY(QFile::link(pty.portA(), ports.filePath(QStringLiteral("COM12"))));
        QVERIFY(QFile::link(pty.portB(), ports.filePath(QStringLiteral("COM3"))));

        NvrOptions options({});
        QSignalSpy port(&options, &NvrOptions::comPortNumberChanged);
        QSignalSpy port2(&options, &NvrOptions::comPort2NumberChanged);
        QVERIFY(editOptions(options, [](QDialog *dialog) {
            QCOMPARE(dialog->findChild<QTextEdit *>()->toPlainText(),
                     QStringLiteral("The following COM ports are currently available:\n\nCOM3 \nCOM12 "));
            QTest::keyClick(spinBox(dialog, 0), Qt::Key_Up);
            QTest::keyClick(spinBox(dialog, 0), Qt::Key_Up);
            QTest::keyClick(spinBox(dialog, 1), Qt::Key_Down);
            QTest::keyClick(dialog, Qt::Key_Return);
        }));
        QCOMPARE(options.comPortNumber(), 3);
        QCOMPARE(options.comPort2Number(), 255);
        QCOMPARE(port, QList<QVariantList>({{3}}));
        QCOMPARE(port2, QList<QVariantList>({{255}}));
        QCOMPARE(values(NvrOptions({})), values(options));

        // Accepted unchanged: nothing emitted, the file is written anyway.
        QVERIFY(QFile::remove(optionsFile()));
        QVERIFY(editOptions(options, [](QDialog *dialog) {
            QTest::mouseClick(dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok), Qt::LeftButton);
        }));
        QCOMPARE(port.count() + port2.count(), 2);
        QCOMPARE(values(NvrOptions({})), values(options));
    }

    // COM numbers with what the system knows of their devices, then the devices without a number.
    void portList()
    {
        PtyPair pty;
        QVERIFY2(pty.start(), qPrintable(pty.error()));
        const PortInventory::Device adapter{QStringLiteral("/dev/ttyUSB0"),
                                            QStringLiteral("/dev/serial/by-id/usb-Maker_Cable_A10K-if00-port0"),
                                            QStringLiteral("Maker"), QStringLiteral("0403:6001"),
                                            QStringLiteral("A10K")};
        const PortInventory::Device board{QStringLiteral("/dev/ttyACM0"), QString(), QStringLiteral("Boards Inc"),
                                          QStringLiteral("2341:0043"), QStringLiteral("75")};
        const QList<PortInventory::Entry> entries = PortInventory::entries(
            {adapter, board}, {{QStringLiteral("COM2"), pty.deviceA()}, {QStringLiteral("COM3"), adapter.location}});
        QStringList shown;
        for (const PortInventory::Entry &entry : entries)
            shown.append(QStringList{QString::number(entry.number), entry.device, entry.manufacturer, entry.vidPid,
                                     entry.serialNumber}
                             .join(QLatin1Char(',')));
        QCOMPARE(shown, (QStringList{QStringLiteral("2,") + pty.deviceA() + QStringLiteral(",,,"),
                                     QStringLiteral("3,") + adapter.byId + QStringLiteral(",Maker,0403:6001,A10K"),
                                     QStringLiteral("0,/dev/ttyACM0,Boards Inc,2341:0043,75")}));

        // The table follows links made and removed; a number is given once.
        QDir ports(TestAppDir::filePath(QStringLiteral("ports")));
        QVERIFY(ports.mkpath(QStringLiteral(".")));
        QVERIFY(QFile::link(pty.portA(), ports.filePath(QStringLiteral("COM5"))));
        PortListWidget list;
        QTableWidget *table = list.table();
        const auto rowOf = [table](const QString &com) {
            const QList<QTableWidgetItem *> found = table->findItems(com, Qt::MatchExactly);
            return found.isEmpty() ? QString() : table->item(found.first()->row(), 1)->text();
        };
        QCOMPARE(rowOf(QStringLiteral("COM5")), pty.deviceA());
        QString error;
        QVERIFY(PortInventory::assign(6, {pty.deviceB(), QString(), QString(), QString(), QString()}, &error));
        QTRY_COMPARE_WITH_TIMEOUT(rowOf(QStringLiteral("COM6")), pty.deviceB(), 1000);
        QCOMPARE(QFile::symLinkTarget(ports.filePath(QStringLiteral("COM6"))), pty.deviceB());
        QVERIFY(!PortInventory::assign(6, {pty.deviceA(), QString(), QString(), QString(), QString()}, &error));
        QCOMPARE(error, QStringLiteral("COM6 already names %1.").arg(pty.deviceB()));
        QCOMPARE(PortInventory::firstFreeNumber(), 1);
        QVERIFY(QFile::remove(ports.filePath(QStringLiteral("COM5"))));
        QTRY_COMPARE_WITH_TIMEOUT(rowOf(QStringLiteral("COM5")), QString(), 1000);
    }

private:
    static QString optionsFile() { return TestAppDir::filePath(QStringLiteral("Avionics Lab/NevraOptions.ini")); }
    static void writeOptionsFile(const QByteArray &bytes)
    {
        QDir().mkpath(QFileInfo(optionsFile()).path());
        QFile file(optionsFile());
        QVERIFY(file.open(QFile::WriteOnly));
        file.write(bytes);
        file.flush(); // a later flush would set the time to now again
        // QSettings keeps a parsed copy of a file whose size and time look unchanged: give every version its own time.
        static QDateTime stamp = QDateTime::currentDateTime().addDays(-1);
        stamp = stamp.addSecs(1);
        QVERIFY(file.setFileTime(stamp, QFileDevice::FileModificationTime));
    }

    static QVariantList values(const NvrOptions &options)
    {
        return {uint(options.flags()), options.comPortNumber(), options.comPort2Number(), options.txDelay2(),
                options.logFileName(), options.style(), options.manualUrl(), options.initializeWithDefaultData(),
                options.serverPort()};
    }

    // Runs editOptions() with interact() playing the user in the dialog.
    static bool editOptions(NvrOptions &options, const std::function<void(QDialog *)> &interact)
    {
        MessageBoxRecorder guard;
        FormDriver<QDialog> driver(interact);
        const bool accepted = options.editOptions();
        if (!driver.ran())
            QTest::qFail("the options dialog never showed", __FILE__, __LINE__);
        return accepted;
    }

    static QSpinBox *spinBox(QDialog *dialog, int row)
    {
        auto *form = dialog->findChild<QFormLayout *>();
        return form ? qobject_cast<QSpinBox *>(form->itemAt(row, QFormLayout::FieldRole)->widget()) : nullptr;
    }
};

QTEST_MAIN(tst_Options)
#include "tst_options.moc"
