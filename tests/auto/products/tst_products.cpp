// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "classes/productsfile.h"
#include "filedialogchooser.h"
#include "logcapture.h"
#include "messageboxrecorder.h"
#include "models/productsmodel.h"
#include "productrows.h"
#include "testappdir.h"
#include "testfiles.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QColor>
#include <QJsonArray>
#include <QJsonObject>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

namespace {
/// A second kind of document, as another running application would hold it.
class NoteFile : public KvJsonDocumentFile
{
public:
    QJsonObject content;
    QJsonDocument toJsonDocument() const override { return QJsonDocument(content); }
    bool fromJsonDocument(const QJsonDocument &document) override
    {
        content = document.object();
        return !document.isEmpty();
    }
    void newJsonDocument() override { content = QJsonObject(); }
};

}

class tst_Products : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        TestAppDir::prepare();
        // The products file lives under the current directory, not the application's.
        m_previousDir = QDir::currentPath();
        QVERIFY(QDir::setCurrent(m_currentDir.path()));
        QVERIFY(QDir().mkpath(QStringLiteral("nevradat")));
        m_path = QDir::currentPath() + QStringLiteral("/nevradat/products.dat");
    }

    void cleanupTestCase()
    {
        ProductsFile::destroyInstance();
        ProductsModel::destroyInstance();
        QDir::setCurrent(m_previousDir);
        TestAppDir::cleanup();
    }

    void editsUnderModelTester()
    {
        ProductsModel *model = fillProducts({"P1 A C 1", "P2 A B 1"});
        QAbstractItemModelTester tester(model, QAbstractItemModelTester::FailureReportingMode::QtTest);

        // A new row in the middle gets the defaults; its empty product number shows as invalid.
        QVERIFY(model->insertRows(1, 1));
        QCOMPARE(productRows(), QStringList({"P1 A C 1", "- A A 1", "P2 A B 1"}));
        QVERIFY(!model->index(1, 0).data(KvAbstractTableModel::ItemIsValidRole).toBool());
        QCOMPARE(model->index(1, 0).data(Qt::BackgroundRole).value<QColor>(), QColor(255, 200, 200));
        QVERIFY(!model->index(1, 3).data(Qt::BackgroundRole).isValid());
        QVERIFY(!model->insertRows(4, 1));
        QVERIFY(!model->insertRows(0, 1, model->index(0, 0)));

        QSignalSpy changed(model, &QAbstractItemModel::dataChanged);
        QVERIFY(model->setData(model->index(1, 0), QStringLiteral("P3")));
        QVERIFY(model->setData(model->index(1, 0), QStringLiteral("P3")));
        QCOMPARE(changed.count(), 1); // one cell, once: the same value again changes nothing
        QCOMPARE(changed.at(0).at(1).toModelIndex(), model->index(1, 0));
        QVERIFY(model->copy(model->index(0, 2), model->index(1, 0)));
        QCOMPARE(productRows().at(1), QStringLiteral("P1 A C 1"));
        QVERIFY(model->removeRows(0, 1));
        QVERIFY(!model->removeRows(2, 1));

        // revert() goes back to the last stored rows; submit() stores the working rows.
        QVERIFY(model->isModified());
        model->revert();
        QCOMPARE(productRows(), QStringList({"P1 A C 1", "P2 A B 1"}));
        QVERIFY(!model->isModified());
        QVERIFY(model->removeRows(0, 2));
        QVERIFY(model->submit());
        model->revert();
        QCOMPARE(model->rowCount(), 0);
    }

    void revsOverlap_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<QString>("range");
        QTest::addColumn<bool>("overlap");

        // Rows: 0 P A..C, 1 P D..F, 2 Q A..Z, 3 P H..J.
        QTest::newRow("adjacent ranges") << 1 << "D F" << false;
        QTest::newRow("C to D touches the range before") << 1 << "C D" << true;
        QTest::newRow("end reaches a later start") << 1 << "G H" << true;
        QTest::newRow("only row of its product") << 2 << "A Z" << false;
    }

    void revsOverlap()
    {
        QFETCH(int, row);
        QFETCH(QString, range);
        QFETCH(bool, overlap);

        const ProductsModel *model = fillProducts({"P A C 1", "P D F 2", "Q A Z 1", "P H J 3"});
        QCOMPARE(model->revsOverlap(row, range.left(1), range.right(1)), overlap);
    }

    void validityAndLookups()
    {
        const ProductsModel *model = fillProducts({"P A C 1", "P C D 2", "Q B A 0", "R A Z x", "S E E 9"});
        const auto valid = [model](int row, int column) { return model->itemIsValid(model->index(row, column)); };
        QVERIFY(!valid(0, 1) && !valid(0, 2) && !valid(1, 1) && !valid(1, 2)); // overlapping, on both rows
        QVERIFY(!valid(2, 1) && !valid(2, 2)); // B to A: invalid by its order alone
        QVERIFY(!valid(2, 3) && !valid(3, 3) && valid(3, 1) && valid(4, 3));

        fillProducts({"P D F 2", "P A C 1", "Q B B 1", "Q C A 3", "E - C 1"});
        QCOMPARE(model->buildConfigurations(QStringLiteral("P")).join(QString()), QStringLiteral("ABCDEF"));
        QCOMPARE(model->buildConfigurations(model->index(2, 3)), QStringList(QStringLiteral("B")));
        // An unknown product: exact match only.
        QCOMPARE(model->buildConfigurations(QStringLiteral("p")), QStringList(QStringLiteral("A")));
        QCOMPARE(model->buildConfigurations(QStringLiteral("E")), QStringList()); // an empty start yields nothing

        QCOMPARE(model->buildConfiguration(QStringLiteral("P"), 2), QStringLiteral("D"));
        QCOMPARE(model->buildConfiguration(QStringLiteral("P"), 3), QStringLiteral("A"));

        QCOMPARE(model->hardwareConfiguration(QStringLiteral("P"), QStringLiteral("B")), 1);
        QCOMPARE(model->hardwareConfiguration(QStringLiteral("P"), QStringLiteral("Z")), 2); // later than all: newest
        QCOMPARE(model->hardwareConfiguration(QStringLiteral("Q"), QStringLiteral("Z")), 3);
        QCOMPARE(model->hardwareConfiguration(QStringLiteral("unknown"), QStringLiteral("C")), 1);
    }

    void validityFollowsEveryEdit()
    {
        // The validity of every cell, worked out from the rule over the whole table,
        // against what the model answers; compared again after each kind of edit, so
        // that a lookup of a product's rows that lags behind the table shows.
        const auto expected = [](const ProductsModel *model) {
            QStringList cells;
            for (int row = 0; row < model->rowCount(); ++row) {
                const auto cell = [&](int r, int c) { return model->index(r, c).data(Qt::EditRole).toString(); };
                const QString start = cell(row, 1);
                const QString end = cell(row, 2);
                bool overlap = false;
                for (int other = 0; other < model->rowCount(); ++other) {
                    if (other != row && cell(other, 0) == cell(row, 0)
                        && ProductsModel::rangesOverlap(start, end, cell(other, 1), cell(other, 2)))
                        overlap = true;
                }
                const bool range = !(end < start) && !overlap;
                cells << QStringLiteral("%1%2%3%4")
                             .arg(int(!cell(row, 0).isEmpty()))
                             .arg(int(range))
                             .arg(int(range))
                             .arg(int(model->index(row, 3).data(Qt::EditRole).toInt() != 0));
            }
            return cells;
        };
        const auto actual = [](const ProductsModel *model) {
            QStringList cells;
            for (int row = 0; row < model->rowCount(); ++row) {
                QString flags;
                for (int column = 0; column < 4; ++column)
                    flags += QString::number(int(model->itemIsValid(model->index(row, column))));
                cells << flags;
            }
            return cells;
        };

        ProductsModel *model = fillProducts({"P A C 1", "Q A C 1", "P D F 2", "P C D 3", "R B A 1", "- A B 1",
                                             "- B C 0", "Q D D 2", "S A Z 1", "P H J x", "R A A 1", "p A C 1"});
        QCOMPARE(actual(model), expected(model));
        QVERIFY(!model->itemIsValid(model->index(0, 1)) && model->itemIsValid(model->index(11, 1)));

        model->setData(model->index(3, 0), QStringLiteral("S")); // moves a row to another product
        QCOMPARE(actual(model), expected(model));
        QVERIFY(model->itemIsValid(model->index(0, 1)) && !model->itemIsValid(model->index(3, 1)));
        model->setData(model->index(7, 2), QStringLiteral("B")); // out of order, and no longer beside A to C
        model->setData(model->index(7, 1), QStringLiteral("B"));
        QCOMPARE(actual(model), expected(model));
        model->insertRows(1, 2); // two new rows: empty product, A to A
        model->setData(model->index(2, 0), QStringLiteral("Q"));
        QCOMPARE(actual(model), expected(model));
        model->removeRows(0, 3);
        QCOMPARE(actual(model), expected(model));
        model->revert(); // back to the stored table
        QCOMPARE(model->rowCount(), 12);
        QCOMPARE(actual(model), expected(model));
        QCOMPARE(model->buildConfigurations(QStringLiteral("P")).join(QString()), QStringLiteral("ABCCDDEFHIJ"));
        QCOMPARE(model->hardwareConfiguration(QStringLiteral("Q"), QStringLiteral("Z")), 2);
    }

    void jsonRoundTrip()
    {
        ProductsModel *model = fillProducts({"P A C 1", "Q\"x\" D F 2"});
        QJsonArray array = model->toJsonArray();
        QCOMPARE(array.at(0).toObject(), QJsonObject({{"productNumber", "P"},
                                                      {"startBuildConfigRev", "A"},
                                                      {"endBuildConfigRev", "C"},
                                                      {"hardwareConfiguration", "1"}}));

        fillProducts({});
        QAbstractItemModelTester tester(model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        array.append(42);
        array.append(QJsonObject({{"productNumber", "R"}}));
        QCOMPARE(model->insertFromJsonArray(array), 3);
        QCOMPARE(productRows(), QStringList({"P A C 1", "Q\"x\" D F 2", "R - - -"}));
        QVERIFY(!model->isModified()); // loaded rows count as stored
        model->revert();
        QCOMPARE(model->rowCount(), 3);

        // One plain edit of the loaded table is a change, and revert() takes exactly that edit back.
        QVERIFY(model->setData(model->index(1, ProductsModel::EndRev), QStringLiteral("G")));
        QVERIFY(model->isModified());
        model->revert();
        QVERIFY(!model->isModified());
        QCOMPARE(productRows(), QStringList({"P A C 1", "Q\"x\" D F 2", "R - - -"}));
    }

    void saveAndLoad()
    {
        ProductsFile *file = ProductsFile::instance();
        QCOMPARE(file->fileName(), m_path);
        fillProducts({});
        QVERIFY(file->saveFile(QString()));
        QCOMPARE(QJsonDocument::fromJson(TestFiles::read(m_path)).object(),
                 QJsonObject({{"kvlproducts", QJsonObject({{"products", QJsonArray()}})}}));
        QVERIFY(file->isLocked(m_path));

        const QStringList saved = {"P A C 1", "P D E 2"};
        fillProducts(saved);
        QVERIFY(file->saveFile(QString()));
        // Indented, one member a line, so that people can read and diff it.
        QVERIFY(TestFiles::read(m_path).contains("{\n    \"kvlproducts\": {\n        \"products\": [\n            {\n"
                                         "                \"endBuildConfigRev\": \"C\",\n"));

        fillProducts({"X A A 1", "Y A A 1", "Z A A 1"});
        QVERIFY(file->openFile(m_path));
        QCOMPARE(productRows(), saved); // replaced, not appended
        fillProducts({});
        QVERIFY(file->revert());
        QCOMPARE(productRows(), saved);
        QVERIFY(!QApplication::overrideCursor());
    }

    void badFiles()
    {
        // An unreadable file leaves the table alone; a readable one without products empties it.
        const QList<QPair<QByteArray, bool>> files = {
            {R"({"kvlproducts": {"products": [{"productNumber": "P")", true},
            {"<none>", true},
            {R"({"kvlproducts": {"products": [1, "P", []]}})", false}};
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("products.dat"));
        for (const auto &file : files) {
            QFile::remove(path);
            if (file.first != "<none>")
                QVERIFY(TestFiles::write(path, file.first));
            const bool unreadable = file.second;
            fillProducts({"KEEP A A 1"});
            MessageBoxRecorder boxes;
            LogCapture log;
            QCOMPARE(ProductsFile::instance()->loadFromJsonFile(path, false), !unreadable);
            QCOMPARE(productRows(), unreadable ? QStringList({"KEEP A A 1"}) : QStringList());
            QCOMPARE(boxes.count(), 0); // silent unless asked
            QCOMPARE(log.messages(LogRecord::Error).size(), unreadable ? 1 : 0);
            if (unreadable) {
                QVERIFY(!ProductsFile::instance()->loadFromJsonFile(path, true));
                QCOMPARE(boxes.count(), 1);
                QVERIFY(boxes.last().text.startsWith(QStringLiteral("Cannot read file '%1'.\n").arg(path)));
            }
        }
    }

    void twoApplicationsCannotBothWrite()
    {
        ProductsFile *products = ProductsFile::instance();
        fillProducts({"P A C 1"});
        QVERIFY(products->saveFile(QString()));
        const QByteArray ours = TestFiles::read(m_path);

        NoteFile other;
        other.setDescription(QStringLiteral("Other"));
        QVERIFY(other.openFile(m_path)); // reading is allowed
        QVERIFY(!other.isLocked(m_path));
        other.content = QJsonObject({{"other", true}});

        MessageBoxRecorder boxes(QMessageBox::Cancel);
        QVERIFY(!other.saveFile(QString()));
        QCOMPARE(boxes.count(), 1);
        QVERIFY(boxes.last().text.contains(m_path));
        const QString process = QStringLiteral("process %1").arg(QCoreApplication::applicationPid());
        QVERIFY(boxes.last().informativeText.contains(process));
        QCOMPARE(boxes.last().buttons, QMessageBox::Retry | QMessageBox::Cancel);
        QCOMPARE(TestFiles::read(m_path), ours);

        // Once the first application lets go, retrying succeeds, and now the first one has to wait.
        boxes.setAnswer(QMessageBox::Retry);
        QTimer::singleShot(0, products, &KvJsonDocumentFile::unlock);
        QVERIFY(other.saveFile(QString()));
        QVERIFY(TestFiles::read(m_path).contains("\"other\": true"));
        boxes.setAnswer(QMessageBox::Cancel);
        const int before = boxes.count();
        QVERIFY(!products->saveFile(QString()));
        QCOMPARE(boxes.count(), before + 1);

        QVERIFY(other.closeFile());
        QVERIFY(products->saveFile(QString()));
        QCOMPARE(boxes.count(), before + 1);
        QCOMPARE(TestFiles::read(m_path), ours);
    }

    void promptsAndFailures()
    {
        ProductsFile *file = ProductsFile::instance();
        fillProducts({});
        QVERIFY(file->saveFile(QString()));
        fillProducts({"NEW B C 2"});
        file->setModified(true);

        MessageBoxRecorder boxes;
        boxes.queueAnswers({QMessageBox::Cancel, QMessageBox::Discard, QMessageBox::Save});
        QVERIFY(!file->newFile());
        QCOMPARE(boxes.last().buttons, QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
        QCOMPARE(productRows(), QStringList({"NEW B C 2"}));
        QVERIFY(file->openFile(m_path)); // discarded: the saved, empty table comes back
        QCOMPARE(productRows(), QStringList());

        fillProducts({"NEW B C 2"});
        file->setModified(true);
        QVERIFY(file->closeFile()); // saved first
        QCOMPARE(productRows(), QStringList());
        QVERIFY(file->fileName().isEmpty());
        QVERIFY(!file->isLocked(m_path));
        QCOMPARE(boxes.count(), 3);

        // Save As: the dialog's name gets the suffix, and the lock moves with the file.
        QTemporaryDir dir;
        {
            FileDialogChooser chooser(dir.filePath(QStringLiteral("copy")));
            QVERIFY(file->saveFile(QString())); // a document without a file asks for one
            QCOMPARE(chooser.title(), QStringLiteral("Save Product Definitions As"));
        }
        QCOMPARE(file->fileName(), dir.filePath(QStringLiteral("copy.dat")));
        QVERIFY(file->isLocked(file->fileName()));

        // An unwritable place keeps the document where it was.
        const QString target = dir.filePath(QStringLiteral("gone/p.dat"));
        QVERIFY(!file->saveFile(target));
        QVERIFY(boxes.last().text.startsWith(QStringLiteral("Unable to save '%1'.\n").arg(target)));
        QCOMPARE(file->fileName(), dir.filePath(QStringLiteral("copy.dat")));
        QVERIFY(file->openFile(m_path));
        QCOMPARE(productRows(), QStringList({"NEW B C 2"}));
        QVERIFY(!QApplication::overrideCursor());
    }

    void instanceLoadsAtOnce()
    {
        fillProducts({"P A C 1"});
        QVERIFY(ProductsFile::instance()->saveFile(QString()));
        ProductsFile::destroyInstance();
        fillProducts({});
        QVERIFY(ProductsFile::instance()->isLocked(m_path));
        QCOMPARE(productRows(), QStringList({"P A C 1"}));
    }

private:
    QString m_previousDir;
    QTemporaryDir m_currentDir;
    QString m_path;
};

QTEST_MAIN(tst_Products)
#include "tst_products.moc"
