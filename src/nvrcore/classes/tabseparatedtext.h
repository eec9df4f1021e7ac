// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_TABSEPARATEDTEXT_H
#define NVR_TABSEPARATEDTEXT_H

#include "nvrcore_export.h"

#include <QList>
#include <QStringList>

/**
 * Rows of cells as the clipboard carries them between spreadsheets: cells
 * separated by tabs, rows ended by a line break. A cell holding a tab, a
 * line break or a double quote is written between double quotes, its quotes
 * doubled, and read back the same way; other cells are taken as they stand.
 */
namespace TabSeparatedText {
NVRCORE_EXPORT QString write(const QList<QStringList> &rows);
/// The rows of text; a trailing line break does not start an empty row, blank lines are dropped.
NVRCORE_EXPORT QList<QStringList> read(const QString &text);
}

#endif
