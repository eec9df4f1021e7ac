// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_RT_H
#define NVR_RT_H

#include "nvrcore_export.h"

#include <QFlags>
#include <QStringList>

/// Radio types.
namespace Rt {

/**
 * The type of a radio, as stored in its record. The values are fixed by the
 * radio files. They are also combined as filter flags, although they are not
 * single bits: a filter matches a type whenever they share a bit, so PA (3)
 * matches Transceiver (1) and Receiver (2) filters too. AllTypes (5) is only
 * meaningful as a filter. The underlying type is fixed so that any value
 * read from a file (displayed as Not Installed) is still a valid RtType.
 */
enum RtType : int {
    NotInstalled = 0,
    Transceiver = 1,
    Receiver = 2,
    Pa = 3,
    Cvr = 4,
    AllTypes = 5,
};
Q_DECLARE_FLAGS(RtTypes, RtType)

/// "Not Installed", "Transceiver", "Receiver", "PA", "Cvr"; any other value is "Not Installed".
NVRCORE_EXPORT QString typeName(int type);
/// The names of types 0 to 4, in value order, as editors list them.
NVRCORE_EXPORT QStringList typeNames();

}

Q_DECLARE_OPERATORS_FOR_FLAGS(Rt::RtTypes)

#endif
