// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "tableeditwidget.h"

#include "kvcore.h"
#include "kvtableview.h"
#include "logger.h"
#include "widgets/librarytools.h"
#include "widgets/recordhistory.h"

#include <QAction>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QUndoStack>
#include <QVBoxLayout>

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

    m_tools = new LibraryTools(this);
    buttonsLayout = new QHBoxLayout;
    buttonsLayout->setSpacing(2);
    buttonsLayout->setContentsMargins(0, 0, 0, 0);
    for (QPushButton *button : {newButton, copyButton, editButton, deleteButton, submitButton, revertButton})
        buttonsLayout->addWidget(button);
    buttonsLayout->addStretch();
    for (QWidget *tool : {m_tools->importButton(), m_tools->exportButton(), m_tools->undoButton(),
                          m_tools->redoButton()})
        buttonsLayout->addWidget(tool);
    buttonsLayout->addSpacing(8);
    buttonsLayout->addWidget(m_tools->filterEdit());
    buttonsLayout->addSpacing(4);
    buttonsLayout->addWidget(m_tools->countLabel());

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

    // The menu's actions press the buttons, and only where the library's editor shows them.
    const auto press = [](QPushButton *button) {
        return [button] {
            if (button->isVisibleTo(button->parentWidget()) && button->isEnabled())
                button->click();
        };
    };
    connect(m_tools, &LibraryTools::newRequested, this, press(newButton));
    connect(m_tools, &LibraryTools::duplicateRequested, this, press(copyButton));
    connect(m_tools, &LibraryTools::saveRequested, this, press(submitButton));
    connect(m_tools, &LibraryTools::stepApplied, this, [this] { historyStepApplied(); });
    connect(m_tools, &LibraryTools::recordsPasted, this, [this] { recordsPasted(); });
    // The merge saved the library: nothing is left to save or cancel.
    connect(m_tools, &LibraryTools::imported, this, [this] {
        submitButton->setEnabled(false);
        revertButton->setEnabled(false);
    });
    m_tools->setDeleteHandler([this] { removeSelectedRecords(); });
    m_tools->setUserRecordTest([this](int row) { return isUserRecord(row); });
    // The merge saves the library at once, so pending edits would be saved unasked.
    m_tools->setImportGuard([this] {
        if (!submitButton->isEnabled())
            return true;
        const auto answer = QMessageBox::question(
            this, tr("Import %1").arg(libraryName()),
            tr("Importing saves the library at once, with your unsaved changes.\nSave them and import?"),
            QMessageBox::Save | QMessageBox::Cancel, QMessageBox::Save);
        if (answer != QMessageBox::Save)
            return false;
        submitClicked();
        return !submitButton->isEnabled();
    });
}

TableEditWidget::~TableEditWidget() = default;

void TableEditWidget::setView(KvTableView *newView)
{
    if (view) {
        mainLayout->removeWidget(view);
        view->hide();
    }
    view = newView;
    m_tools->setView(view);
    if (!view)
        return;
    mainLayout->addWidget(view);
    view->show();
    connect(view, &QAbstractItemView::clicked, this, &TableEditWidget::onClicked);
    if (view->model())
        connect(view->model(), &QAbstractItemModel::dataChanged, this, &TableEditWidget::enableSubmit);
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

QString TableEditWidget::libraryName() const
{
    return m_tools->libraryName();
}

void TableEditWidget::setLibraryName(const QString &name)
{
    m_tools->setLibraryName(name);
}

QUndoStack *TableEditWidget::undoStack() const
{
    return m_tools->undoStack();
}

RecordHistory *TableEditWidget::history() const
{
    return m_tools->history();
}

QLineEdit *TableEditWidget::filterEdit() const
{
    return m_tools->filterEdit();
}

QLabel *TableEditWidget::countLabel() const
{
    return m_tools->countLabel();
}

QList<QAction *> TableEditWidget::editActions() const
{
    return m_tools->editActions();
}

QList<int> TableEditWidget::selectedRows() const
{
    return m_tools->selectedRows();
}

void TableEditWidget::newClicked()
{
    editType = KvCore::NewRecord;
    const int row = appendRow();
    if (row < 0)
        return;
    history()->recordInserted(tr("New record"), {row});
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
    history()->recordInserted(tr("Copy record"), {row});
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
        history()->removeRecords(tr("Delete record"), {current.row()});
        enableSubmit();
    }
    deleteButton->setEnabled(false);
}

void TableEditWidget::removeSelectedRecords()
{
    const int before = undoStack()->index();
    m_tools->removeSelectedRecords();
    if (undoStack()->index() == before)
        return;
    enableSubmit();
    deleteButton->setEnabled(false);
}

void TableEditWidget::revertClicked()
{
    if (view && view->model())
        view->model()->revert();
    m_tools->clearHistory();
    submitButton->setEnabled(false);
    revertButton->setEnabled(false);
}

void TableEditWidget::submitClicked()
{
    if (view && view->model() && view->model()->submit()) {
        if (!m_tools->historyKeptOnSave())
            m_tools->clearHistory();
        submitButton->setEnabled(false);
        revertButton->setEnabled(false);
    }
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
    return m_tools->targetModel();
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
    m_tools->setCurrentRow(row);
}

QModelIndex TableEditWidget::currentTargetIndex() const
{
    return m_tools->currentTargetIndex();
}

bool TableEditWidget::isUserRecord(int row) const
{
    const QAbstractItemModel *model = targetModel();
    return model && model->columnCount() > 1 && (model->flags(model->index(row, 1)) & Qt::ItemIsEditable);
}

void TableEditWidget::historyStepApplied()
{
    enableSubmit();
}

void TableEditWidget::recordsPasted()
{
    enableSubmit();
}

void TableEditWidget::setHistoryKeptOnSave(bool kept)
{
    m_tools->setHistoryKeptOnSave(kept);
}
