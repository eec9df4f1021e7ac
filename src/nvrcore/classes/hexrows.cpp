// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "hexrows.h"

QList<HexRows::Row> HexRows::add(SerialTraffic::Direction direction, const QByteArray &bytes, const QDateTime &time)
{
    QList<Row> rows;
    if (bytes.isEmpty())
        return rows;
    if (hasOpenRow() && (direction != m_row.direction || m_last.msecsTo(time) > m_gapMs))
        rows += flush();
    m_last = time;
    int at = 0;
    while (at < bytes.size()) {
        if (!hasOpenRow()) {
            m_row.direction = direction;
            m_row.time = time;
        }
        const int take = qMin(bytesPerRow - int(m_row.bytes.size()), int(bytes.size()) - at);
        m_row.bytes += bytes.mid(at, take);
        at += take;
        if (m_row.bytes.size() == bytesPerRow)
            rows += flush();
    }
    return rows;
}

QList<HexRows::Row> HexRows::flush()
{
    if (!hasOpenRow())
        return {};
    const Row row = m_row;
    m_row.bytes.clear();
    return {row};
}

QString HexRows::arrow(SerialTraffic::Direction direction)
{
    return direction == SerialTraffic::Received ? QStringLiteral("\u2190") : QStringLiteral("\u2192");
}

QString HexRows::format(const Row &row)
{
    const QString hex = QString::fromLatin1(SerialTraffic::hexPairs(row.bytes));
    return SerialTraffic::timestamp(row.time) + QLatin1Char(' ') + arrow(row.direction) + QLatin1Char(' ')
           + hex.leftJustified(bytesPerRow * 3 - 1) + QStringLiteral("  ")
           + QString::fromLatin1(SerialTraffic::printable(row.bytes));
}
