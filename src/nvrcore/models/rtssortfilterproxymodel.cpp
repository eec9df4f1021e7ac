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
    const QAbstractItemModel *model = sourceModel();
    const int leftId = model->index(left.row(), RtsTableModel::IdColumn).data(Qt::EditRole).toInt();
    const int rightId = model->index(right.row(), RtsTableModel::IdColumn).data(Qt::EditRole).toInt();
    if (leftId <= LastDefaultRtId || rightId <= LastDefaultRtId) {
        // Answer so that after the view's ordering the defaults come first, in ascending id order.
        if (sortOrder() == Qt::DescendingOrder)
            return rightId > LastDefaultRtId ? false : leftId > rightId;
        return rightId > LastDefaultRtId ? true : leftId < rightId;
    }
    if (sortColumn() == RtsTableModel::ManufacturerColumn) {
        const QString leftName = left.data().toString();
        const QString rightName = right.data().toString();
        const QString leftModel = model->index(left.row(), RtsTableModel::ModelColumn).data().toString();
        const QString rightModel = model->index(right.row(), RtsTableModel::ModelColumn).data().toString();
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
