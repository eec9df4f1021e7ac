// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "treeview.h"

#include "kvsettings.h"

#include <QCursor>
#include <QHeaderView>
#include <QMenu>

TreeView::TreeView(QWidget *parent) : QTreeView(parent)
{
    setObjectName(QStringLiteral("TreeView"));
    setContextMenuPolicy(Qt::CustomContextMenu);
    connect(this, &QWidget::customContextMenuRequested, this, &TreeView::contextMenu);
}

TreeView::~TreeView() = default;

void TreeView::saveState(const QString &key)
{
    KvSettings settings;
    settings.setValue(settingsKey(key), header()->saveState());
}

void TreeView::restoreState(const QString &key)
{
    KvSettings settings;
    header()->restoreState(settings.value(settingsKey(key)).toByteArray());
}

void TreeView::contextMenu(const QPoint &pos)
{
    Q_UNUSED(pos)
    // Shown where the mouse is, also when the request came from the keyboard.
    QMenu menu(this);
    menu.addAction(tr("Expand All"), this, &QTreeView::expandAll);
    menu.addAction(tr("Collapse All"), this, &QTreeView::collapseAll);
    menu.exec(QCursor::pos());
}

QString TreeView::settingsKey(const QString &key) const
{
    return QStringLiteral("views/") + (key.isEmpty() ? objectName() : key);
}
