// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_MEMORYADDRESS_H
#define NVR_MEMORYADDRESS_H

#include "nevra.h"
#include "nvrcore_export.h"

#include <QString>

/**
 * Parses the text codes that name a location in the product's memory image:
 * a letter, a colon and dot-separated hex groups (bus, device, location, and
 * for some forms one more group):
 *
 *   D:b.dd.ll       DCP level
 *   B:b.dd.mm       memory byte
 *   E:b.dd.mm.ss    EEPROM block of size ss
 *   I:b.dd.pp[.AU]  I/O pin, active level A = H|L, pull-up U = E|D (enabled/disabled)
 *   P:b.dd.pp[.uu]  I/O port with pull-up mask uu
 *
 * Hex digits may be lower case; the letters, colon, dots and option letters
 * are upper case only, and the whole text must match. A port mask is accepted
 * only when both its characters are hex letters: P:0.20.01.FF is a port code,
 * P:0.20.01.0F is no code.
 *
 * Every accessor returns its no-match value for a text that is no code:
 * fieldType() NoField, memorySize() 1, the others -1.
 */
class NVRCORE_EXPORT MemoryAddress
{
public:
    static Nevra::FieldTypes fieldType(const QString &address);
    static int busNumber(const QString &address);
    static int deviceAddress(const QString &address);
    /// The DCP level, memory address, pin or port, whichever the form names.
    static int memoryAddress(const QString &address);
    /// The size of an E: block; 1 for every other text.
    static int memorySize(const QString &address);
    /// I: codes only: 1 active high (also when not given), 0 active low; -1 otherwise.
    static int pinActiveConfig(const QString &address);
    /**
     * I: codes: 1 pull-up enabled (also when not given), 0 disabled.
     * P: codes: the pull-up mask, 255 when not given. -1 otherwise.
     */
    static int pullUpConfig(const QString &address);
};

#endif
