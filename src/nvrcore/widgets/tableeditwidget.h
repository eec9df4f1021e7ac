// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_TABLEEDITWIDGET_H
#define NVR_TABLEEDITWIDGET_H

#include "nvrcore_export.h"

#include <QModelIndex>
#include <QWidget>

class KvTableView;
class QAbstractItemModel;
class QHBoxLayout;
class QPushButton;
class QVBoxLayout;

/**
 * The frame of every library editor: a row of icon buttons (new, copy,
 * edit, delete, save, cancel) above one table view, turning presses into
 * row operations on the view's model (its source model when the view shows
 * a proxy). Save and cancel are enabled from the first change until a
 * successful submit or a revert; edit, copy and delete follow the
 * editability of the last clicked cell. Copy and edit start hidden.
 *
 * A library's editor subclasses it, creates its view and hands it to
 * setView(), configures the buttons (icons, tooltips, which are shown) and
 * overrides the slots it reacts to, calling the base. editType tells the
 * kind of edit under way: 0 edit, 1 new, 2 copy (KvCore::EditTypes).
 */
class NVRCORE_EXPORT TableEditWidget : public QWidget
{
    Q_OBJECT
public:
    explicit TableEditWidget(QWidget *parent = nullptr);
    ~TableEditWidget() override;

    /// Shows view below the buttons instead of the previous one, which is hidden but stays connected.
    void setView(KvTableView *view);
    KvTableView *tableView() const;
    int currentEditType() const;

    void readSettings();
    void saveSettings();

public Q_SLOTS:
    virtual void newClicked();
    virtual void editClicked();
    virtual void copyClicked();
    virtual void removeClicked();
    virtual void revertClicked();
    virtual void submitClicked();
    virtual void enableSubmit();
    virtual void onClicked(const QModelIndex &index);

protected:
    /// The model rows are added to: the view's model, or the source model behind a proxy.
    QAbstractItemModel *targetModel() const;
    /// Appends one row to targetModel(); the new row, or -1 when the model refused.
    int appendRow();
    /// Makes the target model's row current in the view (column 0).
    void setCurrentRow(int row);
    /// The view's current index in the target model's terms.
    QModelIndex currentTargetIndex() const;

    KvTableView *view = nullptr;
    QPushButton *newButton = nullptr;
    QPushButton *copyButton = nullptr;
    QPushButton *editButton = nullptr;
    QPushButton *revertButton = nullptr;
    QPushButton *submitButton = nullptr;
    QPushButton *deleteButton = nullptr;
    QHBoxLayout *buttonsLayout = nullptr;
    QVBoxLayout *mainLayout = nullptr;
    int editType = 0;
};

#endif
