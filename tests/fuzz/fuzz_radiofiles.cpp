// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
// Bytes as the radio library's user file, split at the first NUL byte when
// there is one so that the base file takes the rest (otherwise the base file
// is the one built from the default table); both are then loaded into the
// radio model.
#include "fuzzsupport.h"

#include "classes/rtsfile.h"
#include "models/rtstablemodel.h"

#include <QFile>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    FuzzSupport::init();
    RtsFile *file = RtsFile::instance();
    RtsTableModel *model = RtsTableModel::instance();
    static const QByteArray defaultBase = [file] {
        QFile base(file->baseFileName());
        return base.open(QFile::ReadOnly) ? base.readAll() : QByteArray();
    }();
    // Base records come first in the model.
    static const int defaultRows = model->rowCount();
    const QString countKey = QStringLiteral("Rts/count");
    const QByteArray bytes = FuzzSupport::bytes(data, size);
    const int split = bytes.indexOf('\0');
    FuzzSupport::writeFile(file->userFileName(), split < 0 ? bytes : bytes.left(split));
    if (FuzzSupport::declaresTooMany(file->userFileName(), countKey))
        return -1;
    if (split >= 0) {
        FuzzSupport::writeFile(file->baseFileName(), bytes.mid(split + 1));
        if (FuzzSupport::declaresTooMany(file->baseFileName(), countKey))
            return -1;
    } else {
        FuzzSupport::writeFile(file->baseFileName(), defaultBase);
    }

    file->openFiles();
    // The default records read the same for every input.
    for (const int r : FuzzSupport::sampleRows(split < 0 ? defaultRows : 0, model->rowCount())) {
        for (int c = 0; c < model->columnCount(); ++c)
            model->index(r, c).data();
    }
    return 0;
}
