// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_CONSOLEWIDGET_H
#define NVR_CONSOLEWIDGET_H

#include "nvrcore_export.h"

#include <QStringList>
#include <QTextEdit>

class QTextCursor;

/**
 * A command console: each input line starts with the prompt ("> " by
 * default), Return hands the typed command to the owner through command()
 * and locks the console until the owner answers with result(). While locked
 * every key is dropped; append() still shows unsolicited output. Up and
 * Down walk the history of entered commands. Lines do not wrap.
 *
 * The prompt cannot be erased or entered with Backspace and Left, but the
 * mouse, Ctrl+Home and the keypad's Enter are not restricted.
 */
class NVRCORE_EXPORT ConsoleWidget : public QTextEdit
{
    Q_OBJECT
public:
    explicit ConsoleWidget(QWidget *parent = nullptr);
    ~ConsoleWidget() override;

    /// Replaces the prompt and rewrites the current line with it, dropping what was typed there.
    void setPrompt(const QString &prompt);
    QString prompt() const;

    /// Replaces the line under the cursor with the prompt.
    void clearLine();
    /// The line under the cursor without the first prompt-length characters.
    QString getCommand() const;

Q_SIGNALS:
    void command(QString text);

public Q_SLOTS:
    /// Shows the answer to the last command, then a new prompt, and unlocks.
    void result(QString text);
    /// Shows a line of unsolicited output; no prompt, the lock is unchanged.
    void append(QString text);
    void copyAll();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

    void moveToEndOfLine();
    void handleHome();
    void handleLeft(QKeyEvent *event);
    void handleEnter();
    void handleHistoryUp();
    void handleHistoryDown();
    static int getIndex(const QTextCursor &cursor);

private:
    void insertLine(const QString &text, bool withPrompt);
    void showHistoryEntry(const QString &entry);

    QString m_prompt;
    // Oldest first; Up takes from the end.
    QStringList m_historyUp;
    // Entries stepped over with Up; the one Down shows next is last.
    QStringList m_historyDown;
    bool m_locked = false;
    bool m_lastWasUp = false;
};

#endif
