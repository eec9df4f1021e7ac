// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_PRODUCTSTABLEEDITWIDGET_H
#define NVR_PRODUCTSTABLEEDITWIDGET_H

#include "nvrcore_export.h"

#include "kvabstractviewwidgetscontainer.h"

class KvTableViewWidget;

/**
 * The product configurations editor: the ProductsModel singleton (loaded
 * through ProductsFile on construction) in a ProductsTableView with new,
 * copy, edit and delete actions and a search field. Rows are edited in a
 * ProductFormDialog only (a double click opens it too). Every completed
 * form and every deletion writes the whole products file at once; there
 * is no save button. A save that fails leaves the file marked modified,
 * so that closing the application offers to save it again.
 *
 * The table's layout is read on construction and kept on destruction.
 */
class NVRCORE_EXPORT ProductConfigsWidget : public KvAbstractViewWidgetsContainer
{
    Q_OBJECT
public:
    explicit ProductConfigsWidget(QWidget *parent = nullptr);
    ~ProductConfigsWidget() override;

    KvTableViewWidget *tableViewWidget() const;

    void searchTextEdited(int viewId, const QString &text, bool flag) override;
    /// Logs the revision letters of the clicked row's product.
    void viewClicked(int viewId, const QModelIndex &index) override;
    void beforeCopyRecord(int viewId, const QModelIndex &source, const QModelIndex &target) override;
    void afterEditRecord(int viewId, const QVariant &id, KvCore::EditTypes editType, bool flag) override;
    void afterDeleteRecords(int viewId) override;

private:
    void saveProducts();

    KvTableViewWidget *m_viewWidget;
};

#endif
