// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_TERMINALVIEW_H
#define NVR_TERMINALVIEW_H

#include "classes/hexrows.h"
#include "nvrcore_export.h"

#include <QList>
#include <QWidget>

class QPlainTextEdit;
class QSplitter;
class QTimer;

/**
 * Serial traffic as text and as hex beside it. Every line starts with the
 * time to the millisecond and an arrow, received and sent bytes have colours
 * of their own; bytes that do not print show as <HH> in the text view.
 *
 * The view is bounded: it keeps the last maximumRows rows of each side and
 * draws what came in at most every updateIntervalMs, at most rowsPerUpdate
 * rows each time: the rows that would scroll past unseen are dropped. A peer that sends as fast as the
 * line allows cannot make the window fall behind; whoever needs every byte
 * keeps a session log.
 */
class NVRCORE_EXPORT TerminalView : public QWidget
{
    Q_OBJECT
public:
    static constexpr int defaultMaximumRows = 5000;
    static constexpr int updateIntervalMs = 50;
    /// More rows than this in one update scroll past unread; only the newest are drawn.
    static constexpr int rowsPerUpdate = 300;

    explicit TerminalView(QWidget *parent = nullptr);
    ~TerminalView() override;

    QPlainTextEdit *textView() const { return m_text; }
    QPlainTextEdit *hexView() const { return m_hex; }

    void add(SerialTraffic::Direction direction, const QByteArray &bytes, const QDateTime &time);
    /// Idle time after which the hex view starts a new row.
    void setHexGap(int ms);
    int hexGap() const { return m_rows.gap(); }
    void setMaximumRows(int rows);

    bool isPaused() const { return m_paused; }
    /// Draws everything that came in so far at once.
    void flush();

public Q_SLOTS:
    void clear();
    /// Keeps the views where they are while traffic goes on.
    void setPaused(bool paused);
    /// Copies the selection of the view that has one, else all of the text view.
    void copy();
    /// Finds text after the cursor in the view with focus, wrapping at the end; false when it is nowhere.
    bool find(const QString &text);

private:
    struct Piece
    {
        SerialTraffic::Direction direction;
        QString text;
    };

    void addText(SerialTraffic::Direction direction, const QByteArray &bytes, const QDateTime &time);
    void addRows(const QList<HexRows::Row> &rows);
    void endHexRow();
    void appendPieces(QPlainTextEdit *view, QList<Piece> &pieces);
    /// Drops pending text that the bounded view would not keep anyway.
    static void trim(QList<Piece> &pieces, int &lines, int maximum);

    QSplitter *m_splitter;
    QPlainTextEdit *m_text;
    QPlainTextEdit *m_hex;
    QTimer *m_updateTimer;
    QTimer *m_gapTimer;
    HexRows m_rows;
    QList<Piece> m_pendingText;
    QList<Piece> m_pendingHex;
    int m_pendingTextLines = 0;
    int m_pendingHexLines = 0;
    int m_maximumRows = defaultMaximumRows;
    bool m_lineOpen = false;
    bool m_lastWasCr = false;
    SerialTraffic::Direction m_lineDirection = SerialTraffic::Received;
    bool m_paused = false;
};

#endif
