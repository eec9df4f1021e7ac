// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "classes/nvroptions.h"
#include "classes/rtsfile.h"
#include "kvtableview.h"
#include "mainwindow.h"
#include "messageboxrecorder.h"
#include "models/audiosystemsmodel.h"
#include "models/lowimpedanceintercomsmodel.h"
#include "models/musicsystemsmodel.h"
#include "models/nvrlibraries.h"
#include "testappdir.h"
#include "widgets/tableeditwidget.h"

#include <QAction>
#include <QDialog>
#include <QLabel>
#include <QProcess>
#include <QSpinBox>
#include <QTabWidget>
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
    void initTestCase();
    void cleanupTestCase();
    void cleanup();
    void headlessStartExits();
    void statusFollowsThePorts();
    void optionsDialogFromTheMenu();
    void closingOffersToSaveTheLibraries();
    void everyLibraryPageAsksBeforeClosing();
};

void tst_Host::initTestCase()
{
    TestAppDir::prepare();
}

void tst_Host::cleanupTestCase()
{
    TestAppDir::cleanup();
}

void tst_Host::cleanup()
{
    destroyLibraries();
    TestAppDir::clearData();
}

void tst_Host::headlessStartExits()
{
    QTemporaryDir dir;
    const QString log = dir.filePath(QStringLiteral("host.log"));
    QProcess host;
    host.setProcessEnvironment(QProcessEnvironment::systemEnvironment());
    host.start(QStringLiteral(NEVRA_BINARY), {QStringLiteral("-nogui"), QStringLiteral("-logfile"), log});
    QVERIFY2(host.waitForFinished(30000), "the host did not exit on its own");
    QCOMPARE(host.exitStatus(), QProcess::NormalExit);
    QCOMPARE(host.exitCode(), 0);
    QFile file(log);
    QVERIFY(file.open(QFile::ReadOnly));
    const QByteArray text = file.readAll();
    QVERIFY(text.contains("started"));
    QVERIFY(text.contains("<int main(int, char**)>"));
}

void tst_Host::statusFollowsThePorts()
{
    NvrOptions options({QStringLiteral("nevra")});
    MainWindow window(&options);
    window.show();
    auto *status = window.findChild<QLabel *>(QStringLiteral("portStatus"));
    QVERIFY(status);
    QCOMPARE(status->text(), QStringLiteral("Configuration port: COM1   Control port: none"));
    options.setComPortNumber(4);
    options.setComPort2Number(7);
    QCOMPARE(status->text(), QStringLiteral("Configuration port: COM4   Control port: COM7"));
}

void tst_Host::optionsDialogFromTheMenu()
{
    NvrOptions options({QStringLiteral("nevra")});
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

void tst_Host::closingOffersToSaveTheLibraries()
{
    NvrOptions options({QStringLiteral("nevra")});
    MainWindow window(&options);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    RtsFile::instance()->setModified(true);

    MessageBoxRecorder boxes(QMessageBox::Cancel);
    QVERIFY(!window.close());
    QVERIFY(window.isVisible());
    QCOMPARE(boxes.count(), 1);
    QCOMPARE(boxes.last().title, QStringLiteral("File Changed"));

    boxes.setAnswer(QMessageBox::Discard);
    QVERIFY(window.close());
    QCOMPARE(boxes.count(), 2);
    RtsFile::destroyInstance();
}

void tst_Host::everyLibraryPageAsksBeforeClosing()
{
    NvrOptions options({QStringLiteral("nevra")});
    MainWindow window(&options);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    MessageBoxRecorder boxes(QMessageBox::Cancel);
    QStringList editors;
    for (int page = 0; page < window.pages()->count(); ++page) {
        auto *editor = qobject_cast<TableEditWidget *>(window.pages()->widget(page));
        if (!editor)
            continue;
        editors << editor->objectName();
        if (editor->objectName() == QLatin1String("RtsTableEditWidget"))
            continue; // tested above
        // An unsaved library keeps the window open when its question is cancelled.
        QAbstractItemModel *model = editor->tableView()->model();
        QVERIFY(model->insertRows(model->rowCount(), 1));
        const int asked = boxes.count();
        QVERIFY(!window.close());
        QVERIFY(window.isVisible());
        QCOMPARE(boxes.count(), asked + 1);
        QVERIFY2(boxes.last().text.contains(model->objectName()), qPrintable(boxes.last().text));
        boxes.setAnswer(QMessageBox::Save);
        QVERIFY(window.close());
        QCOMPARE(boxes.count(), asked + 2);
        boxes.setAnswer(QMessageBox::Cancel);
        window.show();
    }
    for (const char *name : {"RtsTableEditWidget", "HeadSetsTableEditWidget", "AudioSystemsTableEditWidget",
                             "LowImpedanceIntercomsTableEditWidget", "MusicSystemsTableEditWidget",
                             "BluetoothDevicesTableEditWidget", "NonAircraftRadiosTableEditWidget",
                             "SerialDataDevicesTableEditWidget", "LegendsConvertTableEditWidget"})
        QVERIFY2(editors.count(QLatin1String(name)) == 1, name);
}

QTEST_MAIN(tst_Host)
#include "tst_host.moc"
