// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_CSVTEXTLOSS_H
#define NVR_CSVTEXTLOSS_H

#include "nvrcore_export.h"

#include <QChar>

class CsvModel;

/**
 * The first character of a CSV table that its file would not give back.
 *
 * The CSV files are written in Latin-1 and read as UTF-8, and cells are
 * quoted without escapes, so anything beyond plain ASCII, a double quote,
 * a line break or a cell ending in a backslash comes back changed. find()
 * writes the table as a save would, reads it again and compares the cells,
 * so it names exactly what a save followed by a load would change; it
 * writes no file.
 */
class NVRCORE_EXPORT CsvTextLoss
{
public:
    /// The cell (row and column of the table) and the character there that would not come back.
    int row = -1;
    int column = -1;
    QChar character;

    bool isValid() const { return row >= 0; }
    /// The character for a message: quoted when it prints, always with its code ("'é' (U+00E9)").
    QString characterText() const;

    /// The first loss, row by row; an invalid result when the whole table comes back as it is.
    static CsvTextLoss find(CsvModel &model);
};

#endif
