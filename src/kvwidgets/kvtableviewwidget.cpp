// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "kvtableviewwidget.h"

#include "kvtableview.h"

#include <QAction>
#include <QIcon>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QSet>
#include <QToolBar>
#include <QVBoxLayout>

#include <algorithm>

class KvTableViewWidgetPrivate
{
public:
    KvTableView *view = nullptr;
    QToolBar *toolBar = nullptr;
    QAction *newAction = nullptr;
    QAction *copyAction = nullptr;
    QAction *editAction = nullptr;
    QAction *deleteAction = nullptr;
    QLineEdit *searchEdit = nullptr;
    QAction *searchAction = nullptr;
    QAction *matchCaseAction = nullptr;
    KvTableViewWidget::Options options;
    QAbstractItemView::EditTriggers viewEditTriggers;

    QAction *addAction(const char *name, const QString &icon, const QString &text, const QString &toolTip)
    {
        // The icons are the application's; without them the tool bar shows the texts.
        QAction *action = toolBar->addAction(QIcon(icon), text);
        action->setObjectName(QLatin1String(name));
        action->setToolTip(toolTip);
        return action;
    }
};

KvTableViewWidget::KvTableViewWidget(KvTableView *view, const QString &name, QWidget *parent)
    : KvAbstractViewWidget(parent), d(new KvTableViewWidgetPrivate)
{
    setObjectName(name);
    d->view = view;
    d->viewEditTriggers = view->editTriggers();

    d->toolBar = new QToolBar(this);
    d->toolBar->setObjectName(QStringLiteral("toolBar"));
    d->toolBar->setIconSize(QSize(16, 16));
    d->newAction = d->addAction("newAction", QStringLiteral(":/images/new"), tr("New"), tr("New record"));
    d->copyAction = d->addAction("copyAction", QStringLiteral(":/images/copy"), tr("Copy"), tr("Copy record"));
    d->editAction = d->addAction("editAction", QStringLiteral(":/images/edit"), tr("Edit"), tr("Edit record"));
    d->deleteAction = d->addAction("deleteAction", QStringLiteral(":/images/delete"), tr("Delete"),
                                   tr("Delete selected records"));

    auto *spacer = new QWidget(d->toolBar);
    spacer->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    d->toolBar->addWidget(spacer);
    d->searchEdit = new QLineEdit(d->toolBar);
    d->searchEdit->setObjectName(QStringLiteral("searchEdit"));
    d->searchEdit->setPlaceholderText(tr("Search"));
    d->searchEdit->setClearButtonEnabled(true);
    d->searchEdit->setMaximumWidth(240);
    // A tool bar hides and shows its widgets through the actions that hold them.
    d->searchAction = d->toolBar->addWidget(d->searchEdit);
    d->matchCaseAction = d->toolBar->addAction(tr("Aa"));
    d->matchCaseAction->setObjectName(QStringLiteral("matchCaseAction"));
    d->matchCaseAction->setToolTip(tr("Match case"));
    d->matchCaseAction->setCheckable(true);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(d->toolBar);
    layout->addWidget(view);

    connect(d->newAction, &QAction::triggered, this, &KvTableViewWidget::newRecordRequested);
    connect(d->copyAction, &QAction::triggered, this, [this] { Q_EMIT copyRecordRequested(d->view->currentIndex()); });
    connect(d->editAction, &QAction::triggered, this, [this] { Q_EMIT editRecordRequested(d->view->currentIndex()); });
    connect(d->deleteAction, &QAction::triggered, this, [this] { Q_EMIT deleteRecordsRequested(selectedRows()); });
    connect(d->searchEdit, &QLineEdit::textEdited, this, &KvTableViewWidget::emitSearch);
    connect(d->matchCaseAction, &QAction::toggled, this, &KvTableViewWidget::emitSearch);
    connect(view, &QAbstractItemView::clicked, this, &KvTableViewWidget::clicked);
    connect(view, &QAbstractItemView::doubleClicked, this, [this](const QModelIndex &index) {
        if (d->options.testFlag(EditInForm) && index.isValid())
            Q_EMIT editRecordRequested(index);
    });
    if (QItemSelectionModel *selection = view->selectionModel()) {
        connect(selection, &QItemSelectionModel::currentChanged, this, &KvTableViewWidget::updateActions);
        connect(selection, &QItemSelectionModel::selectionChanged, this, &KvTableViewWidget::updateActions);
    }
    if (QAbstractItemModel *model = view->model()) {
        connect(model, &QAbstractItemModel::modelReset, this, &KvTableViewWidget::updateActions);
        connect(model, &QAbstractItemModel::rowsRemoved, this, &KvTableViewWidget::updateActions);
    }
    updateActions();
}

KvTableViewWidget::~KvTableViewWidget()
{
    // The view outlives this body as a child; its late signals must not reach the private data.
    d->view->disconnect(this);
    if (d->view->selectionModel())
        d->view->selectionModel()->disconnect(this);
    if (d->view->model())
        d->view->model()->disconnect(this);
}

QAbstractItemView *KvTableViewWidget::view() const
{
    return d->view;
}

KvTableView *KvTableViewWidget::tableView() const
{
    return d->view;
}

KvTableViewWidget::Options KvTableViewWidget::options() const
{
    return d->options;
}

void KvTableViewWidget::setOptions(Options options)
{
    d->options = options;
    d->searchAction->setVisible(!options.testFlag(HideSearch));
    d->matchCaseAction->setVisible(!options.testFlag(HideSearch));
    d->newAction->setVisible(!options.testFlag(HideNew));
    d->copyAction->setVisible(!options.testFlag(HideCopy));
    d->editAction->setVisible(!options.testFlag(HideEdit));
    d->deleteAction->setVisible(!options.testFlag(HideDelete));
    d->view->setEditTriggers(options.testFlag(EditInForm) ? QAbstractItemView::NoEditTriggers : d->viewEditTriggers);
}

QAction *KvTableViewWidget::newAction() const
{
    return d->newAction;
}

QAction *KvTableViewWidget::copyAction() const
{
    return d->copyAction;
}

QAction *KvTableViewWidget::editAction() const
{
    return d->editAction;
}

QAction *KvTableViewWidget::deleteAction() const
{
    return d->deleteAction;
}

QLineEdit *KvTableViewWidget::searchEdit() const
{
    return d->searchEdit;
}

QToolBar *KvTableViewWidget::toolBar() const
{
    return d->toolBar;
}

void KvTableViewWidget::readSettings(const QString &group)
{
    d->view->readSettings(group);
}

void KvTableViewWidget::saveSettings(const QString &group)
{
    d->view->saveSettings(group);
}

void KvTableViewWidget::updateActions()
{
    const QModelIndex current = d->view->currentIndex();
    const bool editable = current.isValid() && (current.flags() & Qt::ItemIsEditable);
    d->copyAction->setEnabled(editable);
    d->editAction->setEnabled(editable);
    d->deleteAction->setEnabled(editable);
}

void KvTableViewWidget::emitSearch()
{
    Q_EMIT searchTextEdited(d->searchEdit->text(), d->matchCaseAction->isChecked());
}

QModelIndexList KvTableViewWidget::selectedRows() const
{
    QSet<int> rows;
    const QModelIndexList selected = d->view->selectionModel() ? d->view->selectionModel()->selectedIndexes()
                                                                : QModelIndexList();
    for (const QModelIndex &index : selected)
        rows.insert(index.row());
    if (rows.isEmpty() && d->view->currentIndex().isValid())
        rows.insert(d->view->currentIndex().row());
    QList<int> sorted = rows.values();
    std::sort(sorted.begin(), sorted.end());
    QModelIndexList indexes;
    for (int row : sorted)
        indexes.append(d->view->model()->index(row, 0));
    return indexes;
}
