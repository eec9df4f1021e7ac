// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "classes/nvroptions.h"
#include "classes/productsfile.h"
#include "classes/rtsfile.h"
#include "dialogs/productformdialog.h"
#include "kvsortfilterproxymodel.h"
#include "kvtableviewwidget.h"
#include "mainwindow.h"
#include "formdriver.h"
#include "messageboxrecorder.h"
#include "models/productsmodel.h"
#include "productrows.h"
#include "testappdir.h"
#include "testui.h"
#include "widgets/productstableeditwidget.h"
#include "widgets/librarytools.h"
#include "widgets/productstableview.h"

#include <QAbstractItemModelTester>
#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QToolBar>
#include <QUndoStack>

#include <functional>

namespace {
/// The products file as a second start of the application reads it.
QStringList fileRows()
{
    ProductsFile::destroyInstance();
    ProductsModel::destroyInstance();
    ProductsFile::instance();
    QStringList result = productRows();
    result.sort();
    return result;
}

const QStringList fieldNames = {"productEdit", "startRevEdit", "endRevEdit", "hardwareConfigurationEdit"};

QString fieldText(QWidget *form, int column)
{
    return form->findChild<QLineEdit *>(fieldNames.at(column))->text();
}

/// Types the four fields of a form; a null entry keeps the field as it is.
void typeForm(ProductFormDialog *form, const QStringList &values)
{
    for (int i = 0; i < 4; ++i) {
        if (!values.at(i).isNull())
            TestUi::retype(form->findChild<QLineEdit *>(fieldNames.at(i)), values.at(i));
    }
}

/// Fills the form and presses OK, or Cancel.
void finishForm(ProductFormDialog *form, const QStringList &values, bool ok = true)
{
    typeForm(form, values);
    QVERIFY(!ok || form->okButton()->isEnabled());
    QTest::mouseClick(ok ? form->okButton() : form->buttonBox()->button(QDialogButtonBox::Cancel), Qt::LeftButton);
}

void trigger(KvTableViewWidget *widget, QAction *action)
{
    QWidget *button = widget->findChild<QToolBar *>()->widgetForAction(action);
    QVERIFY(button && button->isVisible() && button->isEnabled());
    QTest::mouseClick(button, Qt::LeftButton);
}

/// The view's index of the row holding product and start revision.
QModelIndex viewRow(QAbstractItemView *view, const QString &product, const QString &start)
{
    const QAbstractItemModel *model = view->model();
    for (int row = 0; row < model->rowCount(); ++row) {
        if (model->index(row, 0).data().toString() == product && model->index(row, 1).data().toString() == start)
            return model->index(row, 0);
    }
    return QModelIndex();
}

// A widget's double click event comes alone in QTest; a user's comes after a click.
void doubleClickRow(QAbstractItemView *view, const QModelIndex &index)
{
    TestUi::clickCell(view, index);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(index).center());
}

const QStringList initialRows = {"P1 A C 1", "P1 D F 2", "P2 A Z 1"};
}

class tst_ProductsUi : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        TestAppDir::prepare();
        m_previousDir = QDir::currentPath();
    }
    void cleanupTestCase() { TestAppDir::cleanup(); }

    void init()
    {
        // The products file follows the current directory: each test gets a fresh one.
        m_currentDir = std::make_unique<QTemporaryDir>();
        QVERIFY(QDir::setCurrent(m_currentDir->path()));
        QVERIFY(QDir().mkdir(QStringLiteral("nevradat")));
        fillProducts(initialRows);
        QVERIFY(ProductsFile::instance()->saveFile(QString()));
        ProductsFile::destroyInstance();
        ProductsModel::destroyInstance();
    }

    void cleanup()
    {
        ProductsFile::destroyInstance();
        ProductsModel::destroyInstance();
        QDir::setCurrent(m_previousDir);
        m_currentDir.reset();
    }

    void searchProxy()
    {
        ProductsModel *model = ProductsModel::instance();
        fillProducts({"PMA8000 A C 1", "pma7000 A B 2", "X1 A A 3"});
        KvSortFilterProxyModel proxy;
        QAbstractItemModelTester tester(&proxy, QAbstractItemModelTester::FailureReportingMode::QtTest);
        proxy.setSourceModel(model);
        auto shown = [&] {
            QStringList products;
            for (int row = 0; row < proxy.rowCount(); ++row)
                products << proxy.index(row, 0).data().toString();
            return products;
        };

        proxy.setSearchString(QStringLiteral("PMA"));
        QCOMPARE(shown(), QStringList({"PMA8000", "pma7000"}));
        proxy.setSearchString(QStringLiteral("PMA"), true);
        QCOMPARE(shown(), QStringList({"PMA8000"}));
        // Without search columns every column is searched; with them, only those.
        proxy.setSearchString(QStringLiteral("3"));
        QCOMPARE(shown(), QStringList({"X1"}));
        proxy.setSearchColumns({0});
        QCOMPARE(shown(), QStringList());
        proxy.setSearchColumns({0, 3});
        QCOMPARE(shown(), QStringList({"X1"}));

        // Rows come and go as the source changes.
        model->setData(model->index(1, ProductsModel::HardwareConfiguration), QStringLiteral("3"));
        QCOMPARE(shown(), QStringList({"pma7000", "X1"}));
        model->insertRows(1, 2);
        model->setData(model->index(2, ProductsModel::HardwareConfiguration), QStringLiteral("3"));
        QCOMPARE(shown(), QStringList({"", "pma7000", "X1"}));
        model->removeRows(1, 3);
        QCOMPARE(shown(), QStringList({"X1"}));
        model->revert();
        proxy.setSearchString(QString());
        QCOMPARE(shown(), QStringList({"PMA8000", "pma7000", "X1"}));
    }

    void formInput()
    {
        ProductFormDialog form;
        form.show();
        QVERIFY(QTest::qWaitForWindowExposed(&form));
        // What typing leaves in a field: the validators take one capital letter or one digit 1 to 9.
        const struct
        {
            int column;
            const char *typed;
            const char *shown;
        } typing[] = {{0, "pma-8000 b/2", "pma-8000 b/2"}, {1, "BC", "B"}, {2, "b1Z", "Z"}, {3, "A023", "2"}};
        for (const auto &entry : typing) {
            auto *edit = form.findChild<QLineEdit *>(fieldNames.at(entry.column));
            edit->clear();
            QTest::keyClicks(edit, QLatin1String(entry.typed));
            QVERIFY2(edit->text() == QLatin1String(entry.shown), entry.typed);
        }
    }

    void formValidation_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<QStringList>("typed");
        QTest::addColumn<bool>("valid");
        QTest::addColumn<QString>("message");

        const QString backwards = QStringLiteral("The ending revision comes before the starting revision.");
        const QString overlap = QStringLiteral("These revisions overlap another configuration of this product.");
        const QString keep;
        QTest::newRow("unchanged row") << 0 << QStringList({keep, keep, keep, keep}) << true << "";
        QTest::newRow("end before start") << 0 << QStringList({keep, "C", "B", keep}) << false << backwards;
        QTest::newRow("into the next range") << 0 << QStringList({keep, keep, "D", keep}) << false << overlap;
        QTest::newRow("letters of another product") << 0 << QStringList({"P3", "D", "F", keep}) << true << "";
        QTest::newRow("moved into another product") << 0 << QStringList({"P2", keep, keep, keep}) << false << overlap;
        QTest::newRow("no product") << 1 << QStringList({"", keep, keep, keep}) << false << "";
        QTest::newRow("no end") << 1 << QStringList({keep, keep, "", keep}) << false << "";
        QTest::newRow("no hardware configuration") << 1 << QStringList({keep, keep, keep, ""}) << false << "";
        QTest::newRow("new row filled") << 3 << QStringList({"P1", "G", "H", "3"}) << true << "";
    }

    void formValidation()
    {
        QFETCH(int, row);
        QFETCH(QStringList, typed);
        QFETCH(bool, valid);
        QFETCH(QString, message);

        ProductsModel *model = ProductsModel::instance();
        fillProducts(initialRows);
        if (row == model->rowCount())
            model->insertRows(row, 1);
        // Bound through a sorted proxy whose rows differ from the model's, as the editor shows them.
        KvSortFilterProxyModel proxy;
        proxy.setSourceModel(model);
        proxy.sort(0, Qt::DescendingOrder);
        ProductFormDialog form;
        form.setModelIndex(proxy.mapFromSource(model->index(row, 0)));
        form.show();
        QVERIFY(QTest::qWaitForWindowExposed(&form));
        typeForm(&form, typed);
        QCOMPARE(form.okButton()->isEnabled(), valid);
        auto *label = form.findChild<QLabel *>(QStringLiteral("messageLabel"));
        QCOMPARE(label->text(), message);
        QCOMPARE(label->isVisible(), !message.isEmpty());

        // OK writes the row only when the form is valid; the model itself refuses nothing.
        const QStringList before = productRows();
        QTest::keyClick(&form, Qt::Key_Return);
        QCOMPARE(form.isVisible(), !valid);
        if (!valid)
            QCOMPARE(productRows(), before);
        else if (!typed.at(0).isNull())
            QCOMPARE(productRows().at(row).section(QLatin1Char(' '), 0, 0), typed.at(0));
    }

    void editorEndToEnd()
    {
        MessageBoxRecorder boxes;
        auto editor = std::make_unique<ProductConfigsWidget>();
        editor->resize(900, 400);
        editor->show();
        QVERIFY(QTest::qWaitForWindowExposed(editor.get()));
        KvTableViewWidget *widget = editor->tableViewWidget();
        auto *view = qobject_cast<ProductsTableView *>(widget->view());
        QVERIFY(view);
        auto run = [](const std::function<void(ProductFormDialog *)> &action, const std::function<void()> &open) {
            FormDriver<ProductFormDialog> driver(action);
            open();
            QVERIFY(driver.ran());
        };

        // New: the form opens on a fresh row, which stays only when accepted.
        run([](ProductFormDialog *form) {
            QCOMPARE(form->editType(), KvCore::NewRecord);
            QCOMPARE(QStringList({fieldText(form, 1), fieldText(form, 3)}), QStringList({"A", "1"}));
            QVERIFY(!form->okButton()->isEnabled());
            finishForm(form, {"P9", QString(), "B", QString()});
        }, [&] { trigger(widget, widget->newAction()); });
        QCOMPARE(view->currentIndex().data().toString(), QStringLiteral("P9"));
        run([](ProductFormDialog *form) { finishForm(form, {"P8", QString(), QString(), QString()}, false); },
            [&] { trigger(widget, widget->newAction()); });
        QCOMPARE(view->model()->rowCount(), 4);

        // Edit by double click, never in place; a cancelled edit changes nothing.
        run([](ProductFormDialog *form) {
            QCOMPARE(form->editType(), KvCore::EditRecord);
            QCOMPARE(fieldText(form, 2), QStringLiteral("F"));
            finishForm(form, {QString(), QString(), "H", "3"});
        }, [&] { doubleClickRow(view, viewRow(view, QStringLiteral("P1"), QStringLiteral("D"))); });
        QVERIFY(!view->viewport()->findChild<QLineEdit *>()); // no editor in the cell
        run([](ProductFormDialog *form) { finishForm(form, {"P7", QString(), QString(), QString()}, false); }, [&] {
            TestUi::clickCell(view, viewRow(view, QStringLiteral("P2"), QStringLiteral("A")));
            trigger(widget, widget->editAction());
        });
        QVERIFY(viewRow(view, QStringLiteral("P2"), QStringLiteral("A")).isValid());

        // Copy: the form starts with the current row, which it overlaps until changed.
        run([](ProductFormDialog *form) {
            QCOMPARE(form->editType(), KvCore::CopyRecord);
            QCOMPARE(fieldText(form, 2), QStringLiteral("Z"));
            QVERIFY(!form->okButton()->isEnabled());
            finishForm(form, {"P3", QString(), QString(), QString()});
        }, [&] { trigger(widget, widget->copyAction()); });

        // Delete two rows picked with Ctrl; No keeps them.
        TestUi::clickCell(view, viewRow(view, QStringLiteral("P1"), QStringLiteral("A")));
        TestUi::clickCell(view, viewRow(view, QStringLiteral("P9"), QStringLiteral("A")), Qt::ControlModifier);
        boxes.queueAnswers({QMessageBox::No, QMessageBox::Yes});
        trigger(widget, widget->deleteAction());
        QVERIFY2(boxes.last().text.contains(QLatin1String(" 2 ")), qPrintable(boxes.last().text));
        QCOMPARE(view->model()->rowCount(), 5);
        trigger(widget, widget->deleteAction());
        QCOMPARE(boxes.count(), 2);
        QCOMPARE(view->model()->rowCount(), 3);
        QVERIFY(!ProductsFile::instance()->isModified()); // every accepted form was saved at once
        editor.reset();
        QCOMPARE(fileRows(), QStringList({"P1 D H 3", "P2 A Z 1", "P3 A Z 1"}));
    }

    void sharedTools()
    {
        MessageBoxRecorder boxes(QMessageBox::Yes);
        auto editor = std::make_unique<ProductConfigsWidget>();
        editor->resize(900, 400);
        editor->show();
        QVERIFY(QTest::qWaitForWindowActive(editor.get()));
        KvTableViewWidget *widget = editor->tableViewWidget();
        QAbstractItemView *view = widget->view();
        QUndoStack *steps = editor->tools()->undoStack();
        const auto refocus = [&] {
            editor->activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(editor.get()));
            view->setFocus();
        };

        // The count follows the search, which Ctrl+F reaches as on every library page.
        QLabel *count = editor->tools()->countLabel();
        for (QWidget *tool : {static_cast<QWidget *>(count), static_cast<QWidget *>(editor->tools()->exportButton()),
                              static_cast<QWidget *>(editor->tools()->undoButton())})
            QVERIFY(tool->isVisible());
        QVERIFY(!editor->tools()->importButton()->isVisible());
        QTest::keyClick(view, Qt::Key_F, Qt::ControlModifier);
        QVERIFY(widget->searchEdit()->hasFocus());
        QTest::keyClicks(widget->searchEdit(), QStringLiteral("!p1"));
        QCOMPARE(count->text(), QStringLiteral("1 of 3 records"));
        TestUi::retype(widget->searchEdit(), QString());
        QCOMPARE(count->text(), QStringLiteral("3 of 3 records"));

        // A change made in the form is one step, saved at once when made and when undone.
        FormDriver<ProductFormDialog> edit([](ProductFormDialog *form) { finishForm(form, {"P3", {}, {}, {}}); });
        doubleClickRow(view, viewRow(view, QStringLiteral("P2"), QStringLiteral("A")));
        QVERIFY(edit.ran());
        QCOMPARE(steps->undoText(), QStringLiteral("Edit product configuration"));
        refocus();
        QTest::keyClick(view, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(productRows(), initialRows);
        QVERIFY(!ProductsFile::instance()->isModified());

        // Rows pasted from a spreadsheet must pass the form: its field rules and its range check.
        QGuiApplication::clipboard()->setText(QStringLiteral("Product Number\tStarting Build Config Rev\t"
                                                             "Ending Build Config Rev\tHardware Configuration\n"
                                                             "P5\tA\tB\t1\nP5\tB\tC\t2\nP6\tAB\tC\t1\n"));
        QTest::keyClick(view, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(productRows().size(), 4);
        QVERIFY2(boxes.last().text.startsWith(QLatin1String("1 of 3 records were added to Product configurations")),
                 qPrintable(boxes.last().text));
        const QStringList reasons = boxes.last().informativeText.split(QLatin1Char('\n'));
        QCOMPARE(reasons.size(), 2);
        QVERIFY2(reasons.at(0).startsWith(QLatin1String("Row 2: These revisions overlap")), qPrintable(reasons.at(0)));
        QCOMPARE(reasons.at(1), QStringLiteral("Row 3: Starting Build Configuration Rev: \"AB\" is not accepted"));
        QVERIFY(!ProductsFile::instance()->isModified());

        // Copied rows carry the header; two rows deleted with one question come back in one step.
        refocus();
        TestUi::clickCell(view, viewRow(view, QStringLiteral("P5"), QStringLiteral("A")));
        TestUi::clickCell(view, viewRow(view, QStringLiteral("P1"), QStringLiteral("A")), Qt::ControlModifier);
        QTest::keyClick(view, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text().count(QLatin1Char('\n')), 3);
        QTest::keyClick(view, Qt::Key_Delete);
        QVERIFY(boxes.last().text.contains(QLatin1String("Delete 2 records from Product configurations")));
        QCOMPARE(productRows().size(), 2);
        refocus();
        QTest::keyClick(view, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(productRows().size(), 4);
        // Even one configuration goes only after a question: the file is written at once.
        boxes.queueAnswers({QMessageBox::No});
        TestUi::clickCell(view, viewRow(view, QStringLiteral("P5"), QStringLiteral("A")));
        QTest::keyClick(view, Qt::Key_Delete);
        QVERIFY(boxes.last().text.contains(QLatin1String("Delete 1 record from Product configurations")));
        QCOMPARE(productRows().size(), 4);
        editor.reset();
        QCOMPARE(fileRows(), QStringList({"P1 A C 1", "P1 D F 2", "P2 A Z 1", "P5 A B 1"}));
    }

    void searchAndClicks()
    {
        ProductConfigsWidget editor;
        editor.show();
        QVERIFY(QTest::qWaitForWindowExposed(&editor));
        KvTableViewWidget *widget = editor.tableViewWidget();
        QAbstractItemView *view = widget->view();

        // Typing filters the rows and makes the first match current.
        QTest::keyClicks(widget->searchEdit(), QStringLiteral("p1"));
        QCOMPARE(view->model()->rowCount(), 2);
        QCOMPARE(view->currentIndex(), view->model()->index(0, 0));
        // Match case leaves no row, and nothing to edit, until the text matches again.
        QTest::mouseClick(widget->findChild<QToolBar *>()->widgetForAction(
                              widget->findChild<QAction *>(QStringLiteral("matchCaseAction"))),
                          Qt::LeftButton);
        QCOMPARE(view->model()->rowCount(), 0);
        QVERIFY(!widget->editAction()->isEnabled());
        TestUi::retype(widget->searchEdit(), QStringLiteral("P2"));
        QCOMPARE(view->model()->rowCount(), 1);
        QVERIFY(widget->editAction()->isEnabled());
    }

    void hostPageOffersFailedSaves()
    {
        MessageBoxRecorder boxes;
        NvrOptions options({QStringLiteral("nevra"), QStringLiteral("-noconnect")});
        {
            MainWindow window(&options);
            window.show();
            QVERIFY(QTest::qWaitForWindowExposed(&window));
            const int tab = window.pageIndex(QStringLiteral("Product Configurations"));
            window.showPage(tab);
            auto *page = qobject_cast<ProductConfigsWidget *>(window.pages()->currentWidget());
            QVERIFY(page);
            QCOMPARE(page->tableViewWidget()->view()->model()->rowCount(), 3);

            // A folder in the file's place: the save after the edit fails, and closing offers it again.
            const QString fileName = QStringLiteral("nevradat/products.dat");
            QVERIFY(QFile::remove(fileName) && QDir().mkdir(fileName));
            FormDriver<ProductFormDialog> driver([](ProductFormDialog *form) { finishForm(form, {"P5", QString(), QString(), QString()}); });
            trigger(page->tableViewWidget(), page->tableViewWidget()->newAction());
            QVERIFY(driver.ran());
            QCOMPARE(boxes.count(), 1);
            QCOMPARE(boxes.last().title, QStringLiteral("Error Saving File"));

            boxes.setAnswer(QMessageBox::Cancel);
            QVERIFY(!window.close());
            QVERIFY(window.isVisible());
            QCOMPARE(boxes.count(), 2);
            QCOMPARE(boxes.last().title, QStringLiteral("Product Definitions"));
            QVERIFY(QDir().rmdir(fileName));
            boxes.setAnswer(QMessageBox::Save);
            QVERIFY(window.close());
            QCOMPARE(boxes.count(), 3);
        }
        QCOMPARE(fileRows(), QStringList({"P1 A C 1", "P1 D F 2", "P2 A Z 1", "P5 A A 1"}));
        RtsFile::destroyInstance();
    }

private:
    QString m_previousDir;
    std::unique_ptr<QTemporaryDir> m_currentDir;
};

QTEST_MAIN(tst_ProductsUi)
#include "tst_productsui.moc"
