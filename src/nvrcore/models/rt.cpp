// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "rt.h"

#include <QCoreApplication>

QString Rt::typeName(int type)
{
    switch (type) {
    case Transceiver:
        return QCoreApplication::translate("Rt", "Transceiver");
    case Receiver:
        return QCoreApplication::translate("Rt", "Receiver");
    case Pa:
        return QCoreApplication::translate("Rt", "PA");
    case Cvr:
        return QCoreApplication::translate("Rt", "Cvr");
    default:
        return QCoreApplication::translate("Rt", "Not Installed");
    }
}

QStringList Rt::typeNames()
{
    QStringList names;
    for (int type = NotInstalled; type <= Cvr; ++type)
        names.append(typeName(type));
    return names;
}
