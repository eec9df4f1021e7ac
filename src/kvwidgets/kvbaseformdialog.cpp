// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "kvbaseformdialog.h"

#include <QDataWidgetMapper>
#include <QPersistentModelIndex>

class KvBaseFormDialogPrivate
{
public:
    QDataWidgetMapper *mapper = nullptr;
    QPersistentModelIndex index;
    KvCore::EditTypes editType = KvCore::EditRecord;
};

KvBaseFormDialog::KvBaseFormDialog(QWidget *parent) : KvBaseDialog(parent), d(new KvBaseFormDialogPrivate)
{
    d->mapper = new QDataWidgetMapper(this);
    d->mapper->setSubmitPolicy(QDataWidgetMapper::ManualSubmit);
}

KvBaseFormDialog::~KvBaseFormDialog() = default;

QDataWidgetMapper *KvBaseFormDialog::mapper() const
{
    return d->mapper;
}

void KvBaseFormDialog::addMapping(QWidget *widget, int section)
{
    d->mapper->addMapping(widget, section);
}

void KvBaseFormDialog::addMapping(QWidget *widget, int section, const QByteArray &propertyName)
{
    d->mapper->addMapping(widget, section, propertyName);
}

void KvBaseFormDialog::setModelIndex(const QModelIndex &index, KvCore::EditTypes editType)
{
    d->index = index;
    d->editType = editType;
    if (!index.isValid())
        return;
    d->mapper->setModel(const_cast<QAbstractItemModel *>(index.model()));
    d->mapper->setRootIndex(index.parent());
    d->mapper->setCurrentIndex(index.row());
    onDataChanged();
}

QModelIndex KvBaseFormDialog::modelIndex() const
{
    return d->index;
}

KvCore::EditTypes KvBaseFormDialog::editType() const
{
    return d->editType;
}

void KvBaseFormDialog::commitData()
{
    if (d->mapper->model())
        d->mapper->submit();
}

void KvBaseFormDialog::accept()
{
    if (!isValid()) {
        onDataChanged();
        return;
    }
    commitData();
    KvBaseDialog::accept();
}
