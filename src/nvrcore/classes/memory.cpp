// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "memory.h"

QString Memory::ByteToHexString(const uchar &byte)
{
    return QString::number(byte, 16).toUpper();
}

QString Memory::IntToHexString(const int &value)
{
    // Sign and magnitude on every Qt version: Qt 5 writes negative numbers in
    // base 16 as their 64-bit two's complement.
    const qlonglong magnitude = qAbs(qlonglong(value));
    const QString digits = (value < 0 ? QStringLiteral("-") : QString()) + QString::number(magnitude, 16).toUpper();
    return value <= 15 ? QLatin1Char('0') + digits : digits;
}

int Memory::HexStringToInt(const QString &text)
{
    // toInt() already yields 0 for text that does not convert.
    return text.toInt(nullptr, 16);
}

QString Memory::ByteArrayToHexString(const QByteArray &bytes)
{
    return QString::fromLatin1(bytes.toHex().toUpper());
}

QByteArray Memory::HexStringToByteArray(const QString &text)
{
    return QByteArray::fromHex(text.toLatin1());
}
