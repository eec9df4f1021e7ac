// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "classes/nvroptions.h"
#include "classes/productdataheader.h"
#include "filedialogchooser.h"
#include "headerpage.h"
#include "kvhex.h"
#include "messageboxrecorder.h"
#include "testappdir.h"
#include "testfiles.h"
#include "widgets/modstatuswidget.h"

#include <QCheckBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>

namespace {
QByteArray headerBytes(const QString &model, uint modStatus)
{
    ProductDataHeader header;
    header.setProductInfo(model, QStringLiteral("4711"), modStatus, QStringLiteral("B"));
    return header.data();
}

template<typename T>
T *child(QWidget *page, const char *name)
{
    return page->findChild<T *>(QLatin1String(name));
}

/// The bytes Save would write.
QByteArray encoded(const HeaderPage &page)
{
    ProductDataHeader header;
    header.copy(page.header());
    return header.data();
}

/// What a user sees of the header: the text of the view.
QString shown(HeaderPage &page)
{
    return child<QTextBrowser>(&page, "view")->toPlainText();
}
}

class tst_HeaderPage : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { TestAppDir::prepare(); }
    void cleanupTestCase() { TestAppDir::cleanup(); }

    void opensRawAndHexFiles()
    {
        QTemporaryDir dir;
        const QByteArray bytes = headerBytes(QStringLiteral("KV-37"), 0x5);
        const QString raw = dir.filePath(QStringLiteral("header.bin"));
        const QString hex = dir.filePath(QStringLiteral("header.txt"));
        // More than a header is fine: a dump of the product's memory starts with one.
        QVERIFY(TestFiles::write(raw, bytes + QByteArray(100, '\xAA')));
        QVERIFY(TestFiles::write(hex, KvHex::BufferToHexString(bytes).toLatin1() + "\r\n"));

        QMainWindow window;
        auto *page = new HeaderPage(&window);
        window.setCentralWidget(page);
        window.show();
        QVERIFY(!child<QPushButton>(page, "saveButton")->isEnabled());

        FileDialogChooser chooser(raw);
        QTest::mouseClick(child<QPushButton>(page, "openButton"), Qt::LeftButton);
        QVERIFY(chooser.answered());
        QVERIFY(page->hasHeader());
        QCOMPARE(child<QLineEdit>(page, "model")->text(), QStringLiteral("KV-37"));
        QCOMPARE(child<QLineEdit>(page, "serialNumber")->text(), QStringLiteral("4711"));
        QCOMPARE(page->findChild<ModStatusWidget *>()->modStatus(), 0x5u);
        QVERIFY(shown(*page).contains(QStringLiteral("KV-37")));
        QVERIFY(child<QPushButton>(page, "saveButton")->isEnabled());

        QVERIFY(page->openFile(hex));
        QCOMPARE(page->header().productModel, QStringLiteral("KV-37"));
        QCOMPARE(page->header().headerCrc, page->header().calculatedHeaderCrc);
        QVERIFY(child<QLabel>(page, "source")->text().contains(QDir::toNativeSeparators(hex)));
    }

    void badFilesLeaveTheHeaderAlone()
    {
        QTemporaryDir dir;
        const QString good = dir.filePath(QStringLiteral("good.bin"));
        const QString shortFile = dir.filePath(QStringLiteral("short.txt"));
        QVERIFY(TestFiles::write(good, headerBytes(QStringLiteral("KV-37"), 0)));
        QVERIFY(TestFiles::write(shortFile, "0A 1B 2C"));
        HeaderPage page;
        QVERIFY(page.openFile(good));
        const QString before = shown(page);

        MessageBoxRecorder boxes;
        QVERIFY(!page.openFile(shortFile));
        QVERIFY(boxes.last().text.contains(QDir::toNativeSeparators(shortFile)));
        const QString missing = dir.filePath(QStringLiteral("missing.bin"));
        QVERIFY(!page.openFile(missing));
        QVERIFY(boxes.last().text.contains(QDir::toNativeSeparators(missing)));
        QCOMPARE(boxes.count(), 2);
        QCOMPARE(shown(page), before);
        QCOMPARE(page.header().productModel, QStringLiteral("KV-37"));
    }

    void editsReencodeAndKeepUnshownMods()
    {
        QTemporaryDir dir;
        const QString file = dir.filePath(QStringLiteral("header.bin"));
        // Bit 31 has no box; a click on box 3 must not clear it.
        QByteArray bytes = headerBytes(QStringLiteral("KV-37"), 0x80000001u);
        bytes[0] = 'X'; // the header CRC no longer matches
        QVERIFY(TestFiles::write(file, bytes));
        HeaderPage page;
        page.show();
        QVERIFY(page.openFile(file));
        QVERIFY(page.header().headerCrc != page.header().calculatedHeaderCrc);

        QTest::mouseClick(page.findChild<ModStatusWidget *>()->findChildren<QCheckBox *>().at(3), Qt::LeftButton);
        QCOMPARE(page.header().modStatus, 0x80000009u);
        QCOMPARE(page.header().headerCrc, page.header().calculatedHeaderCrc);

        auto *model = child<QLineEdit>(&page, "model");
        model->setFocus();
        model->selectAll();
        QTest::keyClicks(model, QStringLiteral("KV-38"));
        QCOMPARE(page.header().productModel, QStringLiteral("KV-38"));
        QVERIFY(shown(page).contains(QStringLiteral("KV-38")));
        ProductDataHeader written;
        QVERIFY(written.setData(encoded(page)));
        QCOMPARE(written.productModel, QStringLiteral("KV-38"));
        QCOMPARE(written.modStatus, 0x80000009u);
    }

    void newHeaderFromTypedFields()
    {
        HeaderPage page;
        page.show();
        auto *newButton = child<QPushButton>(&page, "newButton");
        QVERIFY(!newButton->isEnabled());
        QTest::keyClicks(child<QLineEdit>(&page, "model"), QStringLiteral("A-MODEL-LONGER-THAN-16"));
        QVERIFY(!newButton->isEnabled());
        QTest::keyClicks(child<QLineEdit>(&page, "serialNumber"), QStringLiteral("123"));
        QVERIFY(newButton->isEnabled());
        QVERIFY(!child<QPushButton>(&page, "punchButton")->isEnabled());
        QTest::mouseClick(newButton, Qt::LeftButton);

        // The field keeps to the record's width, so no later field is shifted.
        QCOMPARE(page.header().productModel, QStringLiteral("A-MODEL-LONGER-T"));
        QCOMPARE(page.header().serialNumber, QStringLiteral("123"));
        QCOMPARE(page.header().buildConfiguration, QStringLiteral("A"));
        QVERIFY(page.header().createdTime != 0);
        QCOMPARE(page.header().programTime, 0u);
        QTest::mouseClick(child<QPushButton>(&page, "punchButton"), Qt::LeftButton);
        QVERIFY(page.header().programTime >= page.header().createdTime);
        QCOMPARE(encoded(page).size(), 56);
    }

    void replacingAChangedHeaderAsks()
    {
        QTemporaryDir dir;
        const QString first = dir.filePath(QStringLiteral("first.bin"));
        const QString second = dir.filePath(QStringLiteral("second.bin"));
        QVERIFY(TestFiles::write(first, headerBytes(QStringLiteral("KV-37"), 0x1)));
        QVERIFY(TestFiles::write(second, headerBytes(QStringLiteral("KV-38"), 0x1)));
        HeaderPage page;
        page.show();
        QVERIFY(page.openFile(first));
        auto *serial = child<QLineEdit>(&page, "serialNumber");
        serial->setFocus();
        QTest::keyClick(serial, Qt::Key_5);
        auto *source = child<QLabel>(&page, "source");

        // Cancel keeps the changed header, from New as from Open (which then shows no file dialog).
        MessageBoxRecorder boxes(QMessageBox::Cancel);
        QTest::mouseClick(child<QPushButton>(&page, "newButton"), Qt::LeftButton);
        QTest::mouseClick(child<QPushButton>(&page, "openButton"), Qt::LeftButton);
        QCOMPARE(boxes.count(), 2);
        QCOMPARE(boxes.last().buttons, QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
        QVERIFY(source->text().startsWith(QLatin1String("Opened from")));
        QCOMPARE(page.header().serialNumber, QStringLiteral("47115"));

        boxes.setAnswer(QMessageBox::Discard);
        FileDialogChooser chooser(second);
        QTest::mouseClick(child<QPushButton>(&page, "openButton"), Qt::LeftButton);
        QVERIFY(chooser.answered());
        QCOMPARE(boxes.count(), 3);
        QCOMPARE(page.header().productModel, QStringLiteral("KV-38"));

        // A header as opened holds nothing to lose: New asks nothing, but the new header is unsaved work.
        QTest::mouseClick(child<QPushButton>(&page, "newButton"), Qt::LeftButton);
        QCOMPARE(boxes.count(), 3);
        QVERIFY(source->text().startsWith(QLatin1String("New header")));
        boxes.setAnswer(QMessageBox::Cancel);
        QVERIFY(!page.maybeSave());
        QCOMPARE(boxes.count(), 4);
    }

    void showsTheWritersVersion_data()
    {
        QTest::addColumn<QString>("version");
        QTest::addColumn<bool>("storesBuildConfiguration");
        QTest::newRow("1.70.0") << QStringLiteral("1.70.0") << true;
        QTest::newRow("1.69") << QStringLiteral("1.69") << false;
        QTest::newRow("none") << QString() << false;
    }

    void showsTheWritersVersion()
    {
        QFETCH(QString, version);
        QFETCH(bool, storesBuildConfiguration);
        QTemporaryDir dir;
        const QString file = dir.filePath(QStringLiteral("header.bin"));
        ProductDataHeader written;
        written.setProductInfo(QStringLiteral("KV-37"), QStringLiteral("4711"), 0, QStringLiteral("B"));
        written.softwareVersion = version;
        QVERIFY(TestFiles::write(file, written.data()));
        HeaderPage page;
        page.show();
        QVERIFY(page.openFile(file));
        const QString writer = child<QLabel>(&page, "writer")->text();
        QVERIFY2(writer.contains(version.isEmpty() ? QStringLiteral("unknown") : version), qPrintable(writer));
        QCOMPARE(writer.contains(QLatin1String("did not store the build configuration")), !storesBuildConfiguration);
        QCOMPARE(child<QLineEdit>(&page, "buildConfiguration")->text(),
                 storesBuildConfiguration ? QStringLiteral("B") : QStringLiteral("A"));

        // Stamping the programming time stores this version, and with it the build configuration.
        QCoreApplication::setApplicationVersion(QStringLiteral("1.70.0"));
        QTest::mouseClick(child<QPushButton>(&page, "punchButton"), Qt::LeftButton);
        QCoreApplication::setApplicationVersion(QString());
        QVERIFY(!child<QLabel>(&page, "writer")->text().contains(QLatin1String("did not store")));
    }

    void savesBothFormsAndSaysSoUnlessMessagesAreOff()
    {
        QTemporaryDir dir;
        QMainWindow window;
        auto *page = new HeaderPage(&window);
        window.setCentralWidget(page);
        QTest::keyClicks(child<QLineEdit>(page, "model"), QStringLiteral("KV-37"));
        QTest::keyClicks(child<QLineEdit>(page, "serialNumber"), QStringLiteral("9"));
        QTest::mouseClick(child<QPushButton>(page, "newButton"), Qt::LeftButton);
        const QByteArray bytes = encoded(*page);

        const QString raw = dir.filePath(QStringLiteral("new.bin"));
        const QString hex = dir.filePath(QStringLiteral("new.TXT"));
        MessageBoxRecorder boxes;
        FileDialogChooser chooser(raw);
        QTest::mouseClick(child<QPushButton>(page, "saveButton"), Qt::LeftButton);
        QVERIFY(chooser.answered());
        QCOMPARE(TestFiles::read(raw), bytes);
        QCOMPARE(boxes.count(), 1);
        QVERIFY(boxes.last().text.contains(QDir::toNativeSeparators(raw)));

        NvrOptions quiet({QStringLiteral("nevra"), QStringLiteral("-nomessages")});
        g_nvrOptions = &quiet;
        QVERIFY(page->saveFile(hex));
        g_nvrOptions = nullptr;
        QCOMPARE(boxes.count(), 1);
        QVERIFY(window.statusBar()->currentMessage().contains(QDir::toNativeSeparators(hex)));
        QCOMPARE(TestFiles::read(hex), KvHex::BufferToHexString(bytes).toLatin1() + '\n');

        // A file where the folder should be: the save fails with a box and writes nothing.
        const QString blocked = dir.filePath(QStringLiteral("new.bin/header.bin"));
        QVERIFY(!page->saveFile(blocked));
        QVERIFY2(boxes.last().text.startsWith(QStringLiteral("Could not save the header to %1: ")
                                                  .arg(QDir::toNativeSeparators(blocked))),
                 qPrintable(boxes.last().text));
        QCOMPARE(TestFiles::read(raw), bytes);
    }
};

QTEST_MAIN(tst_HeaderPage)
#include "tst_headerpage.moc"
