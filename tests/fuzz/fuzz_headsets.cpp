// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
// Bytes as the headsets library's user file, split at the first NUL byte when
// there is one so that the base file takes the rest (otherwise the base file
// is empty, as building the factory records took much of each run and reads
// the same every time); both are then read into a fresh model and the cells
// are shown.
#include "fuzzsupport.h"

#include "models/headsetsmodel.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    FuzzSupport::init();
    HeadSetsModel model;
    const QString countKey = QStringLiteral("HeadSets/count");
    const QByteArray bytes = FuzzSupport::bytes(data, size);
    const int split = bytes.indexOf('\0');
    FuzzSupport::writeFile(model.userFileName(), split < 0 ? bytes : bytes.left(split));
    if (FuzzSupport::declaresTooMany(model.userFileName(), countKey))
        return -1;
    FuzzSupport::writeFile(model.baseFileName(), split < 0 ? QByteArray() : bytes.mid(split + 1));
    if (FuzzSupport::declaresTooMany(model.baseFileName(), countKey))
        return -1;

    model.readData();
    for (const int r : FuzzSupport::sampleRows(0, model.rowCount())) {
        for (int c = 0; c < model.columnCount(); ++c)
            model.index(r, c).data();
    }
    return 0;
}
