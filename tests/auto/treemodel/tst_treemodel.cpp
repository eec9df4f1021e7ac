// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "kvsettings.h"
#include "models/ctreeitem.h"
#include "models/treemodel.h"
#include "testappdir.h"
#include "widgets/treeview.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

namespace {
CTreeItem *node(const QString &name, const QVariant &value, CTreeItem *parent)
{
    auto *item = new CTreeItem({name, value}, parent);
    parent->appendChild(item);
    return item;
}

/// Root (titles Name, Value) with A (A1, A2) and B.
CTreeItem *sampleTree()
{
    auto *root = new CTreeItem({QStringLiteral("Name"), QStringLiteral("Value")});
    CTreeItem *a = node(QStringLiteral("A"), 1, root);
    node(QStringLiteral("A1"), 2, a);
    node(QStringLiteral("A2"), 3, a);
    node(QStringLiteral("B"), 4, root);
    return root;
}
}

class tst_TreeModel : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { TestAppDir::prepare(); }
    void cleanupTestCase() { TestAppDir::cleanup(); }
    void treeItem();
    void model();
    void contextMenuExpandsAndCollapses();
    void headerStatePersists();

private:
    static void answerMenu(QObject *context, int downPresses, QStringList *seen);
};

void tst_TreeModel::treeItem()
{
    QScopedPointer<CTreeItem> root(sampleTree());
    QVERIFY(!root->child(-1));
    QVERIFY(!root->child(root->childCount()));
    QCOMPARE(root->row(), 0);
    QCOMPARE(root->child(1)->row(), 1);
    QCOMPARE(root->child(0)->child(1)->parent(), root->child(0));

    CTreeItem stray({QStringLiteral("stray")}, root.data()); // names a parent that does not list it
    QCOMPARE(stray.row(), -1);

    CTreeItem *b = root->child(1);
    b->setData(1, 40);
    b->setData(2, 99); // no such column: ignored
    QCOMPARE(b->columnCount(), 2);
    QCOMPARE(b->data(1).toInt(), 40);
    QVERIFY(!b->data(5).isValid());

    QCOMPARE(root->toString(0), QStringLiteral("Name | Value\n  A | 1\n    A1 | 2\n    A2 | 3\n  B | 40\n"));
    QCOMPARE(b->toString(2), QStringLiteral("    B | 40\n"));

    root->insertChild(1, new CTreeItem({QStringLiteral("M"), 0}));
    QCOMPARE(root->child(1)->data(0).toString(), QStringLiteral("M"));
    QCOMPARE(root->child(1)->parent(), root.data());
    root->remove(7);
    root->deleteChildren(0, 0);
    QCOMPARE(root->childCount(), 3);
    root->deleteChildren(1, 10);
    QCOMPARE(root->childCount(), 1);
    root->remove(0);
    QCOMPARE(root->childCount(), 0);
    node(QStringLiteral("C"), 5, root.data());
    root->deleteChildren();
    QCOMPARE(root->childCount(), 0);
}

void tst_TreeModel::model()
{
    auto *model = new TreeModel;
    QAbstractItemModelTester tester(model);
    QCOMPARE(model->rowCount(), 0);
    QCOMPARE(model->columnCount(), 0);
    QVERIFY(!model->index(0, 0).isValid());
    QVERIFY(!model->headerData(0, Qt::Horizontal).isValid());
    model->refresh();

    model->setRootItem(sampleTree());
    QCOMPARE(model->rowCount(), 2);
    QCOMPARE(model->columnCount(), 2);
    QCOMPARE(model->headerData(1, Qt::Horizontal).toString(), QStringLiteral("Value"));
    QVERIFY(!model->headerData(1, Qt::Vertical).isValid());

    const QModelIndex a = model->index(0, 0);
    QCOMPARE(model->rowCount(a), 2);
    QCOMPARE(model->rowCount(model->index(0, 1)), 0); // only column 0 has children
    const QModelIndex a2 = model->index(1, 1, a);
    QCOMPARE(a2.data().toInt(), 3);
    QCOMPARE(a2.parent(), a);
    QVERIFY(!a.parent().isValid());
    QVERIFY(!model->index(2, 0, a).isValid());
    QCOMPARE(model->getItem(a2), model->rootItem()->child(0)->child(1));
    QCOMPARE(model->getItem(QModelIndex()), model->rootItem());

    QSignalSpy changed(model, &QAbstractItemModel::dataChanged);
    QVERIFY(model->setData(a2, 30));
    QVERIFY(!model->setData(a2, 31, Qt::DisplayRole));
    QVERIFY(!model->setData(QModelIndex(), 31));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(a2.data(Qt::EditRole).toInt(), 30);
    QVERIFY(!a2.data(Qt::ToolTipRole).isValid());

    model->refresh();
    QCOMPARE(model->rowCount(), 0);
    QCOMPARE(model->headerData(0, Qt::Horizontal).toString(), QStringLiteral("Name"));
    node(QStringLiteral("C"), 5, model->rootItem());
    model->setRootItem(sampleTree());
    QCOMPARE(model->rowCount(), 2);

    QTest::ignoreMessage(QtDebugMsg, "TreeModel::~TreeModel()");
    delete model;
}

void tst_TreeModel::answerMenu(QObject *context, int downPresses, QStringList *seen)
{
    // Polls, since the menu only appears once the view has opened it.
    auto *poll = new QTimer(context);
    poll->start(20);
    connect(poll, &QTimer::timeout, context, [poll, downPresses, seen] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu)
            return;
        poll->deleteLater();
        poll->stop();
        for (QAction *action : menu->actions())
            *seen << action->text() + (action->shortcut().isEmpty() ? QString() : QStringLiteral(" [key]"));
        for (int i = 0; i < downPresses; ++i)
            QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
    });
}

void tst_TreeModel::contextMenuExpandsAndCollapses()
{
    TreeModel model;
    model.setRootItem(sampleTree());
    TreeView view;
    view.setModel(&model);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));

    for (int presses : {1, 2}) {
        QStringList seen;
        answerMenu(&view, presses, &seen);
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5));
        QApplication::sendEvent(view.viewport(), &event);
        QCOMPARE(seen, (QStringList{"Expand All", "Collapse All"}));
        QCOMPARE(view.isExpanded(model.index(0, 0)), presses == 1);
    }
}

void tst_TreeModel::headerStatePersists()
{
    TreeModel model;
    model.setRootItem(sampleTree());
    TreeView view;
    view.setObjectName(QStringLiteral("ProductTree"));
    view.setModel(&model);
    view.header()->resizeSection(0, 123);
    view.header()->hideSection(1);
    view.saveState(QString());
    QCOMPARE(KvSettings().value(QStringLiteral("views/ProductTree")).toByteArray(), view.header()->saveState());

    TreeView other;
    other.setObjectName(QStringLiteral("ProductTree"));
    other.setModel(&model);
    QVERIFY(!other.header()->isSectionHidden(1));
    other.restoreState(QString());
    QVERIFY(other.header()->isSectionHidden(1));
    QCOMPARE(other.header()->sectionSize(0), 123);

    // An explicit key wins over the object name.
    view.header()->showSection(1);
    view.saveState(QStringLiteral("custom"));
    other.restoreState(QStringLiteral("custom"));
    QVERIFY(!other.header()->isSectionHidden(1));
    QVERIFY(KvSettings().contains(QStringLiteral("views/custom")));
}

QTEST_MAIN(tst_TreeModel)
#include "tst_treemodel.moc"
