// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_PRODUCTSTABLEVIEW_H
#define NVR_PRODUCTSTABLEVIEW_H

#include "nvrcore_export.h"

#include "kvtableview.h"

class KvSortFilterProxyModel;

/**
 * The product configurations table, named "ProductsTableView". It always
 * shows its own searchable KvSortFilterProxyModel: setModel() makes the
 * given model the proxy's source. Whole rows are selected, several at a
 * time with the usual modifier keys; clicking a header sorts, and the
 * table starts sorted by product number.
 */
class NVRCORE_EXPORT ProductsTableView : public KvTableView
{
    Q_OBJECT
public:
    explicit ProductsTableView(QWidget *parent = nullptr);
    ~ProductsTableView() override;

    void setModel(QAbstractItemModel *model) override;
    KvSortFilterProxyModel *proxyModel() const;

private:
    KvSortFilterProxyModel *m_proxy;
};

#endif
