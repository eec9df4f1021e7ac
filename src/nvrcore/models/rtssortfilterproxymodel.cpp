// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "rtssortfilterproxymodel.h"

#include "models/rtstablemodel.h"

namespace {
constexpr int LastDefaultRtId = 9;
}

RtsSortFilterProxyModel::RtsSortFilterProxyModel(QObject *parent) : KvSortFilterProxyModel(parent)
{
}

RtsSortFilterProxyModel::~RtsSortFilterProxyModel() = default;

Rt::RtTypes RtsSortFilterProxyModel::rtTypesFilter() const
{
    return m_types;
}

void RtsSortFilterProxyModel::setRtTypesFilter(const QFlags<Rt::RtType> &types)
{
    m_types = types;
    invalidateFilter();
}

void RtsSortFilterProxyModel::applyRtTypesFilter(const QFlags<Rt::RtType> &types)
{
    m_types = types;
    // A new type lets in or out rows all over the sorted list; taken out or put
    // back one stretch at a time, each stretch costs a pass over the whole list.
    invalidate();
}

void RtsSortFilterProxyModel::setSourceModel(QAbstractItemModel *sourceModel)
{
    for (const QMetaObject::Connection &connection : std::as_const(m_sourceConnections))
        disconnect(connection);
    m_sourceConnections.clear();
    dropSortKeys();
    // Connected before the base class connects, so that the keys are gone
    // before the base class sorts the changed rows in again.
    if (sourceModel) {
        const auto drop = [this] { dropSortKeys(); };
        m_sourceConnections = {connect(sourceModel, &QAbstractItemModel::dataChanged, this, drop),
                               connect(sourceModel, &QAbstractItemModel::rowsInserted, this, drop),
                               connect(sourceModel, &QAbstractItemModel::rowsRemoved, this, drop),
                               connect(sourceModel, &QAbstractItemModel::rowsMoved, this, drop),
                               connect(sourceModel, &QAbstractItemModel::layoutChanged, this, drop),
                               connect(sourceModel, &QAbstractItemModel::modelReset, this, drop)};
    }
    KvSortFilterProxyModel::setSourceModel(sourceModel);
}

void RtsSortFilterProxyModel::dropSortKeys()
{
    m_sortKeys.clear();
}

const RtsSortFilterProxyModel::SortKey &RtsSortFilterProxyModel::sortKey(int sourceRow) const
{
    const QAbstractItemModel *model = sourceModel();
    if (m_sortKeys.isEmpty()) {
        const int rows = model->rowCount();
        m_sortKeys.resize(rows);
        for (int row = 0; row < rows; ++row) {
            SortKey &key = m_sortKeys[row];
            key.id = model->index(row, RtsTableModel::IdColumn).data(Qt::EditRole).toInt();
            key.name = model->index(row, RtsTableModel::ManufacturerColumn).data().toString();
            key.model = model->index(row, RtsTableModel::ModelColumn).data().toString();
        }
    }
    return m_sortKeys.at(sourceRow);
}

bool RtsSortFilterProxyModel::filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const
{
    return acceptsType(sourceRow, sourceParent) && KvSortFilterProxyModel::filterAcceptsRow(sourceRow, sourceParent);
}

bool RtsSortFilterProxyModel::acceptsType(int sourceRow, const QModelIndex &sourceParent) const
{
    const int filter = static_cast<int>(m_types);
    if (filter == Rt::AllTypes)
        return true;
    const auto *model = qobject_cast<const RtsTableModel *>(sourceModel());
    if (!model)
        return true;
    const QModelIndex index = model->index(sourceRow, RtsTableModel::TypeColumn, sourceParent);
    if (model->rtId(index) == 0)
        return true;
    if ((filter & Rt::Receiver) && (model->rtType(index) == Rt::Receiver || model->includeInRxList(index)))
        return true;
    // Types are not single bits: a PA (3) passes a transceiver or receiver filter too.
    return (filter & model->rtType(index)) != 0;
}

bool RtsSortFilterProxyModel::lessThan(const QModelIndex &left, const QModelIndex &right) const
{
    const SortKey &leftKey = sortKey(left.row());
    const SortKey &rightKey = sortKey(right.row());
    const int leftId = leftKey.id;
    const int rightId = rightKey.id;
    if (leftId <= LastDefaultRtId || rightId <= LastDefaultRtId) {
        // Answer so that after the view's ordering the defaults come first, in ascending id order.
        if (sortOrder() == Qt::DescendingOrder)
            return rightId > LastDefaultRtId ? false : leftId > rightId;
        return rightId > LastDefaultRtId ? true : leftId < rightId;
    }
    if (sortColumn() == RtsTableModel::ManufacturerColumn) {
        const QString &leftName = leftKey.name;
        const QString &rightName = rightKey.name;
        const QString &leftModel = leftKey.model;
        const QString &rightModel = rightKey.model;
        if (isNaturalSort()) {
            if (naturalLessThan(leftName, rightName))
                return true;
            if (naturalLessThan(rightName, leftName))
                return false;
            return naturalLessThan(leftModel, rightModel);
        }
        if (leftName < rightName)
            return true;
        if (rightName < leftName)
            return false;
        return leftModel < rightModel;
    }
    if (isNaturalSort())
        return KvSortFilterProxyModel::lessThan(left, right);
    return QSortFilterProxyModel::lessThan(left, right);
}
