// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_HEXROWS_H
#define NVR_HEXROWS_H

#include "nvrcore_export.h"
#include "serialtraffic.h"

#include <QByteArray>
#include <QDateTime>
#include <QList>

/**
 * Cuts serial traffic into the rows of a hex view: at most bytesPerRow bytes
 * a row, one direction a row, and a new row when the line was idle longer
 * than the gap, so that the messages of a protocol start on rows of their
 * own. A row is handed out once it can grow no more; the owner calls
 * flush() when the gap has passed without new bytes.
 */
class NVRCORE_EXPORT HexRows
{
public:
    static constexpr int bytesPerRow = 16;
    static constexpr int defaultGapMs = 20;

    struct Row
    {
        SerialTraffic::Direction direction;
        QDateTime time; ///< when the row's first byte came or went
        QByteArray bytes;
    };

    void setGap(int ms) { m_gapMs = ms; }
    int gap() const { return m_gapMs; }

    /// Adds bytes seen at time; returns the rows they completed.
    QList<Row> add(SerialTraffic::Direction direction, const QByteArray &bytes, const QDateTime &time);
    /// Ends the open row, if any, and returns it.
    QList<Row> flush();
    bool hasOpenRow() const { return !m_row.bytes.isEmpty(); }

    /// "hh:mm:ss.zzz ← 41 42 ..  AB": hex padded to a full row, so the text columns line up.
    static QString format(const Row &row);
    /// The arrow of a direction: into the computer for received bytes.
    static QString arrow(SerialTraffic::Direction direction);

private:
    Row m_row{SerialTraffic::Received, QDateTime(), QByteArray()};
    QDateTime m_last;
    int m_gapMs = defaultGapMs;
};

#endif
