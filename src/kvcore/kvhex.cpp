// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "kvhex.h"

namespace {
quint64 readLittleEndian(const QByteArray &buffer, int offset, int count)
{
    quint64 value = 0;
    for (int i = count - 1; i >= 0; --i) {
        const int at = offset + i;
        const quint8 byte = (at >= 0 && at < buffer.size()) ? quint8(buffer.at(at)) : 0;
        value = (value << 8) | byte;
    }
    return value;
}

QByteArray writeLittleEndian(quint64 value, int count)
{
    QByteArray bytes(count, '\0');
    for (int i = 0; i < count; ++i)
        bytes[i] = char((value >> (8 * i)) & 0xFF);
    return bytes;
}
}

QByteArray KvHex::UintToBuffer(const unsigned int &value)
{
    return writeLittleEndian(value, 4);
}

unsigned int KvHex::BufferToUint(const QByteArray &buffer, int offset)
{
    return static_cast<unsigned int>(readLittleEndian(buffer, offset, 4));
}

QByteArray KvHex::UshortToBuffer(const unsigned short &value)
{
    return writeLittleEndian(value, 2);
}

unsigned short KvHex::BufferToUshort(const QByteArray &buffer, int offset)
{
    return static_cast<unsigned short>(readLittleEndian(buffer, offset, 2));
}

QString KvHex::IntToString(const int &value)
{
    return QLatin1String("0x") + QString::number(static_cast<quint32>(value), 16).toUpper().rightJustified(8, QLatin1Char('0'));
}

QString KvHex::BufferToHexString(const QByteArray &buffer)
{
    return QString::fromLatin1(buffer.toHex(' ').toUpper());
}
