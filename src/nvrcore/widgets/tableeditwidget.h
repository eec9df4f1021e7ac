// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_TABLEEDITWIDGET_H
#define NVR_TABLEEDITWIDGET_H

#include "nvrcore_export.h"

#include <QModelIndex>
#include <QWidget>

class KvTableView;
class QAbstractItemModel;
class QAction;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class LibraryTools;
class QUndoStack;
class QVBoxLayout;
class RecordHistory;

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
 *
 * Right of the buttons sit the tools every library editor shares
 * (LibraryTools): import, export, undo, redo, the filter and the count.
 * editActions() gives their actions with their shortcuts, for a host's menu.
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

    /// The library's name in words, for questions and reports ("Audio systems").
    QString libraryName() const;
    void setLibraryName(const QString &name);

    LibraryTools *tools() const { return m_tools; }
    QUndoStack *undoStack() const;
    RecordHistory *history() const;
    QLineEdit *filterEdit() const;
    QLabel *countLabel() const;
    /// Undo, redo, copy, paste, delete, new, save, filter, import and export, with their shortcuts, in menu order.
    QList<QAction *> editActions() const;

    /// The selected rows (the current one when none is selected), in the target model's terms, ascending.
    QList<int> selectedRows() const;

public Q_SLOTS:
    virtual void newClicked();
    virtual void editClicked();
    virtual void copyClicked();
    virtual void removeClicked();
    virtual void revertClicked();
    virtual void submitClicked();
    virtual void enableSubmit();
    virtual void onClicked(const QModelIndex &index);

    /// Deletes the selected user records, asking once when there are several.
    virtual void removeSelectedRecords();

protected:
    /// The model rows are added to: the view's model, or the source model behind a proxy.
    QAbstractItemModel *targetModel() const;
    /// Appends one row to targetModel(); the new row, or -1 when the model refused.
    int appendRow();
    /// Makes the target model's row current in the view (column 0).
    void setCurrentRow(int row);
    /// The view's current index in the target model's terms.
    QModelIndex currentTargetIndex() const;
    /// Whether the row is the user's own (only those are deleted): by default when its name column is editable.
    virtual bool isUserRecord(int row) const;
    /// A step was undone or redone; by default offers to save or cancel.
    virtual void historyStepApplied();
    /// Records were pasted through the tools; by default offers to save or cancel.
    virtual void recordsPasted();
    /// Libraries that save every change at once keep their undo steps across those saves.
    void setHistoryKeptOnSave(bool kept);

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

private:
    LibraryTools *m_tools = nullptr;
};

#endif
