// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_SERIALTRAFFIC_H
#define NVR_SERIALTRAFFIC_H

#include "nvrcore_export.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

class QDateTime;

/**
 * How traffic on a serial line is written down for people: bytes as hex
 * pairs beside what prints of them, timestamps to the millisecond, the
 * direction, and the reverse, hex typed by a user turned into bytes. The
 * terminal page, its session log and the command-line monitor all write
 * the same way, so that a technician reads one format everywhere.
 */
class NVRCORE_EXPORT SerialTraffic
{
public:
    enum Direction { Received, Sent };
    enum LineEnding { NoEnding, CR, LF, CRLF };

    /// "41 0D FF": upper-case pairs separated by blanks.
    static QByteArray hexPairs(const QByteArray &bytes);
    /// What prints of the bytes, a dot for every other byte.
    static QByteArray printable(const QByteArray &bytes);
    /// "RX 41 0D  A.": the direction, the bytes in hex, then what prints of them.
    static QByteArray hexLine(Direction direction, const QByteArray &bytes);
    /// "RX" or "TX".
    static QByteArray tag(Direction direction);
    /// Local time as hh:mm:ss.zzz.
    static QString timestamp(const QDateTime &time);

    static QByteArray lineEnding(LineEnding ending);
    /// "None", "CR", "LF", "CRLF", in the order of LineEnding.
    static QStringList lineEndingNames();

    /**
     * The bytes of hex typed by a user: pairs of digits, with or without
     * blanks between bytes. An odd number of digits or anything but hex
     * digits and blanks gives an empty array and the reason in error.
     */
    static QByteArray parseHex(const QString &text, QString *error);
};

#endif
