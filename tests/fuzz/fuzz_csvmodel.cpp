// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
// Bytes as a CSV file: load with or without a header line and with one of
// the separators in use, read every cell, edit some, and write it all back.
#include "fuzzsupport.h"

#include "models/csvmodel.h"

#include <QBuffer>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    FuzzSupport::init();
    if (size < 1)
        return 0;
    const bool withHeader = data[0] & 1;
    static const char separators[] = {',', ';', '\t', '|'};
    const QChar separator = QLatin1Char(separators[(data[0] >> 1) & 3]);
    QByteArray bytes = FuzzSupport::bytes(data + 1, size - 1);
    QBuffer source(&bytes);

    CsvModel model;
    model.setSource(&source, withHeader, separator);
    for (int c = 0; c < model.columnCount(); ++c)
        model.headerData(c, Qt::Horizontal);
    // A line of separators makes thousands of columns: the first and last
    // few dozen of them go through the same cell code as all of them. An
    // edit in every eighth row is enough for the edit code, which logs each
    // edit with its whole row.
    const QVector<int> columns = FuzzSupport::sampleRows(0, model.columnCount());
    for (const int r : FuzzSupport::sampleRows(0, model.rowCount())) {
        for (const int c : columns) {
            const QModelIndex index = model.index(r, c);
            const QString text = index.data().toString();
            if (r % 8 == 0 && c == columns.at(r / 8 % columns.size()))
                model.setData(index, text + QLatin1Char('x'));
        }
    }
    // Every row is written out as wide as the widest, so a few kilobytes of
    // line breaks and separators make a table of millions of cells, whose
    // write costs seconds in the same code as a small one's.
    constexpr qint64 maximumCellsWritten = 4096;
    if (qint64(model.rowCount()) * model.columnCount() > maximumCellsWritten)
        return 0;
    QBuffer target;
    model.toCSV(&target, withHeader, separator);
    target.close();
    model.setSource(&target, withHeader, separator);
    return 0;
}
