// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_PORTLINKS_H
#define NVR_PORTLINKS_H

#include "nvrcore_export.h"

#include <QList>
#include <QPair>
#include <QString>

/**
 * COM port numbers on systems without COM names. A number names a link
 * "<application directory>/ports/COM<n>" that points at a device (a USB
 * adapter, a /dev/serial/by-id name, a pseudo-terminal). The serial classes
 * open the device behind such a link while still calling the port COM<n>.
 */
class NVRCORE_EXPORT PortLinks
{
public:
    /// "<application directory>/ports"
    static QString linkDirectory();
    /**
     * The device to open for a port name: for "COM<n>" or "\\.\COM<n>" with an
     * existing link, the device the link points at; otherwise the name as given.
     */
    static QString resolve(const QString &name);
    /// The link that stands for a "COM<n>" or "\\.\COM<n>" name, whether or not it exists; empty for other names.
    static QString linkPath(const QString &name);
    /// The links present, as (port name "COM<n>", device) pairs in ascending order of n.
    static QList<QPair<QString, QString>> links();
};

#endif
