// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "tableeditwidget.h"

#include "kvcore.h"
#include "kvtableview.h"
#include "logger.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QVBoxLayout>

namespace {
QPushButton *makeButton(QWidget *parent, const char *name, const QString &icon, const QString &toolTip)
{
    auto *button = new QPushButton(parent);
    button->setObjectName(QLatin1String(name));
    button->setIcon(QIcon(icon));
    button->setToolTip(toolTip);
    return button;
}
}

TableEditWidget::TableEditWidget(QWidget *parent) : QWidget(parent)
{
    newButton = makeButton(this, "newButton", QStringLiteral(":/images/new"), tr("New record"));
    copyButton = makeButton(this, "copyButton", QStringLiteral(":/images/copy"), tr("Copy record"));
    editButton = makeButton(this, "editButton", QStringLiteral(":/images/edit"), tr("Edit record"));
    deleteButton = makeButton(this, "deleteButton", QStringLiteral(":/images/delete"), tr("Delete selected record"));
    submitButton = makeButton(this, "submitButton", QStringLiteral(":/images/submit"), tr("Save changes"));
    revertButton = makeButton(this, "revertButton", QStringLiteral(":/images/revert"), tr("Cancel all changes"));
    copyButton->hide();
    editButton->hide();
    deleteButton->setEnabled(false);
    submitButton->setEnabled(false);
    revertButton->setEnabled(false);

    buttonsLayout = new QHBoxLayout;
    buttonsLayout->setSpacing(2);
    buttonsLayout->setContentsMargins(0, 0, 0, 0);
    for (QPushButton *button : {newButton, copyButton, editButton, deleteButton, submitButton, revertButton})
        buttonsLayout->addWidget(button);
    buttonsLayout->addStretch();

    mainLayout = new QVBoxLayout(this);
    mainLayout->setSpacing(0);
    mainLayout->setContentsMargins(0, 0, 0, 0);
    mainLayout->addLayout(buttonsLayout);

    connect(newButton, &QPushButton::clicked, this, &TableEditWidget::newClicked);
    connect(copyButton, &QPushButton::clicked, this, &TableEditWidget::copyClicked);
    connect(editButton, &QPushButton::clicked, this, &TableEditWidget::editClicked);
    connect(deleteButton, &QPushButton::clicked, this, &TableEditWidget::removeClicked);
    connect(submitButton, &QPushButton::clicked, this, &TableEditWidget::submitClicked);
    connect(revertButton, &QPushButton::clicked, this, &TableEditWidget::revertClicked);
}

TableEditWidget::~TableEditWidget() = default;

void TableEditWidget::setView(KvTableView *newView)
{
    if (view) {
        mainLayout->removeWidget(view);
        view->hide();
    }
    view = newView;
    if (!view)
        return;
    mainLayout->addWidget(view);
    view->show();
    connect(view, &QAbstractItemView::clicked, this, &TableEditWidget::onClicked);
    if (view->model())
        connect(view->model(), &QAbstractItemModel::dataChanged, this, &TableEditWidget::enableSubmit);
}

KvTableView *TableEditWidget::tableView() const
{
    return view;
}

int TableEditWidget::currentEditType() const
{
    return editType;
}

void TableEditWidget::readSettings()
{
    if (view)
        view->readSettings();
}

void TableEditWidget::saveSettings()
{
    if (view)
        view->saveSettings(QString(), QString());
}

void TableEditWidget::newClicked()
{
    editType = KvCore::NewRecord;
    const int row = appendRow();
    if (row < 0)
        return;
    setCurrentRow(row);
    enableSubmit();
}

void TableEditWidget::editClicked()
{
    editType = KvCore::EditRecord;
}

void TableEditWidget::copyClicked()
{
    editType = KvCore::CopyRecord;
    QAbstractItemModel *model = targetModel();
    const QModelIndex current = currentTargetIndex();
    if (!model || !current.isValid())
        return;
    LOG_TRACE(QStringLiteral("Row count: %1").arg(model->rowCount()));
    const int row = appendRow();
    if (row < 0)
        return;
    LOG_TRACE(QStringLiteral("Row count: %1").arg(model->rowCount()));
    for (int column = 0; column < model->columnCount(); ++column)
        model->setData(model->index(row, column), model->index(current.row(), column).data(Qt::EditRole),
                       Qt::EditRole);
    setCurrentRow(row);
    enableSubmit();
}

void TableEditWidget::removeClicked()
{
    // Without a current record (a revert resets the model) there is nothing to delete, nor to offer deleting.
    if (view && view->model() && view->currentIndex().isValid()) {
        view->model()->removeRows(view->currentIndex().row(), 1);
        enableSubmit();
    }
    deleteButton->setEnabled(false);
}

void TableEditWidget::revertClicked()
{
    if (view && view->model())
        view->model()->revert();
    submitButton->setEnabled(false);
    revertButton->setEnabled(false);
}

void TableEditWidget::submitClicked()
{
    if (view && view->model() && view->model()->submit()) {
        submitButton->setEnabled(false);
        revertButton->setEnabled(false);
    }
}

void TableEditWidget::enableSubmit()
{
    submitButton->setEnabled(true);
    revertButton->setEnabled(true);
}

void TableEditWidget::onClicked(const QModelIndex &index)
{
    const bool editable = view && view->model() && (view->model()->flags(index) & Qt::ItemIsEditable);
    editButton->setEnabled(editable);
    copyButton->setEnabled(editable);
    deleteButton->setEnabled(editable);
}

QAbstractItemModel *TableEditWidget::targetModel() const
{
    if (!view)
        return nullptr;
    if (auto *proxy = qobject_cast<QSortFilterProxyModel *>(view->model()))
        return proxy->sourceModel();
    return view->model();
}

int TableEditWidget::appendRow()
{
    QAbstractItemModel *model = targetModel();
    if (!model)
        return -1;
    const int row = model->rowCount();
    return model->insertRows(row, 1) ? row : -1;
}

void TableEditWidget::setCurrentRow(int row)
{
    QAbstractItemModel *model = targetModel();
    if (!model)
        return;
    QModelIndex index = model->index(row, 0);
    if (auto *proxy = qobject_cast<QSortFilterProxyModel *>(view->model()))
        index = proxy->mapFromSource(index);
    view->setCurrentIndex(index);
}

QModelIndex TableEditWidget::currentTargetIndex() const
{
    if (!view)
        return QModelIndex();
    const QModelIndex current = view->currentIndex();
    if (auto *proxy = qobject_cast<QSortFilterProxyModel *>(view->model()))
        return proxy->mapToSource(current);
    return current;
}
