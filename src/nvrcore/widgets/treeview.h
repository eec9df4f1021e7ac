// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_TREEVIEW_H
#define NVR_TREEVIEW_H

#include "nvrcore_export.h"

#include <QTreeView>

class QUrl;

/**
 * A tree view with an "Expand All" / "Collapse All" context menu, whose
 * header layout can be kept in the application settings under "views/".
 * linkClicked() is for the view's owners; the view never emits it itself.
 */
class NVRCORE_EXPORT TreeView : public QTreeView
{
    Q_OBJECT
public:
    explicit TreeView(QWidget *parent = nullptr);
    ~TreeView() override;

    /// Saves the header layout under "views/<key>", or "views/<objectName()>" when key is empty.
    void saveState(const QString &key = QString());
    void restoreState(const QString &key = QString());

public Q_SLOTS:
    void contextMenu(const QPoint &pos);

Q_SIGNALS:
    void linkClicked(const QUrl &url);

private:
    QString settingsKey(const QString &key) const;
};

#endif
