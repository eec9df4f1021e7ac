// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "kvbaseformdialog.h"

#include <QDataWidgetMapper>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QVector>

class KvBaseFormDialogPrivate
{
public:
    struct Mapping
    {
        QPointer<QWidget> widget;
        int section;
        QByteArray propertyName;
    };

    void apply(const Mapping &mapping) const
    {
        if (!mapping.widget)
            return;
        if (mapping.propertyName.isEmpty())
            mapper->addMapping(mapping.widget, mapping.section);
        else
            mapper->addMapping(mapping.widget, mapping.section, mapping.propertyName);
    }

    QDataWidgetMapper *mapper = nullptr;
    // QDataWidgetMapper::setModel() drops its mappings, so they are kept here to be applied again.
    QVector<Mapping> mappings;
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
    addMapping(widget, section, QByteArray());
}

void KvBaseFormDialog::addMapping(QWidget *widget, int section, const QByteArray &propertyName)
{
    d->mappings.append({widget, section, propertyName});
    d->apply(d->mappings.constLast());
}

void KvBaseFormDialog::setModelIndex(const QModelIndex &index, KvCore::EditTypes editType)
{
    d->index = index;
    d->editType = editType;
    if (!index.isValid())
        return;
    if (d->mapper->model() != index.model()) {
        d->mapper->setModel(const_cast<QAbstractItemModel *>(index.model()));
        for (const auto &mapping : qAsConst(d->mappings))
            d->apply(mapping);
    }
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
