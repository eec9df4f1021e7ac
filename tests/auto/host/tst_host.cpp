// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "classes/nvroptions.h"
#include "classes/rtsfile.h"
#include "mainwindow.h"
#include "messageboxrecorder.h"
#include "testappdir.h"

#include <QAction>
#include <QDialog>
#include <QLabel>
#include <QProcess>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

class tst_Host : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void headlessStartExits();
    void statusFollowsThePorts();
    void optionsDialogFromTheMenu();
    void closingOffersToSaveTheLibraries();
};

void tst_Host::initTestCase()
{
    TestAppDir::prepare();
}

void tst_Host::cleanupTestCase()
{
    TestAppDir::cleanup();
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

QTEST_MAIN(tst_Host)
#include "tst_host.moc"
