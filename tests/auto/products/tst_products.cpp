// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "classes/productsfile.h"
#include "logcapture.h"
#include "messageboxrecorder.h"
#include "models/productsmodel.h"
#include "testappdir.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QColor>
#include <QFileDialog>
#include <QJsonArray>
#include <QJsonObject>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

namespace {
using Rows = QList<QStringList>;

/// A second kind of document, as another running application would hold it.
class NoteFile : public KvJsonDocumentFile
{
public:
    QJsonObject content;
    QJsonDocument toJsonDocument() const override { return QJsonDocument(content); }
    bool fromJsonDocument(const QJsonDocument &document) override
    {
        if (document.isEmpty())
            return false;
        content = document.object();
        return true;
    }
    void newJsonDocument() override { content = QJsonObject(); }
};

QByteArray readAll(const QString &path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

void writeAll(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QFile::WriteOnly | QFile::Truncate));
    file.write(bytes);
}
}

class tst_Products : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void headers();
    void editsUnderModelTester();
    void revsOverlap_data();
    void revsOverlap();
    void itemIsValid();
    void lookups();
    void jsonRoundTrip();
    void fileLayout();
    void loadingReplacesRows();
    void badFiles_data();
    void badFiles();
    void twoApplicationsCannotBothWrite();
    void maybeSave();
    void saveFailures();
    void saveAsAsksForAName();

private:
    static ProductsModel *fill(const Rows &rows);
    static Rows rows();
    QString m_previousDir;
    QTemporaryDir m_currentDir;
    QString m_path;
};

void tst_Products::initTestCase()
{
    TestAppDir::prepare();
    // The products file lives under the current directory, not the application's.
    m_previousDir = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_currentDir.path()));
    QVERIFY(QDir().mkpath(QStringLiteral("nevradat")));
    m_path = QDir::currentPath() + QStringLiteral("/nevradat/products.dat");
}

void tst_Products::cleanupTestCase()
{
    ProductsFile::destroyInstance();
    ProductsModel::destroyInstance();
    QDir::setCurrent(m_previousDir);
    TestAppDir::cleanup();
}

ProductsModel *tst_Products::fill(const Rows &rows)
{
    ProductsModel *model = ProductsModel::instance();
    model->removeRows(0, model->rowCount());
    model->insertRows(0, rows.size());
    for (int row = 0; row < rows.size(); ++row) {
        for (int column = 0; column < 4; ++column)
            model->setData(model->index(row, column), rows.at(row).at(column));
    }
    model->submit();
    return model;
}

Rows tst_Products::rows()
{
    const ProductsModel *model = ProductsModel::instance();
    Rows result;
    for (int row = 0; row < model->rowCount(); ++row) {
        QStringList values;
        for (int column = 0; column < 4; ++column)
            values << model->index(row, column).data(Qt::EditRole).toString();
        result << values;
    }
    return result;
}

void tst_Products::headers()
{
    const ProductsModel *model = ProductsModel::instance();
    const QStringList titles = {QStringLiteral("Product Number"), QStringLiteral("Starting Build Config Rev"),
                                QStringLiteral("Ending Build Config Rev"), QStringLiteral("Hardware Configuration")};
    for (int section = 0; section < 4; ++section)
        QCOMPARE(model->headerData(section, Qt::Horizontal).toString(), titles.at(section));
    QVERIFY(!model->headerData(4, Qt::Horizontal).isValid());
    QVERIFY(!model->headerData(0, Qt::Horizontal, Qt::ToolTipRole).isValid());
    QCOMPARE(model->objectName(), QStringLiteral("ProductsModel"));
}

void tst_Products::editsUnderModelTester()
{
    ProductsModel *model = fill({{QStringLiteral("P1"), QStringLiteral("A"), QStringLiteral("C"), QStringLiteral("1")},
                                 {QStringLiteral("P2"), QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("1")}});
    QAbstractItemModelTester tester(model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QVERIFY(!model->isModified());

    // A new row in the middle gets the defaults, and its empty product number is invalid.
    QVERIFY(model->insertRows(1, 1));
    QCOMPARE(rows().at(1), QStringList({QString(), QStringLiteral("A"), QStringLiteral("A"), QStringLiteral("1")}));
    QVERIFY(!model->index(1, 0).data(KvAbstractTableModel::ItemIsValidRole).toBool());
    QCOMPARE(model->index(1, 0).data(Qt::BackgroundRole).value<QColor>(), QColor(255, 200, 200));
    QVERIFY(!model->index(1, 3).data(Qt::BackgroundRole).isValid());
    QVERIFY(model->flags(model->index(1, 0)).testFlag(Qt::ItemIsEditable));
    QVERIFY(!model->insertRows(5, 1));
    QVERIFY(!model->insertRows(0, 1, model->index(0, 0)));
    QVERIFY(model->isModified());

    QSignalSpy changed(model, &QAbstractItemModel::dataChanged);
    QVERIFY(model->setData(model->index(1, 0), QStringLiteral("P3")));
    QVERIFY(model->setData(model->index(1, 0), QStringLiteral("P3")));
    QCOMPARE(changed.count(), 1); // the same value again changes nothing
    QCOMPARE(changed.at(0).at(0).toModelIndex(), model->index(1, 0));
    QCOMPARE(changed.at(0).at(1).toModelIndex(), model->index(1, 0));
    QVERIFY(!model->setData(model->index(9, 0), QStringLiteral("x")));

    QVERIFY(model->copy(model->index(0, 2), model->index(1, 0)));
    QCOMPARE(rows().at(1), rows().at(0));
    QVERIFY(model->removeRows(0, 1));
    QVERIFY(!model->removeRows(2, 1));

    // Revert goes back to the last stored rows; submit stores the working rows.
    model->revert();
    QCOMPARE(rows().size(), 2);
    QCOMPARE(rows().at(1).at(0), QStringLiteral("P2"));
    QVERIFY(!model->isModified());
    QVERIFY(model->removeRows(0, 2));
    QVERIFY(model->submit());
    model->revert();
    QCOMPARE(model->rowCount(), 0);
}

void tst_Products::revsOverlap_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("end");
    QTest::addColumn<bool>("overlap");
    QTest::addColumn<QStringList>("log");

    // Rows: 0 P A..C, 1 P D..F, 2 Q A..Z, 3 P H..J.
    QTest::newRow("adjacent ranges") << 1 << QStringLiteral("D") << QStringLiteral("F") << false
                                     << QStringList({QStringLiteral("D F || A C"), QStringLiteral("D F || H J")});
    QTest::newRow("C to D touches the range before")
        << 1 << QStringLiteral("C") << QStringLiteral("D") << true
        << QStringList({QStringLiteral("C D || A C"), QStringLiteral("C D || H J")});
    QTest::newRow("end reaches a later start") << 1 << QStringLiteral("G") << QStringLiteral("H") << true
                                               << QStringList({QStringLiteral("G H || A C"), QStringLiteral("G H || H J")});
    QTest::newRow("spanning everything") << 0 << QStringLiteral("A") << QStringLiteral("Z") << true
                                         << QStringList({QStringLiteral("A Z || D F"), QStringLiteral("A Z || H J")});
    QTest::newRow("gap between ranges") << 0 << QStringLiteral("G") << QStringLiteral("G") << false
                                        << QStringList({QStringLiteral("G G || D F"), QStringLiteral("G G || H J")});
    QTest::newRow("only row of its product") << 2 << QStringLiteral("A") << QStringLiteral("Z") << false << QStringList();
}

void tst_Products::revsOverlap()
{
    QFETCH(int, row);
    QFETCH(QString, start);
    QFETCH(QString, end);
    QFETCH(bool, overlap);
    QFETCH(QStringList, log);

    const ProductsModel *model = fill({{QStringLiteral("P"), QStringLiteral("A"), QStringLiteral("C"), QStringLiteral("1")},
                                       {QStringLiteral("P"), QStringLiteral("D"), QStringLiteral("F"), QStringLiteral("2")},
                                       {QStringLiteral("Q"), QStringLiteral("A"), QStringLiteral("Z"), QStringLiteral("1")},
                                       {QStringLiteral("P"), QStringLiteral("H"), QStringLiteral("J"), QStringLiteral("3")}});
    LogCapture capture;
    QCOMPARE(model->revsOverlap(row, start, end), overlap);
    QCOMPARE(capture.messages(), log); // every other row is compared, even after a hit
    for (const LogRecord &record : capture.records()) {
        QCOMPARE(record.file, QStringLiteral("src/nvrcore/models/productsmodel"));
        QCOMPARE(record.function,
                 QStringLiteral("bool ProductsModel::revsOverlap(int, const QString&, const QString&) const"));
    }
}

void tst_Products::itemIsValid()
{
    const ProductsModel *model = fill({{QStringLiteral("P"), QStringLiteral("A"), QStringLiteral("C"), QStringLiteral("1")},
                                       {QStringLiteral("P"), QStringLiteral("C"), QStringLiteral("D"), QStringLiteral("2")},
                                       {QStringLiteral("Q"), QStringLiteral("B"), QStringLiteral("A"), QStringLiteral("0")},
                                       {QStringLiteral("R"), QStringLiteral("A"), QStringLiteral("Z"), QStringLiteral("x")},
                                       {QStringLiteral("S"), QStringLiteral("E"), QStringLiteral("E"), QStringLiteral("9")}});
    const auto valid = [model](int row, int column) { return model->itemIsValid(model->index(row, column)); };
    // Overlapping ranges are invalid on both rows, in both revision columns.
    QVERIFY(!valid(0, 1) && !valid(0, 2) && !valid(1, 1) && !valid(1, 2));
    // B to A is invalid by its order alone.
    QVERIFY(!valid(2, 1) && !valid(2, 2));
    QVERIFY(!valid(2, 3) && !valid(3, 3));
    QVERIFY(valid(3, 1) && valid(3, 2) && valid(4, 1) && valid(4, 3) && valid(0, 0));
    QVERIFY(!model->itemIsValid(QModelIndex()));
}

void tst_Products::lookups()
{
    const ProductsModel *model = fill({{QStringLiteral("P"), QStringLiteral("D"), QStringLiteral("F"), QStringLiteral("2")},
                                       {QStringLiteral("P"), QStringLiteral("A"), QStringLiteral("C"), QStringLiteral("1")},
                                       {QStringLiteral("Q"), QStringLiteral("B"), QStringLiteral("B"), QStringLiteral("1")},
                                       {QStringLiteral("Q"), QStringLiteral("C"), QStringLiteral("A"), QStringLiteral("3")},
                                       {QStringLiteral("E"), QString(), QStringLiteral("C"), QStringLiteral("1")}});
    QCOMPARE(model->buildConfigurations(QStringLiteral("P")).join(QString()), QStringLiteral("ABCDEF"));
    QCOMPARE(model->buildConfigurations(model->index(2, 3)), QStringList(QStringLiteral("B")));
    QCOMPARE(model->buildConfigurations(QStringLiteral("unknown")), QStringList(QStringLiteral("A")));
    QCOMPARE(model->buildConfigurations(QStringLiteral("E")), QStringList()); // an empty start yields nothing
    QCOMPARE(model->buildConfigurations(QStringLiteral("p")), QStringList(QStringLiteral("A"))); // exact match only

    QCOMPARE(model->buildConfiguration(QStringLiteral("P"), 2), QStringLiteral("D"));
    QCOMPARE(model->buildConfiguration(QStringLiteral("P"), 1), QStringLiteral("A"));
    QCOMPARE(model->buildConfiguration(QStringLiteral("P"), 3), QStringLiteral("A"));
    QCOMPARE(model->buildConfiguration(QStringLiteral("unknown"), 1), QStringLiteral("A"));

    QCOMPARE(model->hardwareConfiguration(QStringLiteral("P"), QStringLiteral("B")), 1);
    QCOMPARE(model->hardwareConfiguration(QStringLiteral("P"), QStringLiteral("F")), 2);
    QCOMPARE(model->hardwareConfiguration(QStringLiteral("P"), QStringLiteral("Z")), 2); // later than all: newest
    QCOMPARE(model->hardwareConfiguration(QStringLiteral("Q"), QStringLiteral("Z")), 3);
    QCOMPARE(model->hardwareConfiguration(QStringLiteral("unknown"), QStringLiteral("C")), 1);
}

void tst_Products::jsonRoundTrip()
{
    const Rows original = {{QStringLiteral("P"), QStringLiteral("A"), QStringLiteral("C"), QStringLiteral("1")},
                           {QStringLiteral("Q \"x\""), QStringLiteral("D"), QStringLiteral("F"), QStringLiteral("2")}};
    ProductsModel *model = fill(original);
    const QJsonArray array = model->toJsonArray();
    QCOMPARE(array.size(), 2);
    QCOMPARE(array.at(0).toObject(),
             QJsonObject({{QStringLiteral("productNumber"), QStringLiteral("P")},
                          {QStringLiteral("startBuildConfigRev"), QStringLiteral("A")},
                          {QStringLiteral("endBuildConfigRev"), QStringLiteral("C")},
                          {QStringLiteral("hardwareConfiguration"), QStringLiteral("1")}}));

    fill({});
    QAbstractItemModelTester tester(model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QJsonArray mixed = array;
    mixed.append(42);
    mixed.append(QJsonObject({{QStringLiteral("productNumber"), QStringLiteral("R")}}));
    QCOMPARE(model->insertFromJsonArray(mixed), 3);
    QCOMPARE(rows().mid(0, 2), original);
    QCOMPARE(rows().at(2), QStringList({QStringLiteral("R"), QString(), QString(), QString()}));
    QVERIFY(!model->index(2, 3).data(KvAbstractTableModel::ItemIsValidRole).toBool());
    // Loaded rows count as stored.
    QVERIFY(!model->isModified());
    model->revert();
    QCOMPARE(model->rowCount(), 3);
}

void tst_Products::fileLayout()
{
    ProductsFile *file = ProductsFile::instance();
    QCOMPARE(file->objectName(), QStringLiteral("ProductsFile"));
    QCOMPARE(file->fileName(), m_path);
    QCOMPARE(file->description(), QStringLiteral("Product Definitions"));

    fill({});
    QVERIFY(file->saveFile(QString()));
    const QJsonObject empty = QJsonDocument::fromJson(readAll(m_path)).object();
    QCOMPARE(empty, QJsonObject({{QStringLiteral("kvlproducts"),
                                  QJsonObject({{QStringLiteral("products"), QJsonArray()}})}}));

    fill({{QStringLiteral("P"), QStringLiteral("A"), QStringLiteral("C"), QStringLiteral("1")}});
    QVERIFY(file->saveFile(QString()));
    const QByteArray bytes = readAll(m_path);
    // Indented, one member a line, so that people can read and diff it.
    QVERIFY(bytes.contains("\n    \"kvlproducts\": {\n        \"products\": [\n"));
    QVERIFY(bytes.contains("\n                \"productNumber\": \"P\",\n"));
    QCOMPARE(QJsonDocument::fromJson(bytes).object()[QStringLiteral("kvlproducts")].toObject()[QStringLiteral("products")]
                 .toArray(),
             ProductsModel::instance()->toJsonArray());
    QVERIFY(!QApplication::overrideCursor());
}

void tst_Products::loadingReplacesRows()
{
    ProductsFile *file = ProductsFile::instance();
    const Rows saved = {{QStringLiteral("P"), QStringLiteral("A"), QStringLiteral("C"), QStringLiteral("1")},
                        {QStringLiteral("P"), QStringLiteral("D"), QStringLiteral("E"), QStringLiteral("2")}};
    fill(saved);
    QVERIFY(file->saveFile(QString()));

    fill({{QStringLiteral("X"), QStringLiteral("A"), QStringLiteral("A"), QStringLiteral("1")},
          {QStringLiteral("Y"), QStringLiteral("A"), QStringLiteral("A"), QStringLiteral("1")},
          {QStringLiteral("Z"), QStringLiteral("A"), QStringLiteral("A"), QStringLiteral("1")}});
    QVERIFY(file->openFile(m_path));
    QCOMPARE(rows(), saved);
    QVERIFY(file->revert());
    QCOMPARE(rows(), saved);
    QVERIFY(!ProductsModel::instance()->isModified());
}

void tst_Products::badFiles_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("loaded");
    QTest::addColumn<Rows>("after");

    const Rows kept = {{QStringLiteral("KEEP"), QStringLiteral("A"), QStringLiteral("A"), QStringLiteral("1")}};
    QTest::newRow("not JSON") << QByteArray("product P, A, C, 1\n") << false << kept;
    QTest::newRow("empty file") << QByteArray() << false << kept;
    QTest::newRow("cut short") << QByteArray("{\"kvlproducts\": {\"products\": [{\"productNumber\": \"P\"") << false << kept;
    QTest::newRow("missing file") << QByteArray("<none>") << false << kept;
    QTest::newRow("no members") << QByteArray("{}") << true << Rows();
    QTest::newRow("products not an array") << QByteArray("{\"kvlproducts\": {\"products\": {}}}") << true << Rows();
    QTest::newRow("elements not objects") << QByteArray("{\"kvlproducts\": {\"products\": [1, \"P\", []]}}") << true
                                          << Rows();
}

void tst_Products::badFiles()
{
    QFETCH(QByteArray, content);
    QFETCH(bool, loaded);
    QFETCH(Rows, after);

    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("products.dat"));
    if (content != "<none>")
        writeAll(path, content);
    fill({{QStringLiteral("KEEP"), QStringLiteral("A"), QStringLiteral("A"), QStringLiteral("1")}});
    MessageBoxRecorder boxes;
    LogCapture log;
    QCOMPARE(ProductsFile::instance()->loadFromJsonFile(path, false), loaded);
    QCOMPARE(rows(), after);
    QCOMPARE(boxes.count(), 0);
    QCOMPARE(log.messages(LogRecord::Error).size(), loaded ? 0 : 1);

    // Asked to, the same failure is shown.
    if (!loaded) {
        QVERIFY(!ProductsFile::instance()->loadFromJsonFile(path, true));
        QCOMPARE(boxes.count(), 1);
        QCOMPARE(boxes.last().title, QStringLiteral("Product Definitions"));
        QVERIFY(boxes.last().text.startsWith(QStringLiteral("Cannot read file '%1'.\n").arg(path)));
    }
}

void tst_Products::twoApplicationsCannotBothWrite()
{
    ProductsFile *products = ProductsFile::instance();
    fill({{QStringLiteral("P"), QStringLiteral("A"), QStringLiteral("C"), QStringLiteral("1")}});
    QVERIFY(products->saveFile(QString()));
    QVERIFY(products->isLocked(m_path));
    const QByteArray ours = readAll(m_path);

    NoteFile other;
    other.setDescription(QStringLiteral("Other"));
    QVERIFY(other.openFile(m_path)); // reading is allowed
    QVERIFY(!other.isLocked(m_path));
    other.content = QJsonObject({{QStringLiteral("other"), true}});

    MessageBoxRecorder boxes(QMessageBox::Cancel);
    QVERIFY(!other.saveFile(QString()));
    QCOMPARE(boxes.count(), 1);
    QCOMPARE(boxes.last().title, QStringLiteral("Other"));
    QCOMPARE(boxes.last().text, QStringLiteral("The file '%1' is in use by another application.").arg(m_path));
    QVERIFY(boxes.last().informativeText.contains(QStringLiteral("process %1").arg(QCoreApplication::applicationPid())));
    QCOMPARE(boxes.last().buttons, QMessageBox::Retry | QMessageBox::Cancel);
    QCOMPARE(readAll(m_path), ours);
    QVERIFY(!other.lock(m_path, true));
    QCOMPARE(boxes.count(), 2);
    QCOMPARE(boxes.last().buttons, QMessageBox::StandardButtons(QMessageBox::Ok));

    // Once the first application lets go, retrying succeeds, and now the first one has to wait.
    boxes.setAnswer(QMessageBox::Retry);
    QTimer::singleShot(0, products, &KvJsonDocumentFile::unlock);
    QVERIFY(other.saveFile(QString()));
    QVERIFY(boxes.count() >= 3);
    QVERIFY(readAll(m_path).contains("\"other\": true"));
    boxes.setAnswer(QMessageBox::Cancel);
    const int before = boxes.count();
    QVERIFY(!products->saveFile(QString()));
    QCOMPARE(boxes.count(), before + 1);
    QCOMPARE(boxes.last().title, QStringLiteral("Product Definitions"));

    QVERIFY(other.closeFile());
    QVERIFY(products->saveFile(QString()));
    QCOMPARE(boxes.count(), before + 1);
    QCOMPARE(readAll(m_path), ours);
}

void tst_Products::maybeSave()
{
    ProductsFile *file = ProductsFile::instance();
    const Rows edited = {{QStringLiteral("NEW"), QStringLiteral("B"), QStringLiteral("C"), QStringLiteral("2")}};
    fill({});
    QVERIFY(file->saveFile(QString()));
    fill(edited);
    file->setModified(true);

    MessageBoxRecorder boxes;
    boxes.queueAnswers({QMessageBox::Cancel, QMessageBox::Discard, QMessageBox::Save});
    QVERIFY(!file->newFile());
    QCOMPARE(boxes.last().title, QStringLiteral("Product Definitions"));
    QCOMPARE(boxes.last().text, QStringLiteral("The document 'Product Definitions' has been modified.\n"
                                               "Do you want to save your changes?"));
    QCOMPARE(boxes.last().buttons, QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
    QCOMPARE(rows(), edited);
    QCOMPARE(file->fileName(), m_path);

    QVERIFY(file->openFile(m_path)); // discarded: the saved, empty table comes back
    QCOMPARE(rows(), Rows());

    fill(edited);
    file->setModified(true);
    QVERIFY(file->closeFile()); // saved first
    QCOMPARE(boxes.count(), 3);
    QCOMPARE(rows(), Rows());
    QVERIFY(file->fileName().isEmpty());
    QVERIFY(!file->isLocked(m_path));
    QVERIFY(file->openFile(m_path));
    QCOMPARE(rows(), edited);
}

void tst_Products::saveFailures()
{
    ProductsFile *file = ProductsFile::instance();
    QTemporaryDir dir;
    writeAll(dir.filePath(QStringLiteral("plain")), "x");
    MessageBoxRecorder boxes;
    for (const QString &target : {dir.filePath(QStringLiteral("plain/products.dat")),
                                  dir.filePath(QStringLiteral("gone/products.dat"))}) {
        QVERIFY(!file->saveFile(target));
        QCOMPARE(boxes.last().title, QStringLiteral("Error Saving File"));
        QVERIFY(boxes.last().text.startsWith(QStringLiteral("Unable to save '%1'.\n").arg(target)));
        QCOMPARE(file->fileName(), m_path);
    }
    QCOMPARE(boxes.count(), 2);
    QVERIFY(!QApplication::overrideCursor());
}

void tst_Products::saveAsAsksForAName()
{
    ProductsFile *file = ProductsFile::instance();
    const Rows content = {{QStringLiteral("P"), QStringLiteral("A"), QStringLiteral("A"), QStringLiteral("1")}};
    fill(content);
    QTemporaryDir dir;
    bool dialogSeen = false;
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&] {
        auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        dialogSeen = true;
        dialog->selectFile(dir.filePath(QStringLiteral("copy")));
        static_cast<QDialog *>(dialog)->accept();
    });
    timer.start(20);
    QVERIFY(file->saveFileAs());
    QVERIFY(dialogSeen);
    const QString copy = dir.filePath(QStringLiteral("copy.dat")); // the suffix is added
    QCOMPARE(file->fileName(), copy);
    QVERIFY(file->isLocked(copy));
    QVERIFY(!file->isLocked(m_path));

    fill({});
    QVERIFY(file->openFile(copy));
    QCOMPARE(rows(), content);
    QVERIFY(file->openFile(m_path));
}

QTEST_MAIN(tst_Products)
#include "tst_products.moc"
