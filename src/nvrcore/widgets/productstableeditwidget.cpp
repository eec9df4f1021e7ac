// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "productstableeditwidget.h"

#include "classes/productsfile.h"
#include "dialogs/productformdialog.h"
#include "kvsortfilterproxymodel.h"
#include "kvtableviewwidget.h"
#include "logger.h"
#include "models/productsmodel.h"
#include "widgets/librarytools.h"
#include "widgets/productstableview.h"
#include "widgets/recordhistory.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolBar>
#include <QVBoxLayout>

ProductConfigsWidget::ProductConfigsWidget(QWidget *parent)
    : KvAbstractViewWidgetsContainer(QString(), parent), m_viewWidget(nullptr)
{
    setObjectName(QStringLiteral("ProductConfigsWidget"));
    // Loads the products file if nobody has yet, so that what is shown is what gets saved.
    ProductsFile::instance();

    auto *view = new ProductsTableView;
    view->setModel(ProductsModel::instance());
    m_viewWidget = new KvTableViewWidget(view, QStringLiteral("ProductConfigsWidget"), this);
    m_viewWidget->setOptions(KvTableViewWidget::EditInForm);
    m_viewWidget->newAction()->setToolTip(tr("New Product Configuration"));
    const int viewId = addViewWidget(m_viewWidget, QByteArrayLiteral("ProductFormDialog"));

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(m_viewWidget);

    qRegisterMetaType<ProductFormDialog *>("ProductFormDialog");
    createTools(viewId);
    readSettings();
}

void ProductConfigsWidget::createTools(int viewId)
{
    m_tools = new LibraryTools(this);
    m_tools->setLibraryName(tr("Product configurations"));
    m_tools->setSearchField(m_viewWidget->searchEdit());
    m_tools->setView(m_viewWidget->tableView());
    // Every change is saved at once here, so those saves keep the undo steps.
    m_tools->setHistoryKeptOnSave(true);
    m_tools->setAskBeforeEveryDelete(true);
    m_tools->setRecordForm([](QWidget *parent) { return new ProductFormDialog(parent); });
    m_tools->saveAction()->setVisible(false);

    // The same places as on the other library pages: the tools between the record actions and the search.
    QToolBar *bar = m_viewWidget->toolBar();
    QAction *search = nullptr;
    for (QAction *action : bar->actions()) {
        if (bar->widgetForAction(action) == m_viewWidget->searchEdit())
            search = action;
    }
    for (QWidget *tool : {m_tools->importButton(), m_tools->exportButton(), m_tools->undoButton(),
                          m_tools->redoButton()}) {
        // A tool bar hides its widgets through the actions that hold them: Import, where there is nothing to import.
        const bool hidden = tool->testAttribute(Qt::WA_WState_ExplicitShowHide) && tool->isHidden();
        bar->insertWidget(search, tool)->setVisible(!hidden);
    }
    bar->addWidget(m_tools->countLabel());

    // Deleting through the tools makes it a step that can be undone; it is asked and saved like any deletion.
    disconnect(m_viewWidget, &KvAbstractViewWidget::deleteRecordsRequested, this, nullptr);
    connect(m_viewWidget, &KvAbstractViewWidget::deleteRecordsRequested, m_tools,
            &LibraryTools::removeSelectedRecords);
    connect(m_tools, &LibraryTools::recordsRemoved, this, [this, viewId] {
        ProductsModel::instance()->submit();
        afterDeleteRecords(viewId);
    });
    connect(m_tools, &LibraryTools::recordsPasted, this, &ProductConfigsWidget::saveProducts);
    connect(m_tools, &LibraryTools::stepApplied, this, &ProductConfigsWidget::saveProducts);
    const auto trigger = [](QAction *action) {
        return [action] {
            if (action->isVisible() && action->isEnabled())
                action->trigger();
        };
    };
    connect(m_tools, &LibraryTools::newRequested, this, trigger(m_viewWidget->newAction()));
    connect(m_tools, &LibraryTools::duplicateRequested, this, trigger(m_viewWidget->copyAction()));
}

ProductConfigsWidget::~ProductConfigsWidget()
{
    saveSettings();
}

KvTableViewWidget *ProductConfigsWidget::tableViewWidget() const
{
    return m_viewWidget;
}

QList<QAction *> ProductConfigsWidget::editActions() const
{
    return m_tools->editActions();
}

void ProductConfigsWidget::searchTextEdited(int viewId, const QString &text, bool flag)
{
    LOG_TRACE(QStringLiteral("%1 %2 %3")
                  .arg(objectName(), text, flag ? QStringLiteral("true") : QStringLiteral("false")));
    KvAbstractViewWidget *widget = viewWidget(viewId);
    auto *view = widget ? qobject_cast<KvTableView *>(widget->view()) : nullptr;
    if (!view) {
        LOG_ERROR(QStringLiteral(" View not derived from KvTableView"));
        return;
    }
    if (!qobject_cast<KvSortFilterProxyModel *>(view->model())) {
        LOG_ERROR(QStringLiteral("Not derived from KvSortFilterProxyModel"));
        return;
    }
    KvAbstractViewWidgetsContainer::searchTextEdited(viewId, text, flag);
}

void ProductConfigsWidget::viewClicked(int viewId, const QModelIndex &index)
{
    Q_UNUSED(viewId)
    const auto *proxy = qobject_cast<const QSortFilterProxyModel *>(index.model());
    const QModelIndex source = proxy ? proxy->mapToSource(index) : index;
    const QStringList revisions = ProductsModel::instance()->buildConfigurations(source);
    for (const QString &revision : revisions)
        LOG_TRACE(revision);
}

void ProductConfigsWidget::beforeCopyRecord(int viewId, const QModelIndex &source, const QModelIndex &target)
{
    Q_UNUSED(viewId)
    ProductsModel::instance()->copy(source, target);
}

void ProductConfigsWidget::beforeEditRecord(int viewId, const QModelIndex &sourceIndex, KvCore::EditTypes editType)
{
    Q_UNUSED(viewId)
    Q_UNUSED(editType)
    m_formRow = sourceIndex;
    m_formBefore = m_tools->history()->rowValues(sourceIndex.row());
}

void ProductConfigsWidget::afterEditRecord(int viewId, const QVariant &id, KvCore::EditTypes editType, bool flag)
{
    Q_UNUSED(viewId)
    Q_UNUSED(id)
    if (flag)
        return;
    if (m_formRow.isValid()) {
        RecordHistory *history = m_tools->history();
        if (editType == KvCore::EditRecord)
            history->recordEdit(tr("Edit product configuration"), m_formRow.row(), m_formBefore);
        else
            history->recordInserted(editType == KvCore::CopyRecord ? tr("Copy product configuration")
                                                                   : tr("New product configuration"),
                                    {m_formRow.row()});
    }
    saveProducts();
}

void ProductConfigsWidget::afterDeleteRecords(int viewId)
{
    Q_UNUSED(viewId)
    saveProducts();
}

void ProductConfigsWidget::saveProducts()
{
    ProductsFile *file = ProductsFile::instance();
    // Marked first, so that a failed save is offered again when the application closes.
    file->setModified(true);
    file->saveFile(QString());
}
