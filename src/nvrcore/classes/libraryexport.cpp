// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "libraryexport.h"

#include <QAbstractItemModel>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>

namespace {

QStringList columnTitles(const QAbstractItemModel &model)
{
    QStringList titles;
    for (int column = 0; column < model.columnCount(); ++column)
        titles << model.headerData(column, Qt::Horizontal).toString();
    return titles;
}

// The stored value, as a script wants it, not the text a view shows.
QString cellText(const QAbstractItemModel &model, int row, int column)
{
    return model.data(model.index(row, column), Qt::EditRole).toString();
}

QByteArray csvLine(const QStringList &cells)
{
    QStringList quoted;
    for (QString cell : cells) {
        if (cell.contains(QLatin1Char(',')) || cell.contains(QLatin1Char('"')) || cell.contains(QLatin1Char('\n'))
            || cell.contains(QLatin1Char('\r'))) {
            cell.replace(QLatin1String("\""), QLatin1String("\"\""));
            cell = QLatin1Char('"') + cell + QLatin1Char('"');
        }
        quoted << cell;
    }
    return quoted.join(QLatin1Char(',')).toUtf8() + '\n';
}

QList<int> rowsOf(const QAbstractItemModel &model, const QList<int> &rows)
{
    if (!rows.isEmpty())
        return rows;
    QList<int> all;
    for (int row = 0; row < model.rowCount(); ++row)
        all << row;
    return all;
}

}

QByteArray LibraryExport::toCsv(const QAbstractItemModel &model, const QList<int> &rows)
{
    QByteArray text = csvLine(columnTitles(model));
    for (const int row : rowsOf(model, rows)) {
        QStringList cells;
        for (int column = 0; column < model.columnCount(); ++column)
            cells << cellText(model, row, column);
        text += csvLine(cells);
    }
    return text;
}

QByteArray LibraryExport::toJson(const QAbstractItemModel &model, const QList<int> &rows)
{
    const QStringList titles = columnTitles(model);
    QJsonArray records;
    for (const int row : rowsOf(model, rows)) {
        QJsonObject record;
        for (int column = 0; column < titles.size(); ++column)
            record.insert(titles.at(column), cellText(model, row, column));
        records.append(record);
    }
    return QJsonDocument(records).toJson(QJsonDocument::Indented);
}

QByteArray LibraryExport::forFile(const QString &fileName, const QAbstractItemModel &model, const QList<int> &rows)
{
    if (fileName.endsWith(QLatin1String(".json"), Qt::CaseInsensitive))
        return toJson(model, rows);
    return toCsv(model, rows);
}
