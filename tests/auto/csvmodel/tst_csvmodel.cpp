// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "fulldisk.h"
#include "modeltester.h"
#include "models/csvmodel.h"
#include "models/csvtextloss.h"
#include "testfiles.h"

#include <QBuffer>
#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using Table = QList<QStringList>;

namespace {
Table table(const CsvModel &model)
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

QByteArray csv(CsvModel &model, bool withHeader = true, QChar separator = QLatin1Char(','))
{
    QBuffer buffer;
    model.toCSV(&buffer, withHeader, separator);
    return buffer.data();
}

CsvModel *load(QByteArray bytes, bool withHeader = true, QChar separator = QLatin1Char(','))
{
    QBuffer buffer(&bytes);
    return new CsvModel(&buffer, nullptr, withHeader, separator);
}

}

class tst_CsvModel : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void read_data()
    {
        QTest::addColumn<QByteArray>("input");
        QTest::addColumn<Table>("rows");

        QTest::newRow("doubled quotes vanish") << QByteArray("H\n\"\"\"hi\"\"\"\n") << Table{{"hi"}};
        QTest::newRow("backslash quote kept") << QByteArray("H\nx\\\"y,\\\r\"\n") << Table{{"x\\\"y", "\\\""}};
        QTest::newRow("quotes anywhere") << QByteArray("H\nab\"c,d\"e,f\n") << Table{{"abc,de", "f"}};
        QTest::newRow("unbalanced quote") << QByteArray("H\n\"a,b\nc,d") << Table{{"a,b", ""}, {"c", "d"}};
        QTest::newRow("short and blank lines") << QByteArray("H,B\na,b,c\n\nd\n")
                                               << Table{{"a", "b", "c"}, {"", "", ""}, {"d", "", ""}};
        QTest::newRow("CR LF, lone CR") << QByteArray("H\r\na,b\r\nc\rd,e\r\n") << Table{{"a", "b"}, {"cd", "e"}};
        QTest::newRow("NUL ends the line") << QByteArray("H\nab\0c,d\ne,f\n", 13) << Table{{"ab", ""}, {"e", "f"}};
        QTest::newRow("UTF-8, untrimmed") << QByteArray("H\n caf\xc3\xa9 ,\"\xc3\xa9\\\"\"\n")
                                          << Table{{QString::fromUtf8(" caf\xc3\xa9 "), QString::fromUtf8("\xc3\xa9\\\"")}};
    }

    void read()
    {
        QFETCH(QByteArray, input);
        QFETCH(Table, rows);

        QScopedPointer<CsvModel> model(load(input));
        QCOMPARE(table(*model), rows);
        QCOMPARE(model->columnCount(), rows.first().size());
        QCOMPARE(model->headerData(0, Qt::Horizontal).toString(), QStringLiteral("H"));

        // Without a header line the titles stay, the first line is a row.
        QBuffer again(&input);
        model->setSource(&again, false);
        QVERIFY(!again.isOpen());
        QCOMPARE(model->rowCount(), rows.size() + 1);
        QCOMPARE(model->index(0, 0).data().toString(), QStringLiteral("H"));

        // An empty source clears rows and width and keeps the titles.
        QBuffer empty;
        model->setSource(&empty);
        QCOMPARE(model->rowCount(), 0);
        QCOMPARE(model->columnCount(), 0);
        QCOMPARE(model->headerData(0, Qt::Horizontal).toString(), QStringLiteral("H"));
    }

    void badInputLoads_data()
    {
        QTest::addColumn<QByteArray>("input");
        QTest::addColumn<int>("rows");
        QTest::addColumn<int>("columns");

        QTest::newRow("1 MB single line") << QByteArray("abc,").repeated(256 * 1024) << 0 << 256 * 1024 + 1;
        QTest::newRow("unbalanced quotes") << QByteArray("\"\n\"a,\"b\n\",c\n").repeated(1000) << 2999 << 1;
    }

    void badInputLoads()
    {
        QFETCH(QByteArray, input);
        QFETCH(int, rows);
        QFETCH(int, columns);

        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("bad.csv"));
        QVERIFY(TestFiles::write(path, input));
        CsvModel model(path);
        QCOMPARE(model.rowCount(), rows);
        QCOMPARE(model.columnCount(), columns);
        QVERIFY(csv(model).size() > 0); // every cell reads and writes back
    }

    void write()
    {
        QScopedPointer<CsvModel> model(load("Company,Model,Note\nAcme,X1\n\"caf\xc3\xa9 \xe2\x82\xac\",,\"b\\\"s\"\n\n"));
        QCOMPARE(csv(*model), QByteArray("\"Company\",\"Model\",\"Note\"\n\"Acme\",\"X1\",\"\"\n"
                                         "\"caf\xe9 ?\",\"\",\"b\\\"s\"\n\"\",\"\",\"\"\n"));
        QCOMPARE(csv(*model, false, QLatin1Char(';')).left(16), QByteArray("\"Acme\";\"X1\";\"\"\n\""));

        // An ASCII table without quotes survives a round trip through a file exactly.
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("round.csv"));
        QScopedPointer<CsvModel> original(load("Id,Company,Model\n1,Acme,X 1\n2,Beta Corp,\n,, \n"));
        original->toCSV(path);
        QVERIFY(original->fileName().isEmpty());
        CsvModel copy(path);
        QCOMPARE(table(copy), table(*original));
        QCOMPARE(TestFiles::read(path), csv(*original));
        QVERIFY(QFileInfo(path).permissions() & QFile::ReadOther); // an ordinary file, not a private temporary
    }

    void failedSaveKeepsThePreviousFile()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("kept.csv"));
        const QByteArray previous("\"A\",\"B\"\n\"old\",\"row\"\n");
        QVERIFY(TestFiles::write(path, previous));
        CsvModel model(path);
        QByteArray larger = QByteArray("A,B\n") + QByteArray("a rather long new cell,and another\n").repeated(2000);
        QBuffer source(&larger);
        model.setSource(&source); // keeps the file name

        {
            FullDisk full(4096);
            QVERIFY(model.submit()); // the write fails part way
        }
        QCOMPARE(TestFiles::read(path), previous);
        QCOMPARE(QDir(dir.path()).entryList(QDir::Files), QStringList{QStringLiteral("kept.csv")});

        // A table that fits the write buffer fails only at the flush, which
        // must not let the cut file replace the old one either.
        QByteArray small("A,B\nnew,row\n");
        QBuffer smallSource(&small);
        model.setSource(&smallSource);
        {
            FullDisk full(8);
            QVERIFY(model.submit());
        }
        QCOMPARE(TestFiles::read(path), previous);

        model.toCSV(path + QStringLiteral("/inside.csv")); // a path through a regular file
        QCOMPARE(TestFiles::read(path), previous);
        QVERIFY(model.submit());
        QCOMPARE(TestFiles::read(path), csv(model));
    }

    void editCells()
    {
        QScopedPointer<CsvModel> model(load("A,B,C\na,b,c\nshort\n"));
        ModelTester tester(model.data());
        QSignalSpy changed(model.data(), &QAbstractItemModel::dataChanged);

        QVERIFY(model->setData(model->index(0, 1), QStringLiteral("x")));
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.at(0).at(0).toModelIndex(), model->index(0, 1));
        QVERIFY(changed.at(0).at(2).value<QVector<int>>().isEmpty());

        // A short row keeps its cells in place when a later column is set; the last column's trailing cell is not written.
        QVERIFY(model->setData(model->index(1, 2), 7, Qt::UserRole));
        QVERIFY(model->setData(model->index(1, 0), QString(), Qt::DisplayRole));
        QCOMPARE(csv(*model, false), QByteArray("\"a\",\"x\",\"c\"\n\"\",\"\",\"7\"\n"));

        QVERIFY(!model->setData(model->index(0, 0), QStringLiteral("y"), Qt::ToolTipRole));
        QVERIFY(!model->setData(QModelIndex(), QStringLiteral("y")));
        QCOMPARE(changed.count(), 3);
        QVERIFY(model->flags(model->index(0, 0)) & Qt::ItemIsEditable);
        QCOMPARE(model->flags(QModelIndex()), Qt::ItemIsEditable);
    }

    void rowsColumnsAndHeader()
    {
        QScopedPointer<CsvModel> model(load("A,B,C\n1,2,3\n4,5,6\n"));
        ModelTester tester(model.data());

        QVERIFY(model->insertRows(99, 2)); // past the end: appended
        QVERIFY(model->insertRows(0, 1));
        QCOMPARE(table(*model), (Table{{"", "", ""}, {"1", "2", "3"}, {"4", "5", "6"}, {"", "", ""}, {"", "", ""}}));
        QVERIFY(!model->insertRows(-1, 1));
        QVERIFY(model->removeRows(3, 10)); // the count is cut at the end
        QVERIFY(model->removeRows(0, 1));
        QVERIFY(!model->removeRows(2, 1));
        QCOMPARE(table(*model), (Table{{"1", "2", "3"}, {"4", "5", "6"}}));

        QVERIFY(model->insertColumns(1, 2));
        QCOMPARE(table(*model).at(0), (QStringList{"1", "", "", "2", "3"}));
        QCOMPARE(model->headerData(3, Qt::Horizontal).toString(), QStringLiteral("B"));
        QVERIFY(model->insertColumns(5, 1)); // at the end: rows untouched, width grows
        QVERIFY(model->removeColumns(1, 2));
        QVERIFY(!model->removeColumns(6, 1));
        QVERIFY(model->removeColumns(0, 1));
        // Removal keeps the width: the freed columns read empty, and past the titles the header numbers them.
        QCOMPARE(table(*model), (Table{{"2", "3", "", "", "", ""}, {"5", "6", "", "", "", ""}}));
        QCOMPARE(model->headerData(0, Qt::Horizontal).toString(), QStringLiteral("B"));
        QCOMPARE(model->headerData(4, Qt::Horizontal).toString(), QStringLiteral("5"));

        // The header signal names one past the last title, even for the same list.
        qRegisterMetaType<Qt::Orientation>();
        CsvModel titled;
        QSignalSpy spy(&titled, &QAbstractItemModel::headerDataChanged);
        const QStringList titles = {QStringLiteral("Id"), QStringLiteral("Company"), QStringLiteral("Model")};
        titled.setHeaderData(titles);
        titled.setHeaderData(titles);
        QCOMPARE(spy.count(), 2);
        QCOMPARE(spy.at(1), (QVariantList{QVariant::fromValue(Qt::Horizontal), 0, 3}));
        QCOMPARE(titled.columnCount(), 0);
        QCOMPARE(titled.headerData(1, Qt::Horizontal, Qt::UserRole).toString(), QStringLiteral("Company"));
    }

    void submitAndRevertUseHeaderAndComma()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("table.csv"));
        QVERIFY(TestFiles::write(path, "a;b\nc;d\n"));
        CsvModel model(path, nullptr, false, QLatin1Char(';'));
        model.setHeaderData({QStringLiteral("X"), QStringLiteral("Y")});
        QVERIFY(model.submit());
        QCOMPARE(TestFiles::read(path), QByteArray("\"X\",\"Y\"\n\"a\",\"b\"\n\"c\",\"d\"\n"));

        ModelTester tester(&model);
        QVERIFY(model.insertRows(2, 1));
        QVERIFY(model.setData(model.index(0, 0), QStringLiteral("changed")));
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        model.revert();
        QCOMPARE(table(model), (Table{{"a", "b"}, {"c", "d"}}));
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.at(0).at(1).toModelIndex(), model.index(1, 1));
    }

    void textTheFileCannotKeep_data()
    {
        QTest::addColumn<QString>("cell");
        QTest::addColumn<QString>("lost"); // empty: the cell comes back as it is
        QTest::newRow("ascii") << QStringLiteral("Acme 7 (a-b/c) ~!") << QString();
        QTest::newRow("backslash quote") << QStringLiteral("say \\\"hi") << QString();
        QTest::newRow("latin-1 letter") << QStringLiteral("Caf\u00e9 12") << QStringLiteral("'\u00e9' (U+00E9)");
        QTest::newRow("beyond latin-1") << QStringLiteral("5 \u20ac") << QStringLiteral("'\u20ac' (U+20AC)");
        QTest::newRow("double quote") << QStringLiteral("12\" rack") << QStringLiteral("'\"' (U+0022)");
        QTest::newRow("line break") << QStringLiteral("two\nlines") << QStringLiteral("U+000A");
        QTest::newRow("ends in a backslash") << QStringLiteral("C:\\") << QStringLiteral("'\\' (U+005C)");
    }

    void textTheFileCannotKeep()
    {
        QFETCH(QString, cell);
        QFETCH(QString, lost);
        std::unique_ptr<CsvModel> model(load("\"Id\",\"Name\",\"Note\"\n\"1\",\"a\",\"b\"\n\"2\",\"c\",\"d\"\n"));
        QVERIFY(model->setData(model->index(1, 1), cell));
        const QByteArray before = csv(*model);
        const CsvTextLoss loss = CsvTextLoss::find(*model);
        QCOMPARE(loss.isValid() ? loss.characterText() : QString(), lost);
        if (loss.isValid()) {
            QCOMPARE(loss.row, 1);
            QCOMPARE(loss.column, 1);
        }
        QCOMPARE(csv(*model), before); // looking changes nothing
    }
};

QTEST_GUILESS_MAIN(tst_CsvModel)
#include "tst_csvmodel.moc"
