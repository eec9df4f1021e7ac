// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "models/csvmodel.h"

#include <QAbstractItemModelTester>
#include <QBuffer>
#include <QDir>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <sys/resource.h>

using Table = QList<QStringList>;

class tst_CsvModel : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void read_data();
    void read();
    void badInputLoads_data();
    void badInputLoads();
    void write();
    void failedSaveKeepsThePreviousFile();
    void editCells();
    void rowsAndColumns();
    void headerData();
    void submitAndRevertUseHeaderAndComma();

private:
    static Table table(const CsvModel &model);
    static QByteArray bytes(CsvModel &model, bool withHeader = true, QChar separator = QLatin1Char(','));
    static bool writeFile(const QString &path, const QByteArray &bytes);
    static QByteArray readFile(const QString &path);
};

Table tst_CsvModel::table(const CsvModel &model)
{
    Table rows;
    for (int r = 0; r < model.rowCount(); ++r) {
        QStringList cells;
        for (int c = 0; c < model.columnCount(); ++c)
            cells << model.index(r, c).data().toString();
        rows << cells;
    }
    return rows;
}

QByteArray tst_CsvModel::bytes(CsvModel &model, bool withHeader, QChar separator)
{
    QBuffer buffer;
    model.toCSV(&buffer, withHeader, separator);
    return buffer.data();
}

bool tst_CsvModel::writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QFile::WriteOnly) && file.write(bytes) == bytes.size();
}

QByteArray tst_CsvModel::readFile(const QString &path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

void tst_CsvModel::read_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<QString>("separator");
    QTest::addColumn<QStringList>("header");
    QTest::addColumn<Table>("rows");

    const QStringList ab = {QStringLiteral("A"), QStringLiteral("B")};
    QTest::newRow("quoted separator") << QByteArray("A,B\na,\"b,c\",d\n") << "," << ab
                                      << Table{{"a", "b,c", "d"}};
    QTest::newRow("doubled quotes vanish") << QByteArray("A\n\"\"\"hi\"\"\"\n") << "," << QStringList{"A"}
                                           << Table{{"hi"}};
    QTest::newRow("backslash quote kept") << QByteArray("A\nx\\\"y,\\\"\n") << "," << QStringList{"A"}
                                          << Table{{"x\\\"y", "\\\""}};
    QTest::newRow("backslash before a removed CR") << QByteArray("A\nx\\\r\"y\n") << "," << QStringList{"A"}
                                                   << Table{{"x\\\"y"}};
    QTest::newRow("quotes anywhere in a cell") << QByteArray("A\nab\"c,d\"e,f\n") << "," << QStringList{"A"}
                                               << Table{{"abc,de", "f"}};
    QTest::newRow("unbalanced quote ends with its line") << QByteArray("A\n\"a,b\nc,d") << "," << QStringList{"A"}
                                                         << Table{{"a,b", ""}, {"c", "d"}};
    QTest::newRow("short and blank lines") << QByteArray("A,B\na,b,c\n\nd\n") << "," << ab
                                           << Table{{"a", "b", "c"}, {"", "", ""}, {"d", "", ""}};
    QTest::newRow("wider header") << QByteArray("A,B,C\na\n") << "," << QStringList{"A", "B", "C"}
                                  << Table{{"a", "", ""}};
    QTest::newRow("CR LF and a lone CR") << QByteArray("A,B\r\na,b\r\nc\rd,e\r\n") << "," << ab
                                         << Table{{"a", "b"}, {"cd", "e"}};
    QTest::newRow("NUL ends the line's text") << QByteArray("A,B\nab\0c,d\ne,f\n", 15) << "," << ab
                                              << Table{{"ab", ""}, {"e", "f"}};
    QTest::newRow("UTF-8, cells not trimmed") << QByteArray("A,B\n caf\xc3\xa9 ,x\n") << "," << ab
                                              << Table{{QString::fromUtf8(" caf\xc3\xa9 "), "x"}};
    QTest::newRow("other separator") << QByteArray("A;B\na,b;c\n") << ";" << ab << Table{{"a,b", "c"}};
    QTest::newRow("header only") << QByteArray("A,B\n") << "," << ab << Table{};
}

void tst_CsvModel::read()
{
    QFETCH(QByteArray, input);
    QFETCH(QString, separator);
    QFETCH(QStringList, header);
    QFETCH(Table, rows);

    QBuffer buffer(&input);
    CsvModel model(&buffer, nullptr, true, separator.at(0));
    QCOMPARE(table(model), rows);
    QCOMPARE(model.columnCount(), qMax(header.size(), rows.value(0).size()));
    for (int c = 0; c < header.size(); ++c)
        QCOMPARE(model.headerData(c, Qt::Horizontal).toString(), header.at(c));
    QVERIFY(!buffer.isOpen());

    // Without a header the current titles stay, and set the minimum width.
    QBuffer again(&input);
    model.setSource(&again, false, separator.at(0));
    QCOMPARE(model.rowCount(), rows.size() + 1);
    QCOMPARE(model.index(0, 0).data().toString(), header.at(0));
    QCOMPARE(model.headerData(0, Qt::Horizontal).toString(), header.at(0));

    // An empty source keeps the header and clears rows and width.
    QBuffer empty;
    model.setSource(&empty, true, separator.at(0));
    QCOMPARE(model.rowCount(), 0);
    QCOMPARE(model.columnCount(), 0);
    QCOMPARE(model.headerData(0, Qt::Horizontal).toString(), header.at(0));
}

void tst_CsvModel::badInputLoads_data()
{
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("columns");

    QByteArray binary(64 * 1024, '\0');
    QRandomGenerator random(4);
    for (char &byte : binary)
        byte = char(random.bounded(256));
    const int lines = binary.count('\n') + (binary.endsWith('\n') ? 0 : 1);

    QTest::newRow("NUL bytes only") << QByteArray(4096, '\0') << 0 << 1; // one line, the header
    QTest::newRow("1 MB single line") << QByteArray("abc,").repeated(256 * 1024) << 0 << 256 * 1024 + 1;
    QTest::newRow("unbalanced quotes") << QByteArray("\"\n\"a,\"b\n\",c\n").repeated(1000) << 2999 << 1;
    QTest::newRow("not text") << binary << lines - 1 << -1;
}

void tst_CsvModel::badInputLoads()
{
    QFETCH(QByteArray, input);
    QFETCH(int, rows);
    QFETCH(int, columns);

    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("bad.csv"));
    QVERIFY(writeFile(path, input));
    CsvModel model(path);
    QCOMPARE(model.rowCount(), rows);
    if (columns >= 0)
        QCOMPARE(model.columnCount(), columns);
    QVERIFY(model.columnCount() >= 1);
    // Every cell reads, and what was loaded can be written again.
    for (int r = 0; r < model.rowCount(); ++r)
        QCOMPARE(model.index(r, model.columnCount() - 1).data().userType(), int(QMetaType::QString));
    QVERIFY(bytes(model).size() > 0);
}

void tst_CsvModel::write()
{
    QByteArray input("Company,Model,Note\nAcme,X1\n\"caf\xc3\xa9 \xe2\x82\xac\",,\"back\\\"slash\"\n\n");
    QBuffer source(&input);
    CsvModel model(&source);

    QCOMPARE(bytes(model), QByteArray("\"Company\",\"Model\",\"Note\"\n"
                                      "\"Acme\",\"X1\",\"\"\n"
                                      "\"caf\xe9 ?\",\"\",\"back\\\"slash\"\n"
                                      "\"\",\"\",\"\"\n"));
    QCOMPARE(bytes(model, false, QLatin1Char(';')), QByteArray("\"Acme\";\"X1\";\"\"\n"
                                                               "\"caf\xe9 ?\";\"\";\"back\\\"slash\"\n"
                                                               "\"\";\"\";\"\"\n"));

    // An ASCII table without quotes survives a round trip through a file exactly.
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("round.csv"));
    QByteArray ascii("Id,Company,Model\n1,Acme,X 1\n2,Beta Corp,\n,, \n");
    QBuffer asciiSource(&ascii);
    CsvModel original(&asciiSource);
    original.toCSV(path);
    QVERIFY(original.fileName().isEmpty());
    CsvModel copy(path);
    QCOMPARE(table(copy), table(original));
    QCOMPARE(copy.headerData(2, Qt::Horizontal).toString(), QStringLiteral("Model"));
    QCOMPARE(readFile(path), bytes(original));
    QCOMPARE(QFileInfo(path).permissions() & QFile::ReadOther, QFile::ReadOther); // an ordinary file
}

void tst_CsvModel::failedSaveKeepsThePreviousFile()
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("kept.csv"));
    const QByteArray previous("\"A\",\"B\"\n\"old\",\"row\"\n");
    QVERIFY(writeFile(path, previous));
    CsvModel model(path);
    QByteArray larger = QByteArray("A,B\n") + QByteArray("a rather long new cell,and another\n").repeated(2000);
    QBuffer source(&larger);
    model.setSource(&source); // keeps the file name

    // A full disk, simulated by a file-size limit: the write fails part way.
    rlimit saved{};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &saved), 0);
    rlimit limited = saved;
    limited.rlim_cur = 4096;
    const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &limited), 0);
    QVERIFY(model.submit());
    setrlimit(RLIMIT_FSIZE, &saved);
    std::signal(SIGXFSZ, oldHandler);

    QCOMPARE(readFile(path), previous);
    QCOMPARE(QDir(dir.path()).entryList(QDir::Files), QStringList{QStringLiteral("kept.csv")});

    // A path through a regular file cannot be written: nothing appears, nothing breaks.
    model.toCSV(path + QStringLiteral("/inside.csv"));
    QCOMPARE(readFile(path), previous);

    QVERIFY(model.submit());
    QCOMPARE(readFile(path), bytes(model));
}

void tst_CsvModel::editCells()
{
    QByteArray input("A,B,C\na,b,c\nshort\n");
    QBuffer source(&input);
    CsvModel model(&source);
    QAbstractItemModelTester tester(&model);
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);

    QTest::ignoreMessage(QtDebugMsg, "CsvModel::setData before: a\x01");
    QTest::ignoreMessage(QtDebugMsg, "CsvModel::setData after: c");
    QTest::ignoreMessage(QtDebugMsg, "CsvModel::setData new: a\x01x\x01" "c");
    QVERIFY(model.setData(model.index(0, 1), QStringLiteral("x")));
    QCOMPARE(table(model).at(0), (QStringList{"a", "x", "c"}));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toModelIndex(), model.index(0, 1));
    QVERIFY(changed.at(0).at(2).value<QVector<int>>().isEmpty());

    // A short row keeps its cells in place when a later column is set.
    QVERIFY(model.setData(model.index(1, 2), 7, Qt::UserRole));
    QCOMPARE(table(model).at(1), (QStringList{"short", "", "7"}));
    QVERIFY(model.setData(model.index(1, 0), QString(), Qt::DisplayRole));
    QCOMPARE(table(model).at(1), (QStringList{"", "", "7"}));
    QCOMPARE(bytes(model, false), QByteArray("\"a\",\"x\",\"c\"\n\"\",\"\",\"7\"\n"));

    QVERIFY(!model.setData(model.index(0, 0), QStringLiteral("y"), Qt::ToolTipRole));
    QVERIFY(!model.setData(QModelIndex(), QStringLiteral("y")));
    QCOMPARE(changed.count(), 3);
    QVERIFY(model.flags(model.index(0, 0)) & Qt::ItemIsEditable);
    QCOMPARE(model.data(model.index(0, 0), Qt::ToolTipRole), QVariant());
}

void tst_CsvModel::rowsAndColumns()
{
    QByteArray input("A,B,C\n1,2,3\n4,5,6\n");
    QBuffer source(&input);
    CsvModel model(&source);
    QAbstractItemModelTester tester(&model);

    QVERIFY(model.insertRows(99, 2)); // past the end: appended
    QVERIFY(model.insertRows(0, 1));
    QCOMPARE(table(model), (Table{{"", "", ""}, {"1", "2", "3"}, {"4", "5", "6"}, {"", "", ""}, {"", "", ""}}));
    QVERIFY(!model.insertRows(-1, 1));
    QVERIFY(!model.insertRows(0, 1, model.index(0, 0)));

    QVERIFY(model.removeRows(3, 10)); // the count is cut at the end
    QVERIFY(model.removeRows(0, 1));
    QVERIFY(!model.removeRows(2, 1));
    QCOMPARE(table(model), (Table{{"1", "2", "3"}, {"4", "5", "6"}}));

    QVERIFY(model.insertColumns(1, 2));
    QCOMPARE(model.columnCount(), 5);
    QCOMPARE(table(model).at(0), (QStringList{"1", "", "", "2", "3"}));
    QCOMPARE(model.headerData(3, Qt::Horizontal).toString(), QStringLiteral("B"));
    QVERIFY(model.insertColumns(5, 1)); // at the end: rows untouched, width grows
    QCOMPARE(model.columnCount(), 6);
    QVERIFY(model.removeColumns(1, 2));
    QVERIFY(!model.removeColumns(6, 1));
    QVERIFY(model.removeColumns(0, 1));
    // Removal keeps the width: the freed columns read empty.
    QCOMPARE(model.columnCount(), 6);
    QCOMPARE(table(model), (Table{{"2", "3", "", "", "", ""}, {"5", "6", "", "", "", ""}}));
    QCOMPARE(model.headerData(0, Qt::Horizontal).toString(), QStringLiteral("B"));
    QCOMPARE(model.headerData(4, Qt::Horizontal).toString(), QStringLiteral("5")); // past the titles: numbered
}

void tst_CsvModel::headerData()
{
    qRegisterMetaType<Qt::Orientation>();
    CsvModel model;
    QSignalSpy spy(&model, &QAbstractItemModel::headerDataChanged);
    const QStringList titles = {QStringLiteral("Id"), QStringLiteral("Company"), QStringLiteral("Model")};
    model.setHeaderData(titles);
    model.setHeaderData(titles);
    QCOMPARE(spy.count(), 2);
    QCOMPARE(spy.at(1), (QVariantList{QVariant::fromValue(Qt::Horizontal), 0, 3}));
    QCOMPARE(model.columnCount(), 0);
    QCOMPARE(model.headerData(1, Qt::Horizontal, Qt::UserRole).toString(), QStringLiteral("Company"));
    QCOMPARE(model.headerData(1, Qt::Vertical).toInt(), 2);
}

void tst_CsvModel::submitAndRevertUseHeaderAndComma()
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("table.csv"));
    QVERIFY(writeFile(path, "a;b\nc;d\n"));
    CsvModel model(path, nullptr, false, QLatin1Char(';'));
    model.setHeaderData({QStringLiteral("X"), QStringLiteral("Y")});
    QCOMPARE(model.rowCount(), 2);
    QVERIFY(model.submit());
    QCOMPARE(readFile(path), QByteArray("\"X\",\"Y\"\n\"a\",\"b\"\n\"c\",\"d\"\n"));

    QAbstractItemModelTester tester(&model);
    QVERIFY(model.insertRows(2, 1));
    QVERIFY(model.setData(model.index(0, 0), QStringLiteral("changed")));
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    model.revert();
    QCOMPARE(table(model), (Table{{"a", "b"}, {"c", "d"}}));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toModelIndex(), model.index(0, 0));
    QCOMPARE(changed.at(0).at(1).toModelIndex(), model.index(1, 1));

    // Without a file name both fail silently.
    CsvModel unnamed;
    QVERIFY(unnamed.submit());
    unnamed.revert();
    QCOMPARE(unnamed.rowCount(), 0);
}

QTEST_GUILESS_MAIN(tst_CsvModel)
#include "tst_csvmodel.moc"
