// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_RTSTABLEVIEWDELEGATE_H
#define NVR_RTSTABLEVIEWDELEGATE_H

#include "nvrcore_export.h"

#include <QStyledItemDelegate>

/**
 * Edits the type column of the radio table with a drop-down list of the
 * type names (as the model lists them), storing the chosen position as the
 * type; every other column is edited as usual. Install it on an
 * RtsTableView where the type may be changed in place.
 */
class NVRCORE_EXPORT RtsTableViewDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    explicit RtsTableViewDelegate(QObject *parent = nullptr);
    ~RtsTableViewDelegate() override;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;
};

#endif
