// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_NEVRA_H
#define NVR_NEVRA_H

#include "nvrcore_export.h"

#include <QString>

/// Enumerations and free functions of the application.
namespace Nevra {

/// The kind of a field in the product's memory map; the values are fixed.
enum FieldTypes : int {
    NoField = 0,     ///< no field, or not a valid address
    EepromField = 1, ///< memory byte or EEPROM block
    DcpLevelField = 2,
    IoPinField = 3,
    IoPortField = 4,
};

/// "EEPROM", "DCP Level", "I/O Pin", "I/O Port"; the empty text for 0 and any other value.
NVRCORE_EXPORT QString fieldTypeToString(const FieldTypes &type);

}

#endif
