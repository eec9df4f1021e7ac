// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_LIBRARYTOOLS_H
#define NVR_LIBRARYTOOLS_H

#include "nvrcore_export.h"

#include <QModelIndex>
#include <QObject>
#include <QPointer>

#include <functional>

class KvBaseFormDialog;
class KvSortFilterProxyModel;
class KvTableView;
class QAbstractItemModel;
class QAction;
class QLabel;
class QLineEdit;
class QPushButton;
class QUndoStack;
class QWidget;
class RecordHistory;

/**
 * The spreadsheet-like tools every library editor offers, whatever kind of
 * editor it is (in place, form, form with search), so that they look and
 * answer the same everywhere:
 * - undo and redo of every change (cell edits, new, copied, deleted and
 *   pasted records, a paste being one step), with the steps named;
 * - a filter field matching any column ("!text" hides the rows that
 *   contain text) and a count of the records shown, when the view shows a
 *   KvSortFilterProxyModel; an editor with a search field of its own hands
 *   it over instead (setSearchField());
 * - several rows copied to the clipboard as tab-separated text with a
 *   header row, pasted back from a spreadsheet as new records, each checked
 *   as if the user had typed it (the library's rules, the number columns'
 *   ranges, the library's form where it has one), and deleted with one
 *   question;
 * - Import (the user records of another installation's file) and Export
 *   (CSV or JSON, the whole library or the selected records).
 *
 * The tools create their widgets as children of the editor, which lays
 * them out; the actions (editActions(), for a host's menu) have their
 * shortcuts while the focus is inside the editor. New, Duplicate and Save
 * are only requested (the signals): the editor knows how it does them.
 */
class NVRCORE_EXPORT LibraryTools : public QObject
{
    Q_OBJECT
public:
    explicit LibraryTools(QWidget *editor);
    ~LibraryTools() override;

    void setView(KvTableView *view);
    KvTableView *view() const;
    /// The model rows are added to: the view's model, or the source model behind a proxy.
    QAbstractItemModel *targetModel() const;

    /// The library's name in words, for questions and reports ("Audio systems").
    QString libraryName() const { return m_libraryName; }
    void setLibraryName(const QString &name);

    QUndoStack *undoStack() const { return m_undoStack; }
    RecordHistory *history() const { return m_history; }
    QLineEdit *filterEdit() const { return m_filterEdit; }
    QLabel *countLabel() const { return m_countLabel; }
    QPushButton *undoButton() const { return m_undoButton; }
    QPushButton *redoButton() const { return m_redoButton; }
    QPushButton *importButton() const { return m_importButton; }
    QPushButton *exportButton() const { return m_exportButton; }
    /// Undo, redo, copy, paste, delete, new, duplicate, save, filter, import and export, in menu order.
    QList<QAction *> editActions() const { return m_editActions; }
    QAction *saveAction() const { return m_saveAction; }

    /// Ctrl+F goes to field, the editor's own search; the tools' filter field then stays hidden.
    void setSearchField(QLineEdit *field);

    /// Whether a row is the user's own (only those are deleted); by default when its second column is editable.
    void setUserRecordTest(const std::function<bool(int row)> &test) { m_isUserRecord = test; }
    /// Pasted records are checked by the library's form as well, as if typed into it.
    void setRecordForm(const std::function<KvBaseFormDialog *(QWidget *parent)> &make) { m_makeForm = make; }
    /// Called before an import, which saves the library at once; false stops the import.
    void setImportGuard(const std::function<bool()> &guard) { m_importGuard = guard; }
    /// What the Delete key does; by default removeSelectedRecords().
    void setDeleteHandler(const std::function<void()> &handler) { m_delete = handler; }
    /// Libraries whose deletions are written at once ask before deleting even one record.
    void setAskBeforeEveryDelete(bool ask) { m_askBeforeEveryDelete = ask; }
    /// Libraries that save every change at once keep their undo steps across those saves.
    void setHistoryKeptOnSave(bool kept) { m_historyKeptOnSave = kept; }
    bool historyKeptOnSave() const { return m_historyKeptOnSave; }

    /// The selected rows (the current one when none is selected), in the target model's terms, ascending.
    QList<int> selectedRows() const;
    /// The view's current index in the target model's terms.
    QModelIndex currentTargetIndex() const;
    /// Makes the target model's row current in the view (column 0), clearing a filter that hides it.
    void setCurrentRow(int row);
    /// The title of a column of the target model, for step names and messages.
    QString columnTitle(int column) const;
    bool isUserRecord(int row) const;
    /// Records can be pasted where the view edits in place or a record form is set.
    bool canPaste() const;
    /// Why the record in row would not be accepted as typed; empty when it would be.
    QString refusal(int row) const;

public Q_SLOTS:
    /// Puts the selected records on the clipboard as tab-separated text below a header row.
    void copySelectedRecords();
    /// Appends the tab-separated records on the clipboard as new user records.
    void pasteRecords();
    /// Deletes the selected user records, asking once when there are several.
    void removeSelectedRecords();
    /// Merges the user records of another installation's library file.
    void importRecords();
    /// Writes the library, or the selected records, to a CSV or JSON file.
    void exportRecords();
    void clearHistory();

Q_SIGNALS:
    /// Records were pasted, or deleted, through the tools: the table has unsaved changes.
    void recordsPasted();
    void recordsRemoved();
    /// Records were imported, and the library saved with them.
    void imported();
    /// A step was undone or redone, after the stack moved, so that a save may follow safely.
    void stepApplied();
    void newRequested();
    void duplicateRequested();
    void saveRequested();

private:
    void createActions();
    void createWidgets();
    void updateCount();
    KvSortFilterProxyModel *filterProxy() const;
    /// The target model's columns in the order the view shows them, hidden ones left out.
    QList<int> visibleColumns() const;
    QString formRefusal(const QModelIndex &index) const;

    QWidget *m_editor;
    QPointer<KvTableView> m_view;
    QString m_libraryName;
    QUndoStack *m_undoStack = nullptr;
    RecordHistory *m_history = nullptr;
    QPushButton *m_undoButton = nullptr;
    QPushButton *m_redoButton = nullptr;
    QPushButton *m_importButton = nullptr;
    QPushButton *m_exportButton = nullptr;
    QLineEdit *m_filterEdit = nullptr;
    QLineEdit *m_searchField = nullptr;
    QLabel *m_countLabel = nullptr;
    QAction *m_findAction = nullptr;
    QAction *m_saveAction = nullptr;
    QList<QAction *> m_editActions;
    QList<QMetaObject::Connection> m_viewConnections;
    QVariantList m_editedBefore;
    std::function<bool(int)> m_isUserRecord;
    std::function<KvBaseFormDialog *(QWidget *)> m_makeForm;
    std::function<bool()> m_importGuard;
    std::function<void()> m_delete;
    bool m_historyKeptOnSave = false;
    bool m_askBeforeEveryDelete = false;
    bool m_stepApplied = false;
};

#endif
