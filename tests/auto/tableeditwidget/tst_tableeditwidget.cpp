// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "kvabstractdataobject.h"
#include "kvsettings.h"
#include "kvtableview.h"
#include "models/csvmodel.h"
#include "models/rtssortfilterproxymodel.h"
#include "models/rtstablemodel.h"
#include "testappdir.h"
#include "testfiles.h"
#include "testui.h"
#include "widgets/rtstableview.h"
#include "widgets/tableeditwidget.h"

#include <QAbstractItemModelTester>
#include <QHeaderView>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QTemporaryDir>
#include <QTest>

namespace {
QStringList record(int id, const QString &manufacturer, int type)
{
    return {QString::number(id), manufacturer, QStringLiteral("M%1").arg(id), QString::number(type),
            QStringLiteral("5.00"), QString(), QStringLiteral("0.100"), QString(), QStringLiteral("0")};
}

// A user-visible frame around a model: the generic editor as a library's editor would set it up.
struct Editor
{
    explicit Editor(QAbstractItemModel *model, bool throughProxy = false)
    {
        view = new KvTableView(&widget);
        view->setObjectName(QStringLiteral("testTableView"));
        if (throughProxy) {
            proxy.setSourceModel(model);
            view->setModel(&proxy);
        } else {
            view->setModel(model);
        }
        widget.setView(view);
        widget.resize(800, 400);
        widget.show();
        QVERIFY(QTest::qWaitForWindowExposed(&widget));
    }

    QPushButton *button(const char *name) const { return widget.findChild<QPushButton *>(QLatin1String(name)); }
    void clickCell(int row, int column) const { TestUi::clickCell(view, view->model()->index(row, column)); }

    QString states() const
    {
        QString text;
        for (const char *name : {"copyButton", "editButton", "deleteButton", "submitButton", "revertButton"})
            text += button(name)->isEnabled() ? QLatin1Char('1') : QLatin1Char('0');
        return text;
    }

    RtsSortFilterProxyModel proxy;
    TableEditWidget widget;
    KvTableView *view = nullptr;
};
}

class tst_TableEditWidget : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { TestAppDir::prepare(); }
    void cleanupTestCase() { TestAppDir::cleanup(); }

    void buttons()
    {
        TableEditWidget widget;
        widget.show();
        // Every icon the editors name must be in the resources and render.
        for (const char *name : {":/images/new", ":/images/copy", ":/images/edit", ":/images/delete",
                                 ":/images/submit", ":/images/revert", ":/icons/record-add", ":/icons/filesave"})
            QVERIFY2(!QIcon(QLatin1String(name)).pixmap(24, 24).isNull(), name);

        // Copy and edit start hidden, not disabled.
        QString states;
        for (const char *name :
             {"newButton", "copyButton", "editButton", "deleteButton", "submitButton", "revertButton"}) {
            auto *button = widget.findChild<QPushButton *>(QLatin1String(name));
            states += button->isHidden() ? 'h' : button->isEnabled() ? '1' : '0';
        }
        QCOMPARE(states, QStringLiteral("1hh000"));
    }

    void rowOperations_data()
    {
        QTest::addColumn<bool>("throughProxy");
        QTest::newRow("model") << false;
        QTest::newRow("sorting proxy") << true;
    }

    void rowOperations()
    {
        QFETCH(bool, throughProxy);
        RtsTableModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        model.insertFromStringsList({record(14, QStringLiteral("Base"), 1), record(201, QStringLiteral("User"), 1)});
        model.setNextUserRtId(202);
        Editor editor(&model, throughProxy);
        if (throughProxy)
            editor.view->sortByColumn(RtsTableModel::IdColumn, Qt::DescendingOrder);

        QTest::mouseClick(editor.button("newButton"), Qt::LeftButton);
        QCOMPARE(editor.widget.currentEditType(), 1);
        QCOMPARE(model.rowCount(), 3);
        QCOMPARE(editor.view->currentIndex().column(), 0);
        QCOMPARE(editor.view->currentIndex().data(Qt::EditRole).toInt(), 202);
        QCOMPARE(editor.states(), QStringLiteral("11011"));
        QTest::mouseClick(editor.button("revertButton"), Qt::LeftButton);
        QCOMPARE(model.rowCount(), 2);
        QCOMPARE(editor.states(), QStringLiteral("11000"));

        QTest::mouseClick(editor.button("newButton"), Qt::LeftButton);
        QTest::mouseClick(editor.button("submitButton"), Qt::LeftButton);
        QCOMPARE(editor.states(), QStringLiteral("11000"));
        QVERIFY(!model.hasPendingEdits());

        // Edit, copy and delete follow the clicked cell; hidden buttons still track it.
        const QModelIndex top = editor.view->model()->index(0, 0);
        const int baseRow = editor.view->model()->match(top, Qt::EditRole, 14).first().row();
        const int userRow = editor.view->model()->match(top, Qt::EditRole, 201).first().row();
        editor.clickCell(baseRow, RtsTableModel::ManufacturerColumn);
        QCOMPARE(editor.states(), QStringLiteral("00000"));
        editor.clickCell(userRow, RtsTableModel::ManufacturerColumn);
        QCOMPARE(editor.states(), QStringLiteral("11100"));

        editor.widget.copyClicked();
        QCOMPARE(editor.widget.currentEditType(), 2);
        QCOMPARE(model.dataObjectAtRow(3)->toStringList(), model.dataObjectAtRow(1)->toStringList());
        const QModelIndex current = editor.view->currentIndex();
        QCOMPARE(throughProxy ? editor.proxy.mapToSource(current).row() : current.row(), 3);
        QCOMPARE(editor.states(), QStringLiteral("11111"));

        QTest::mouseClick(editor.button("submitButton"), Qt::LeftButton);
        editor.clickCell(userRow, RtsTableModel::ModelColumn);
        QTest::mouseClick(editor.button("deleteButton"), Qt::LeftButton);
        QCOMPARE(model.rowCount(), 3);
        QCOMPARE(editor.states(), QStringLiteral("11011"));
        QList<int> ids;
        for (int row = 0; row < model.rowCount(); ++row)
            ids.append(model.rtId(model.index(row, 0)));
        QCOMPARE(ids, QList<int>({14, 202, 201})); // the original went, its copy stayed

        // Any change of the model's data enables saving again.
        QTest::mouseClick(editor.button("revertButton"), Qt::LeftButton);
        QCOMPARE(model.rowCount(), 4);
        // Delete offered, but the current record gone: nothing is removed and delete turns off.
        editor.clickCell(userRow, RtsTableModel::ModelColumn);
        editor.view->setCurrentIndex(QModelIndex());
        editor.widget.removeClicked();
        QCOMPARE(model.rowCount(), 4);
        QCOMPARE(editor.states(), QStringLiteral("11000"));
        QVERIFY(model.setData(model.index(1, RtsTableModel::ModelColumn), QStringLiteral("Changed")));
        QCOMPARE(editor.states().right(2), QStringLiteral("11"));
    }

    // Qt's views submit the model when the current row changes; a library edit must stay
    // pending until Save, whichever Qt the program is built with.
    void editStaysPendingWhenRowChanges()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("table.csv"));
        const QByteArray original = "\"Name\"\n\"one\"\n\"two\"\n";
        QVERIFY(TestFiles::write(path, original));
        CsvModel model(path);
        KvTableView view;
        view.setModel(&model);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        view.setCurrentIndex(model.index(0, 0));
        QVERIFY(model.setData(model.index(0, 0), QStringLiteral("edited")));
        QTest::keyClick(view.viewport(), Qt::Key_Down);
        QCOMPARE(view.currentIndex().row(), 1);
        QCOMPARE(TestFiles::read(path), original);
        QCOMPARE(model.index(0, 0).data().toString(), QStringLiteral("edited"));
    }

    void viewKeepsItsLayout()
    {
        RtsTableModel model;
        model.insertFromStringsList({record(14, QStringLiteral("Zulu"), 1), record(201, QStringLiteral("Alpha"), 1)});
        {
            RtsTableView view;
            view.setObjectName(QStringLiteral("layoutView"));
            view.setModel(&model);
            QVERIFY(view.isColumnHidden(RtsTableModel::IdColumn));
            QCOMPARE(view.model()->index(0, 0).data(Qt::EditRole).toInt(), 201); // sorted by manufacturer
            view.setColumnWidth(RtsTableModel::ModelColumn, 123);
            view.hideColumn(RtsTableModel::TxDescriptionColumn);
            view.showColumn(RtsTableModel::IdColumn);
            view.sortByColumn(RtsTableModel::ManufacturerColumn, Qt::DescendingOrder);
            view.saveSettings();
        }
        RtsTableView view;
        view.setObjectName(QStringLiteral("layoutView"));
        view.setModel(&model);
        QCOMPARE(view.columnWidth(RtsTableModel::ModelColumn) == 123, false);
        view.readSettings();
        QCOMPARE(view.columnWidth(RtsTableModel::ModelColumn), 123);
        QVERIFY(view.isColumnHidden(RtsTableModel::TxDescriptionColumn));
        QVERIFY(view.isColumnHidden(RtsTableModel::IdColumn));
        QVERIFY(view.isColumnHidden(RtsTableModel::SelectStringColumn));
        QCOMPARE(view.horizontalHeader()->sortIndicatorOrder(), Qt::DescendingOrder);
        QCOMPARE(view.model()->index(0, 0).data(Qt::EditRole).toInt(), 14);
    }

    void sortOnTheFirstColumnIsKept()
    {
        // Column 0 is a column like any other: a saved sort on it comes back in both orders, from a saved
        // layout and from the sort keys alone (a layout without header state).
        RtsTableModel model;
        model.insertFromStringsList({record(14, QStringLiteral("Alpha"), 1), record(71, QStringLiteral("Mike"), 1),
                                     record(30, QStringLiteral("Zulu"), 1)});
        struct SortingView
        {
            explicit SortingView(QAbstractItemModel *source)
            {
                proxy.setSourceModel(source);
                view.setObjectName(QStringLiteral("firstColumnView"));
                view.setSortingEnabled(true);
                view.setModel(&proxy);
            }
            QSortFilterProxyModel proxy;
            KvTableView view;
        };
        for (const bool withHeader : {true, false}) {
            for (const Qt::SortOrder order : {Qt::DescendingOrder, Qt::AscendingOrder}) {
                {
                    SortingView saved(&model);
                    saved.view.sortByColumn(0, order);
                    saved.view.saveSettings();
                }
                if (!withHeader)
                    KvSettings().remove(QStringLiteral("tableviews/firstColumnView/header"));
                SortingView restored(&model);
                restored.view.sortByColumn(1, Qt::DescendingOrder); // what the view shows before its settings are read
                restored.view.readSettings();
                QCOMPARE(restored.view.horizontalHeader()->sortIndicatorSection(), 0);
                QCOMPARE(restored.proxy.index(0, 0).data(Qt::EditRole).toInt(), order == Qt::DescendingOrder ? 71 : 14);
            }
        }
    }
};

QTEST_MAIN(tst_TableEditWidget)
#include "tst_tableeditwidget.moc"
