// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
// Bytes as the products file, loaded into the products model and written
// back out as JSON.
#include "fuzzsupport.h"

#include "classes/productsfile.h"
#include "models/productsmodel.h"

#include <QJsonDocument>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    FuzzSupport::init();
    static const QString fileName = FuzzSupport::filePath(QStringLiteral("nevradat/fuzzproducts.dat"));
    FuzzSupport::writeFile(fileName, FuzzSupport::bytes(data, size));

    ProductsFile *file = ProductsFile::instance();
    file->loadFromJsonFile(fileName, false);
    ProductsModel *model = ProductsModel::instance();
    for (int r = 0; r < model->rowCount(); ++r) {
        for (int c = 0; c < model->columnCount(); ++c)
            model->index(r, c).data();
    }
    // The document holds the model's JSON array. Writing it goes through the
    // same code for every row, and mostly through Qt's JSON writer: a few
    // rows are enough.
    constexpr int maximumRowsWritten = 16;
    if (model->rowCount() <= maximumRowsWritten)
        file->toJsonDocument().toJson();
    return 0;
}
