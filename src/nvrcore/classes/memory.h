// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_MEMORY_H
#define NVR_MEMORY_H

#include "nvrcore_export.h"

#include <QByteArray>
#include <QString>

/**
 * Conversions between the product's memory contents and upper-case
 * hexadecimal text. Static functions only.
 *
 * ByteToHexString() writes no leading zero while IntToHexString() pads
 * values up to 15 to two characters: callers and stored tables rely on both
 * forms, so they stay different.
 */
class NVRCORE_EXPORT Memory
{
public:
    /// 0x0A gives "A", 0xFF gives "FF".
    static QString ByteToHexString(const uchar &byte);
    /**
     * A "0" goes in front of every value up to 15, negative ones included:
     * 5 gives "05", 300 gives "12C", -1 gives "0-1".
     */
    static QString IntToHexString(const int &value);
    /// The text as a base-16 integer; 0 when it does not convert.
    static int HexStringToInt(const QString &text);
    /// Two digits per byte, no separators.
    static QString ByteArrayToHexString(const QByteArray &bytes);
    /// Decodes hex pairs of the text's Latin-1 form; characters that are no hex digits are skipped.
    static QByteArray HexStringToByteArray(const QString &text);
};

#endif
