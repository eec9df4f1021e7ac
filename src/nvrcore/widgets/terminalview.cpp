// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "terminalview.h"

#include <QApplication>
#include <QClipboard>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QSplitter>
#include <QTextCursor>
#include <QTimer>
#include <QVBoxLayout>

namespace {
QColor colour(SerialTraffic::Direction direction)
{
    return direction == SerialTraffic::Received ? QColor(0x15, 0x4f, 0xa8) : QColor(0x1b, 0x7a, 0x2e);
}

QPlainTextEdit *makeView(const QString &name, QWidget *parent)
{
    auto *view = new QPlainTextEdit(parent);
    view->setObjectName(name);
    view->setReadOnly(true);
    view->setUndoRedoEnabled(false);
    view->setLineWrapMode(QPlainTextEdit::NoWrap);
    view->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    view->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    return view;
}
}

TerminalView::TerminalView(QWidget *parent)
    : QWidget(parent), m_splitter(new QSplitter(Qt::Horizontal, this)),
      m_text(makeView(QStringLiteral("textView"), m_splitter)), m_hex(makeView(QStringLiteral("hexView"), m_splitter)),
      m_updateTimer(new QTimer(this)), m_gapTimer(new QTimer(this))
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_splitter);
    m_splitter->addWidget(m_text);
    m_splitter->addWidget(m_hex);
    // The hex side needs room for 16 pairs and their text.
    m_splitter->setStretchFactor(0, 1);
    m_splitter->setStretchFactor(1, 2);
    setMaximumRows(defaultMaximumRows);

    m_updateTimer->setSingleShot(true);
    m_updateTimer->setInterval(updateIntervalMs);
    connect(m_updateTimer, &QTimer::timeout, this, &TerminalView::flush);
    m_gapTimer->setSingleShot(true);
    m_gapTimer->setInterval(m_rows.gap());
    connect(m_gapTimer, &QTimer::timeout, this, &TerminalView::endHexRow);
}

TerminalView::~TerminalView() = default;

void TerminalView::setHexGap(int ms)
{
    m_rows.setGap(ms);
    m_gapTimer->setInterval(ms);
}

void TerminalView::setMaximumRows(int rows)
{
    m_maximumRows = rows;
    m_text->setMaximumBlockCount(rows);
    m_hex->setMaximumBlockCount(rows);
}

void TerminalView::add(SerialTraffic::Direction direction, const QByteArray &bytes, const QDateTime &time)
{
    if (bytes.isEmpty())
        return;
    addText(direction, bytes, time);
    addRows(m_rows.add(direction, bytes, time));
    if (m_rows.hasOpenRow())
        m_gapTimer->start();
    if (!m_updateTimer->isActive())
        m_updateTimer->start();
}

void TerminalView::addText(SerialTraffic::Direction direction, const QByteArray &bytes, const QDateTime &time)
{
    QString text;
    int lines = 0;
    const QString start = SerialTraffic::timestamp(time) + QLatin1Char(' ') + HexRows::arrow(direction)
                          + QLatin1Char(' ');
    if (direction != m_lineDirection)
        m_lineOpen = m_lastWasCr = false;
    for (const char byte : bytes) {
        const bool lineEnd = byte == '\r' || byte == '\n';
        if (lineEnd) {
            // CR LF is one line end; so is CR or LF alone.
            if (byte == '\n' && m_lastWasCr && !m_lineOpen) {
                m_lastWasCr = false;
                continue;
            }
            m_lastWasCr = byte == '\r';
            if (m_lineOpen) {
                m_lineOpen = false;
                continue;
            }
        } else {
            m_lastWasCr = false;
        }
        if (!m_lineOpen) {
            // Each line is begun by its own break, so the document never ends in an empty line.
            if (!m_text->document()->isEmpty() || !m_pendingText.isEmpty() || !text.isEmpty())
                text += QLatin1Char('\n');
            text += start;
            ++lines;
            m_lineOpen = !lineEnd;
            m_lineDirection = direction;
            if (lineEnd)
                continue;
        }
        if (byte >= 0x20 && byte < 0x7F)
            text += QLatin1Char(byte);
        else
            text += QStringLiteral("<%1>").arg(quint8(byte), 2, 16, QLatin1Char('0')).toUpper();
    }
    if (text.isEmpty())
        return;
    m_pendingText.append({direction, text});
    m_pendingTextLines += lines;
    trim(m_pendingText, m_pendingTextLines, qMin(m_maximumRows, rowsPerUpdate));
}

void TerminalView::addRows(const QList<HexRows::Row> &rows)
{
    for (const HexRows::Row &row : rows) {
        const bool first = m_hex->document()->isEmpty() && m_pendingHex.isEmpty();
        m_pendingHex.append({row.direction, (first ? QString() : QStringLiteral("\n")) + HexRows::format(row)});
        ++m_pendingHexLines;
    }
    trim(m_pendingHex, m_pendingHexLines, qMin(m_maximumRows, rowsPerUpdate));
}

void TerminalView::endHexRow()
{
    addRows(m_rows.flush());
    if (!m_updateTimer->isActive())
        m_updateTimer->start();
}

void TerminalView::trim(QList<Piece> &pieces, int &lines, int maximum)
{
    while (lines > maximum && pieces.size() > 1) {
        lines -= int(pieces.first().text.count(QLatin1Char('\n')));
        pieces.removeFirst();
    }
}

void TerminalView::flush()
{
    m_updateTimer->stop();
    appendPieces(m_text, m_pendingText);
    appendPieces(m_hex, m_pendingHex);
    m_pendingTextLines = 0;
    m_pendingHexLines = 0;
}

void TerminalView::appendPieces(QPlainTextEdit *view, QList<Piece> &pieces)
{
    if (pieces.isEmpty())
        return;
    QScrollBar *bar = view->verticalScrollBar();
    const int kept = bar->value();
    QTextCursor cursor(view->document());
    cursor.movePosition(QTextCursor::End);
    cursor.beginEditBlock();
    QTextCharFormat format;
    for (const Piece &piece : std::as_const(pieces)) {
        format.setForeground(colour(piece.direction));
        cursor.insertText(piece.text, format);
    }
    cursor.endEditBlock();
    pieces.clear();
    if (m_paused)
        bar->setValue(kept);
    else
        bar->setValue(bar->maximum());
}

void TerminalView::clear()
{
    m_updateTimer->stop();
    m_gapTimer->stop();
    m_rows.flush();
    m_pendingText.clear();
    m_pendingHex.clear();
    m_pendingTextLines = m_pendingHexLines = 0;
    m_lineOpen = m_lastWasCr = false;
    m_text->clear();
    m_hex->clear();
}

void TerminalView::setPaused(bool paused)
{
    m_paused = paused;
    if (!paused)
        flush();
}

void TerminalView::copy()
{
    QPlainTextEdit *view = m_hex->textCursor().hasSelection() ? m_hex : m_text;
    const QString text = view->textCursor().hasSelection() ? view->textCursor().selectedText() : view->toPlainText();
    // A selection holds paragraph separators where the lines break.
    QApplication::clipboard()->setText(QString(text).replace(QChar::ParagraphSeparator, QLatin1Char('\n')));
}

bool TerminalView::find(const QString &text)
{
    if (text.isEmpty())
        return false;
    flush();
    QPlainTextEdit *view = m_hex->hasFocus() ? m_hex : m_text;
    if (view->find(text))
        return true;
    QTextCursor cursor = view->textCursor();
    cursor.movePosition(QTextCursor::Start);
    view->setTextCursor(cursor);
    return view->find(text);
}
