// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "classes/nevra.h"
#include "classes/nvrcore.h"
#include "messageboxrecorder.h"
#include "testfiles.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QTest>

class tst_TextFiles : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void readFromTextFile()
    {
        QTemporaryDir dir;
        MessageBoxRecorder boxes;

        const auto read = [&](const QString &name, const QByteArray &bytes) {
            const QString path = dir.filePath(name);
            if (!TestFiles::write(path, bytes))
                return QStringLiteral("(not written)");
            return NvrCore::readFromTextFile(path, QStringLiteral("Read"));
        };
        QCOMPARE(read("utf8", "Gr\xc3\xbc\xc3\x9f" "e\r\nline"),
                 QString::fromUtf8("Gr\xc3\xbc\xc3\x9f" "e\nline")); // text mode drops the CR
        QCOMPARE(read("nul", QByteArray("abc\0def", 7)), QStringLiteral("abc"));
        QVERIFY(read("empty", QByteArray()).isNull());
        QCOMPARE(boxes.count(), 0);
        QVERIFY(!QApplication::overrideCursor());
    }

    void readFailureShowsTheFileError()
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
    }

    void saveToTextFile()
    {
        QTemporaryDir dir;
        MessageBoxRecorder boxes;
        const QString path = dir.filePath(QStringLiteral("out.txt"));
        QVERIFY(TestFiles::write(path, "a much longer previous content that must not survive"));
        const QString text = QString::fromUtf8("\xc3\xa9t\xc3\xa9\nzwei");
        QVERIFY(NvrCore::saveToTextFile(path, text));
        QCOMPARE(TestFiles::read(path), text.toUtf8()); // no byte-order mark, nothing left of the old file
        QCOMPARE(boxes.count(), 0);
        QVERIFY(!QApplication::overrideCursor());
    }

    void saveFailures()
    {
        QTemporaryDir dir;
        MessageBoxRecorder boxes;

        // A directory in the file's place cannot be removed as a file: the old "file" stays.
        const QString folder = dir.filePath(QStringLiteral("folder"));
        QVERIFY(QDir().mkpath(folder + QStringLiteral("/inside")));
        QVERIFY(!NvrCore::saveToTextFile(folder, QStringLiteral("x")));
        QCOMPARE(boxes.count(), 1);
        QVERIFY(boxes.last().text.startsWith("Cannot remove previous version of file " + folder + ":\n"));
        QVERIFY(boxes.last().text.endsWith(QLatin1Char('.')));
        QVERIFY(QFileInfo(folder + QStringLiteral("/inside")).isDir());

        // A path through a regular file cannot be opened for writing.
        const QString plain = dir.filePath(QStringLiteral("plain"));
        QVERIFY(TestFiles::write(plain, "x"));
        const QString through = plain + QStringLiteral("/name.txt");
        QVERIFY(!NvrCore::saveToTextFile(through, QStringLiteral("x")));
        QCOMPARE(boxes.count(), 2);
        QCOMPARE(boxes.last().text, "Unable to save '" + through + "'.\n\n Is the file currently open?");
        QVERIFY(!QApplication::overrideCursor());
    }

    void fieldTypeOutOfRange()
    {
        // The names themselves show in the tool's address listing; a type without one has no text.
        for (int type : {0, 5, -1})
            QCOMPARE(Nevra::fieldTypeToString(static_cast<Nevra::FieldTypes>(type)), QString());
    }
};

QTEST_MAIN(tst_TextFiles)
#include "tst_textfiles.moc"
