// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "kvtableview.h"

#include "kvsettings.h"

#include <QHeaderView>

KvTableView::KvTableView(QWidget *parent) : QTableView(parent)
{
}

KvTableView::~KvTableView() = default;

void KvTableView::setModel(QAbstractItemModel *model)
{
    QTableView::setModel(model);
    // The view submits the model whenever the current row changes; edits here stay buffered
    // until the owner saves or cancels them. Qt makes that connection by its string signature;
    // should a later Qt make it another way, the by-name disconnect finds nothing, and then every
    // connection from the selection model to the model goes (the view makes no other).
    if (model && selectionModel()
        && !disconnect(selectionModel(), SIGNAL(currentRowChanged(QModelIndex,QModelIndex)), model,
                       SLOT(submit())))
        disconnect(selectionModel(), nullptr, model, nullptr);
    if (!m_headerState.isEmpty())
        restoreState();
}

void KvTableView::readSettings(const QString &group, const QString &key)
{
    const QString path = settingsPath(group, key);
    KvSettings settings;
    m_headerState = settings.value(path + QStringLiteral("/header")).toByteArray();
    m_sortColumn = settings.value(path + QStringLiteral("/sortcolumn"), -1).toInt();
    m_sortOrder = settings.value(path + QStringLiteral("/sortorder"), 0).toInt() == Qt::DescendingOrder
                      ? Qt::DescendingOrder
                      : Qt::AscendingOrder;
    restoreState();
}

void KvTableView::saveSettings(const QString &group, const QString &key)
{
    m_headerState = horizontalHeader()->saveState();
    m_sortColumn = horizontalHeader()->sortIndicatorSection();
    m_sortOrder = horizontalHeader()->sortIndicatorOrder();

    const QString path = settingsPath(group, key);
    KvSettings settings;
    settings.setValue(path + QStringLiteral("/header"), m_headerState);
    settings.setValue(path + QStringLiteral("/sortcolumn"), m_sortColumn);
    settings.setValue(path + QStringLiteral("/sortorder"), static_cast<int>(m_sortOrder));
}

void KvTableView::restoreState()
{
    if (!model())
        return;
    if (!m_headerState.isEmpty())
        horizontalHeader()->restoreState(m_headerState);
    // Restoring the header only moves its indicator; the model must be sorted as well.
    if (isSortingEnabled() && m_sortColumn >= 0 && m_sortColumn < model()->columnCount())
        sortByColumn(m_sortColumn, m_sortOrder);
}

QString KvTableView::settingsPath(const QString &group, const QString &key) const
{
    return (group.isEmpty() ? QStringLiteral("tableviews") : group) + QLatin1Char('/')
           + (key.isEmpty() ? objectName() : key);
}

bool KvTableView::edit(const QModelIndex &index, EditTrigger trigger, QEvent *event)
{
    const bool editing = QTableView::edit(index, trigger, event);
    if (editing && indexWidget(index))
        m_editedIndex = index;
    return editing;
}

void KvTableView::commitData(QWidget *editor)
{
    // Only the cell whose editor this is; other editors (persistent ones) are committed unannounced.
    const QPersistentModelIndex index =
        m_editedIndex.isValid() && indexWidget(m_editedIndex) == editor ? m_editedIndex : QPersistentModelIndex();
    if (index.isValid())
        Q_EMIT cellAboutToBeCommitted(index);
    QTableView::commitData(editor);
    if (index.isValid())
        Q_EMIT cellCommitted(index);
}
