// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "terminalpage.h"

#include "hostmessage.h"
#include "sendbar.h"

#include "classes/nvroptions.h"
#include "classes/seriallink.h"
#include "classes/serialport.h"
#include "widgets/consolewidget.h"
#include "widgets/terminalview.h"

#include "kvsettings.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSerialPort>
#include <QSpinBox>
#include <QTabWidget>
#include <QTextCursor>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

namespace {
const QByteArray commandEnd = QByteArrayLiteral("\r");
// An answer may arrive in pieces; it is complete once the line stays quiet this long.
constexpr int quietMs = 100;

QString portName(int number)
{
    return QStringLiteral("COM%1").arg(number);
}

const QString settingsGroup = QStringLiteral("TerminalPage");

QComboBox *settingBox(const QString &name, const QList<QPair<QString, int>> &items, QWidget *parent)
{
    auto *box = new QComboBox(parent);
    box->setObjectName(name);
    for (const auto &item : items)
        box->addItem(item.first, item.second);
    return box;
}

QWidget *buttonFor(QAction *action, QWidget *parent)
{
    auto *button = new QToolButton(parent);
    button->setDefaultAction(action);
    button->setToolButtonStyle(Qt::ToolButtonTextOnly);
    return button;
}
}

TerminalPage::TerminalPage(NvrOptions *options, QWidget *parent)
    : QWidget(parent), m_options(options), m_console(new ConsoleWidget(this)), m_view(new TerminalView(this)),
      m_tabs(new QTabWidget(this)), m_stateLabel(new QLabel(this)), m_sendBar(new SendBar(this)),
      m_link(new SerialLink(this)),
      m_port(m_link->port()),
      m_connectAction(new QAction(tr("&Connect"), this)), m_disconnectAction(new QAction(tr("&Disconnect"), this)),
      m_quietTimer(new QTimer(this))
{
    setObjectName(QStringLiteral("TerminalPage"));
    m_console->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_stateLabel->setObjectName(QStringLiteral("terminalState"));
    QFont bold = m_stateLabel->font();
    bold.setBold(true);
    m_stateLabel->setFont(bold);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(createSettingsBar());
    m_tabs->addTab(createTrafficTab(), tr("T&raffic"));
    m_tabs->addTab(m_console, tr("C&ommands"));
    layout->addWidget(m_tabs, 1);
    restoreSettings();

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
    connect(m_sendBar, &SendBar::sendRequested, this, &TerminalPage::send);
    connect(m_sendBar, &SendBar::sendFileRequested, this, &TerminalPage::sendFile);
    connect(m_port, &SerialPort::dataReceived, this, &TerminalPage::receive);
    connect(m_port, &SerialPort::readtimeout, this, &TerminalPage::noAnswer);
    connect(m_port, &SerialPort::opened, this, [this](const QString &name) {
        showLine(tr("Connected to %1.").arg(name));
        updateState();
    });
    connect(m_port, &SerialPort::closed, this, [this](const QString &name) {
        const QString line = tr("Disconnected from %1.").arg(name);
        // A command still running would otherwise leave the console locked for good.
        if (m_waiting)
            finishCommand(line);
        else
            showLine(line);
        // A lost device closes the port before the link says it waits for it: show only where that ends.
        QMetaObject::invokeMethod(this, &TerminalPage::updateState, Qt::QueuedConnection);
    });
    connect(m_port, &SerialPort::error, this, &TerminalPage::showLine);
    connect(m_link, &SerialLink::connectionLost, this, [this](const QString &name) {
        showLine(tr("%1 is gone; it reconnects when the device is back.").arg(name));
        logNote(tr("%1 is gone").arg(name));
        updateActions();
    });
    connect(m_link, &SerialLink::connectionRestored, this, [this](const QString &name) {
        logNote(tr("%1 is back").arg(name));
        updateActions();
    });
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
    saveSettings();
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
    setSendMessage(QString());
    if (!m_link->open(portName(m_options->comPortNumber()), lineSetting(m_baud), lineSetting(m_parity),
                      lineSetting(m_dataBits), lineSetting(m_stopBits), SerialPort::Asynchronous)) {
        showLine(m_link->errorString());
        setSendMessage(m_link->errorString());
    } else if (m_logCheck->isChecked()) {
        startLog();
    }
    updateActions();
}

void TerminalPage::connectAtStart()
{
    // The user may have been quicker, through the Link menu.
    if (isConnected())
        return;
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
    m_log.close();
    m_logLabel->clear();
}

void TerminalPage::sendCommand(const QString &command)
{
    if (!m_port->isOpen()) {
        m_console->result(tr("Not connected."));
        return;
    }
    m_waiting = true;
    m_answer.clear();
    const QByteArray bytes = command.toLatin1() + commandEnd;
    const QDateTime now = QDateTime::currentDateTime();
    m_view->add(SerialTraffic::Sent, bytes, now);
    m_log.write(SerialTraffic::Sent, bytes, now);
    m_port->writeBuffer(bytes, m_responseTimeoutMs);
}

void TerminalPage::receive(const QList<QVariant> &bytes)
{
    QByteArray chunk;
    chunk.reserve(bytes.size());
    for (const QVariant &byte : bytes)
        chunk.append(char(byte.toInt()));
    const QDateTime now = QDateTime::currentDateTime();
    m_log.write(SerialTraffic::Received, chunk, now);
    m_view->add(SerialTraffic::Received, chunk, now);
    // The console shows only what answers its commands or arrives unasked in moderate amounts.
    if (m_answer.size() < 64 * 1024)
        m_answer.append(chunk);
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
    updateState();
}

QString TerminalPage::stateText() const
{
    if (m_port->isOpen())
        return tr("%1 connected").arg(m_port->portName());
    if (m_link->isWaiting())
        return tr("%1: waiting for the device").arg(m_link->name());
    return tr("not connected");
}

void TerminalPage::updateState()
{
    const QString state = stateText();
    if (state == m_state)
        return;
    m_state = state;
    m_stateLabel->setText(state);
    logNote(state);
    Q_EMIT stateChanged(state);
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

QWidget *TerminalPage::createSettingsBar()
{
    auto *bar = new QWidget(this);
    auto *row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_stateLabel, 1);
    row->addWidget(buttonFor(m_connectAction, bar));
    row->addWidget(buttonFor(m_disconnectAction, bar));
    QList<QPair<QString, int>> rates;
    for (const int rate : {1200, 2400, 4800, 9600, 19200, 38400, 57600, 115200, 230400, 460800, 921600})
        rates.append({QString::number(rate), rate});
    m_baud = settingBox(QStringLiteral("baudRate"), rates, bar);
    m_dataBits = settingBox(QStringLiteral("dataBits"),
                            {{QStringLiteral("5"), QSerialPort::Data5},
                             {QStringLiteral("6"), QSerialPort::Data6},
                             {QStringLiteral("7"), QSerialPort::Data7},
                             {QStringLiteral("8"), QSerialPort::Data8}},
                            bar);
    m_parity = settingBox(QStringLiteral("parity"),
                          {{tr("None"), QSerialPort::NoParity},
                           {tr("Even"), QSerialPort::EvenParity},
                           {tr("Odd"), QSerialPort::OddParity},
                           {tr("Space"), QSerialPort::SpaceParity},
                           {tr("Mark"), QSerialPort::MarkParity}},
                          bar);
    m_stopBits = settingBox(QStringLiteral("stopBits"),
                            {{QStringLiteral("1"), QSerialPort::OneStop},
                             {QStringLiteral("1.5"), QSerialPort::OneAndHalfStop},
                             {QStringLiteral("2"), QSerialPort::TwoStop}},
                            bar);
    const QList<QPair<QString, QComboBox *>> boxes{
        {tr("Baud"), m_baud}, {tr("Data"), m_dataBits}, {tr("Parity"), m_parity}, {tr("Stop"), m_stopBits}};
    for (const auto &box : boxes) {
        auto *label = new QLabel(box.first, bar);
        label->setBuddy(box.second);
        row->addWidget(label);
        row->addWidget(box.second);
    }
    m_hexGap = new QSpinBox(bar);
    m_hexGap->setObjectName(QStringLiteral("hexGap"));
    m_hexGap->setRange(1, 10000);
    m_hexGap->setSuffix(tr(" ms"));
    m_hexGap->setToolTip(tr("The hex view starts a new row when the line was quiet this long."));
    auto *gapLabel = new QLabel(tr("Row gap"), bar);
    gapLabel->setBuddy(m_hexGap);
    row->addWidget(gapLabel);
    row->addWidget(m_hexGap);
    return bar;
}

QWidget *TerminalPage::createTrafficTab()
{
    auto *tab = new QWidget(this);
    auto *column = new QVBoxLayout(tab);
    column->addWidget(m_view, 1);

    auto *tools = new QHBoxLayout;
    m_search = new QLineEdit(tab);
    m_search->setObjectName(QStringLiteral("search"));
    m_search->setPlaceholderText(tr("Search"));
    m_search->setClearButtonEnabled(true);
    m_search->setMinimumWidth(140);
    auto *find = new QPushButton(tr("Fin&d"), tab);
    m_pause = new QCheckBox(tr("&Pause scrolling"), tab);
    m_pause->setObjectName(QStringLiteral("pause"));
    auto *clear = new QPushButton(tr("C&lear"), tab);
    clear->setObjectName(QStringLiteral("clear"));
    auto *copy = new QPushButton(tr("Cop&y"), tab);
    m_logCheck = new QCheckBox(tr("Log sessio&ns"), tab);
    m_logCheck->setObjectName(QStringLiteral("logSessions"));
    m_logLabel = new QLabel(tab);
    m_logLabel->setObjectName(QStringLiteral("logFile"));
    m_logLabel->setTextInteractionFlags(Qt::TextSelectableByMouse);
    for (QWidget *widget : std::initializer_list<QWidget *>{m_search, find, m_pause, clear, copy, m_logCheck})
        tools->addWidget(widget);
    tools->addWidget(m_logLabel, 1);
    column->addLayout(tools);
    column->addWidget(m_sendBar);

    const auto search = [this] {
        setSendMessage(m_view->find(m_search->text()) || m_search->text().isEmpty()
                           ? QString()
                           : tr("\"%1\" is not in the view.").arg(m_search->text()));
    };
    connect(find, &QPushButton::clicked, this, search);
    connect(m_search, &QLineEdit::returnPressed, this, search);
    connect(m_pause, &QCheckBox::toggled, m_view, &TerminalView::setPaused);
    connect(clear, &QPushButton::clicked, m_view, &TerminalView::clear);
    connect(copy, &QPushButton::clicked, m_view, &TerminalView::copy);
    connect(m_logCheck, &QCheckBox::toggled, this, [this](bool on) {
        if (!on)
            m_log.close();
        else if (m_port->isOpen() || m_link->isWaiting())
            startLog();
        m_logLabel->setText(on && m_log.isOpen() ? QDir::toNativeSeparators(m_log.fileName()) : QString());
    });
    return tab;
}

void TerminalPage::restoreSettings()
{
    KvSettings settings;
    settings.beginGroup(settingsGroup);
    const auto select = [&settings](QComboBox *box, const QString &key, int fallback) {
        const int index = box->findData(settings.value(key, fallback).toInt());
        box->setCurrentIndex(index >= 0 ? index : box->findData(fallback));
    };
    select(m_baud, QStringLiteral("baudRate"), QSerialPort::Baud9600);
    select(m_dataBits, QStringLiteral("dataBits"), QSerialPort::Data8);
    select(m_parity, QStringLiteral("parity"), QSerialPort::NoParity);
    select(m_stopBits, QStringLiteral("stopBits"), QSerialPort::OneStop);
    m_hexGap->setValue(settings.value(QStringLiteral("hexGap"), HexRows::defaultGapMs).toInt());
    m_view->setHexGap(m_hexGap->value());
    m_logCheck->setChecked(settings.value(QStringLiteral("logSessions"), true).toBool());
    m_sendBar->restoreSettings(settings);

    for (QComboBox *box : {m_baud, m_dataBits, m_parity, m_stopBits})
        connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &TerminalPage::lineSettingsChanged);
    connect(m_hexGap, QOverload<int>::of(&QSpinBox::valueChanged), m_view, &TerminalView::setHexGap);
}

void TerminalPage::saveSettings() const
{
    KvSettings settings;
    settings.beginGroup(settingsGroup);
    settings.setValue(QStringLiteral("baudRate"), lineSetting(m_baud));
    settings.setValue(QStringLiteral("dataBits"), lineSetting(m_dataBits));
    settings.setValue(QStringLiteral("parity"), lineSetting(m_parity));
    settings.setValue(QStringLiteral("stopBits"), lineSetting(m_stopBits));
    settings.setValue(QStringLiteral("hexGap"), m_hexGap->value());
    settings.setValue(QStringLiteral("logSessions"), m_logCheck->isChecked());
    m_sendBar->saveSettings(settings);
}

int TerminalPage::lineSetting(const QComboBox *box) const
{
    return box->currentData().toInt();
}

void TerminalPage::lineSettingsChanged()
{
    saveSettings();
    // The open port takes new settings only when it is opened again.
    if (m_port->isOpen()) {
        disconnectPort();
        connectPort();
    }
}

QStringList TerminalPage::sendHistory() const
{
    return m_sendBar->history();
}

void TerminalPage::send()
{
    QString refusal;
    const QByteArray bytes = m_sendBar->bytes(&refusal);
    if (!refusal.isEmpty()) {
        setSendMessage(refusal);
        return;
    }
    const QString text = m_sendBar->text();
    if (sendBytes(bytes) && !text.isEmpty()) {
        m_sendBar->addToHistory(text);
        saveSettings();
    }
}

void TerminalPage::sendFile()
{
    if (!m_port->isOpen()) {
        setSendMessage(tr("Not sent: not connected."));
        return;
    }
    const QString path = QFileDialog::getOpenFileName(this, tr("Send File"));
    if (path.isEmpty())
        return;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        setSendMessage(tr("Cannot read %1: %2").arg(QDir::toNativeSeparators(path), file.errorString()));
        return;
    }
    const QByteArray bytes = file.readAll();
    if (sendBytes(bytes))
        setSendMessage(tr("Sent %1 (%2 bytes).").arg(QFileInfo(path).fileName()).arg(bytes.size()));
}

bool TerminalPage::sendBytes(const QByteArray &bytes)
{
    if (!m_port->isOpen()) {
        setSendMessage(tr("Not sent: not connected."));
        return false;
    }
    const QDateTime now = QDateTime::currentDateTime();
    m_view->add(SerialTraffic::Sent, bytes, now);
    m_log.write(SerialTraffic::Sent, bytes, now);
    const int sent = m_port->writeBuffer(bytes, 0);
    if (sent != bytes.size()) {
        setSendMessage(tr("Only %1 of %2 bytes went out: %3").arg(sent).arg(bytes.size()).arg(m_port->errorString()));
        return false;
    }
    setSendMessage(QString());
    return true;
}

void TerminalPage::setSendMessage(const QString &text)
{
    m_sendBar->setMessage(text);
}

QString TerminalPage::logFileName() const
{
    return m_log.isOpen() ? m_log.fileName() : QString();
}

void TerminalPage::startLog()
{
    if (m_log.isOpen())
        return;
    const QString folder = QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("logs"));
    if (!m_log.open(folder, m_port->isOpen() ? m_port->portName() : m_link->name(), QDateTime::currentDateTime()))
        setSendMessage(m_log.errorString());
    else
        logNote(stateText());
    m_logLabel->setText(m_log.isOpen() ? QDir::toNativeSeparators(m_log.fileName()) : QString());
}

void TerminalPage::logNote(const QString &text)
{
    m_log.note(text, QDateTime::currentDateTime());
}
