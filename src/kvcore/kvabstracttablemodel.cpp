// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "kvabstracttablemodel.h"

#include <QColor>
#include <QJsonObject>
#include <QJsonValue>

KvAbstractTableModel::KvAbstractTableModel(const QStringList &columnKeys, ModelOptions options, QObject *parent)
    : QAbstractTableModel(parent), m_keys(columnKeys), m_options(options)
{
}

KvAbstractTableModel::~KvAbstractTableModel() = default;

QStringList KvAbstractTableModel::columnKeys() const
{
    return m_keys;
}

KvAbstractTableModel::ModelOptions KvAbstractTableModel::modelOptions() const
{
    return m_options;
}

int KvAbstractTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_rows.size();
}

int KvAbstractTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_keys.size();
}

bool KvAbstractTableModel::isCell(const QModelIndex &index) const
{
    return index.isValid() && index.model() == this && !index.parent().isValid() && index.row() < m_rows.size()
        && index.column() < m_keys.size();
}

QVariant KvAbstractTableModel::data(const QModelIndex &index, int role) const
{
    if (!isCell(index))
        return QVariant();
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return m_rows.at(index.row()).at(index.column());
    case ItemIsValidRole:
        return itemIsValid(index);
    case Qt::BackgroundRole:
        // Light enough that the text stays readable, and visible on an empty cell.
        return itemIsValid(index) ? QVariant() : QVariant(QColor(255, 200, 200));
    default:
        return QVariant();
    }
}

bool KvAbstractTableModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!isCell(index) || (role != Qt::EditRole && role != Qt::DisplayRole))
        return false;
    QVariant &cell = m_rows[index.row()][index.column()];
    // Compare types too: "1" replacing 1 is a change a file would show.
    if (cell.userType() == value.userType() && cell == value)
        return true;
    cell = value;
    m_modified = true;
    Q_EMIT dataChanged(index, index, {Qt::DisplayRole, Qt::EditRole});
    return true;
}

Qt::ItemFlags KvAbstractTableModel::flags(const QModelIndex &index) const
{
    if (!isCell(index))
        return Qt::NoItemFlags;
    Qt::ItemFlags result = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    if (!m_options.testFlag(ReadOnly))
        result |= Qt::ItemIsEditable;
    return result;
}

bool KvAbstractTableModel::insertRows(int row, int count, const QModelIndex &parent)
{
    if (parent.isValid() || count <= 0 || row < 0 || row > m_rows.size())
        return false;
    beginInsertRows(parent, row, row + count - 1);
    m_rows.insert(row, count, QVector<QVariant>(m_keys.size()));
    m_modified = true;
    endInsertRows();
    return true;
}

bool KvAbstractTableModel::removeRows(int row, int count, const QModelIndex &parent)
{
    if (parent.isValid() || count <= 0 || row < 0 || row + count > m_rows.size())
        return false;
    beginRemoveRows(parent, row, row + count - 1);
    m_rows.remove(row, count);
    m_modified = true;
    endRemoveRows();
    return true;
}

bool KvAbstractTableModel::itemIsValid(const QModelIndex &index) const
{
    Q_UNUSED(index)
    return true;
}

QList<int> KvAbstractTableModel::findRows(int column, const QVariant &value) const
{
    QList<int> rows;
    if (m_rows.isEmpty() || column < 0 || column >= m_keys.size())
        return rows;
    const QModelIndexList hits = match(index(0, column), Qt::EditRole, value, -1, Qt::MatchExactly);
    for (const QModelIndex &hit : hits)
        rows.append(hit.row());
    return rows;
}

bool KvAbstractTableModel::copy(const QModelIndex &source, const QModelIndex &target)
{
    if (!isCell(source) || !isCell(target))
        return false;
    const QVector<QVariant> values = m_rows.at(source.row());
    for (int column = 0; column < values.size(); ++column)
        setData(index(target.row(), column), values.at(column));
    return true;
}

bool KvAbstractTableModel::isModified() const
{
    return m_modified;
}

QJsonArray KvAbstractTableModel::toJsonArray() const
{
    QJsonArray array;
    for (const QVector<QVariant> &row : m_rows) {
        QJsonObject object;
        for (int column = 0; column < m_keys.size(); ++column)
            object.insert(m_keys.at(column), QJsonValue::fromVariant(row.at(column)));
        array.append(object);
    }
    return array;
}

int KvAbstractTableModel::insertFromJsonArray(const QJsonArray &array)
{
    QVector<QVector<QVariant>> rows;
    for (const QJsonValue &element : array) {
        if (!element.isObject())
            continue;
        const QJsonObject object = element.toObject();
        QVector<QVariant> row(m_keys.size());
        for (int column = 0; column < m_keys.size(); ++column) {
            const QJsonValue value = object.value(m_keys.at(column));
            if (!value.isNull() && !value.isUndefined())
                row[column] = value.toVariant();
        }
        rows.append(row);
    }
    if (!rows.isEmpty()) {
        beginInsertRows(QModelIndex(), m_rows.size(), m_rows.size() + rows.size() - 1);
        m_rows += rows;
        endInsertRows();
    }
    submit();
    return rows.size();
}

bool KvAbstractTableModel::submit()
{
    m_stored = m_rows;
    m_modified = false;
    return true;
}

void KvAbstractTableModel::revert()
{
    if (!m_modified)
        return;
    beginResetModel();
    m_rows = m_stored;
    m_modified = false;
    endResetModel();
}
