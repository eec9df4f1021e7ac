// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "nevra.h"

QString Nevra::fieldTypeToString(const FieldTypes &type)
{
    switch (type) {
    case EepromField: return QStringLiteral("EEPROM");
    case DcpLevelField: return QStringLiteral("DCP Level");
    case IoPinField: return QStringLiteral("I/O Pin");
    case IoPortField: return QStringLiteral("I/O Port");
    case NoField: break;
    }
    return QString();
}
