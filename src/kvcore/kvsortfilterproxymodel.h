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
 * unless the search asks for it. A search starting with '!' shows the rows
 * that do not contain the rest instead.
 *
 * The search adds to the filter of QSortFilterProxyModel: a row must pass
 * both. Rows are filtered again as the source changes (dynamic filtering
 * stays on).
 *
 * Beside the search, a filter text typed by the user: a row passes when
 * any column's display text contains it, case ignored; a text starting
 * with '!' shows only the rows in which no column contains the rest. Both
 * the search and the filter text must pass.
 *
 * With natural sorting on, rows sort the way people read them: case is
 * ignored, digit runs compare as numbers ("KX155" before "KX1967") and
 * numbers with a decimal point compare by value ("0.25 Vrms" before "0.5 Vrms").
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

    QString filterText() const;
    /// Shows only the rows matching text (see above); an empty text shows all.
    void setFilterText(const QString &text);

    bool isNaturalSort() const;
    void setNaturalSort(bool natural);

    /// Whether left sorts before right in natural order (see above).
    static bool naturalLessThan(const QVariant &left, const QVariant &right);

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const override;
    bool lessThan(const QModelIndex &left, const QModelIndex &right) const override;

private:
    QList<int> m_searchColumns;
    QString m_searchString;
    Qt::CaseSensitivity m_searchCase = Qt::CaseInsensitive;
    QString m_filterText;
    bool m_naturalSort = false;
};

#endif
