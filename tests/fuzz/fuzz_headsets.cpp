// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
// Bytes as the headsets library's user file, split at the first NUL byte when
// there is one so that the base file takes the rest (otherwise the base file
// is the one rebuilt from the factory table); both are then read into a fresh
// model and every cell is shown.
#include "fuzzsupport.h"

#include "models/headsetsmodel.h"

#include <QFile>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    FuzzSupport::init();
    static const QByteArray defaultBase = [] {
        HeadSetsModel model;
        model.readData();
        QFile base(model.baseFileName());
        return base.open(QFile::ReadOnly) ? base.readAll() : QByteArray();
    }();
    HeadSetsModel model;
    const QByteArray bytes = FuzzSupport::bytes(data, size);
    const int split = bytes.indexOf('\0');
    FuzzSupport::writeFile(model.userFileName(), split < 0 ? bytes : bytes.left(split));
    FuzzSupport::writeFile(model.baseFileName(), split < 0 ? defaultBase : bytes.mid(split + 1));

    model.readData();
    for (int r = 0; r < model.rowCount(); ++r) {
        for (int c = 0; c < model.columnCount(); ++c)
            model.index(r, c).data();
    }
    return 0;
}
