// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "classes/nevra.h"
#include "classes/nvrcore.h"
#include "messageboxrecorder.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QTest>

class tst_TextFiles : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void readFromTextFile();
    void readFailureShowsTheFileError();
    void saveToTextFile();
    void saveFailures();
    void fieldTypeToString_data();
    void fieldTypeToString();

private:
    static QString write(const QString &path, const QByteArray &bytes);
};

QString tst_TextFiles::write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (file.open(QFile::WriteOnly))
        file.write(bytes);
    return path;
}

void tst_TextFiles::readFromTextFile()
{
    QTemporaryDir dir;
    MessageBoxRecorder boxes;

    QCOMPARE(NvrCore::readFromTextFile(write(dir.filePath(QStringLiteral("utf8")), "Gr\xc3\xbc\xc3\x9f" "e\r\nline"),
                                       QStringLiteral("Read")),
             QString::fromUtf8("Gr\xc3\xbc\xc3\x9f" "e\nline")); // text mode drops the CR
    QCOMPARE(NvrCore::readFromTextFile(write(dir.filePath(QStringLiteral("nul")), QByteArray("abc\0def", 7)),
                                       QStringLiteral("Read")),
             QStringLiteral("abc"));
    const QString empty = NvrCore::readFromTextFile(write(dir.filePath(QStringLiteral("empty")), QByteArray()),
                                                    QStringLiteral("Read"));
    QVERIFY(empty.isNull());
    QCOMPARE(boxes.count(), 0);
    QVERIFY(!QApplication::overrideCursor());
}

void tst_TextFiles::readFailureShowsTheFileError()
{
    QTemporaryDir dir;
    MessageBoxRecorder boxes;
    const QString missing = dir.filePath(QStringLiteral("missing.txt"));
    QVERIFY(NvrCore::readFromTextFile(missing, QStringLiteral("Open Product File")).isNull());

    QCOMPARE(boxes.count(), 1);
    QCOMPARE(boxes.last().title, QStringLiteral("Open Product File"));
    QFile probe(missing);
    probe.open(QFile::ReadOnly);
    QCOMPARE(boxes.last().text, QStringLiteral("Cannot read file '%1'.\n%2.").arg(missing, probe.errorString()));
    QCOMPARE(boxes.last().icon, QMessageBox::Warning);
    QCOMPARE(boxes.last().buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
}

void tst_TextFiles::saveToTextFile()
{
    QTemporaryDir dir;
    MessageBoxRecorder boxes;
    const QString path = dir.filePath(QStringLiteral("out.txt"));
    write(path, "a much longer previous content that must not survive");
    const QString text = QString::fromUtf8("\xc3\xa9t\xc3\xa9\nzwei");
    QVERIFY(NvrCore::saveToTextFile(path, text));
    QFile file(path);
    QVERIFY(file.open(QFile::ReadOnly));
    QCOMPARE(file.readAll(), text.toUtf8()); // no byte-order mark, nothing left of the old file
    QCOMPARE(boxes.count(), 0);
    QVERIFY(!QApplication::overrideCursor());
}

void tst_TextFiles::saveFailures()
{
    QTemporaryDir dir;
    MessageBoxRecorder boxes;

    // A directory in the file's place cannot be removed as a file: the old "file" stays.
    const QString folder = dir.filePath(QStringLiteral("folder"));
    QVERIFY(QDir().mkpath(folder + QStringLiteral("/inside")));
    QVERIFY(!NvrCore::saveToTextFile(folder, QStringLiteral("x")));
    QCOMPARE(boxes.count(), 1);
    QCOMPARE(boxes.last().title, QStringLiteral("Error Saving File"));
    QVERIFY(boxes.last().text.startsWith(QStringLiteral("Cannot remove previous version of file %1:\n").arg(folder)));
    QVERIFY(boxes.last().text.endsWith(QLatin1Char('.')));
    QVERIFY(QFileInfo(folder + QStringLiteral("/inside")).isDir());

    // A path through a regular file cannot be opened for writing.
    const QString through = write(dir.filePath(QStringLiteral("plain")), "x") + QStringLiteral("/name.txt");
    QVERIFY(!NvrCore::saveToTextFile(through, QStringLiteral("x")));
    QCOMPARE(boxes.count(), 2);
    QCOMPARE(boxes.last().title, QStringLiteral("Error Saving File"));
    QCOMPARE(boxes.last().text, QStringLiteral("Unable to save '%1'.\n\n Is the file currently open?").arg(through));

    const QString missingDir = dir.filePath(QStringLiteral("nowhere/name.txt"));
    QVERIFY(!NvrCore::saveToTextFile(missingDir, QStringLiteral("x")));
    QCOMPARE(boxes.count(), 3);
    QCOMPARE(boxes.last().text, QStringLiteral("Unable to save '%1'.\n\n Is the file currently open?").arg(missingDir));
    QVERIFY(!QApplication::overrideCursor());
}

void tst_TextFiles::fieldTypeToString_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << 0 << QString();
    QTest::newRow("eeprom") << 1 << QStringLiteral("EEPROM");
    QTest::newRow("dcp level") << 2 << QStringLiteral("DCP Level");
    QTest::newRow("pin") << 3 << QStringLiteral("I/O Pin");
    QTest::newRow("port") << 4 << QStringLiteral("I/O Port");
    QTest::newRow("beyond") << 5 << QString();
    QTest::newRow("negative") << -1 << QString();
}

void tst_TextFiles::fieldTypeToString()
{
    QFETCH(int, type);
    QFETCH(QString, text);
    QCOMPARE(Nevra::fieldTypeToString(static_cast<Nevra::FieldTypes>(type)), text);
}

QTEST_MAIN(tst_TextFiles)
#include "tst_textfiles.moc"
