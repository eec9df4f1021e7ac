// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef KV_KVTABLEVIEW_H
#define KV_KVTABLEVIEW_H

#include "kvwidgets_export.h"

#include <QByteArray>
#include <QTableView>

/**
 * A table view whose column layout (widths, order, hidden columns) and sort
 * order persist in the application settings (KvSettings) under the view's
 * object name, so give every such view a unique object name.
 *
 * readSettings() loads the saved layout and applies it; saveSettings() takes
 * the header's current layout and writes it; restoreState() applies the
 * layout last read or saved again, for instance after a new model reset the
 * header (setModel() does that itself once a layout is known). Both settings
 * operations take a group and a key, which default to "tableviews" and the
 * object name. Nothing is saved implicitly: the owner decides when.
 *
 * Unlike a plain QTableView, moving to another row does not submit the
 * model: buffered edits stay pending until the owner submits or reverts.
 *
 * Subclasses that hide columns override setModel() and restoreState() and
 * hide them again after the base, since a restored layout may show them.
 *
 * An in-place editor writing its cell is announced before and after
 * (cellAboutToBeCommitted(), cellCommitted()), so that an owner can keep
 * what the cell and its row held before.
 */
class KVWIDGETS_EXPORT KvTableView : public QTableView
{
    Q_OBJECT
public:
    explicit KvTableView(QWidget *parent = nullptr);
    ~KvTableView() override;

    using QTableView::edit;
    void setModel(QAbstractItemModel *model) override;

    virtual void readSettings(const QString &group = QString(), const QString &key = QString());
    virtual void saveSettings(const QString &group = QString(), const QString &key = QString());
    virtual void restoreState();

Q_SIGNALS:
    void cellAboutToBeCommitted(const QModelIndex &index);
    void cellCommitted(const QModelIndex &index);

protected Q_SLOTS:
    void commitData(QWidget *editor) override;

protected:
    bool edit(const QModelIndex &index, EditTrigger trigger, QEvent *event) override;

private:
    QString settingsPath(const QString &group, const QString &key) const;

    QByteArray m_headerState;
    int m_sortColumn = -1;
    Qt::SortOrder m_sortOrder = Qt::AscendingOrder;
    QPersistentModelIndex m_editedIndex;
};

#endif
