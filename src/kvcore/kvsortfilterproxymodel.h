// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef KV_KVSORTFILTERPROXYMODEL_H
#define KV_KVSORTFILTERPROXYMODEL_H

#include "kvcore_export.h"

#include <QList>
#include <QSortFilterProxyModel>

/**
 * A sort/filter proxy with a search: a row passes when the search string
 * is empty or when the display text of one of the search columns contains
 * it. Without search columns every column is searched. Case is ignored
 * unless the search asks for it.
 *
 * The search adds to the filter of QSortFilterProxyModel: a row must pass
 * both. Rows are filtered again as the source changes (dynamic filtering
 * stays on).
 */
class KVCORE_EXPORT KvSortFilterProxyModel : public QSortFilterProxyModel
{
    Q_OBJECT
public:
    explicit KvSortFilterProxyModel(QObject *parent = nullptr);
    ~KvSortFilterProxyModel() override;

    QList<int> searchColumns() const;
    /// Columns of the source model to search; an empty list searches them all.
    void setSearchColumns(const QList<int> &columns);

    QString searchString() const;
    bool isSearchCaseSensitive() const;
    /// Shows only the rows that contain text, matching case when caseSensitive is set.
    void setSearchString(const QString &text, bool caseSensitive = false);

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const override;

private:
    QList<int> m_searchColumns;
    QString m_searchString;
    Qt::CaseSensitivity m_searchCase = Qt::CaseInsensitive;
};

#endif
