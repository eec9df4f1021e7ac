// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "kvabstractviewwidgetscontainer.h"

#include "kvabstractviewwidget.h"
#include "kvbaseformdialog.h"
#include "kvsortfilterproxymodel.h"
#include "logger.h"

#include <QAbstractProxyModel>
#include <QMap>
#include <QMessageBox>
#include <QMetaType>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QTableView>

#include <algorithm>
#include <functional>

class KvAbstractViewWidgetsContainerPrivate
{
public:
    struct Entry
    {
        QPointer<KvAbstractViewWidget> widget;
        QByteArray formDialogName;
    };

    QString name;
    QMap<int, Entry> entries;
    int nextId = 0;
};

namespace {
QModelIndex toSource(const QModelIndex &index)
{
    QModelIndex source = index;
    while (auto *proxy = qobject_cast<const QAbstractProxyModel *>(source.model()))
        source = proxy->mapToSource(source);
    return source;
}

QAbstractItemModel *sourceModel(QAbstractItemModel *model)
{
    while (auto *proxy = qobject_cast<QAbstractProxyModel *>(model))
        model = proxy->sourceModel();
    return model;
}

/// The source index as viewModel (the top of a chain of proxies) shows it.
QModelIndex fromSource(QAbstractItemModel *viewModel, const QModelIndex &source)
{
    QList<QAbstractProxyModel *> chain;
    while (auto *proxy = qobject_cast<QAbstractProxyModel *>(viewModel)) {
        chain.prepend(proxy);
        viewModel = proxy->sourceModel();
    }
    QModelIndex index = source;
    for (QAbstractProxyModel *proxy : chain)
        index = proxy->mapFromSource(index);
    return index;
}
}

KvAbstractViewWidgetsContainer::KvAbstractViewWidgetsContainer(const QString &name, QWidget *parent)
    : QWidget(parent), d(new KvAbstractViewWidgetsContainerPrivate)
{
    d->name = name;
}

KvAbstractViewWidgetsContainer::~KvAbstractViewWidgetsContainer() = default;

QString KvAbstractViewWidgetsContainer::name() const
{
    return d->name;
}

int KvAbstractViewWidgetsContainer::addViewWidget(KvAbstractViewWidget *widget, const QByteArray &formDialogName)
{
    const int viewId = d->nextId++;
    if (widget->parentWidget() != this)
        widget->setParent(this);
    d->entries.insert(viewId, {widget, formDialogName});
    connect(widget, &KvAbstractViewWidget::newRecordRequested, this, [this, viewId] { newRecord(viewId); });
    connect(widget, &KvAbstractViewWidget::copyRecordRequested, this,
            [this, viewId](const QModelIndex &index) { copyRecord(viewId, index); });
    connect(widget, &KvAbstractViewWidget::editRecordRequested, this,
            [this, viewId](const QModelIndex &index) { editRecord(viewId, index); });
    connect(widget, &KvAbstractViewWidget::deleteRecordsRequested, this,
            [this, viewId](const QModelIndexList &indexes) { deleteRecords(viewId, indexes); });
    connect(widget, &KvAbstractViewWidget::searchTextEdited, this,
            [this, viewId](const QString &text, bool caseSensitive) { searchTextEdited(viewId, text, caseSensitive); });
    connect(widget, &KvAbstractViewWidget::clicked, this,
            [this, viewId](const QModelIndex &index) { viewClicked(viewId, index); });
    return viewId;
}

KvAbstractViewWidget *KvAbstractViewWidgetsContainer::viewWidget(int viewId) const
{
    return d->entries.value(viewId).widget;
}

QList<int> KvAbstractViewWidgetsContainer::viewIds() const
{
    QList<int> ids;
    for (auto entry = d->entries.cbegin(); entry != d->entries.cend(); ++entry) {
        if (entry->widget)
            ids.append(entry.key());
    }
    return ids;
}

void KvAbstractViewWidgetsContainer::readSettings()
{
    for (const auto &entry : qAsConst(d->entries)) {
        if (entry.widget)
            entry.widget->readSettings(d->name);
    }
}

void KvAbstractViewWidgetsContainer::saveSettings()
{
    for (const auto &entry : qAsConst(d->entries)) {
        if (entry.widget)
            entry.widget->saveSettings(d->name);
    }
}

bool KvAbstractViewWidgetsContainer::newRecord(int viewId)
{
    KvAbstractViewWidget *widget = viewWidget(viewId);
    QAbstractItemModel *model = widget && widget->view() ? sourceModel(widget->view()->model()) : nullptr;
    if (!model)
        return false;
    const int row = model->rowCount();
    if (!model->insertRows(row, 1))
        return false;
    return openForm(viewId, model->index(row, 0), KvCore::NewRecord);
}

bool KvAbstractViewWidgetsContainer::copyRecord(int viewId, const QModelIndex &index)
{
    const QPersistentModelIndex source = toSource(index).siblingAtColumn(0);
    if (!source.isValid())
        return false;
    auto *model = const_cast<QAbstractItemModel *>(source.model());
    const int row = model->rowCount();
    if (!model->insertRows(row, 1))
        return false;
    const QModelIndex target = model->index(row, 0);
    beforeCopyRecord(viewId, source, target);
    return openForm(viewId, target, KvCore::CopyRecord);
}

bool KvAbstractViewWidgetsContainer::editRecord(int viewId, const QModelIndex &index)
{
    const QModelIndex source = toSource(index);
    return source.isValid() && openForm(viewId, source.siblingAtColumn(0), KvCore::EditRecord);
}

bool KvAbstractViewWidgetsContainer::deleteRecords(int viewId, const QModelIndexList &indexes)
{
    QAbstractItemModel *model = nullptr;
    QList<int> rows;
    for (const QModelIndex &index : indexes) {
        const QModelIndex source = toSource(index);
        if (!source.isValid() || (model && source.model() != model) || rows.contains(source.row()))
            continue;
        model = const_cast<QAbstractItemModel *>(source.model());
        rows.append(source.row());
    }
    if (!model)
        return false;
    const QString text = rows.size() == 1 ? tr("Delete the selected record?")
                                          : tr("Delete the %1 selected records?").arg(rows.size());
    if (QMessageBox::question(nullptr, tr("Delete Records"), text, QMessageBox::Yes | QMessageBox::No,
                              QMessageBox::No)
        != QMessageBox::Yes)
        return false;
    // From the bottom up, so that the rows still to go keep their numbers.
    std::sort(rows.begin(), rows.end(), std::greater<int>());
    for (int row : qAsConst(rows))
        model->removeRows(row, 1);
    model->submit();
    afterDeleteRecords(viewId);
    return true;
}

void KvAbstractViewWidgetsContainer::beforeCopyRecord(int viewId, const QModelIndex &source,
                                                      const QModelIndex &target)
{
    Q_UNUSED(viewId)
    QAbstractItemModel *model = const_cast<QAbstractItemModel *>(target.model());
    for (int column = 0; column < model->columnCount(target.parent()); ++column)
        model->setData(target.siblingAtColumn(column), source.siblingAtColumn(column).data(Qt::EditRole));
}

void KvAbstractViewWidgetsContainer::beforeEditRecord(int viewId, const QModelIndex &sourceIndex,
                                                      KvCore::EditTypes editType)
{
    Q_UNUSED(viewId)
    Q_UNUSED(sourceIndex)
    Q_UNUSED(editType)
}

void KvAbstractViewWidgetsContainer::afterEditRecord(int viewId, const QVariant &id, KvCore::EditTypes editType,
                                                     bool cancelled)
{
    Q_UNUSED(viewId)
    Q_UNUSED(id)
    Q_UNUSED(editType)
    Q_UNUSED(cancelled)
}

void KvAbstractViewWidgetsContainer::afterDeleteRecords(int viewId)
{
    Q_UNUSED(viewId)
}

void KvAbstractViewWidgetsContainer::searchTextEdited(int viewId, const QString &text, bool caseSensitive)
{
    KvAbstractViewWidget *widget = viewWidget(viewId);
    auto *view = widget ? qobject_cast<QTableView *>(widget->view()) : nullptr;
    auto *proxy = view ? qobject_cast<KvSortFilterProxyModel *>(view->model()) : nullptr;
    if (!proxy)
        return;
    // The proxy filters no columns, so the view's columns are the source's.
    QList<int> visible;
    for (int column = 0; column < proxy->columnCount(); ++column) {
        if (!view->isColumnHidden(column))
            visible.append(column);
    }
    proxy->setSearchColumns(visible);
    proxy->setSearchString(text, caseSensitive);
    widget->setCurrentIndex(proxy->index(0, visible.value(0)));
}

void KvAbstractViewWidgetsContainer::viewClicked(int viewId, const QModelIndex &index)
{
    Q_UNUSED(viewId)
    Q_UNUSED(index)
}

KvBaseFormDialog *KvAbstractViewWidgetsContainer::createFormDialog(const QByteArray &name)
{
    if (name.isEmpty())
        return nullptr;
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    const QMetaObject *meta = QMetaType::fromName(name).metaObject();
#else
    const int type = QMetaType::type(name.constData());
    const QMetaObject *meta = type == QMetaType::UnknownType ? nullptr : QMetaType::metaObjectForType(type);
#endif
    QWidget *parent = this;
    QObject *object = meta ? meta->newInstance(Q_ARG(QWidget *, parent)) : nullptr;
    auto *form = qobject_cast<KvBaseFormDialog *>(object);
    if (!form)
        delete object;
    return form;
}

bool KvAbstractViewWidgetsContainer::openForm(int viewId, const QModelIndex &sourceIndex, KvCore::EditTypes editType)
{
    auto *model = const_cast<QAbstractItemModel *>(sourceIndex.model());
    const QPersistentModelIndex row(sourceIndex);
    const QByteArray formName = d->entries.value(viewId).formDialogName;
    bool accepted = false;
    beforeEditRecord(viewId, sourceIndex, editType);
    if (std::unique_ptr<KvBaseFormDialog> form{createFormDialog(formName)}) {
        form->setModelIndex(sourceIndex, editType);
        accepted = form->exec() == QDialog::Accepted;
    } else {
        LOG_ERROR(QStringLiteral("No form dialog is registered as \"%1\".").arg(QString::fromLatin1(formName)));
    }

    QVariant id = row.isValid() ? row.data(Qt::EditRole) : QVariant();
    if (accepted) {
        model->submit();
        KvAbstractViewWidget *widget = viewWidget(viewId);
        if (widget && widget->view() && row.isValid())
            widget->setCurrentIndex(fromSource(widget->view()->model(), row));
    } else if (editType != KvCore::EditRecord && row.isValid()) {
        model->removeRows(row.row(), 1, row.parent());
        id = QVariant();
    }
    afterEditRecord(viewId, id, editType, !accepted);
    return accepted;
}
