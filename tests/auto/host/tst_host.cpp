// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "audiopage.h"
#include "classes/datafolderlock.h"
#include "classes/nvroptions.h"
#include "classes/nvrwav.h"
#include "classes/productdataheader.h"
#include "classes/rtsfile.h"
#include "filedialogchooser.h"
#include "headerpage.h"
#include "hostlog.h"
#include "kvtableview.h"
#include "mainwindow.h"
#include "messageboxrecorder.h"
#include "models/audiosystemsmodel.h"
#include "models/csvmodel.h"
#include "models/lowimpedanceintercomsmodel.h"
#include "models/musicsystemsmodel.h"
#include "models/nvrlibraries.h"
#include "testappdir.h"
#include "testfiles.h"
#include "widgets/tableeditwidget.h"

#include <QAction>
#include <QBuffer>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QSpinBox>
#include <QImage>
#include <QListWidget>
#include <QSet>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <cstdio>
#include <memory>

#include <fcntl.h>
#include <unistd.h>

namespace {
/// Frees every library, so that the next window reads them from their files.
void destroyLibraries()
{
    RtsFile::destroyInstance();
    AudioSystemsModel::destroyInstance();
    LowImpedanceIntercomsModel::destroyInstance();
    MusicSystemsModel::destroyInstance();
    NvrLibraries::destroyAll();
}

QString firstLine(const QString &path)
{
    return QString::fromUtf8(TestFiles::read(path)).section(QLatin1Char('\n'), 0, 0);
}

/// Sends this process's standard error into a file while it lives.
class StderrToFile
{
public:
    explicit StderrToFile(const QString &path) : m_saved(::dup(STDERR_FILENO))
    {
        std::fflush(stderr);
        const int file = ::open(QFile::encodeName(path).constData(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        ::dup2(file, STDERR_FILENO);
        ::close(file);
    }
    ~StderrToFile()
    {
        std::fflush(stderr);
        ::dup2(m_saved, STDERR_FILENO);
        ::close(m_saved);
    }
    StderrToFile(const StderrToFile &) = delete;
    StderrToFile &operator=(const StderrToFile &) = delete;

private:
    int m_saved;
};
}

class tst_Host : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { TestAppDir::prepare(); }
    void cleanupTestCase() { TestAppDir::cleanup(); }

    void cleanup()
    {
        destroyLibraries();
        TestAppDir::clearData();
    }

    void headlessStartExits()
    {
        QTemporaryDir dir;
        const QString log = dir.filePath(QStringLiteral("host.log"));
        QProcess host;
        host.setProcessEnvironment(QProcessEnvironment::systemEnvironment());
        host.start(QStringLiteral(NEVRA_BINARY), {QStringLiteral("-nogui"), QStringLiteral("-logfile"), log});
        QVERIFY2(host.waitForFinished(30000), "the host did not exit on its own");
        QCOMPARE(host.exitStatus(), QProcess::NormalExit);
        QCOMPARE(host.exitCode(), 0);
        const QByteArray text = TestFiles::read(log);
        QVERIFY(text.contains("started"));
        QVERIFY(text.contains("<int main(int, char**)>"));
    }

    void oneHostPerDataFolder()
    {
        // Copies of the built host, in a folder of their own: it is their application directory.
        QTemporaryDir appDir;
        const QString program = appDir.filePath(QStringLiteral("nevra"));
        QVERIFY(QFile::copy(QStringLiteral(NEVRA_BINARY), program));
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), appDir.filePath(QStringLiteral("config")));
        const auto start = [&](QProcess &host) {
            host.setProcessEnvironment(environment);
            host.start(program, {QStringLiteral("-noconnect"), QStringLiteral("-nomessages")});
            return host.waitForStarted();
        };
        const auto refused = [&](const QString &holder) {
            QProcess host;
            if (!start(host) || !host.waitForFinished(60000))
                return QStringLiteral("did not run to its end");
            const QString said = QString::fromLocal8Bit(host.readAllStandardError());
            return host.exitCode() == 1 && said.contains(holder) ? QString() : said;
        };

        QProcess first;
        QVERIFY(start(first));
        DataFolderLock probe(appDir.filePath(QStringLiteral("nevradat")));
        QTRY_COMPARE_WITH_TIMEOUT(firstLine(probe.lockFileName()), QString::number(first.processId()), 60000);
        const QString byFirst = QStringLiteral("in use by nevra (process %1)").arg(first.processId());
        QCOMPARE(refused(byFirst), QString());
        // A command of the tool takes the same lock and learns the same.
        QVERIFY(!probe.tryLock());
        QVERIFY(probe.isHeldElsewhere());
        QCOMPARE(probe.ownerPid(), first.processId());
        QCOMPARE(probe.ownerName(), QStringLiteral("nevra"));
        QVERIFY(probe.errorString().contains(byFirst));

        // A host that died leaves its lock file behind; the next program takes the folder over.
        first.kill();
        QVERIFY(first.waitForFinished());
        QVERIFY(probe.tryLock());
        QCOMPARE(refused(QStringLiteral("in use by tst_host (process %1)").arg(QCoreApplication::applicationPid())),
                 QString());
        probe.unlock();
        QVERIFY(!QFile::exists(probe.lockFileName()));
    }

    void quittingAsksBeforeUnsavedWork_data()
    {
        QTest::addColumn<bool>("header");
        QTest::addColumn<int>("answer");
        for (const bool header : {true, false}) {
            const char *page = header ? "edited header" : "converted sound";
            QTest::addRow("%s, cancel", page) << header << int(QMessageBox::Cancel);
            QTest::addRow("%s, discard", page) << header << int(QMessageBox::Discard);
            QTest::addRow("%s, save", page) << header << int(QMessageBox::Save);
        }
    }

    void quittingAsksBeforeUnsavedWork()
    {
        QFETCH(bool, header);
        QFETCH(int, answer);
        QTemporaryDir dir;
        // A work file of another program, which this run must leave alone.
        const QString othersWorkFile = TestAppDir::filePath(QStringLiteral("tmp/other.wav"));
        QVERIFY(TestFiles::write(othersWorkFile, "RIFF"));
        // Only the questions are boxes; what a save reports goes to the status line.
        NvrOptions options({QStringLiteral("nevra"), QStringLiteral("-noconnect"), QStringLiteral("-nomessages")});
        g_nvrOptions = &options;
        struct Forget
        {
            ~Forget() { g_nvrOptions = nullptr; }
        } forget;
        auto window = std::make_unique<MainWindow>(&options);
        window->show();
        QString target;
        QString workFile;
        if (header) {
            const QString opened = dir.filePath(QStringLiteral("opened.bin"));
            ProductDataHeader written;
            written.setProductInfo(QStringLiteral("KV-37"), QStringLiteral("4711"), 0, QStringLiteral("B"));
            QVERIFY(TestFiles::write(opened, written.data()));
            window->showPage(window->pageIndex(QStringLiteral("Product Header")));
            auto *page = qobject_cast<HeaderPage *>(window->pages()->currentWidget());
            QVERIFY(page->openFile(opened));
            auto *serial = page->findChild<QLineEdit *>(QStringLiteral("serialNumber"));
            serial->setFocus();
            QTest::keyClick(serial, Qt::Key_5);
            target = dir.filePath(QStringLiteral("changed.bin"));
        } else {
            const QString sound = dir.filePath(QStringLiteral("sound.wav"));
            QCOMPARE(QProcess::execute(TestAppDir::filePath(QStringLiteral("bin/sox.exe")),
                                       {QStringLiteral("-n"), QStringLiteral("-r"), QStringLiteral("8000"), sound,
                                        QStringLiteral("synth"), QStringLiteral("1"), QStringLiteral("sine"),
                                        QStringLiteral("440")}),
                     0);
            window->showPage(window->pageIndex(QStringLiteral("Audio")));
            QVERIFY(qobject_cast<AudioPage *>(window->pages()->currentWidget())->importFile(sound));
            workFile = NvrWav::workFileName(sound);
            QVERIFY(QFile::exists(workFile));
            target = dir.filePath(QStringLiteral("saved.wav"));
        }

        MessageBoxRecorder boxes(static_cast<QMessageBox::StandardButton>(answer));
        FileDialogChooser chooser(target);
        QCOMPARE(window->close(), answer != QMessageBox::Cancel);
        QCOMPARE(boxes.count(), 1);
        QCOMPARE(boxes.last().buttons, QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
        QCOMPARE(chooser.answered(), answer == QMessageBox::Save);
        QCOMPARE(window->isVisible(), answer == QMessageBox::Cancel);
        if (answer == QMessageBox::Save) {
            if (header) {
                ProductDataHeader saved;
                QVERIFY(saved.setData(TestFiles::read(target)));
                QCOMPARE(saved.serialNumber, QStringLiteral("47115"));
            } else {
                QVERIFY(QFile::exists(dir.filePath(QStringLiteral("saved.kv37.wav"))));
            }
            // Saved work is not asked about again.
            window->show();
            QVERIFY(window->close());
            QCOMPARE(boxes.count(), 1);
        }
        window.reset();
        if (!header)
            QVERIFY(!QFile::exists(workFile));
        QVERIFY(QFile::exists(othersWorkFile));
    }

    void csvTextTheFileCannotKeepIsAskedAbout()
    {
        const QString file = TestAppDir::filePath(QStringLiteral("nevradat/audiosystems.csv"));
        const QByteArray before = "\"Id\",\"Name\",\"Company\",\"Model\"\n\"1\",\"\",\"Generic\",\"Panel\"\n";
        QVERIFY(TestFiles::write(file, before));
        NvrOptions options({QStringLiteral("nevra"), QStringLiteral("-noconnect")});
        MainWindow window(&options);
        window.show();
        AudioSystemsModel *model = AudioSystemsModel::instance();
        QVERIFY(model->insertRows(model->rowCount(), 1));
        const int row = model->rowCount() - 1;
        QVERIFY(model->setData(model->index(row, 3), QStringLiteral("Mod\u00e8le")));

        // Save at the library's question, then Cancel at the one about the character: nothing is written,
        // nothing is lost, the window stays.
        MessageBoxRecorder boxes;
        boxes.queueAnswers({QMessageBox::Save, QMessageBox::Cancel});
        QVERIFY(!window.close());
        QCOMPARE(boxes.count(), 2);
        const QString asked = boxes.last().text;
        QVERIFY2(asked.contains(QStringLiteral("Record %1 (Company Mod\u00e8le) holds '\u00e8' (U+00E8)")
                                    .arg(model->id(model->index(row, 0)))),
                 qPrintable(asked));
        QCOMPARE(TestFiles::read(file), before);
        QVERIFY(model->isModified());

        // Saved anyway when the user says so.
        boxes.queueAnswers({QMessageBox::Save, QMessageBox::Save});
        QVERIFY(window.close());
        QCOMPARE(boxes.count(), 4);
        QVERIFY(TestFiles::read(file).contains("Mod\xe8le"));
    }

    void modelTracesStayOffTheTerminal_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<bool>("inFile");
        QTest::addColumn<bool>("onTerminal");
        QTest::newRow("no log") << QStringList() << false << false;
        QTest::newRow("log file") << QStringList{QStringLiteral("-logfile"), QStringLiteral("FILE")} << true << false;
        QTest::newRow("log to the terminal") << QStringList{QStringLiteral("-logfile"), QStringLiteral("-")} << false
                                             << true;
    }

    void modelTracesStayOffTheTerminal()
    {
        QFETCH(QStringList, arguments);
        QFETCH(bool, inFile);
        QFETCH(bool, onTerminal);
        QTemporaryDir dir;
        const QString logFile = dir.filePath(QStringLiteral("host.log"));
        const QString terminal = dir.filePath(QStringLiteral("terminal.txt"));
        arguments.replaceInStrings(QStringLiteral("FILE"), logFile);
        NvrOptions options(QStringList{QStringLiteral("nevra")} + arguments);
        {
            StderrToFile capture(terminal);
            HostLog log(options);
            QBuffer csv;
            csv.setData("\"Company\",\"Model\"\n\"Acme\",\"One\"\n");
            CsvModel model(&csv);
            QVERIFY(model.setData(model.index(0, 1), QStringLiteral("Two")));
            qWarning("Something the user should see");
        }
        const QByteArray shown = TestFiles::read(terminal);
        QCOMPARE(shown.contains("CsvModel::setData before: Acme"), onTerminal);
        QVERIFY2(shown.contains("Something the user should see"), shown.constData());
        QCOMPARE(TestFiles::read(logFile).contains("CsvModel::setData before: Acme"), inFile);
    }

    void optionsDialogFromTheMenu()
    {
        NvrOptions options({QStringLiteral("nevra"), QStringLiteral("-noconnect")});
        MainWindow window(&options);
        window.show();
        MessageBoxRecorder boxes;
        bool shown = false;
        QTimer::singleShot(50, this, [&] {
            auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            if (!dialog)
                return;
            shown = dialog->windowTitle() == QStringLiteral("Application Options");
            QSpinBox *second = dialog->findChildren<QSpinBox *>().value(1);
            second->setFocus();
            QTest::keyClick(second, Qt::Key_Up);
            QTest::keyClick(second, Qt::Key_Up);
            QTest::keyClick(dialog, Qt::Key_Return);
        });
        window.findChild<QAction *>(QStringLiteral("actionOptions"))->trigger();
        QVERIFY(shown);
        QCOMPARE(options.comPort2Number(), 2);
        QCOMPARE(window.findChild<QLabel *>(QStringLiteral("portStatus"))->text(),
                 QStringLiteral("Configuration port: COM1   Control port: COM2"));
    }

    void everyLibraryPageAsksBeforeClosing()
    {
        NvrOptions options({QStringLiteral("nevra"), QStringLiteral("-noconnect")});
        MainWindow window(&options);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        MessageBoxRecorder boxes(QMessageBox::Cancel);
        int editors = 0;
        for (int page = 0; page < window.pages()->count(); ++page) {
            window.showPage(page);
            auto *editor = qobject_cast<TableEditWidget *>(window.pages()->widget(page));
            if (!editor)
                continue;
            ++editors;
            // An unsaved library keeps the window open when its question is cancelled. The radios' editor
            // marks their file as changed; the other libraries mark their model.
            QAbstractItemModel *model = editor->tableView()->model();
            const bool radios = editor->objectName() == QLatin1String("RtsTableEditWidget");
            if (radios)
                RtsFile::instance()->setModified(true);
            else
                QVERIFY(model->insertRows(model->rowCount(), 1));
            const int asked = boxes.count();
            QVERIFY(!window.close());
            QVERIFY(window.isVisible());
            QCOMPARE(boxes.count(), asked + 1);
            QVERIFY2(boxes.last().text.contains(radios ? QStringLiteral("Radios") : model->objectName()),
                     qPrintable(boxes.last().text));
            boxes.setAnswer(QMessageBox::Save);
            QVERIFY(window.close());
            // Saved: the library is no longer modified, so closing again asks nothing.
            window.show();
            QVERIFY(window.close());
            QCOMPARE(boxes.count(), asked + 2);
            boxes.setAnswer(QMessageBox::Cancel);
            window.show();
        }
        QCOMPARE(editors, 9);
    }

    void everyPageShowsContent()
    {
        // NVR_SCREENSHOT_DIR keeps the pictures for a person to look at (tests/screenshots).
        const QString keep = qEnvironmentVariable("NVR_SCREENSHOT_DIR");
        NvrOptions options({QStringLiteral("nevra"), QStringLiteral("-noconnect")});
        MainWindow window(&options);
        window.resize(1000, 650);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        // The header page is worth a look with a header in it.
        QTemporaryDir dir;
        const QString headerFile = dir.filePath(QStringLiteral("header.bin"));
        ProductDataHeader header;
        header.setProductInfo(QStringLiteral("KV-37"), QStringLiteral("4711"), 0x5, QStringLiteral("B"));
        QVERIFY(TestFiles::write(headerFile, header.data()));
        window.showPage(window.pageIndex(QStringLiteral("Product Header")));
        QVERIFY(qobject_cast<HeaderPage *>(window.pages()->currentWidget())->openFile(headerFile));
        QStringList titles;
        for (int index = 0; index < window.pages()->count(); ++index) {
            window.showPage(index);
            QWidget *page = window.pages()->currentWidget();
            QVERIFY(page->isVisible());
            titles << window.pageTitle(index);
            QCOMPARE(window.pageList()->currentItem()->text(), titles.last());
            const QImage shot = window.grab().toImage();
            const QImage content = page->grab().toImage();
            // Text gives a page many colours (anti-aliasing); a blank or unpainted one has one to three.
            QSet<QRgb> colours;
            for (int y = 0; y < content.height(); y += 2) {
                for (int x = 0; x < content.width(); x += 2)
                    colours.insert(content.pixel(x, y));
            }
            QVERIFY2(colours.size() >= 5, qPrintable(QStringLiteral("%1: %2 colours").arg(titles.last()).arg(colours.size())));
            if (!keep.isEmpty())
                QVERIFY(shot.save(QStringLiteral("%1/%2-%3.png").arg(keep).arg(index, 2, 10, QLatin1Char('0')).arg(page->objectName())));
        }
        QCOMPARE(titles, (QStringList{QStringLiteral("Start"), QStringLiteral("Radios"), QStringLiteral("Headsets"),
                                      QStringLiteral("Audio Systems"), QStringLiteral("Intercoms"),
                                      QStringLiteral("Music Systems"), QStringLiteral("Bluetooth Devices"),
                                      QStringLiteral("Non-Aircraft Radios"), QStringLiteral("Serial Data Devices"),
                                      QStringLiteral("Legends"), QStringLiteral("Product Configurations"),
                                      QStringLiteral("Product Header"), QStringLiteral("Terminal"),
                                      QStringLiteral("Picture"), QStringLiteral("Audio"), QStringLiteral("Options")}));
    }

    void pageListSkipsHeadingsAndIsRemembered()
    {
        NvrOptions options({QStringLiteral("nevra"), QStringLiteral("-noconnect")});
        int headerPage = -1;
        {
            MainWindow window(&options);
            window.show();
            QVERIFY(QTest::qWaitForWindowActive(&window));
            window.showPage(0);
            QListWidget *list = window.pageList();
            // From Start, the next page is Radios, past the "Libraries" heading, by menu key and by arrow key.
            QTest::keyClick(&window, Qt::Key_PageDown, Qt::ControlModifier);
            QCOMPARE(window.pageTitle(window.pages()->currentIndex()), QStringLiteral("Radios"));
            QTest::keyClick(&window, Qt::Key_PageUp, Qt::ControlModifier);
            QTest::keyClick(&window, Qt::Key_PageUp, Qt::ControlModifier);
            QCOMPARE(window.pageTitle(window.pages()->currentIndex()), QStringLiteral("Options"));
            window.showPage(10);
            list->setFocus();
            QTest::keyClick(list, Qt::Key_Down);
            QCOMPARE(list->currentItem()->text(), QStringLiteral("Product Header"));
            headerPage = window.pages()->currentIndex();
            QTest::keyClick(list, Qt::Key_Up);
            QCOMPARE(window.pageTitle(window.pages()->currentIndex()), QStringLiteral("Product Configurations"));
            QTest::keyClick(list, Qt::Key_Down);
            QVERIFY(window.close());
        }
        MainWindow again(&options);
        QCOMPARE(again.pages()->currentIndex(), headerPage);
        QCOMPARE(again.pageList()->currentItem()->text(), QStringLiteral("Product Header"));
    }
};

QTEST_MAIN(tst_Host)
#include "tst_host.moc"
