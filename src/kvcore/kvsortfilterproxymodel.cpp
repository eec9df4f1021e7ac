// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "kvsortfilterproxymodel.h"

#include <QStringView>

#include <algorithm>

namespace {
/// The length of the number (digits, optionally a decimal point and more digits) at position, or 0.
int numberLength(QStringView text, int position)
{
    int end = position;
    while (end < text.size() && text.at(end).isDigit())
        ++end;
    if (end > position && end + 1 < text.size() && text.at(end) == QLatin1Char('.') && text.at(end + 1).isDigit()) {
        ++end;
        while (end < text.size() && text.at(end).isDigit())
            ++end;
    }
    return end - position;
}

int naturalCompare(QStringView left, QStringView right)
{
    int l = 0;
    int r = 0;
    while (l < left.size() && r < right.size()) {
        const int leftNumber = numberLength(left, l);
        const int rightNumber = numberLength(right, r);
        if (leftNumber > 0 && rightNumber > 0) {
            const double a = left.mid(l, leftNumber).toString().toDouble();
            const double b = right.mid(r, rightNumber).toString().toDouble();
            if (a != b)
                return a < b ? -1 : 1;
            l += leftNumber;
            r += rightNumber;
            continue;
        }
        const int order = QStringView(left.mid(l, 1)).compare(right.mid(r, 1), Qt::CaseInsensitive);
        if (order != 0)
            return order;
        ++l;
        ++r;
    }
    if (l < left.size() || r < right.size())
        return l < left.size() ? 1 : -1;
    // Equal but for case: equal, so that a further column (or the library's order) decides.
    return 0;
}

}

KvSortFilterProxyModel::KvSortFilterProxyModel(QObject *parent) : QSortFilterProxyModel(parent)
{
}

KvSortFilterProxyModel::~KvSortFilterProxyModel() = default;

QList<int> KvSortFilterProxyModel::searchColumns() const
{
    return m_searchColumns;
}

void KvSortFilterProxyModel::setSearchColumns(const QList<int> &columns)
{
    if (columns == m_searchColumns)
        return;
    m_searchColumns = columns;
    if (!m_searchString.isEmpty())
        invalidateFilter();
}

QString KvSortFilterProxyModel::searchString() const
{
    return m_searchString;
}

bool KvSortFilterProxyModel::isSearchCaseSensitive() const
{
    return m_searchCase == Qt::CaseSensitive;
}

void KvSortFilterProxyModel::setSearchString(const QString &text, bool caseSensitive)
{
    const Qt::CaseSensitivity searchCase = caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive;
    if (text == m_searchString && searchCase == m_searchCase)
        return;
    m_searchString = text;
    m_searchCase = searchCase;
    invalidateFilter();
}

QString KvSortFilterProxyModel::filterText() const
{
    return m_filterText;
}

void KvSortFilterProxyModel::setFilterText(const QString &text)
{
    if (text == m_filterText)
        return;
    m_filterText = text;
    invalidateFilter();
}

bool KvSortFilterProxyModel::isNaturalSort() const
{
    return m_naturalSort;
}

void KvSortFilterProxyModel::setNaturalSort(bool natural)
{
    if (natural == m_naturalSort)
        return;
    m_naturalSort = natural;
    invalidate();
}

bool KvSortFilterProxyModel::naturalLessThan(const QVariant &left, const QVariant &right)
{
    return naturalCompare(left.toString().trimmed(), right.toString().trimmed()) < 0;
}

bool KvSortFilterProxyModel::lessThan(const QModelIndex &left, const QModelIndex &right) const
{
    if (!m_naturalSort)
        return QSortFilterProxyModel::lessThan(left, right);
    return naturalLessThan(left.data(sortRole()), right.data(sortRole()));
}

bool KvSortFilterProxyModel::filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const
{
    if (!QSortFilterProxyModel::filterAcceptsRow(sourceRow, sourceParent))
        return false;
    const QAbstractItemModel *source = sourceModel();
    if (!source || (m_filterText.isEmpty() && m_searchString.isEmpty()))
        return true;
    QList<int> allColumns;
    for (int column = 0; column < source->columnCount(sourceParent); ++column)
        allColumns.append(column);
    // A leading '!' turns a text round: the row passes when no column contains the rest.
    const auto passes = [&](const QString &text, const QList<int> &columns, Qt::CaseSensitivity sensitivity) {
        const bool exclude = text.startsWith(QLatin1Char('!'));
        const QString wanted = exclude ? text.mid(1) : text;
        if (wanted.isEmpty())
            return true;
        const bool found = std::any_of(columns.cbegin(), columns.cend(), [&](int column) {
            return column >= 0 && column < allColumns.size()
                   && source->index(sourceRow, column, sourceParent)
                          .data(Qt::DisplayRole)
                          .toString()
                          .contains(wanted, sensitivity);
        });
        return found != exclude;
    };
    return passes(m_filterText, allColumns, Qt::CaseInsensitive)
           && passes(m_searchString, m_searchColumns.isEmpty() ? allColumns : m_searchColumns, m_searchCase);
}
