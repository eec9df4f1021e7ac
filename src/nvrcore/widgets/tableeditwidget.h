// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_TABLEEDITWIDGET_H
#define NVR_TABLEEDITWIDGET_H

#include "nvrcore_export.h"

#include <QModelIndex>
#include <QWidget>

class KvSortFilterProxyModel;
class KvTableView;
class QAbstractItemModel;
class QAction;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
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
 * Beside the buttons every library gets the same spreadsheet-like tools:
 * - undo and redo of every change (cell edits, new, copied, deleted and
 *   pasted records, a paste being one step) until the library is saved or
 *   reverted; the steps are named ("Undo Edit Model");
 * - a filter field matching any column ("!text" hides the rows that
 *   contain text) and a count of the records shown, when the view shows a
 *   KvSortFilterProxyModel;
 * - several rows selected at once, copied to the clipboard as tab-separated
 *   text with a header row, pasted back from a spreadsheet as new records
 *   (each checked by the library, the refused ones listed with the
 *   library's reason), and deleted with one question;
 * - Import (the user records of another installation's file, merged and
 *   saved at once; libraries without user records do not offer it) and
 *   Export (CSV or JSON, the whole library or the selected records).
 * editActions() gives the actions with their shortcuts, for a host's menu.
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
    QString libraryName() const { return m_libraryName; }
    void setLibraryName(const QString &name) { m_libraryName = name; }

    QUndoStack *undoStack() const { return m_undoStack; }
    RecordHistory *history() const { return m_history; }
    QLineEdit *filterEdit() const { return m_filterEdit; }
    QLabel *countLabel() const { return m_countLabel; }
    /// Undo, redo, copy, paste, delete, new, save and filter, with their shortcuts, in menu order.
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

    /// Puts the selected records on the clipboard as tab-separated text below a header row.
    void copySelectedRecords();
    /// Appends the tab-separated records on the clipboard as new user records.
    void pasteRecords();
    /// Deletes the selected user records, asking once when there are several.
    virtual void removeSelectedRecords();
    /// Merges the user records of another installation's library file, after saving pending changes.
    void importRecords();
    /// Writes the library, or the selected records, to a CSV or JSON file.
    void exportRecords();

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
    /// Whether records can be pasted: by default where the view edits in place.
    virtual bool canPaste() const;
    /// A step was undone or redone; by default offers to save or cancel.
    virtual void historyStepApplied();
    /// Libraries that save every change at once keep their undo steps across those saves.
    void setHistoryKeptOnSave(bool kept) { m_historyKeptOnSave = kept; }
    /// The name of column of the target model, for step names and messages.
    QString columnTitle(int column) const;

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
    void createTools();
    void updateCount();
    void clearHistory();
    KvSortFilterProxyModel *filterProxy() const;
    /// The target model's columns in the order the view shows them, hidden ones left out.
    QList<int> visibleColumns() const;

    QString m_libraryName;
    QUndoStack *m_undoStack = nullptr;
    RecordHistory *m_history = nullptr;
    QPushButton *m_undoButton = nullptr;
    QPushButton *m_redoButton = nullptr;
    QPushButton *m_importButton = nullptr;
    QPushButton *m_exportButton = nullptr;
    QLineEdit *m_filterEdit = nullptr;
    QLabel *m_countLabel = nullptr;
    QList<QAction *> m_editActions;
    QList<QMetaObject::Connection> m_viewConnections;
    QVariantList m_editedBefore;
    bool m_historyKeptOnSave = false;
    bool m_stepApplied = false;
};

#endif
