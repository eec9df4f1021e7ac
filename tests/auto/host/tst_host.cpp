// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "classes/nvroptions.h"
#include "classes/productdataheader.h"
#include "classes/rtsfile.h"
#include "headerpage.h"
#include "kvtableview.h"
#include "mainwindow.h"
#include "messageboxrecorder.h"
#include "models/audiosystemsmodel.h"
#include "models/lowimpedanceintercomsmodel.h"
#include "models/musicsystemsmodel.h"
#include "models/nvrlibraries.h"
#include "testappdir.h"
#include "testfiles.h"
#include "widgets/tableeditwidget.h"

#include <QAction>
#include <QDialog>
#include <QLabel>
#include <QProcess>
#include <QSpinBox>
#include <QImage>
#include <QListWidget>
#include <QSet>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

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
        QVERIFY(window.findChild<HeaderPage *>()->openFile(headerFile));
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
