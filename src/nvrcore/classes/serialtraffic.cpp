// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "serialtraffic.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QRegularExpression>

namespace {
QString tr(const char *text)
{
    return QCoreApplication::translate("SerialTraffic", text);
}

bool isHexDigit(QChar c)
{
    return (c >= QLatin1Char('0') && c <= QLatin1Char('9')) || (c >= QLatin1Char('a') && c <= QLatin1Char('f'))
           || (c >= QLatin1Char('A') && c <= QLatin1Char('F'));
}
}

QByteArray SerialTraffic::hexPairs(const QByteArray &bytes)
{
    return bytes.toHex(' ').toUpper();
}

QByteArray SerialTraffic::printable(const QByteArray &bytes)
{
    QByteArray text;
    text.reserve(bytes.size());
    for (const char byte : bytes)
        text += byte >= 0x20 && byte < 0x7F ? byte : '.';
    return text;
}

QByteArray SerialTraffic::tag(Direction direction)
{
    return direction == Received ? QByteArrayLiteral("RX") : QByteArrayLiteral("TX");
}

QByteArray SerialTraffic::hexLine(Direction direction, const QByteArray &bytes)
{
    return tag(direction) + ' ' + hexPairs(bytes) + "  " + printable(bytes);
}

QString SerialTraffic::timestamp(const QDateTime &time)
{
    return time.toString(QStringLiteral("hh:mm:ss.zzz"));
}

QByteArray SerialTraffic::lineEnding(LineEnding ending)
{
    switch (ending) {
    case CR:
        return QByteArrayLiteral("\r");
    case LF:
        return QByteArrayLiteral("\n");
    case CRLF:
        return QByteArrayLiteral("\r\n");
    case NoEnding:
        break;
    }
    return QByteArray();
}

QStringList SerialTraffic::lineEndingNames()
{
    return {tr("None"), QStringLiteral("CR"), QStringLiteral("LF"), QStringLiteral("CRLF")};
}

QByteArray SerialTraffic::parseHex(const QString &text, QString *error)
{
    QString digits;
    for (const QChar c : text) {
        if (c.isSpace())
            continue;
        if (!isHexDigit(c)) {
            if (error)
                *error = tr("\"%1\" is not a hex digit; use 0-9 and A-F.").arg(c);
            return QByteArray();
        }
        digits += c;
    }
    // A blank inside a pair ("4 1") would make a byte of two halves the user kept apart.
    for (const QString &group : text.split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts)) {
        if (group.size() % 2) {
            if (error)
                *error = tr("\"%1\" has an odd number of hex digits: every byte needs two.").arg(group);
            return QByteArray();
        }
    }
    if (error)
        error->clear();
    return QByteArray::fromHex(digits.toLatin1());
}
