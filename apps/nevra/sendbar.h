// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NEVRA_SENDBAR_H
#define NEVRA_SENDBAR_H

#include <QByteArray>
#include <QWidget>

class QCheckBox;
class QComboBox;
class QLabel;
class QSettings;

/**
 * The terminal's send line: text sent with a chosen line ending, or hex
 * bytes sent exactly as typed, with a history of what was sent (most
 * recent first) and a line below it for what went wrong. Return in the
 * line and the Send button ask for a send; the page does the sending and
 * reports back through setMessage() and addToHistory().
 */
class SendBar : public QWidget
{
    Q_OBJECT
public:
    static constexpr int historySize = 30;

    explicit SendBar(QWidget *parent = nullptr);
    ~SendBar() override;

    QString text() const;
    /// The bytes the line stands for; empty, with the reason in refusal, when there is nothing to send.
    QByteArray bytes(QString *refusal) const;
    /// Most recent first.
    QStringList history() const;
    /// Puts text first in the history and empties the line for the next one.
    void addToHistory(const QString &text);
    void setMessage(const QString &text);

    void restoreSettings(const QSettings &settings);
    void saveSettings(QSettings &settings) const;

Q_SIGNALS:
    void sendRequested();
    void sendFileRequested();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QComboBox *m_line;
    QComboBox *m_lineEnding;
    QCheckBox *m_hex;
    QLabel *m_message;
};

#endif
