// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
// Bytes as the radio library's user file, split at the first NUL byte when
// there is one so that the base file takes the rest (otherwise the base file
// is empty); both are then loaded into the radio model. Reading the default
// table's 74 records took most of each run, and it is the same every time:
// the unit tests read it.
#include "fuzzsupport.h"

#include "classes/rtsfile.h"
#include "models/rtstablemodel.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    FuzzSupport::init();
    RtsFile *file = RtsFile::instance();
    RtsTableModel *model = RtsTableModel::instance();
    const QString countKey = QStringLiteral("Rts/count");
    const QByteArray bytes = FuzzSupport::bytes(data, size);
    const int split = bytes.indexOf('\0');
    FuzzSupport::writeFile(file->userFileName(), split < 0 ? bytes : bytes.left(split));
    if (FuzzSupport::declaresTooMany(file->userFileName(), countKey))
        return -1;
    FuzzSupport::writeFile(file->baseFileName(), split < 0 ? QByteArray() : bytes.mid(split + 1));
    if (FuzzSupport::declaresTooMany(file->baseFileName(), countKey))
        return -1;

    file->openFiles();
    for (const int r : FuzzSupport::sampleRows(0, model->rowCount())) {
        for (int c = 0; c < model->columnCount(); ++c)
            model->index(r, c).data();
    }
    return 0;
}
