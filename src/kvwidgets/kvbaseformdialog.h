// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef KV_KVBASEFORMDIALOG_H
#define KV_KVBASEFORMDIALOG_H

#include "kvbasedialog.h"
#include "kvcore.h"

#include <QModelIndex>

class QDataWidgetMapper;
class KvBaseFormDialogPrivate;

/**
 * A KvBaseDialog whose fields are bound to one row of a model.
 *
 * Subclasses map their editors to columns with addMapping() and are then
 * pointed at a row with setModelIndex(), together with the kind of edit
 * (edit, new, copy). The mapper submits manually: accept() writes the
 * fields into the row only once isValid() holds; a cancelled dialog writes
 * nothing, and reverting a new row is left to the caller.
 */
class KVWIDGETS_EXPORT KvBaseFormDialog : public KvBaseDialog
{
    Q_OBJECT
public:
    explicit KvBaseFormDialog(QWidget *parent = nullptr);
    ~KvBaseFormDialog() override;

    QDataWidgetMapper *mapper() const;
    void addMapping(QWidget *widget, int section);
    void addMapping(QWidget *widget, int section, const QByteArray &propertyName);

    /// Binds the form to the row of index (in index's model) for the given kind of edit.
    virtual void setModelIndex(const QModelIndex &index, KvCore::EditTypes editType = KvCore::EditRecord);
    QModelIndex modelIndex() const;
    KvCore::EditTypes editType() const;

public Q_SLOTS:
    /// Writes the editors into the row now, without closing the form.
    void commitData();
    void accept() override;

private:
    std::unique_ptr<KvBaseFormDialogPrivate> const d;
};

#endif
