// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "audiopage.h"
#include "classes/nvroptions.h"
#include "classes/nvrwav.h"
#include "filedialogchooser.h"
#include "messageboxrecorder.h"
#include "testappdir.h"

#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <functional>
#include <memory>

class tst_AudioPage : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        TestAppDir::prepare();
        m_options = std::make_unique<NvrOptions>(QStringList{QStringLiteral("tst_audiopage")});
        g_nvrOptions = m_options.get();
        m_sound = m_dir.filePath(QStringLiteral("hello.wav"));
        QCOMPARE(QProcess::execute(TestAppDir::filePath(QStringLiteral("bin/sox.exe")),
                                   {QStringLiteral("-n"), QStringLiteral("-r"), QStringLiteral("44100"),
                                    QStringLiteral("-c"), QStringLiteral("2"), m_sound, QStringLiteral("synth"),
                                    QStringLiteral("20"), QStringLiteral("sine"), QStringLiteral("440")}),
                 0);
    }

    void cleanupTestCase()
    {
        g_nvrOptions = nullptr;
        m_options.reset();
        TestAppDir::cleanup();
    }

    void importUnderTheWaitCursor()
    {
        AudioPage page;
        page.show();
        QVERIFY(!page.findChild<QPushButton *>(QStringLiteral("saveButton"))->isEnabled());
        QList<bool> busy;
        bool waitCursorShown = false;
        connect(&page, &AudioPage::busyChanged, this, [&](bool on) {
            busy << on;
            if (on)
                waitCursorShown = QApplication::overrideCursor()
                                  && QApplication::overrideCursor()->shape() == Qt::WaitCursor;
        });
        QVERIFY(page.importFile(m_sound));
        QCOMPARE(busy, (QList<bool>{true, false}));
        QVERIFY(waitCursorShown);
        QVERIFY(!QApplication::overrideCursor());

        QCOMPARE(text(page, "length"), QStringLiteral("11.00 s"));
        QCOMPARE(text(page, "status"),
                 QStringLiteral("hello.wav is ready to be saved for the product; it was cut from 20.0 s to 11.0 s."));
        QCOMPARE(text(page, "format"), QStringLiteral("Mono, 16 bits, 22050 Hz"));
        QCOMPARE(text(page, "dataSize"), QLocale().toString(11 * 22050 * 2) + QStringLiteral(" bytes"));
        QCOMPARE(text(page, "fileName"), m_sound);
        QVERIFY(page.findChild<QPushButton *>(QStringLiteral("saveButton"))->isEnabled());

        QVERIFY(page.saveFile(m_dir.filePath(QStringLiteral("hello.wav"))));
        const QString saved = m_dir.filePath(QStringLiteral("hello.kv37.wav"));
        QCOMPARE(text(page, "savedAs"), saved);
        QFile file(saved);
        QVERIFY(file.open(QFile::ReadOnly));
        QCOMPARE(file.readAll(), page.wav()->rawData());
    }

    void failedImportSaysSo()
    {
        AudioPage page;
        QVERIFY(page.importFile(m_sound));
        QVERIFY(!page.importFile(m_dir.filePath(QStringLiteral("no such sound.wav"))));
        QCOMPARE(text(page, "status"), QStringLiteral("Could not import no such sound.wav: no such file: %1.")
                                           .arg(m_dir.filePath(QStringLiteral("no such sound.wav"))));
        QCOMPARE(text(page, "length"), QStringLiteral("\u2014"));
        QVERIFY(!page.findChild<QPushButton *>(QStringLiteral("saveButton"))->isEnabled());

        QVERIFY(page.importFile(m_sound));
        QVERIFY(!page.saveFile(m_dir.filePath(QStringLiteral("no folder/x.wav"))));
        QCOMPARE(text(page, "status"),
                 QStringLiteral("Could not save %1.").arg(m_dir.filePath(QStringLiteral("no folder/x.kv37.wav"))));
    }

    void buttonsOpenFileDialogs()
    {
        AudioPage page;
        page.show();
        QVERIFY(chooseInDialog(page.findChild<QPushButton *>(QStringLiteral("openButton")), m_sound));
        QCOMPARE(text(page, "format"), QStringLiteral("Mono, 16 bits, 22050 Hz"));
        const QString target = m_dir.filePath(QStringLiteral("from dialog.wav"));
        QVERIFY(chooseInDialog(page.findChild<QPushButton *>(QStringLiteral("saveButton")), target));
        QVERIFY(QFile::exists(m_dir.filePath(QStringLiteral("from dialog.kv37.wav"))));
    }

private:
    QString text(const AudioPage &page, const char *label) const
    {
        return page.findChild<QLabel *>(QLatin1String(label))->text();
    }

    // Clicks button and, once the file dialog is up, chooses fileName in it.
    static bool chooseInDialog(QPushButton *button, const QString &fileName)
    {
        MessageBoxRecorder guard; // rejects a dialog left open instead of hanging
        FileDialogChooser chooser(fileName);
        QTest::mouseClick(button, Qt::LeftButton);
        return chooser.answered();
    }

    QTemporaryDir m_dir;
    QString m_sound;
    std::unique_ptr<NvrOptions> m_options;
};

QTEST_MAIN(tst_AudioPage)
#include "tst_audiopage.moc"
