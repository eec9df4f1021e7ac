// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
// Bytes as the headsets library's user file, split at the first NUL byte when
// there is one so that the base file takes the rest (otherwise the base file
// is the one rebuilt from the factory table); both are then read into a fresh
// model and the cells are shown.
#include "fuzzsupport.h"

#include "models/headsetsmodel.h"

#include <QFile>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    FuzzSupport::init();
    struct Defaults
    {
        QByteArray base;
        int rows;
    };
    static const Defaults defaults = [] {
        HeadSetsModel model;
        model.readData();
        QFile base(model.baseFileName());
        return Defaults{base.open(QFile::ReadOnly) ? base.readAll() : QByteArray(), model.rowCount()};
    }();
    HeadSetsModel model;
    const QString countKey = QStringLiteral("HeadSets/count");
    const QByteArray bytes = FuzzSupport::bytes(data, size);
    const int split = bytes.indexOf('\0');
    FuzzSupport::writeFile(model.userFileName(), split < 0 ? bytes : bytes.left(split));
    if (FuzzSupport::declaresTooMany(model.userFileName(), countKey))
        return -1;
    if (split >= 0) {
        FuzzSupport::writeFile(model.baseFileName(), bytes.mid(split + 1));
        if (FuzzSupport::declaresTooMany(model.baseFileName(), countKey))
            return -1;
    } else {
        FuzzSupport::writeFile(model.baseFileName(), defaults.base);
    }

    model.readData();
    // Base records come first, and the factory ones read the same for every input.
    for (const int r : FuzzSupport::sampleRows(split < 0 ? defaults.rows : 0, model.rowCount())) {
        for (int c = 0; c < model.columnCount(); ++c)
            model.index(r, c).data();
    }
    return 0;
}
