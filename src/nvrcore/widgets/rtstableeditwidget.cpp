// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "rtstableeditwidget.h"

#include "classes/rtsfile.h"
#include "dialogs/rtformdialog.h"
#include "models/rtssortfilterproxymodel.h"
#include "models/rtstablemodel.h"
#include "widgets/librarytools.h"
#include "widgets/recordhistory.h"
#include "widgets/rtstableview.h"

#include <QIcon>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QUndoStack>

#include <memory>

namespace {
constexpr int savedMessageMs = 1500;
}

RtsTableEditWidget::RtsTableEditWidget(QWidget *parent) : TableEditWidget(parent), m_view(nullptr)
{
    setObjectName(QStringLiteral("RtsTableEditWidget"));
    // Loads the library if nobody has yet, so that what is shown is what gets saved.
    RtsFile::instance();
    RtsTableModel *model = RtsTableModel::instance();

    m_view = new RtsTableView(this);
    m_view->setObjectName(QStringLiteral("radiosTableView3"));
    m_view->setModel(model);

    newButton->setIcon(QIcon(QStringLiteral(":/icons/record-add")));
    newButton->setToolTip(tr("New Radio"));
    editButton->show();
    submitButton->setIcon(QIcon(QStringLiteral(":/icons/filesave")));
    submitButton->hide();
    revertButton->hide();
    deleteButton->hide();

    setView(m_view);
    connect(model, &QAbstractItemModel::dataChanged, this, &RtsTableEditWidget::enableSubmit);

    // Like every library: copy and delete of the user's radios, undone and redone as they were made.
    // Every change is saved at once here, so those saves keep the undo steps.
    setLibraryName(tr("Radios"));
    m_view->proxyModel()->setNaturalSort(true);
    copyButton->setToolTip(tr("Copy Radio"));
    copyButton->show();
    deleteButton->setToolTip(tr("Delete selected radios"));
    deleteButton->show();
    setHistoryKeptOnSave(true);
    // Radios pasted from a spreadsheet must pass what the form asks of a typed one.
    tools()->setRecordForm([](QWidget *parent) { return new RtFormDialog(parent); });
}

RtsTableEditWidget::~RtsTableEditWidget() = default;

RtsTableView *RtsTableEditWidget::rtsTableView() const
{
    return m_view;
}

bool RtsTableEditWidget::editRecord(const QModelIndex &index, const KvCore::EditTypes &editType)
{
    beforeEditRecord(index, editType);
    auto dialog = std::make_unique<RtFormDialog>(this);
    dialog->setModelIndex(index, editType);
    const bool accepted = dialog->exec() == QDialog::Accepted;
    if (accepted)
        submitClicked();
    dialog.reset();
    afterEditRecord(index, editType, accepted);
    return accepted;
}

void RtsTableEditWidget::newClicked()
{
    editType = KvCore::NewRecord;
    const int row = appendRow();
    if (row < 0)
        return;
    if (editRecord(targetModel()->index(row, RtsTableModel::IdColumn), KvCore::NewRecord))
        setCurrentRow(row);
}

void RtsTableEditWidget::editClicked()
{
    TableEditWidget::editClicked();
    const QModelIndex current = currentTargetIndex();
    if (!current.isValid())
        return;
    const QPersistentModelIndex row(current);
    editRecord(current, KvCore::EditRecord);
    if (row.isValid())
        setCurrentRow(row.row());
}

void RtsTableEditWidget::copyClicked()
{
    editType = KvCore::CopyRecord;
    const QModelIndex current = currentTargetIndex();
    if (!current.isValid())
        return;
    const int row = appendRow();
    if (row < 0)
        return;
    // The copy keeps its new id; the form then asks for a name of its own.
    QAbstractItemModel *model = targetModel();
    for (int column = RtsTableModel::IdColumn + 1; column < RtsTableModel::SelectStringColumn; ++column)
        model->setData(model->index(row, column), model->index(current.row(), column).data(Qt::EditRole));
    if (editRecord(model->index(row, RtsTableModel::IdColumn), KvCore::CopyRecord))
        setCurrentRow(row);
}

void RtsTableEditWidget::removeClicked()
{
    // A factory transceiver's receiver-list cell is editable; the radio is still not the user's to delete.
    const QModelIndex current = currentTargetIndex();
    if (selectedRows().size() <= 1 && current.isValid() && !isUserRecord(current.row()))
        return;
    const int before = undoStack()->index();
    TableEditWidget::removeClicked();
    saveIfChanged(before);
}

void RtsTableEditWidget::removeSelectedRecords()
{
    const int before = undoStack()->index();
    TableEditWidget::removeSelectedRecords();
    saveIfChanged(before);
}

void RtsTableEditWidget::historyStepApplied()
{
    TableEditWidget::historyStepApplied();
    submitClicked();
}

void RtsTableEditWidget::recordsPasted()
{
    TableEditWidget::recordsPasted();
    submitClicked();
}

void RtsTableEditWidget::saveIfChanged(int stepBefore)
{
    if (undoStack()->index() != stepBefore && RtsFile::instance()->isModified())
        submitClicked();
}

void RtsTableEditWidget::submitClicked()
{
    TableEditWidget::submitClicked();
    if (!RtsFile::instance()->saveFiles())
        return;
    auto *box = new QMessageBox(QMessageBox::Information, tr("File Saved"), tr("Radios Data Saved"));
    // A passing confirmation: nothing to answer, and it must not block the editor.
    box->setWindowModality(Qt::NonModal);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->show();
    QTimer::singleShot(savedMessageMs, box, &QMessageBox::close);
    submitButton->setEnabled(false);
}

void RtsTableEditWidget::enableSubmit()
{
    TableEditWidget::enableSubmit();
    RtsFile::instance()->setModified(true);
}

void RtsTableEditWidget::beforeEditRecord(const QModelIndex &index, const KvCore::EditTypes &)
{
    m_formBefore = history()->rowValues(index.row());
}

void RtsTableEditWidget::afterEditRecord(const QModelIndex &index, const KvCore::EditTypes &editType, bool accepted)
{
    if (accepted) {
        if (editType == KvCore::EditRecord)
            history()->recordEdit(tr("Edit Radio"), index.row(), m_formBefore);
        else
            history()->recordInserted(editType == KvCore::CopyRecord ? tr("Copy Radio") : tr("New Radio"),
                                      {index.row()});
        return;
    }
    if (editType == KvCore::EditRecord)
        return;
    // A cancelled new record must not stay behind. Reverting also gives its id back, unless the
    // form already wrote the row (a type change does), in which case the row is removed instead.
    QAbstractItemModel *model = targetModel();
    const int row = index.row();
    const QVariant id = model->index(row, RtsTableModel::IdColumn).data(Qt::EditRole);
    model->revert();
    if (row < model->rowCount() && model->index(row, RtsTableModel::IdColumn).data(Qt::EditRole) == id) {
        model->removeRows(row, 1);
        model->submit();
    }
}
