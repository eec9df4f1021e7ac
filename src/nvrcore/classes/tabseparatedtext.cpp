// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "tabseparatedtext.h"

namespace {
QString quoted(const QString &cell)
{
    if (!cell.contains(QLatin1Char('\t')) && !cell.contains(QLatin1Char('\n')) && !cell.contains(QLatin1Char('\r'))
        && !cell.contains(QLatin1Char('"')))
        return cell;
    QString text = cell;
    text.replace(QLatin1Char('"'), QLatin1String("\"\""));
    return QLatin1Char('"') + text + QLatin1Char('"');
}
}

QString TabSeparatedText::write(const QList<QStringList> &rows)
{
    QString text;
    for (const QStringList &row : rows) {
        QStringList cells;
        for (const QString &cell : row)
            cells.append(quoted(cell));
        text += cells.join(QLatin1Char('\t')) + QLatin1Char('\n');
    }
    return text;
}

QList<QStringList> TabSeparatedText::read(const QString &text)
{
    QList<QStringList> rows;
    QStringList row;
    QString cell;
    bool inQuotes = false;
    bool cellStarted = false;
    const auto endRow = [&] {
        row.append(cell);
        const bool blank = row.size() == 1 && row.constFirst().isEmpty();
        if (!blank)
            rows.append(row);
        row.clear();
        cell.clear();
        cellStarted = false;
    };
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (inQuotes) {
            if (c == QLatin1Char('"')) {
                if (i + 1 < text.size() && text.at(i + 1) == QLatin1Char('"')) {
                    cell += c;
                    ++i;
                } else {
                    inQuotes = false;
                }
            } else {
                cell += c;
            }
        } else if (c == QLatin1Char('"') && !cellStarted) {
            inQuotes = true;
            cellStarted = true;
        } else if (c == QLatin1Char('\t')) {
            row.append(cell);
            cell.clear();
            cellStarted = false;
        } else if (c == QLatin1Char('\n')) {
            endRow();
        } else if (c != QLatin1Char('\r')) {
            cell += c;
            cellStarted = true;
        }
    }
    if (cellStarted || !cell.isEmpty() || !row.isEmpty())
        endRow();
    return rows;
}
