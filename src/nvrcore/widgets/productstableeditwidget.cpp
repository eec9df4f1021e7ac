// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "productstableeditwidget.h"

#include "classes/productsfile.h"
#include "dialogs/productformdialog.h"
#include "kvsortfilterproxymodel.h"
#include "kvtableviewwidget.h"
#include "logger.h"
#include "models/productsmodel.h"
#include "widgets/productstableview.h"

#include <QAction>
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
    addViewWidget(m_viewWidget, QByteArrayLiteral("ProductFormDialog"));

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(m_viewWidget);

    qRegisterMetaType<ProductFormDialog *>("ProductFormDialog");
    readSettings();
}

ProductConfigsWidget::~ProductConfigsWidget()
{
    saveSettings();
}

KvTableViewWidget *ProductConfigsWidget::tableViewWidget() const
{
    return m_viewWidget;
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

void ProductConfigsWidget::afterEditRecord(int viewId, const QVariant &id, KvCore::EditTypes editType, bool flag)
{
    Q_UNUSED(viewId)
    Q_UNUSED(id)
    Q_UNUSED(editType)
    if (!flag)
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
