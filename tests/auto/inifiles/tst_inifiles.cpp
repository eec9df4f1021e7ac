// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "classes/lookuptable.h"
#include "classes/nvroptions.h"
#include "classes/nvroptionsettings.h"
#include "classes/rtsfile.h"
#include "models/headsetsmodel.h"
#include "models/legendsconverttablemodel.h"
#include "models/rtstablemodel.h"
#include "testappdir.h"
#include "testfiles.h"

#include <QTest>

#include <functional>

namespace {

const QString name = QStringLiteral("B\u00fchler \u20ac");

// One INI file as a user brings it: the lines with {G} for the group, {C} for "count" and {N} for
// the name, which each encoding writes its own way.
struct Kind
{
    QString path;
    QString group;
    QStringList lines;
    std::function<QString()> read;  // loads the file the way the program does and gives the name back
    std::function<void()> write;    // saves it again (empty for files the program only reads)
    QStringList otherFiles = {};    // written empty, so the library does not rebuild them
};

QString dataFile(const char *file) { return TestAppDir::filePath(QStringLiteral("nevradat/") + QLatin1String(file)); }

QList<Kind> kinds()
{
    const QString radios = dataFile("radiosuser.dat");
    const QString headsets = dataFile("headsetsuser.dat");
    return {
        {radios, QStringLiteral("Rts"),
         {QStringLiteral("[{G}]"), QStringLiteral("{C}=1"), QStringLiteral("AutoIncId=201"),
          QStringLiteral("0=200, {N}, KX 155, 1, 5.00, , 0.100, , 0")},
         [] {
             RtsFile::destroyInstance();
             RtsFile::instance();
             RtsTableModel *model = RtsTableModel::instance();
             return model->rowCount() == 1 ? model->index(0, RtsTableModel::ManufacturerColumn).data().toString()
                                           : QStringLiteral("%1 rows").arg(model->rowCount());
         },
         [] { RtsFile::instance()->saveFiles(); },
         {dataFile("radiosbase.dat")}},
        {headsets, QStringLiteral("HeadSets"),
         {QStringLiteral("[{G}]"), QStringLiteral("{C}=1"), QStringLiteral("0=200, {N}, H10, 5.50, 600, , 0.250, ")},
         [] {
             HeadSetsModel model;
             model.readData();
             return model.rowCount() == 1 ? model.index(0, HeadSetsModel::ManufacturerColumn).data().toString()
                                          : QStringLiteral("%1 rows").arg(model.rowCount());
         },
         [] {
             HeadSetsModel model;
             model.readData();
             model.submitAll();
         },
         {dataFile("headsetsbase.dat")}},
        {dataFile("legendsconvert.dat"), QStringLiteral("LegendsConvert"),
         {QStringLiteral("[{G}]"), QStringLiteral("{C}=1"), QStringLiteral("0=NAV1, {N}")},
         [] {
             LegendsConvertTableModel model;
             model.readData();
             return model.index(0, LegendsConvertTableModel::ConvertedColumn).data().toString();
         },
         [] {
             LegendsConvertTableModel model;
             model.readData();
             model.submit();
         }},
        {TestAppDir::filePath(QStringLiteral("levels.ini")), QStringLiteral("volume"),
         {QStringLiteral("[{G}]"), QStringLiteral("{C}=1"), QStringLiteral("0={N}, 1F")},
         [] {
             LookUpTable table(TestAppDir::filePath(QStringLiteral("levels.ini")), QStringLiteral("volume"));
             table.readData();
             return table.displayValues().value(0);
         },
         {}},
        {NvrOptionSettings::filePath(), QStringLiteral("options"),
         {QStringLiteral("[{G}]"), QStringLiteral("ComPort=4"), QStringLiteral("Style={N}")},
         [] { return NvrOptions({}).style(); },
         [] { NvrOptions({}).saveSettings(); }},
    };
}

// The name as bytes of each encoding; Qt's escape spells every character by its code.
QByteArray encoded(const QString &text, const QString &encoding)
{
    if (encoding == QLatin1String("escapes")) {
        QByteArray bytes;
        for (const QChar c : text)
            bytes += c.unicode() < 0x80 ? QByteArray(1, char(c.unicode())) : "\\x" + QByteArray::number(c.unicode(), 16);
        return bytes;
    }
    if (encoding == QLatin1String("windows-1252")) {
        QByteArray bytes = text.toLatin1();
        bytes.replace('?', '\x80'); // the euro sign has no Latin-1 byte
        return bytes;
    }
    return text.toUtf8();
}

}

class tst_IniFiles : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        TestAppDir::prepare();
        QDir().mkpath(QFileInfo(NvrOptionSettings::filePath()).path());
    }
    void cleanupTestCase()
    {
        RtsFile::destroyInstance();
        QFile::remove(NvrOptionSettings::filePath());
        TestAppDir::cleanup();
    }

    // Every INI file of the program reads what Windows tools write, and is written back as UTF-8,
    // once, under one group: in a Qt 5 and a Qt 6 build alike.
    void readsFilesFromWindows_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("encoding");
        const QStringList kindNames = {QStringLiteral("radios"), QStringLiteral("headsets"), QStringLiteral("legends"),
                                       QStringLiteral("lookup table"), QStringLiteral("options")};
        for (int kind = 0; kind < kindNames.size(); ++kind) {
            for (const char *encoding : {"escapes", "utf-8", "utf-8 bom", "windows-1252", "crlf", "letter case"})
                QTest::addRow("%s, %s", qPrintable(kindNames.at(kind)), encoding) << kind << QString::fromLatin1(encoding);
        }
    }

    void readsFilesFromWindows()
    {
        QFETCH(int, kind);
        QFETCH(QString, encoding);
        TestAppDir::clearData();
        const Kind file = kinds().at(kind);
        const bool upper = encoding == QLatin1String("letter case");
        QByteArray bytes = encoding == QLatin1String("utf-8 bom") ? QByteArray("\xEF\xBB\xBF") : QByteArray();
        for (QString line : file.lines) {
            line.replace(QLatin1String("{G}"), upper ? file.group.toUpper() : file.group);
            line.replace(QLatin1String("{C}"), upper ? QStringLiteral("COUNT") : QStringLiteral("count"));
            const int at = line.indexOf(QLatin1String("{N}"));
            QByteArray lineBytes = line.toUtf8();
            if (at >= 0)
                lineBytes = line.left(at).toUtf8() + encoded(name, encoding) + line.mid(at + 3).toUtf8();
            bytes += lineBytes + (encoding == QLatin1String("crlf") ? "\r\n" : "\n");
        }
        QVERIFY(TestFiles::write(file.path, bytes));
        for (const QString &other : file.otherFiles)
            QVERIFY(TestFiles::write(other, "[" + file.group.toUtf8() + "]\ncount=0\n"));

        QCOMPARE(file.read(), name);
        QCOMPARE(TestFiles::read(file.path), bytes); // reading never rewrites the file
        if (!file.write)
            return;
        file.write();
        const QByteArray written = TestFiles::read(file.path);
        QVERIFY2(written.contains(name.toUtf8()) && !written.startsWith("\xEF\xBB\xBF"), written.constData());
        QCOMPARE(written.toLower().count(("[" + file.group.toLower()).toUtf8()), 1);
        QCOMPARE(file.read(), name);
    }
};

QTEST_MAIN(tst_IniFiles)
#include "tst_inifiles.moc"
