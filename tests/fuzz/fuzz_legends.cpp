// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
// Bytes as the legends conversion file, read into a fresh model; every cell is
// shown and each legend converted both ways.
#include "fuzzsupport.h"

#include "models/legendsconverttablemodel.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    FuzzSupport::init();
    LegendsConvertTableModel model;
    FuzzSupport::writeFile(model.fileName(), FuzzSupport::bytes(data, size));
    if (FuzzSupport::declaresTooMany(model.fileName(), QStringLiteral("LegendsConvert/count")))
        return -1;
    model.readData();
    for (const int r : FuzzSupport::sampleRows(0, model.rowCount())) {
        for (int c = 0; c < model.columnCount(); ++c)
            model.index(r, c).data();
        const QModelIndex row = model.index(r, 0);
        model.convertFromEmbedded(model.embeddedLegend(row));
        model.convertToEmbedded(model.convertedLegend(row));
    }
    return 0;
}
