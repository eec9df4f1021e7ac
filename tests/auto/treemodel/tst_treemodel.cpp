// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "kvsettings.h"
#include "models/ctreeitem.h"
#include "models/treemodel.h"
#include "popupmenuchooser.h"
#include "testappdir.h"
#include "widgets/treeview.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QSignalSpy>
#include <QTest>

namespace {
CTreeItem *append(CTreeItem *parent, const QString &name, int value)
{
    auto *item = new CTreeItem({name, value}, parent);
    parent->appendChild(item);
    return item;
}

/// Titles Name and Value; rows A (children A1, A2) and B.
CTreeItem *sampleTree()
{
    auto *root = new CTreeItem({QStringLiteral("Name"), QStringLiteral("Value")});
    CTreeItem *a = append(root, QStringLiteral("A"), 1);
    append(a, QStringLiteral("A1"), 2);
    append(a, QStringLiteral("A2"), 3);
    append(root, QStringLiteral("B"), 4);
    return root;
}
}

class tst_TreeModel : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { TestAppDir::prepare(); }
    void cleanupTestCase() { TestAppDir::cleanup(); }

    void treeItem()
    {
        QScopedPointer<CTreeItem> root(sampleTree());
        QVERIFY(!root->child(-1));
        QVERIFY(!root->child(2));
        QCOMPARE(root->child(1)->row(), 1);
        CTreeItem stray({QStringLiteral("stray")}, root.data()); // names a parent that does not list it
        QCOMPARE(stray.row(), -1);

        root->child(1)->setData(1, 40);
        root->child(1)->setData(2, 99); // no such column: ignored
        QCOMPARE(root->child(1)->columnCount(), 2);
        QCOMPARE(root->toString(0), QStringLiteral("Name | Value\n  A | 1\n    A1 | 2\n    A2 | 3\n  B | 40\n"));

        root->insertChild(1, new CTreeItem({QStringLiteral("M"), 0}));
        QCOMPARE(root->child(1)->parent(), root.data());
        root->remove(7);
        root->deleteChildren(0, 0);
        QCOMPARE(root->childCount(), 3);
        root->deleteChildren(1, 10);
        QCOMPARE(root->childCount(), 1);
        root->deleteChildren();
        QCOMPARE(root->childCount(), 0);
    }

    void model()
    {
        auto *model = new TreeModel;
        QAbstractItemModelTester tester(model);
        QCOMPARE(model->rowCount(), 0);
        model->refresh(); // without a root: empty, no crash
        model->setRootItem(sampleTree());
        QCOMPARE(model->headerData(1, Qt::Horizontal).toString(), QStringLiteral("Value"));

        const QModelIndex a = model->index(0, 0);
        QCOMPARE(model->rowCount(a), 2);
        QCOMPARE(model->rowCount(model->index(0, 1)), 0); // only column 0 has children
        const QModelIndex a2 = model->index(1, 1, a);
        QCOMPARE(a2.parent(), a);
        QVERIFY(!model->index(2, 0, a).isValid());
        QCOMPARE(model->getItem(a2), model->rootItem()->child(0)->child(1));

        QSignalSpy changed(model, &QAbstractItemModel::dataChanged);
        QVERIFY(model->setData(a2, 30));
        QVERIFY(!model->setData(a2, 31, Qt::DisplayRole));
        QCOMPARE(changed.count(), 1);
        QCOMPARE(a2.data(Qt::EditRole).toInt(), 30);

        model->refresh();
        QCOMPARE(model->rowCount(), 0);
        QCOMPARE(model->headerData(0, Qt::Horizontal).toString(), QStringLiteral("Name"));
        append(model->rootItem(), QStringLiteral("C"), 5);
        model->setRootItem(sampleTree());

        delete model;
    }

    void contextMenuExpandsAndCollapses()
    {
        TreeModel model;
        model.setRootItem(sampleTree());
        TreeView view;
        view.setModel(&model);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));

        for (const char *choice : {"Expand All", "Collapse All"}) {
            PopupMenuChooser chooser(QString::fromLatin1(choice));
            QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5));
            QApplication::sendEvent(view.viewport(), &event);
            QCOMPARE(chooser.entries(), (QStringList{"Expand All", "Collapse All"}));
            QCOMPARE(view.isExpanded(model.index(0, 0)), qstrcmp(choice, "Expand All") == 0);
        }
    }

    void headerStatePersists()
    {
        TreeModel model;
        model.setRootItem(sampleTree());
        TreeView view;
        TreeView other;
        for (TreeView *v : {&view, &other}) {
            v->setObjectName(QStringLiteral("ProductTree"));
            v->setModel(&model);
        }
        view.header()->resizeSection(0, 123);
        view.header()->hideSection(1);
        view.saveState(QString());
        QCOMPARE(KvSettings().value(QStringLiteral("views/ProductTree")).toByteArray(), view.header()->saveState());
        other.restoreState(QString());
        QVERIFY(other.header()->isSectionHidden(1));
        QCOMPARE(other.header()->sectionSize(0), 123);

        view.header()->showSection(1);
        view.saveState(QStringLiteral("custom")); // an explicit key wins over the object name
        other.restoreState(QStringLiteral("custom"));
        QVERIFY(!other.header()->isSectionHidden(1));
    }
};

QTEST_MAIN(tst_TreeModel)
#include "tst_treemodel.moc"
