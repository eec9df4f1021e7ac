// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "consolewidget.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QTextBlock>
#include <QTextCursor>

ConsoleWidget::ConsoleWidget(QWidget *parent) : QTextEdit(parent), m_prompt(QStringLiteral("> "))
{
    setObjectName(QStringLiteral("ConsoleWidget"));
    setLineWrapMode(QTextEdit::NoWrap);
    insertPlainText(m_prompt);
}

ConsoleWidget::~ConsoleWidget() = default;

void ConsoleWidget::setPrompt(const QString &prompt)
{
    m_prompt = prompt;
    clearLine();
}

QString ConsoleWidget::prompt() const
{
    return m_prompt;
}

void ConsoleWidget::clearLine()
{
    QTextCursor cursor = textCursor();
    cursor.select(QTextCursor::LineUnderCursor);
    cursor.removeSelectedText();
    cursor.insertText(m_prompt);
    setTextCursor(cursor);
}

QString ConsoleWidget::getCommand() const
{
    return textCursor().block().text().mid(m_prompt.length());
}

void ConsoleWidget::result(QString text)
{
    insertLine(text, true);
    m_locked = false;
}

void ConsoleWidget::append(QString text)
{
    insertLine(text, false);
}

void ConsoleWidget::copyAll()
{
    selectAll();
    copy();
    moveCursor(QTextCursor::End);
}

void ConsoleWidget::insertLine(const QString &text, bool withPrompt)
{
    QTextCursor cursor = textCursor();
    cursor.insertText(text + QLatin1Char('\n'));
    if (withPrompt)
        cursor.insertText(m_prompt);
    setTextCursor(cursor);
    ensureCursorVisible();
}

void ConsoleWidget::keyPressEvent(QKeyEvent *event)
{
    // Whatever is typed while a command runs is dropped rather than queued.
    if (m_locked)
        return;

    const bool control = event->modifiers() & Qt::ControlModifier;
    switch (event->key()) {
    case Qt::Key_Backspace:
    case Qt::Key_Left:
        handleLeft(event);
        break;
    case Qt::Key_Return:
        handleEnter();
        break;
    case Qt::Key_Home:
        if (control)
            moveCursor(QTextCursor::Start);
        else
            handleHome();
        break;
    case Qt::Key_End:
        if (control)
            moveCursor(QTextCursor::End);
        else
            QTextEdit::keyPressEvent(event);
        break;
    case Qt::Key_Up:
        handleHistoryUp();
        break;
    case Qt::Key_Down:
        handleHistoryDown();
        break;
    default:
        QTextEdit::keyPressEvent(event);
        break;
    }
}

void ConsoleWidget::contextMenuEvent(QContextMenuEvent *event)
{
    QMenu menu;
    menu.addAction(tr("Copy All"), this, &ConsoleWidget::copyAll);
    menu.addSeparator();
    menu.addAction(tr("Clear"), this, &QTextEdit::clear);
    menu.exec(event->globalPos());
}

void ConsoleWidget::moveToEndOfLine()
{
    moveCursor(QTextCursor::EndOfLine);
}

void ConsoleWidget::handleHome()
{
    QTextCursor cursor = textCursor();
    cursor.movePosition(QTextCursor::StartOfLine);
    cursor.movePosition(QTextCursor::Right, QTextCursor::MoveAnchor, m_prompt.length());
    setTextCursor(cursor);
}

void ConsoleWidget::handleLeft(QKeyEvent *event)
{
    if (getIndex(textCursor()) > m_prompt.length())
        QTextEdit::keyPressEvent(event);
}

void ConsoleWidget::handleEnter()
{
    const QString command = getCommand();
    if (!command.isEmpty()) {
        // Entering a command ends any walk through the history: what was stepped over comes back in order.
        while (!m_historyDown.isEmpty())
            m_historyUp.append(m_historyDown.takeLast());
        m_historyUp.append(command);
    }
    moveToEndOfLine();
    if (!command.isEmpty()) {
        m_locked = true;
        setFocus();
        insertPlainText(QStringLiteral("\n"));
        Q_EMIT this->command(command);
    } else {
        insertLine(QString(), true);
    }
}

void ConsoleWidget::handleHistoryUp()
{
    if (!m_historyUp.isEmpty()) {
        m_historyDown.append(m_historyUp.takeLast());
        showHistoryEntry(m_historyDown.last());
    }
    m_lastWasUp = true;
}

void ConsoleWidget::handleHistoryDown()
{
    if (m_historyDown.isEmpty()) {
        clearLine();
        return;
    }
    if (m_lastWasUp) {
        // The last entry stepped over is the one on screen; Down moves past it.
        m_historyUp.append(m_historyDown.takeLast());
        m_lastWasUp = false;
        if (m_historyDown.isEmpty()) {
            clearLine();
            return;
        }
    }
    m_historyUp.append(m_historyDown.takeLast());
    showHistoryEntry(m_historyUp.last());
}

int ConsoleWidget::getIndex(const QTextCursor &cursor)
{
    return cursor.position() - cursor.block().position();
}

void ConsoleWidget::showHistoryEntry(const QString &entry)
{
    clearLine();
    insertPlainText(entry);
}
