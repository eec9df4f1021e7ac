// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_RTSTABLEVIEW_H
#define NVR_RTSTABLEVIEW_H

#include "nvrcore_export.h"

#include "kvtableview.h"

class RtsSortFilterProxyModel;

/**
 * The radio table, read-only in place (records are edited in a form),
 * sortable by clicking a column header and sorted by manufacturer at first.
 * It always shows its own RtsSortFilterProxyModel: setModel() makes the
 * given model the proxy's source. The id and select-string columns are
 * hidden, also after a saved layout is restored. It has no object name of
 * its own; its owner names it, which keys its saved layout.
 */
class NVRCORE_EXPORT RtsTableView : public KvTableView
{
    Q_OBJECT
public:
    explicit RtsTableView(QWidget *parent = nullptr);
    ~RtsTableView() override;

    void setModel(QAbstractItemModel *model) override;
    void restoreState() override;
    RtsSortFilterProxyModel *proxyModel() const;

private:
    void hideComputedColumns();

    RtsSortFilterProxyModel *m_proxy;
};

#endif
