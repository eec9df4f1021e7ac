// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "terminalpage.h"

#include "hostmessage.h"

#include "classes/nvroptions.h"
#include "classes/seriallink.h"
#include "classes/serialport.h"
#include "widgets/consolewidget.h"

#include <QAction>
#include <QFontDatabase>
#include <QSerialPort>
#include <QTextCursor>
#include <QTimer>
#include <QVBoxLayout>

namespace {
const QByteArray commandEnd = QByteArrayLiteral("\r");
// An answer may arrive in pieces; it is complete once the line stays quiet this long.
constexpr int quietMs = 100;

QString portName(int number)
{
    return QStringLiteral("COM%1").arg(number);
}
}

TerminalPage::TerminalPage(NvrOptions *options, QWidget *parent)
    : QWidget(parent), m_options(options), m_console(new ConsoleWidget(this)), m_link(new SerialLink(this)),
      m_port(m_link->port()),
      m_connectAction(new QAction(tr("&Connect"), this)), m_disconnectAction(new QAction(tr("&Disconnect"), this)),
      m_quietTimer(new QTimer(this))
{
    setObjectName(QStringLiteral("TerminalPage"));
    m_console->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_console);

    m_connectAction->setObjectName(QStringLiteral("actionConnect"));
    m_connectAction->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C));
    m_disconnectAction->setObjectName(QStringLiteral("actionDisconnect"));
    m_disconnectAction->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_D));
    connect(m_connectAction, &QAction::triggered, this, &TerminalPage::connectPort);
    connect(m_disconnectAction, &QAction::triggered, this, &TerminalPage::disconnectPort);

    m_quietTimer->setSingleShot(true);
    m_quietTimer->setInterval(quietMs);
    connect(m_quietTimer, &QTimer::timeout, this, &TerminalPage::answerComplete);
    connect(m_console, &ConsoleWidget::command, this, &TerminalPage::sendCommand);
    connect(m_port, &SerialPort::dataReceived, this, &TerminalPage::receive);
    connect(m_port, &SerialPort::readtimeout, this, &TerminalPage::noAnswer);
    connect(m_port, &SerialPort::opened, this,
            [this](const QString &name) { showLine(tr("Connected to %1.").arg(name)); });
    connect(m_port, &SerialPort::closed, this, [this](const QString &name) {
        const QString line = tr("Disconnected from %1.").arg(name);
        // A command still running would otherwise leave the console locked for good.
        if (m_waiting)
            finishCommand(line);
        else
            showLine(line);
    });
    connect(m_port, &SerialPort::error, this, &TerminalPage::showLine);
    connect(m_link, &SerialLink::connectionLost, this, [this](const QString &name) {
        showLine(tr("%1 is gone; it reconnects when the device is back.").arg(name));
        updateActions();
    });
    connect(m_link, &SerialLink::connectionRestored, this, &TerminalPage::updateActions);
    connect(m_options, &NvrOptions::comPortNumberChanged, this, &TerminalPage::portChanged);
    updateActions();

    // Deferred so that the window is up before a slow or failing port is tried.
    if (m_options->connect())
        QTimer::singleShot(0, this, &TerminalPage::connectAtStart);
}

TerminalPage::~TerminalPage()
{
    // The port would report its closing to a page that is half gone.
    m_port->disconnect(this);
    m_link->disconnect(this);
}

bool TerminalPage::isConnected() const
{
    return m_port->isOpen();
}

QString TerminalPage::displayText(const QByteArray &bytes)
{
    QByteArray answer = bytes;
    while (answer.endsWith('\n') || answer.endsWith('\r'))
        answer.chop(1);
    QString text;
    for (int i = 0; i < answer.size(); ++i) {
        const char byte = answer.at(i);
        if (byte == '\r' && i + 1 < answer.size() && answer.at(i + 1) == '\n')
            continue;
        if (byte == '\n')
            text += QLatin1Char('\n');
        else if (byte >= 0x20 && byte < 0x7F)
            text += QLatin1Char(byte);
        else
            text += QStringLiteral("<%1>").arg(quint8(byte), 2, 16, QLatin1Char('0')).toUpper();
    }
    return text;
}

void TerminalPage::connectPort()
{
    m_answer.clear();
    if (!m_link->open(portName(m_options->comPortNumber()), QSerialPort::Baud9600, QSerialPort::NoParity,
                      QSerialPort::Data8, QSerialPort::OneStop, SerialPort::Asynchronous))
        showLine(m_link->errorString());
    updateActions();
}

void TerminalPage::connectAtStart()
{
    connectPort();
    if (!isConnected()) {
        HostMessage::inform(this, tr("Connect"),
                            tr("%1 Choose the configuration port in Tools > Options; "
                               "-noconnect starts without connecting.")
                                .arg(m_link->errorString()));
    }
}

void TerminalPage::disconnectPort()
{
    m_quietTimer->stop();
    m_link->close();
    updateActions();
}

void TerminalPage::sendCommand(const QString &command)
{
    if (!m_port->isOpen()) {
        m_console->result(tr("Not connected."));
        return;
    }
    m_waiting = true;
    m_answer.clear();
    m_port->writeBuffer(command.toLatin1() + commandEnd, m_responseTimeoutMs);
}

void TerminalPage::receive(const QList<QVariant> &bytes)
{
    for (const QVariant &byte : bytes)
        m_answer.append(char(byte.toInt()));
    m_quietTimer->start();
}

void TerminalPage::answerComplete()
{
    const QString text = displayText(m_answer);
    m_answer.clear();
    if (m_waiting)
        finishCommand(text);
    else
        showLine(text);
}

void TerminalPage::noAnswer()
{
    finishCommand(tr("No answer within %1 ms.").arg(m_responseTimeoutMs));
}

void TerminalPage::portChanged()
{
    if (!m_port->isOpen() && !m_link->isWaiting())
        return;
    disconnectPort();
    connectPort();
}

void TerminalPage::updateActions()
{
    const bool open = m_port->isOpen();
    // Disconnecting also ends the wait for a device that went away.
    m_connectAction->setEnabled(!open);
    m_disconnectAction->setEnabled(open || m_link->isWaiting());
}

void TerminalPage::showLine(const QString &text)
{
    if (m_waiting) {
        m_console->append(text);
        return;
    }
    // Put above the input line, the document's last, so that the prompt and anything typed after it stay.
    QTextCursor cursor(m_console->document());
    cursor.movePosition(QTextCursor::End);
    cursor.movePosition(QTextCursor::StartOfBlock);
    cursor.insertText(text + QLatin1Char('\n'));
    m_console->ensureCursorVisible();
}

void TerminalPage::finishCommand(const QString &text)
{
    if (!m_waiting)
        return;
    m_waiting = false;
    m_quietTimer->stop();
    m_answer.clear();
    m_console->result(text);
}
