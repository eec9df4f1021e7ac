// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
// Bytes as a look-up table's INI file, then the nearest entry for a few
// numbers, among them one taken from the bytes (NaN and infinities too).
#include "fuzzsupport.h"

#include "classes/lookuptable.h"

#include <cstring>
#include <limits>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    FuzzSupport::init();
    static const QString fileName = FuzzSupport::filePath(QStringLiteral("nevradat/lookup.ini"));
    FuzzSupport::writeFile(fileName, FuzzSupport::bytes(data, size));

    LookUpTable table(fileName, QStringLiteral("Table"));
    table.readData();
    double fromBytes = 0;
    if (size >= sizeof fromBytes)
        std::memcpy(&fromBytes, data, sizeof fromBytes);
    const double values[] = {0, -1, 1.5, 1e300, -1e300, std::numeric_limits<double>::infinity(),
                             std::numeric_limits<double>::quiet_NaN(), fromBytes};
    for (const double value : values)
        table.displayValueIndex(value);
    table.displayValues();
    table.values();
    table.defaultValue();
    return 0;
}
