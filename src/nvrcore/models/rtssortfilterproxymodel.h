// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_RTSSORTFILTERPROXYMODEL_H
#define NVR_RTSSORTFILTERPROXYMODEL_H

#include "nvrcore_export.h"

#include "models/rt.h"

#include "kvsortfilterproxymodel.h"

#include <QVector>

/**
 * Filters an RtsTableModel by radio type and sorts it with the generic
 * default records (ids 0 to 9) always on top, in id order, whichever way
 * the user sorts. Sorting by manufacturer orders equal manufacturers by
 * model.
 *
 * The filter is a plain bitwise AND of the filter with the type value (see
 * Rt::RtType), except that AllTypes (the default) shows everything, the
 * "Radio Not Installed" record (id 0) is always shown, and a filter with the
 * Receiver bit also shows every radio offered as a receiver. Source models
 * other than RtsTableModel are shown unfiltered.
 *
 * The user's filter text of KvSortFilterProxyModel applies on top of the
 * type filter. With natural sorting on, names and levels compare in
 * natural order instead of code order; the defaults stay on top.
 */
class NVRCORE_EXPORT RtsSortFilterProxyModel : public KvSortFilterProxyModel
{
    Q_OBJECT
public:
    explicit RtsSortFilterProxyModel(QObject *parent = nullptr);
    ~RtsSortFilterProxyModel() override;

    Rt::RtTypes rtTypesFilter() const;
    void setRtTypesFilter(const QFlags<Rt::RtType> &types);
    /**
     * The same filter, applied by filtering and sorting the list again in one
     * go: views get one layout change instead of row removals and insertions,
     * which on a long sorted list is many times faster.
     */
    void applyRtTypesFilter(const QFlags<Rt::RtType> &types);
    void setSourceModel(QAbstractItemModel *sourceModel) override;

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const override;
    bool lessThan(const QModelIndex &left, const QModelIndex &right) const override;

private:
    bool acceptsType(int sourceRow, const QModelIndex &sourceParent) const;

    /// What lessThan() reads of one source row.
    struct SortKey
    {
        int id = 0;
        QString name;
        QString model;
    };
    /// The key of a source row, read from the source on first use after a change.
    const SortKey &sortKey(int sourceRow) const;
    void dropSortKeys();

    Rt::RtTypes m_types = Rt::AllTypes;
    /**
     * A filter that lets rows back in sorts them into the list, comparing
     * each new row many times; reading the cells for every comparison made
     * filtering a large library take a noticeable moment, so the keys are
     * read once and kept until the source changes.
     */
    mutable QVector<SortKey> m_sortKeys;
    QList<QMetaObject::Connection> m_sourceConnections;
};

#endif
