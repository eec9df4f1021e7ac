// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef KV_KVHEX_H
#define KV_KVHEX_H

#include "kvcore_export.h"

#include <QByteArray>
#include <QString>

/// Integer and byte conversions. Integers travel little-endian.
class KVCORE_EXPORT KvHex
{
public:
    static QByteArray UintToBuffer(const unsigned int &value);
    /// The 4 bytes at offset as a little-endian integer; missing bytes count as 0.
    static unsigned int BufferToUint(const QByteArray &buffer, int offset = 0);
    static QByteArray UshortToBuffer(const unsigned short &value);
    static unsigned short BufferToUshort(const QByteArray &buffer, int offset = 0);
    /// "0x" and 8 upper-case hex digits of the value's 32 bits: 255 gives 0x000000FF.
    static QString IntToString(const int &value);
    /// Upper-case hex pairs separated by blanks: "0A FF 10".
    static QString BufferToHexString(const QByteArray &buffer);
};

#endif
