// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
// Bytes as a product data header read from a product or a file.
#include "fuzzsupport.h"

#include "classes/productdataheader.h"

#include <QTextStream>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    FuzzSupport::init();
    ProductDataHeader header;
    header.setData(FuzzSupport::bytes(data, size));
    QString html;
    QTextStream stream(&html);
    header.output(stream);
    const QByteArray encoded = header.data();
    header.createdDateTime();
    header.lastProgrammedDateTime();

    ProductDataHeader again;
    again.setData(encoded);
    again.isEqual(header);
    return 0;
}
