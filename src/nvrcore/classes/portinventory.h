// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_PORTINVENTORY_H
#define NVR_PORTINVENTORY_H

#include "nvrcore_export.h"

#include <QList>
#include <QPair>
#include <QString>

/**
 * The serial ports as a technician sees them: each COM number with the
 * device its link names (the stable by-id name when the system has one),
 * manufacturer, USB vendor and product id and serial number where the system
 * knows them, followed by the system's serial devices that have no COM
 * number yet. assign() gives such a device a number.
 */
class NVRCORE_EXPORT PortInventory
{
public:
    /// A serial device as the system lists it.
    struct Device
    {
        QString location;     ///< "/dev/ttyUSB0"
        QString byId;         ///< "/dev/serial/by-id/usb-..." or empty
        QString manufacturer;
        QString vidPid;       ///< "0403:6001" or empty
        QString serialNumber;
    };

    struct Entry
    {
        int number = 0;       ///< the COM number; 0 for a device without one
        QString device;       ///< what the link points at, or the device's by-id name or location
        QString manufacturer;
        QString vidPid;
        QString serialNumber;
    };

    /// The system's serial devices now.
    static QList<Device> systemDevices();
    /**
     * The list from the system's devices and the ports links ("COM<n>", target):
     * the links first in their order, then the devices no link points at.
     * A link points at a device by its location, its by-id name or any other
     * name that resolves to it.
     */
    static QList<Entry> entries(const QList<Device> &devices, const QList<QPair<QString, QString>> &links);
    static QList<Entry> current();

    /// Links ports/COM<number> to device (its by-id name when it has one); false with the reason in error.
    static bool assign(int number, const Device &device, QString *error);
    /// The lowest number from 1 that no link uses.
    static int firstFreeNumber();
};

#endif
