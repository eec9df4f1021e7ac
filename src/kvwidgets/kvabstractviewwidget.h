// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef KV_KVABSTRACTVIEWWIDGET_H
#define KV_KVABSTRACTVIEWWIDGET_H

#include "kvwidgets_export.h"

#include <QModelIndexList>
#include <QWidget>

class QAbstractItemView;

/**
 * One item view with its controls, as a KvAbstractViewWidgetsContainer
 * holds it. The view widget only turns the user's requests into signals
 * that carry indexes of view()'s own model (a proxy, where the view shows
 * one); the container acts on them. Subclasses supply the view and the
 * controls, and emit the signals.
 */
class KVWIDGETS_EXPORT KvAbstractViewWidget : public QWidget
{
    Q_OBJECT
public:
    explicit KvAbstractViewWidget(QWidget *parent = nullptr);
    ~KvAbstractViewWidget() override;

    virtual QAbstractItemView *view() const = 0;

    /// Makes index (of view()'s model) current, selects its row and scrolls to it.
    virtual void setCurrentIndex(const QModelIndex &index);

    /// Loads and saves the view's own settings (layout, sort order) under group; the default keeps none.
    virtual void readSettings(const QString &group);
    virtual void saveSettings(const QString &group);

Q_SIGNALS:
    void newRecordRequested();
    void copyRecordRequested(const QModelIndex &index);
    void editRecordRequested(const QModelIndex &index);
    /// One index per row to delete.
    void deleteRecordsRequested(const QModelIndexList &indexes);
    void searchTextEdited(const QString &text, bool caseSensitive);
    void clicked(const QModelIndex &index);
};

#endif
