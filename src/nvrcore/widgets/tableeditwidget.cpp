// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "tableeditwidget.h"

#include "classes/libraryimport.h"
#include "classes/tabseparatedtext.h"
#include "kvcore.h"
#include "kvsortfilterproxymodel.h"
#include "kvtableview.h"
#include "logger.h"
#include "widgets/libraryfileactions.h"
#include "widgets/recordhistory.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QHash>
#include <QHeaderView>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QStyle>
#include <QUndoStack>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace {
QPushButton *makeButton(QWidget *parent, const char *name, const QString &icon, const QString &toolTip)
{
    auto *button = new QPushButton(parent);
    button->setObjectName(QLatin1String(name));
    button->setIcon(QIcon(icon));
    button->setToolTip(toolTip);
    return button;
}
}

TableEditWidget::TableEditWidget(QWidget *parent) : QWidget(parent)
{
    newButton = makeButton(this, "newButton", QStringLiteral(":/images/new"), tr("New record"));
    copyButton = makeButton(this, "copyButton", QStringLiteral(":/images/copy"), tr("Copy record"));
    editButton = makeButton(this, "editButton", QStringLiteral(":/images/edit"), tr("Edit record"));
    deleteButton = makeButton(this, "deleteButton", QStringLiteral(":/images/delete"), tr("Delete selected record"));
    submitButton = makeButton(this, "submitButton", QStringLiteral(":/images/submit"), tr("Save changes"));
    revertButton = makeButton(this, "revertButton", QStringLiteral(":/images/revert"), tr("Cancel all changes"));
    copyButton->hide();
    editButton->hide();
    deleteButton->setEnabled(false);
    submitButton->setEnabled(false);
    revertButton->setEnabled(false);

    buttonsLayout = new QHBoxLayout;
    buttonsLayout->setSpacing(2);
    buttonsLayout->setContentsMargins(0, 0, 0, 0);
    for (QPushButton *button : {newButton, copyButton, editButton, deleteButton, submitButton, revertButton})
        buttonsLayout->addWidget(button);
    buttonsLayout->addStretch();
    m_importButton = new QPushButton(tr("Import..."), this);
    m_importButton->setObjectName(QStringLiteral("importButton"));
    m_importButton->setToolTip(tr("Add the user records of another installation's library file"));
    m_exportButton = new QPushButton(tr("Export..."), this);
    m_exportButton->setObjectName(QStringLiteral("exportButton"));
    m_exportButton->setToolTip(tr("Write the library or the selected records to a CSV or JSON file"));
    buttonsLayout->addWidget(m_importButton);
    buttonsLayout->addWidget(m_exportButton);

    mainLayout = new QVBoxLayout(this);
    mainLayout->setSpacing(0);
    mainLayout->setContentsMargins(0, 0, 0, 0);
    mainLayout->addLayout(buttonsLayout);

    connect(newButton, &QPushButton::clicked, this, &TableEditWidget::newClicked);
    connect(copyButton, &QPushButton::clicked, this, &TableEditWidget::copyClicked);
    connect(editButton, &QPushButton::clicked, this, &TableEditWidget::editClicked);
    connect(deleteButton, &QPushButton::clicked, this, &TableEditWidget::removeClicked);
    connect(submitButton, &QPushButton::clicked, this, &TableEditWidget::submitClicked);
    connect(revertButton, &QPushButton::clicked, this, &TableEditWidget::revertClicked);
    connect(m_importButton, &QPushButton::clicked, this, &TableEditWidget::importRecords);
    connect(m_exportButton, &QPushButton::clicked, this, &TableEditWidget::exportRecords);
    createTools();
}

TableEditWidget::~TableEditWidget()
{
    // The stack clears itself as it goes, after this widget's part is gone.
    m_undoStack->disconnect(this);
}

void TableEditWidget::setView(KvTableView *newView)
{
    if (view) {
        mainLayout->removeWidget(view);
        view->hide();
    }
    view = newView;
    for (const QMetaObject::Connection &connection : qAsConst(m_viewConnections))
        disconnect(connection);
    m_viewConnections.clear();
    m_history->setModel(targetModel());
    if (!view)
        return;
    mainLayout->addWidget(view);
    m_importButton->setHidden(!LibraryImport(targetModel()).isSupported());
    view->show();
    connect(view, &QAbstractItemView::clicked, this, &TableEditWidget::onClicked);
    if (view->model())
        connect(view->model(), &QAbstractItemModel::dataChanged, this, &TableEditWidget::enableSubmit);

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
        m_viewConnections << connect(model, &QAbstractItemModel::modelReset, this, &TableEditWidget::clearHistory);
        // The library's own questions (save before closing) then name it in words.
        if (!m_libraryName.isEmpty())
            model->setProperty("libraryName", m_libraryName);
    }
    if (KvSortFilterProxyModel *proxy = filterProxy()) {
        proxy->setFilterText(m_filterEdit->text());
        for (auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
            m_viewConnections << connect(proxy, signal, this, &TableEditWidget::updateCount);
        m_viewConnections << connect(proxy, &QAbstractItemModel::modelReset, this, &TableEditWidget::updateCount);
        m_viewConnections << connect(proxy, &QAbstractItemModel::layoutChanged, this, &TableEditWidget::updateCount);
    }
    m_filterEdit->setVisible(filterProxy() != nullptr);
    m_countLabel->setVisible(filterProxy() != nullptr);
    updateCount();
}

KvTableView *TableEditWidget::tableView() const
{
    return view;
}

int TableEditWidget::currentEditType() const
{
    return editType;
}

void TableEditWidget::readSettings()
{
    if (view)
        view->readSettings();
}

void TableEditWidget::saveSettings()
{
    if (view)
        view->saveSettings(QString(), QString());
}

void TableEditWidget::newClicked()
{
    editType = KvCore::NewRecord;
    const int row = appendRow();
    if (row < 0)
        return;
    m_history->recordInserted(tr("New record"), {row});
    setCurrentRow(row);
    enableSubmit();
}

void TableEditWidget::editClicked()
{
    editType = KvCore::EditRecord;
}

void TableEditWidget::copyClicked()
{
    editType = KvCore::CopyRecord;
    QAbstractItemModel *model = targetModel();
    const QModelIndex current = currentTargetIndex();
    if (!model || !current.isValid())
        return;
    LOG_TRACE(QStringLiteral("Row count: %1").arg(model->rowCount()));
    const int row = appendRow();
    if (row < 0)
        return;
    LOG_TRACE(QStringLiteral("Row count: %1").arg(model->rowCount()));
    for (int column = 0; column < model->columnCount(); ++column)
        model->setData(model->index(row, column), model->index(current.row(), column).data(Qt::EditRole),
                       Qt::EditRole);
    m_history->recordInserted(tr("Copy record"), {row});
    setCurrentRow(row);
    enableSubmit();
}

void TableEditWidget::removeClicked()
{
    // Several rows chosen: all of them go, after one question.
    if (selectedRows().size() > 1) {
        removeSelectedRecords();
        return;
    }
    // Without a current record (a revert resets the model) there is nothing to delete, nor to offer deleting.
    const QModelIndex current = currentTargetIndex();
    if (current.isValid()) {
        m_history->removeRecords(tr("Delete record"), {current.row()});
        enableSubmit();
    }
    deleteButton->setEnabled(false);
}

void TableEditWidget::revertClicked()
{
    if (view && view->model())
        view->model()->revert();
    clearHistory();
    submitButton->setEnabled(false);
    revertButton->setEnabled(false);
}

void TableEditWidget::submitClicked()
{
    if (view && view->model() && view->model()->submit()) {
        if (!m_historyKeptOnSave)
            clearHistory();
        submitButton->setEnabled(false);
        revertButton->setEnabled(false);
    }
}

void TableEditWidget::importRecords()
{
    QAbstractItemModel *model = targetModel();
    if (!model)
        return;
    // The merge saves the library at once, so pending edits would be saved unasked.
    if (submitButton->isEnabled()) {
        const auto answer = QMessageBox::question(
            this, tr("Import %1").arg(libraryName()),
            tr("Importing saves the library at once, with your unsaved changes.\nSave them and import?"),
            QMessageBox::Save | QMessageBox::Cancel, QMessageBox::Save);
        if (answer != QMessageBox::Save)
            return;
        submitClicked();
        if (submitButton->isEnabled())
            return;
    }
    if (LibraryFileActions::importInto(this, model, libraryName()) && !m_historyKeptOnSave)
        clearHistory();
}

void TableEditWidget::exportRecords()
{
    const QAbstractItemModel *model = targetModel();
    if (!model)
        return;
    QList<int> rows;
    if (view->selectionModel() && view->selectionModel()->hasSelection()) {
        rows = selectedRows();
        if (rows.size() == model->rowCount()) {
            rows.clear();
        } else {
            const auto answer = QMessageBox::question(
                this, tr("Export %1").arg(libraryName()),
                tr("Export only the %n selected record(s)?\nNo exports the whole library.", nullptr, rows.size()),
                QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Yes);
            if (answer == QMessageBox::Cancel)
                return;
            if (answer == QMessageBox::No)
                rows.clear();
        }
    }
    LibraryFileActions::exportFrom(this, *model, rows, libraryName());
}

void TableEditWidget::enableSubmit()
{
    submitButton->setEnabled(true);
    revertButton->setEnabled(true);
}

void TableEditWidget::onClicked(const QModelIndex &index)
{
    const bool editable = view && view->model() && (view->model()->flags(index) & Qt::ItemIsEditable);
    editButton->setEnabled(editable);
    copyButton->setEnabled(editable);
    deleteButton->setEnabled(editable);
}

QAbstractItemModel *TableEditWidget::targetModel() const
{
    if (!view)
        return nullptr;
    if (auto *proxy = qobject_cast<QSortFilterProxyModel *>(view->model()))
        return proxy->sourceModel();
    return view->model();
}

int TableEditWidget::appendRow()
{
    QAbstractItemModel *model = targetModel();
    if (!model)
        return -1;
    const int row = model->rowCount();
    return model->insertRows(row, 1) ? row : -1;
}

void TableEditWidget::setCurrentRow(int row)
{
    QAbstractItemModel *model = targetModel();
    if (!model)
        return;
    QModelIndex index = model->index(row, 0);
    if (auto *proxy = qobject_cast<QSortFilterProxyModel *>(view->model())) {
        // A record the filter hides cannot be worked on: show everything again.
        if (!proxy->mapFromSource(index).isValid() && !m_filterEdit->text().isEmpty())
            m_filterEdit->clear();
        index = proxy->mapFromSource(index);
    }
    view->setCurrentIndex(index);
}

QModelIndex TableEditWidget::currentTargetIndex() const
{
    if (!view)
        return QModelIndex();
    const QModelIndex current = view->currentIndex();
    if (auto *proxy = qobject_cast<QSortFilterProxyModel *>(view->model()))
        return proxy->mapToSource(current);
    return current;
}

QList<QAction *> TableEditWidget::editActions() const
{
    return m_editActions;
}

QList<int> TableEditWidget::selectedRows() const
{
    QList<int> rows;
    if (!view || !view->selectionModel())
        return rows;
    const auto *proxy = qobject_cast<const QSortFilterProxyModel *>(view->model());
    for (const QModelIndex &index : view->selectionModel()->selectedRows())
        rows.append(proxy ? proxy->mapToSource(index).row() : index.row());
    if (rows.isEmpty() && currentTargetIndex().isValid())
        rows.append(currentTargetIndex().row());
    std::sort(rows.begin(), rows.end());
    return rows;
}

void TableEditWidget::copySelectedRecords()
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
            cells.append(model->index(row, column).data(Qt::EditRole).toString());
        lines.append(cells);
    }
    QGuiApplication::clipboard()->setText(TabSeparatedText::write(lines));
}

void TableEditWidget::pasteRecords()
{
    if (!canPaste() || !targetModel())
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

    QAbstractItemModel *model = targetModel();
    const int before = model->rowCount();
    const QList<RecordHistory::Refusal> refusals =
        m_history->appendRecords(lines.size() == 1 ? tr("Paste record") : tr("Paste %1 records").arg(lines.size()),
                                 lines, columns);
    const int added = model->rowCount() - before;
    if (added > 0) {
        view->clearSelection();
        for (int row = before; row < model->rowCount(); ++row) {
            setCurrentRow(row);
            view->selectRow(view->currentIndex().row());
        }
        enableSubmit();
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
                    QMessageBox::Ok, this);
    box.setInformativeText(reasons.join(QLatin1Char('\n')));
    box.exec();
}

void TableEditWidget::removeSelectedRecords()
{
    QList<int> rows = selectedRows();
    const int chosen = rows.size();
    rows.erase(std::remove_if(rows.begin(), rows.end(), [this](int row) { return !isUserRecord(row); }), rows.end());
    if (rows.isEmpty())
        return;
    if (rows.size() > 1 || chosen > 1) {
        const QString library = m_libraryName.isEmpty() ? tr("the library") : m_libraryName;
        QString text = rows.size() == 1 ? tr("Delete 1 record from %1?").arg(library)
                                        : tr("Delete %1 records from %2?").arg(rows.size()).arg(library);
        if (chosen > rows.size())
            text += QLatin1Char(' ') + tr("Factory records among those chosen stay.");
        if (QMessageBox::question(this, tr("Delete records"), text, QMessageBox::Yes | QMessageBox::No,
                                  QMessageBox::No)
            != QMessageBox::Yes)
            return;
    }
    m_history->removeRecords(rows.size() == 1 ? tr("Delete record") : tr("Delete %1 records").arg(rows.size()), rows);
    enableSubmit();
    deleteButton->setEnabled(false);
}

bool TableEditWidget::isUserRecord(int row) const
{
    const QAbstractItemModel *model = targetModel();
    return model && model->columnCount() > 1 && (model->flags(model->index(row, 1)) & Qt::ItemIsEditable);
}

bool TableEditWidget::canPaste() const
{
    return view && view->editTriggers() != QAbstractItemView::NoEditTriggers;
}

void TableEditWidget::historyStepApplied()
{
    enableSubmit();
}

QString TableEditWidget::columnTitle(int column) const
{
    const QAbstractItemModel *model = targetModel();
    return model ? model->headerData(column, Qt::Horizontal).toString() : QString();
}

void TableEditWidget::createTools()
{
    m_undoStack = new QUndoStack(this);
    m_history = new RecordHistory(m_undoStack, this);
    connect(m_history, &RecordHistory::changed, this, [this] { m_stepApplied = true; });
    // Reacted to once the stack has moved, so that a save may follow the step safely.
    connect(m_undoStack, &QUndoStack::indexChanged, this, [this] {
        if (!m_stepApplied)
            return;
        m_stepApplied = false;
        historyStepApplied();
    });

    QAction *undo = m_undoStack->createUndoAction(this, tr("Undo"));
    undo->setObjectName(QStringLiteral("undoAction"));
    undo->setIcon(QIcon::fromTheme(QStringLiteral("edit-undo"), style()->standardIcon(QStyle::SP_ArrowBack)));
    undo->setShortcut(QKeySequence::Undo);
    QAction *redo = m_undoStack->createRedoAction(this, tr("Redo"));
    redo->setObjectName(QStringLiteral("redoAction"));
    redo->setIcon(QIcon::fromTheme(QStringLiteral("edit-redo"), style()->standardIcon(QStyle::SP_ArrowForward)));
    redo->setShortcuts({QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), QKeySequence(Qt::CTRL | Qt::Key_Y)});

    const auto makeAction = [this](const char *name, const QString &text, const QKeySequence &key, auto slot) {
        auto *action = new QAction(text, this);
        action->setObjectName(QLatin1String(name));
        action->setShortcut(key);
        connect(action, &QAction::triggered, this, slot);
        return action;
    };
    // The buttons' actions run only where the library's editor shows the button.
    const auto press = [](QPushButton *button) {
        return [button] {
            if (button->isVisibleTo(button->parentWidget()) && button->isEnabled())
                button->click();
        };
    };
    QAction *copy = makeAction("copyRecordsAction", tr("&Copy Records"), QKeySequence::Copy,
                               &TableEditWidget::copySelectedRecords);
    QAction *paste =
        makeAction("pasteRecordsAction", tr("&Paste Records"), QKeySequence::Paste, &TableEditWidget::pasteRecords);
    QAction *remove = makeAction("deleteRecordsAction", tr("&Delete Records"), QKeySequence::Delete,
                                 &TableEditWidget::removeSelectedRecords);
    QAction *add = makeAction("newRecordAction", tr("&New Record"), QKeySequence::New, press(newButton));
    QAction *duplicate = makeAction("copyRecordAction", tr("D&uplicate Record"), QKeySequence(Qt::CTRL | Qt::Key_D),
                                    press(copyButton));
    QAction *save = makeAction("saveAction", tr("&Save Library"), QKeySequence::Save, press(submitButton));
    QAction *find = makeAction("filterAction", tr("&Filter"), QKeySequence::Find, [this] {
        m_filterEdit->setFocus(Qt::ShortcutFocusReason);
        m_filterEdit->selectAll();
    });
    m_editActions = {undo, redo, copy, paste, remove, add, duplicate, save, find};
    for (QAction *action : qAsConst(m_editActions)) {
        // Only while the user works on this editor: every library page has its own.
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        addAction(action);
    }

    m_undoButton = new QPushButton(this);
    m_undoButton->setObjectName(QStringLiteral("undoButton"));
    m_redoButton = new QPushButton(this);
    m_redoButton->setObjectName(QStringLiteral("redoButton"));
    for (const auto &pair : {std::make_pair(m_undoButton, undo), std::make_pair(m_redoButton, redo)}) {
        // Named copies: a lambda may not capture structured bindings before C++20.
        QPushButton *button = pair.first;
        QAction *action = pair.second;
        button->setIcon(action->icon());
        button->setEnabled(action->isEnabled());
        button->setToolTip(action->text());
        connect(button, &QPushButton::clicked, action, &QAction::trigger);
        connect(action, &QAction::changed, button, [button, action] {
            button->setEnabled(action->isEnabled());
            button->setToolTip(action->text());
        });
        buttonsLayout->addWidget(button);
    }

    m_filterEdit = new QLineEdit(this);
    m_filterEdit->setObjectName(QStringLiteral("filterEdit"));
    m_filterEdit->setPlaceholderText(tr("Filter (!text hides)"));
    m_filterEdit->setClearButtonEnabled(true);
    m_filterEdit->setToolTip(tr("Shows the records in which any column contains the text; "
                                "\"!text\" shows those in which none does (%1)")
                                 .arg(find->shortcut().toString(QKeySequence::NativeText)));
    connect(m_filterEdit, &QLineEdit::textChanged, this, [this](const QString &text) {
        if (KvSortFilterProxyModel *proxy = filterProxy())
            proxy->setFilterText(text);
        updateCount();
    });
    m_countLabel = new QLabel(this);
    m_countLabel->setObjectName(QStringLiteral("countLabel"));
    buttonsLayout->addSpacing(8);
    buttonsLayout->addWidget(m_filterEdit);
    buttonsLayout->addSpacing(4);
    buttonsLayout->addWidget(m_countLabel);
    m_filterEdit->hide();
    m_countLabel->hide();
}

void TableEditWidget::updateCount()
{
    const KvSortFilterProxyModel *proxy = filterProxy();
    if (!proxy || !proxy->sourceModel())
        return;
    m_countLabel->setText(tr("%1 of %2 records").arg(proxy->rowCount()).arg(proxy->sourceModel()->rowCount()));
}

void TableEditWidget::clearHistory()
{
    m_undoStack->clear();
}

KvSortFilterProxyModel *TableEditWidget::filterProxy() const
{
    return view ? qobject_cast<KvSortFilterProxyModel *>(view->model()) : nullptr;
}

QList<int> TableEditWidget::visibleColumns() const
{
    QList<int> columns;
    if (!view || !view->model())
        return columns;
    const QHeaderView *header = view->horizontalHeader();
    for (int visual = 0; visual < header->count(); ++visual) {
        const int column = header->logicalIndex(visual);
        if (!view->isColumnHidden(column))
            columns.append(column);
    }
    return columns;
}
