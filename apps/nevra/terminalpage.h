// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NEVRA_TERMINALPAGE_H
#define NEVRA_TERMINALPAGE_H

#include "classes/serialtraffic.h"
#include "classes/sessionlog.h"

#include <QByteArray>
#include <QWidget>

class ConsoleWidget;
class NvrOptions;
class QAction;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;
class QTabWidget;
class QTimer;
class SendBar;
class SerialLink;
class SerialPort;
class TerminalView;

/**
 * A terminal on the product's configuration port: each command typed in the
 * console goes out as one line ended by a carriage return, and what comes
 * back before the line falls quiet is its answer. Printable characters are
 * shown as they are, any other byte as <HH>. A command that gets no answer
 * within the response time-out shows a time-out line; output that nobody
 * asked for is shown as it comes.
 *
 * The page opens COM<n> of the options' configuration port at 9600 baud,
 * 8 data bits, no parity, one stop bit; it connects on start when the
 * options say so and moves to another port when the options change it.
 * When the device goes away the page says so once and reconnects by itself
 * when the same device is back; a port that cannot be opened says why.
 *
 * Beside the console, the traffic view shows every byte both ways as text
 * and as hex with timestamps, and a send line sends text with a chosen line
 * ending, or hex. The line settings are the page's own and are kept, as is
 * the send history. While the log is on, each session is written from its
 * first byte to logs/<COMn>-<yyyyMMdd-HHmmss>.log in the application
 * directory. The connection state is always shown on the page and handed
 * to the window's status line through stateChanged().
 */
class TerminalPage : public QWidget
{
    Q_OBJECT
public:
    explicit TerminalPage(NvrOptions *options, QWidget *parent = nullptr);
    ~TerminalPage() override;

    ConsoleWidget *console() const { return m_console; }
    TerminalView *view() const { return m_view; }
    /// "COM1 connected", "COM1: waiting for the device" or "not connected".
    QString stateText() const;
    /// The file of the running session log; empty when there is none.
    QString logFileName() const;
    /// Most recent first; kept across restarts.
    QStringList sendHistory() const;
    /// "&Connect" and "&Disconnect", for the window's menu.
    QAction *connectAction() const { return m_connectAction; }
    QAction *disconnectAction() const { return m_disconnectAction; }
    bool isConnected() const;

    int responseTimeout() const { return m_responseTimeoutMs; }
    void setResponseTimeout(int ms) { m_responseTimeoutMs = ms; }

    /// The bytes of an answer as one line of text: <HH> for bytes that do not print.
    static QString displayText(const QByteArray &bytes);

public Q_SLOTS:
    void connectPort();
    void disconnectPort();
    /// Sends what the send line holds, as text with the line ending or as hex.
    void send();
    void sendFile();

Q_SIGNALS:
    void stateChanged(const QString &state);

private:
    QWidget *createSettingsBar();
    QWidget *createTrafficTab();
    void restoreSettings();
    void saveSettings() const;
    int lineSetting(const QComboBox *box) const;
    void lineSettingsChanged();
    /// Shows, logs and writes bytes out; false when the port took them not all.
    bool sendBytes(const QByteArray &bytes);
    void setSendMessage(const QString &text);
    void logNote(const QString &text);
    void startLog();
    /// Connects as the options ask at start, and says so when the port cannot be opened.
    void connectAtStart();
    void sendCommand(const QString &command);
    void receive(const QList<QVariant> &bytes);
    void answerComplete();
    void noAnswer();
    void portChanged();
    void updateActions();
    void updateState();
    /// A line of the page's own above the input line, or as output while a command runs.
    void showLine(const QString &text);
    /// Ends the running command, if any, with text as its answer.
    void finishCommand(const QString &text);

    NvrOptions *m_options;
    ConsoleWidget *m_console;
    TerminalView *m_view;
    QTabWidget *m_tabs;
    QLabel *m_stateLabel;
    SendBar *m_sendBar;
    QComboBox *m_baud;
    QComboBox *m_dataBits;
    QComboBox *m_parity;
    QComboBox *m_stopBits;
    QSpinBox *m_hexGap;
    QLineEdit *m_search;
    QCheckBox *m_pause;
    QCheckBox *m_logCheck;
    QLabel *m_logLabel;
    SessionLog m_log;
    QString m_state;
    SerialLink *m_link;
    SerialPort *m_port;
    QAction *m_connectAction;
    QAction *m_disconnectAction;
    QTimer *m_quietTimer;
    QByteArray m_answer;
    bool m_waiting = false;
    int m_responseTimeoutMs = 1000;
};

#endif
