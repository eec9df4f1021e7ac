// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_LIBRARYTABLEVIEW_H
#define NVR_LIBRARYTABLEVIEW_H

#include "nvrcore_export.h"

#include "kvtableview.h"

#include <QList>

class KvSortFilterProxyModel;

/**
 * A library table edited in place: a double click opens the cell's editor
 * (the models' tooltips say so). Columns the library computes for other
 * screens are hidden, also after a saved layout is restored. Ending an
 * in-place edit only writes the cell: Enter does not save the library and
 * Escape does not throw away its other unsaved edits; saving and reverting
 * are the editor's buttons' job.
 *
 * The library is shown through a KvSortFilterProxyModel, so that the user
 * can filter it and sort it (in natural order) by any column; until a
 * column header is clicked the rows keep the library's order.
 *
 * Subclasses name themselves, choose the hidden columns and install a
 * delegate where a column wants a special editor.
 */
class NVRCORE_EXPORT LibraryTableView : public KvTableView
{
    Q_OBJECT
public:
    explicit LibraryTableView(QWidget *parent = nullptr);
    ~LibraryTableView() override;

    /// Shows model (through the proxy), sizes the columns to their contents unless a saved layout is known, hides the computed ones.
    void setModel(QAbstractItemModel *model) override;
    void restoreState() override;

    KvSortFilterProxyModel *proxyModel() const { return m_proxy; }
    QList<int> hiddenColumns() const { return m_hiddenColumns; }
    void setHiddenColumns(const QList<int> &columns);
    /// Edits column as a number from minimum to maximum (a whole one when whole is set),
    /// refusing other text as it is typed.
    void setNumberColumn(int column, double minimum, double maximum, bool whole = false);

protected Q_SLOTS:
    void closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint) override;

private:
    void hideComputedColumns();

    KvSortFilterProxyModel *m_proxy;
    QList<int> m_hiddenColumns;
    QMetaObject::Connection m_resetConnection;
};

#endif
