// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_RTSSORTFILTERPROXYMODEL_H
#define NVR_RTSSORTFILTERPROXYMODEL_H

#include "nvrcore_export.h"

#include "models/rt.h"

#include "kvsortfilterproxymodel.h"

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

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const override;
    bool lessThan(const QModelIndex &left, const QModelIndex &right) const override;

private:
    bool acceptsType(int sourceRow, const QModelIndex &sourceParent) const;

    Rt::RtTypes m_types = Rt::AllTypes;
};

#endif
