// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "rtstableeditwidget.h"

#include "classes/rtsfile.h"
#include "dialogs/rtformdialog.h"
#include "models/rtstablemodel.h"
#include "widgets/rtstableview.h"

#include <QIcon>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

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

void RtsTableEditWidget::beforeEditRecord(const QModelIndex &, const KvCore::EditTypes &)
{
}

void RtsTableEditWidget::afterEditRecord(const QModelIndex &index, const KvCore::EditTypes &editType, bool accepted)
{
    if (accepted || editType == KvCore::EditRecord)
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
