// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "librarytools.h"

#include "classes/libraryimport.h"
#include "classes/tabseparatedtext.h"
#include "kvbaseformdialog.h"
#include "kvsortfilterproxymodel.h"
#include "kvtableview.h"
#include "widgets/libraryfileactions.h"
#include "widgets/numberdelegate.h"
#include "widgets/recordhistory.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHash>
#include <QHeaderView>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QStyle>
#include <QTextDocumentFragment>
#include <QUndoStack>

#include <algorithm>
#include <memory>
#include <utility>

namespace {
/// A cell as a spreadsheet should get it: the value, or the word the library shows for a code ("Receiver" for 2).
QString cellText(const QModelIndex &index)
{
    const QVariant value = index.data(Qt::EditRole);
    const QString text = value.toString();
    bool code = value.userType() == QMetaType::Bool;
    if (!code)
        text.toLongLong(&code);
    const QString shown = index.data(Qt::DisplayRole).toString();
    bool number = false;
    shown.toDouble(&number);
    return !code || number || shown.isEmpty() || shown.startsWith(text) ? text : shown;
}

/// The words a column shows for its codes (in lower case), each with the code it stands for.
QHash<QString, QString> wordsOfColumn(const QAbstractItemModel &model, int column)
{
    QHash<QString, QString> codes;
    for (int row = 0; row < model.rowCount(); ++row) {
        const QModelIndex index = model.index(row, column);
        const QString word = cellText(index);
        const QString code = index.data(Qt::EditRole).toString();
        if (word != code)
            codes.insert(word.toLower(), code);
    }
    return codes;
}
}

LibraryTools::LibraryTools(QWidget *editor) : QObject(editor), m_editor(editor)
{
    m_undoStack = new QUndoStack(this);
    m_history = new RecordHistory(m_undoStack, this);
    connect(m_history, &RecordHistory::changed, this, [this] { m_stepApplied = true; });
    connect(m_undoStack, &QUndoStack::indexChanged, this, [this] {
        if (!m_stepApplied)
            return;
        m_stepApplied = false;
        Q_EMIT stepApplied();
    });
    createActions();
    createWidgets();
}

LibraryTools::~LibraryTools()
{
    // The stack clears itself as it goes, after this object's part is gone.
    m_undoStack->disconnect(this);
}

void LibraryTools::createActions()
{
    QAction *undo = m_undoStack->createUndoAction(this, tr("Undo"));
    undo->setObjectName(QStringLiteral("undoAction"));
    undo->setIcon(QIcon::fromTheme(QStringLiteral("edit-undo"),
                                   m_editor->style()->standardIcon(QStyle::SP_ArrowBack)));
    undo->setShortcut(QKeySequence::Undo);
    QAction *redo = m_undoStack->createRedoAction(this, tr("Redo"));
    redo->setObjectName(QStringLiteral("redoAction"));
    redo->setIcon(QIcon::fromTheme(QStringLiteral("edit-redo"),
                                   m_editor->style()->standardIcon(QStyle::SP_ArrowForward)));
    redo->setShortcuts({QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)});

    const auto makeAction = [this](const char *name, const QString &text, const QKeySequence &key, auto slot) {
        auto *action = new QAction(text, this);
        action->setObjectName(QLatin1String(name));
        action->setShortcut(key);
        connect(action, &QAction::triggered, this, slot);
        return action;
    };
    QAction *copy = makeAction("copyRecordsAction", tr("&Copy Records"), QKeySequence::Copy,
                               &LibraryTools::copySelectedRecords);
    QAction *paste =
        makeAction("pasteRecordsAction", tr("&Paste Records"), QKeySequence::Paste, &LibraryTools::pasteRecords);
    QAction *remove = makeAction("deleteRecordsAction", tr("&Delete Records"), QKeySequence::Delete, [this] {
        if (m_delete)
            m_delete();
        else
            removeSelectedRecords();
    });
    QAction *add = makeAction("newRecordAction", tr("&New Record"), QKeySequence::New, &LibraryTools::newRequested);
    QAction *duplicate = makeAction("copyRecordAction", tr("D&uplicate Record"), QKeySequence(Qt::CTRL | Qt::Key_D),
                                    &LibraryTools::duplicateRequested);
    m_saveAction = makeAction("saveAction", tr("&Save Library"), QKeySequence::Save, &LibraryTools::saveRequested);
    m_findAction = makeAction("filterAction", tr("&Filter"), QKeySequence::Find, [this] {
        QLineEdit *field = m_searchField ? m_searchField : m_filterEdit;
        field->setFocus(Qt::ShortcutFocusReason);
        field->selectAll();
    });
    QAction *importRecords = makeAction("importAction", tr("&Import Records..."), QKeySequence(),
                                        &LibraryTools::importRecords);
    QAction *exportRecords = makeAction("exportAction", tr("E&xport Records..."), QKeySequence(),
                                        &LibraryTools::exportRecords);
    m_editActions = {undo, redo, copy, paste, remove, add, duplicate, m_saveAction, m_findAction, importRecords,
                     exportRecords};
    for (QAction *action : qAsConst(m_editActions)) {
        // Only while the user works on this editor: every library page has its own.
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        m_editor->addAction(action);
    }
}

void LibraryTools::createWidgets()
{
    const auto makeButton = [this](const char *name, QAction *action) {
        auto *button = new QPushButton(m_editor);
        button->setObjectName(QLatin1String(name));
        button->setIcon(action->icon());
        button->setEnabled(action->isEnabled());
        button->setToolTip(action->text());
        connect(button, &QPushButton::clicked, action, &QAction::trigger);
        connect(action, &QAction::changed, button, [button, action] {
            button->setEnabled(action->isEnabled());
            button->setToolTip(action->text());
        });
        return button;
    };
    m_undoButton = makeButton("undoButton", m_editActions.at(0));
    m_redoButton = makeButton("redoButton", m_editActions.at(1));

    m_importButton = new QPushButton(tr("Import..."), m_editor);
    m_importButton->setObjectName(QStringLiteral("importButton"));
    m_importButton->setToolTip(tr("Add the user records of another installation's library file"));
    connect(m_importButton, &QPushButton::clicked, this, &LibraryTools::importRecords);
    m_exportButton = new QPushButton(tr("Export..."), m_editor);
    m_exportButton->setObjectName(QStringLiteral("exportButton"));
    m_exportButton->setToolTip(tr("Write the library or the selected records to a CSV or JSON file"));
    connect(m_exportButton, &QPushButton::clicked, this, &LibraryTools::exportRecords);

    m_filterEdit = new QLineEdit(m_editor);
    m_filterEdit->setObjectName(QStringLiteral("filterEdit"));
    m_filterEdit->setPlaceholderText(tr("Filter (!text hides)"));
    m_filterEdit->setClearButtonEnabled(true);
    m_filterEdit->setToolTip(tr("Shows the records in which any column contains the text; "
                                "\"!text\" shows those in which none does (%1)")
                                 .arg(m_findAction->shortcut().toString(QKeySequence::NativeText)));
    connect(m_filterEdit, &QLineEdit::textChanged, this, [this](const QString &text) {
        if (KvSortFilterProxyModel *proxy = filterProxy())
            proxy->setFilterText(text);
        updateCount();
    });
    m_countLabel = new QLabel(m_editor);
    m_countLabel->setObjectName(QStringLiteral("countLabel"));
    m_filterEdit->hide();
    m_countLabel->hide();
}

void LibraryTools::setLibraryName(const QString &name)
{
    m_libraryName = name;
    // The library's own questions (save before closing) then name it in words.
    if (QAbstractItemModel *model = targetModel())
        model->setProperty("libraryName", name);
}

void LibraryTools::setSearchField(QLineEdit *field)
{
    m_searchField = field;
    m_filterEdit->hide();
}

void LibraryTools::setView(KvTableView *view)
{
    m_view = view;
    for (const QMetaObject::Connection &connection : qAsConst(m_viewConnections))
        disconnect(connection);
    m_viewConnections.clear();
    m_history->setModel(targetModel());
    if (!view)
        return;
    const bool importable = LibraryImport(targetModel()).isSupported();
    m_importButton->setHidden(!importable);
    m_editActions.at(9)->setVisible(importable);
    view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_viewConnections << connect(view, &KvTableView::cellAboutToBeCommitted, this, [this](const QModelIndex &index) {
        const auto *proxy = qobject_cast<const QSortFilterProxyModel *>(index.model());
        m_editedBefore = m_history->rowValues(proxy ? proxy->mapToSource(index).row() : index.row());
    });
    m_viewConnections << connect(view, &KvTableView::cellCommitted, this, [this](const QModelIndex &index) {
        const auto *proxy = qobject_cast<const QSortFilterProxyModel *>(index.model());
        const QModelIndex source = proxy ? proxy->mapToSource(index) : index;
        m_history->recordEdit(tr("Edit %1").arg(columnTitle(source.column())), source.row(), m_editedBefore);
        m_editedBefore.clear();
    });
    if (QAbstractItemModel *model = targetModel()) {
        m_viewConnections << connect(model, &QAbstractItemModel::modelReset, this, &LibraryTools::clearHistory);
        if (!m_libraryName.isEmpty())
            model->setProperty("libraryName", m_libraryName);
    }
    KvSortFilterProxyModel *proxy = filterProxy();
    if (proxy) {
        if (!m_searchField)
            proxy->setFilterText(m_filterEdit->text());
        // The source's own signals too: the proxy drops a row before its source has, so the total lags behind.
        for (QAbstractItemModel *model : {static_cast<QAbstractItemModel *>(proxy), proxy->sourceModel()}) {
            for (auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved}) {
                if (model)
                    m_viewConnections << connect(model, signal, this, &LibraryTools::updateCount);
            }
        }
        m_viewConnections << connect(proxy, &QAbstractItemModel::modelReset, this, &LibraryTools::updateCount);
        m_viewConnections << connect(proxy, &QAbstractItemModel::layoutChanged, this, &LibraryTools::updateCount);
    }
    m_filterEdit->setVisible(proxy && !m_searchField);
    m_countLabel->setVisible(proxy != nullptr);
    updateCount();
}

KvTableView *LibraryTools::view() const
{
    return m_view;
}

QAbstractItemModel *LibraryTools::targetModel() const
{
    if (!m_view)
        return nullptr;
    if (auto *proxy = qobject_cast<QSortFilterProxyModel *>(m_view->model()))
        return proxy->sourceModel();
    return m_view->model();
}

QList<int> LibraryTools::selectedRows() const
{
    QList<int> rows;
    if (!m_view || !m_view->selectionModel())
        return rows;
    const auto *proxy = qobject_cast<const QSortFilterProxyModel *>(m_view->model());
    for (const QModelIndex &index : m_view->selectionModel()->selectedRows())
        rows.append(proxy ? proxy->mapToSource(index).row() : index.row());
    if (rows.isEmpty() && currentTargetIndex().isValid())
        rows.append(currentTargetIndex().row());
    std::sort(rows.begin(), rows.end());
    return rows;
}

QModelIndex LibraryTools::currentTargetIndex() const
{
    if (!m_view)
        return QModelIndex();
    const QModelIndex current = m_view->currentIndex();
    if (auto *proxy = qobject_cast<QSortFilterProxyModel *>(m_view->model()))
        return proxy->mapToSource(current);
    return current;
}

void LibraryTools::setCurrentRow(int row)
{
    QAbstractItemModel *model = targetModel();
    if (!model)
        return;
    QModelIndex index = model->index(row, 0);
    if (auto *proxy = qobject_cast<QSortFilterProxyModel *>(m_view->model())) {
        // A record the filter hides cannot be worked on: show everything again.
        if (!proxy->mapFromSource(index).isValid()) {
            if (m_searchField && !m_searchField->text().isEmpty()) {
                m_searchField->clear();
                // Typed clearing is what the editor's search follows.
                Q_EMIT m_searchField->textEdited(QString());
            } else if (!m_searchField && !m_filterEdit->text().isEmpty()) {
                m_filterEdit->clear();
            }
        }
        index = proxy->mapFromSource(index);
    }
    m_view->setCurrentIndex(index);
}

QString LibraryTools::columnTitle(int column) const
{
    const QAbstractItemModel *model = targetModel();
    return model ? model->headerData(column, Qt::Horizontal).toString() : QString();
}

bool LibraryTools::isUserRecord(int row) const
{
    if (m_isUserRecord)
        return m_isUserRecord(row);
    const QAbstractItemModel *model = targetModel();
    return model && model->columnCount() > 1 && (model->flags(model->index(row, 1)) & Qt::ItemIsEditable);
}

bool LibraryTools::canPaste() const
{
    return m_view && (m_view->editTriggers() != QAbstractItemView::NoEditTriggers || m_makeForm);
}

QString LibraryTools::refusal(int row) const
{
    QAbstractItemModel *model = targetModel();
    if (!model || !m_view)
        return QString();
    for (int column : visibleColumns()) {
        const QModelIndex index = model->index(row, column);
        if (const auto *numbers = qobject_cast<const NumberDelegate *>(m_view->itemDelegateForColumn(column))) {
            const QString note = numbers->refusal(index.data(Qt::EditRole).toString(), index);
            if (!note.isEmpty())
                return note;
        }
    }
    return m_makeForm ? formRefusal(model->index(row, 0)) : QString();
}

QString LibraryTools::formRefusal(const QModelIndex &index) const
{
    const std::unique_ptr<KvBaseFormDialog> form(m_makeForm(m_editor));
    if (!form)
        return QString();
    form->setModelIndex(index, KvCore::NewRecord);
    QStringList reasons;
    QStringList empty;
    // Each field's own input rule first, as the form would have stopped the typing.
    const QList<QLabel *> labels = form->findChildren<QLabel *>();
    for (QLabel *label : labels) {
        auto *field = qobject_cast<QLineEdit *>(label->buddy());
        if (!field)
            continue;
        const QString name = label->text().remove(QLatin1Char('&')).remove(QLatin1Char(':')).trimmed();
        QString text = field->text();
        int position = 0;
        if (field->validator() && field->validator()->validate(text, position) != QValidator::Acceptable)
            reasons.append(tr("%1: \"%2\" is not accepted").arg(name, text));
        else if (text.isEmpty())
            empty.append(name);
    }
    if (!reasons.isEmpty())
        return reasons.join(QLatin1String("; "));
    if (form->isValid())
        return QString();
    // The form's own messages say why; where it shows none, the empty fields are the cause.
    for (QLabel *label : labels) {
        if (label->buddy() || !label->isVisibleTo(form.get()) || label->text().isEmpty())
            continue;
        const QString text = QTextDocumentFragment::fromHtml(label->text()).toPlainText().trimmed();
        if (!text.isEmpty() && !text.endsWith(QLatin1Char(':')))
            reasons.append(text);
    }
    if (reasons.isEmpty() && !empty.isEmpty())
        reasons.append(tr("empty: %1").arg(empty.join(QLatin1String(", "))));
    return reasons.join(QLatin1String("; "));
}

void LibraryTools::copySelectedRecords()
{
    QAbstractItemModel *model = targetModel();
    const QList<int> rows = selectedRows();
    if (!model || rows.isEmpty())
        return;
    const QList<int> columns = visibleColumns();
    QList<QStringList> lines;
    QStringList header;
    for (int column : columns)
        header.append(columnTitle(column));
    lines.append(header);
    for (int row : rows) {
        QStringList cells;
        for (int column : columns)
            cells.append(cellText(model->index(row, column)));
        lines.append(cells);
    }
    QGuiApplication::clipboard()->setText(TabSeparatedText::write(lines));
}

void LibraryTools::pasteRecords()
{
    QAbstractItemModel *model = targetModel();
    if (!model || !canPaste())
        return;
    QList<QStringList> lines = TabSeparatedText::read(QGuiApplication::clipboard()->text());
    if (lines.isEmpty())
        return;
    QList<int> columns = visibleColumns();
    // A header row (as copied from here) says which column each cell belongs to.
    QHash<QString, int> byTitle;
    for (int column : qAsConst(columns))
        byTitle.insert(columnTitle(column).trimmed().toLower(), column);
    const QStringList &first = lines.constFirst();
    const bool header = std::all_of(first.cbegin(), first.cend(),
                                    [&](const QString &cell) { return byTitle.contains(cell.trimmed().toLower()); });
    if (header) {
        columns.clear();
        for (const QString &cell : first)
            columns.append(byTitle.value(cell.trimmed().toLower()));
        lines.removeFirst();
    }
    if (lines.isEmpty())
        return;
    // Words copied for codes ("Receiver") are read back as the codes.
    for (int i = 0; i < columns.size(); ++i) {
        const QHash<QString, QString> codes = wordsOfColumn(*model, columns.at(i));
        for (QStringList &line : lines) {
            if (!codes.isEmpty() && i < line.size())
                line[i] = codes.value(line.at(i).trimmed().toLower(), line.at(i));
        }
    }

    const int before = model->rowCount();
    const QList<RecordHistory::Refusal> refusals = m_history->appendRecords(
        [](int kept) { return kept == 1 ? tr("Paste record") : tr("Paste %1 records").arg(kept); }, lines, columns,
        [this](int row) { return refusal(row); });
    const int added = model->rowCount() - before;
    if (added > 0) {
        m_view->clearSelection();
        for (int row = before; row < model->rowCount(); ++row) {
            setCurrentRow(row);
            m_view->selectRow(m_view->currentIndex().row());
        }
        Q_EMIT recordsPasted();
    }
    if (refusals.isEmpty())
        return;
    QStringList reasons;
    for (const RecordHistory::Refusal &refusal : refusals) {
        const QString reason = refusal.reason.isEmpty() ? tr("a value was not accepted") : refusal.reason;
        reasons.append(tr("Row %1: %2").arg(refusal.line + 1).arg(reason));
    }
    QMessageBox box(QMessageBox::Warning, tr("Paste"),
                    tr("%1 of %2 records were added to %3; these were refused:")
                        .arg(added)
                        .arg(lines.size())
                        .arg(m_libraryName.isEmpty() ? tr("the library") : m_libraryName),
                    QMessageBox::Ok, m_editor);
    box.setInformativeText(reasons.join(QLatin1Char('\n')));
    box.exec();
}

void LibraryTools::removeSelectedRecords()
{
    QList<int> rows = selectedRows();
    const int chosen = rows.size();
    rows.erase(std::remove_if(rows.begin(), rows.end(), [this](int row) { return !isUserRecord(row); }), rows.end());
    if (rows.isEmpty())
        return;
    if (rows.size() > 1 || chosen > 1 || m_askBeforeEveryDelete) {
        const QString library = m_libraryName.isEmpty() ? tr("the library") : m_libraryName;
        QString text = rows.size() == 1 ? tr("Delete 1 record from %1?").arg(library)
                                        : tr("Delete %1 records from %2?").arg(rows.size()).arg(library);
        if (chosen > rows.size())
            text += QLatin1Char(' ') + tr("Factory records among those chosen stay.");
        if (QMessageBox::question(m_editor, tr("Delete records"), text, QMessageBox::Yes | QMessageBox::No,
                                  QMessageBox::No)
            != QMessageBox::Yes)
            return;
    }
    m_history->removeRecords(rows.size() == 1 ? tr("Delete record") : tr("Delete %1 records").arg(rows.size()), rows);
    Q_EMIT recordsRemoved();
}

void LibraryTools::importRecords()
{
    QAbstractItemModel *model = targetModel();
    if (!model || (m_importGuard && !m_importGuard()))
        return;
    if (!LibraryFileActions::importInto(m_editor, model, m_libraryName))
        return;
    if (!m_historyKeptOnSave)
        clearHistory();
    Q_EMIT imported();
}

void LibraryTools::exportRecords()
{
    const QAbstractItemModel *model = targetModel();
    if (!model)
        return;
    QList<int> rows;
    if (m_view->selectionModel() && m_view->selectionModel()->hasSelection()) {
        rows = selectedRows();
        if (rows.size() == model->rowCount()) {
            rows.clear();
        } else {
            const auto answer = QMessageBox::question(
                m_editor, tr("Export %1").arg(m_libraryName),
                (rows.size() == 1 ? tr("Export only the selected record?")
                                  : tr("Export only the %1 selected records?").arg(rows.size()))
                    + QLatin1Char('\n') + tr("No exports the whole library."),
                QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Yes);
            if (answer == QMessageBox::Cancel)
                return;
            if (answer == QMessageBox::No)
                rows.clear();
        }
    }
    LibraryFileActions::exportFrom(m_editor, *model, rows, m_libraryName);
}

void LibraryTools::clearHistory()
{
    m_undoStack->clear();
}

void LibraryTools::updateCount()
{
    const KvSortFilterProxyModel *proxy = filterProxy();
    if (!proxy || !proxy->sourceModel())
        return;
    m_countLabel->setText(tr("%1 of %2 records").arg(proxy->rowCount()).arg(proxy->sourceModel()->rowCount()));
}

KvSortFilterProxyModel *LibraryTools::filterProxy() const
{
    return m_view ? qobject_cast<KvSortFilterProxyModel *>(m_view->model()) : nullptr;
}

QList<int> LibraryTools::visibleColumns() const
{
    QList<int> columns;
    if (!m_view || !m_view->model())
        return columns;
    const QHeaderView *header = m_view->horizontalHeader();
    for (int visual = 0; visual < header->count(); ++visual) {
        const int column = header->logicalIndex(visual);
        if (!m_view->isColumnHidden(column))
            columns.append(column);
    }
    return columns;
}
