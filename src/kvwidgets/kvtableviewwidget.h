// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef KV_KVTABLEVIEWWIDGET_H
#define KV_KVTABLEVIEWWIDGET_H

#include "kvabstractviewwidget.h"

#include <memory>

class KvTableView;
class QAction;
class QLineEdit;
class QToolBar;
class KvTableViewWidgetPrivate;

/**
 * A KvTableView below a tool bar with new, copy, edit and delete actions
 * and a search field (with a match-case switch). The widget takes the view
 * as its child; give the view its model first, since the actions follow
 * the view's selection. Copy and edit act on the current row, delete on
 * every selected row; the three are enabled while the current cell is
 * editable.
 *
 * The options hide controls or change how rows are edited; by default
 * every control shows and the view keeps its own edit triggers.
 */
class KVWIDGETS_EXPORT KvTableViewWidget : public KvAbstractViewWidget
{
    Q_OBJECT
public:
    enum Option {
        NoOptions = 0x00,
        HideSearch = 0x01,
        HideNew = 0x02,
        HideCopy = 0x04,
        HideEdit = 0x08,
        HideDelete = 0x10,
        /// Rows are edited in the form only: a double click asks for it, cells are not edited in place.
        EditInForm = 0x20,
    };
    Q_DECLARE_FLAGS(Options, Option)
    Q_FLAG(Options)

    explicit KvTableViewWidget(KvTableView *view, const QString &name = QString(), QWidget *parent = nullptr);
    ~KvTableViewWidget() override;

    QAbstractItemView *view() const override;
    KvTableView *tableView() const;

    Options options() const;
    void setOptions(Options options);

    QAction *newAction() const;
    QAction *copyAction() const;
    QAction *editAction() const;
    QAction *deleteAction() const;
    QLineEdit *searchEdit() const;
    /// The bar holding the actions and the search field, for controls of the view's owner.
    QToolBar *toolBar() const;

    void readSettings(const QString &group) override;
    void saveSettings(const QString &group) override;

private:
    void updateActions();
    void emitSearch();
    QModelIndexList selectedRows() const;

    std::unique_ptr<KvTableViewWidgetPrivate> const d;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(KvTableViewWidget::Options)

#endif
