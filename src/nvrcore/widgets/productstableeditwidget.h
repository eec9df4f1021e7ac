// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_PRODUCTSTABLEEDITWIDGET_H
#define NVR_PRODUCTSTABLEEDITWIDGET_H

#include "nvrcore_export.h"

#include "kvabstractviewwidgetscontainer.h"

#include <QPersistentModelIndex>
#include <QVariant>

class KvTableViewWidget;
class LibraryTools;

/**
 * The product configurations editor: the ProductsModel singleton (loaded
 * through ProductsFile on construction) in a ProductsTableView with new,
 * copy, edit and delete actions and a search field. Rows are edited in a
 * ProductFormDialog only (a double click opens it too). Every completed
 * form and every deletion writes the whole products file at once; there
 * is no save button. A save that fails leaves the file marked modified,
 * so that closing the application offers to save it again.
 *
 * Beside them sit the tools every library editor shares (LibraryTools):
 * undo and redo of every form, paste and deletion (each step saved at once
 * like the change itself), the count of records shown, copy and paste of
 * rows through the clipboard (pasted rows must pass the form's rules) and
 * Export. Deleting goes through the tools, so that it can be undone.
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
    LibraryTools *tools() const { return m_tools; }
    /// The shared tools' actions with their shortcuts, for a host's menu.
    QList<QAction *> editActions() const;

    void searchTextEdited(int viewId, const QString &text, bool flag) override;
    /// Logs the revision letters of the clicked row's product.
    void viewClicked(int viewId, const QModelIndex &index) override;
    void beforeCopyRecord(int viewId, const QModelIndex &source, const QModelIndex &target) override;
    void beforeEditRecord(int viewId, const QModelIndex &sourceIndex, KvCore::EditTypes editType) override;
    void afterEditRecord(int viewId, const QVariant &id, KvCore::EditTypes editType, bool flag) override;
    void afterDeleteRecords(int viewId) override;

private:
    void saveProducts();
    void createTools(int viewId);

    KvTableViewWidget *m_viewWidget;
    LibraryTools *m_tools = nullptr;
    QPersistentModelIndex m_formRow;
    QVariantList m_formBefore;
};

#endif
