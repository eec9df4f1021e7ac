// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "csvtextloss.h"

#include "csvmodel.h"

#include <QBuffer>

QString CsvTextLoss::characterText() const
{
    const QString code = QStringLiteral("U+%1").arg(character.unicode(), 4, 16, QLatin1Char('0')).toUpper();
    if (!character.isPrint() || character.isSpace())
        return code;
    return QStringLiteral("'%1' (%2)").arg(QString(character), code);
}

CsvTextLoss CsvTextLoss::find(CsvModel &model)
{
    QByteArray bytes;
    QBuffer written(&bytes);
    model.toCSV(&written, true, QLatin1Char(','));
    QBuffer read(&bytes);
    CsvModel readBack(&read, nullptr, true, QLatin1Char(','));

    CsvTextLoss loss;
    const int rows = model.rowCount();
    const int columns = model.columnCount();
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            // The stored cell text, not what a derived model shows for it.
            const QString before = model.CsvModel::data(model.index(row, column), Qt::EditRole).toString();
            const QString after = readBack.data(readBack.index(row, column), Qt::EditRole).toString();
            if (before == after)
                continue;
            int position = 0;
            while (position < before.size() && position < after.size() && before.at(position) == after.at(position))
                ++position;
            // A cell that reads back longer lost its end: its last character swallowed what followed.
            if (position >= before.size())
                position = before.size() - 1;
            if (position < 0)
                continue;
            loss.row = row;
            loss.column = column;
            loss.character = before.at(position);
            return loss;
        }
    }
    return loss;
}
