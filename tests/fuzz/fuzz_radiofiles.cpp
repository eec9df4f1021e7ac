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
    static const QByteArray defaultBase = [file] {
        QFile base(file->baseFileName());
        return base.open(QFile::ReadOnly) ? base.readAll() : QByteArray();
    }();
    const QByteArray bytes = FuzzSupport::bytes(data, size);
    const int split = bytes.indexOf('\0');
    FuzzSupport::writeFile(file->userFileName(), split < 0 ? bytes : bytes.left(split));
    if (split >= 0)
        FuzzSupport::writeFile(file->baseFileName(), bytes.mid(split + 1));
    else
        FuzzSupport::writeFile(file->baseFileName(), defaultBase);

    file->openFiles();
    RtsTableModel *model = RtsTableModel::instance();
    for (int r = 0; r < model->rowCount(); ++r) {
        for (int c = 0; c < model->columnCount(); ++c)
            model->index(r, c).data();
    }
    return 0;
}
