// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "serialport.h"

#include "logger.h"
#include "portlinks.h"
#include "sleeper.h"

#include <QRegularExpression>
#include <QSerialPort>
#include <QSerialPortInfo>
#include <QTimer>

namespace {
const QString devicePrefix = QStringLiteral("\\\\.\\");

// GCC writes a type of the function's own class unqualified ("const Mode&");
// open's records name the mode parameter the way callers write it.
const char openSignature[] =
    "virtual bool SerialPort::open(const QString&, int, int, int, int, const SerialPort::Mode&)";
}

#define LOG_OPEN(level) CuteMessageLogger(cuteLoggerInstance(), level, __FILE__, __LINE__, openSignature).write

SerialPort::SerialPort(QObject *parent) : QObject(parent), m_timer(new QTimer(this))
{
    connect(m_timer, &QTimer::timeout, this, &SerialPort::timeout);
}

SerialPort::~SerialPort()
{
    close();
    m_buffer.clear();
}

bool SerialPort::open(const QString &name, int baudRate, int parity, int dataBits, int stopBits,
                      const SerialPort::Mode &mode)
{
    m_mode = mode;
    LOG_OPEN(Logger::Trace)(QStringLiteral("[%1] Opening --> Baud=%2 Parity=%3 Data=%4 Stop=%5...")
                                .arg(name, this->baudRate(baudRate), this->parity(parity), this->dataBits(dataBits),
                                     this->stopBits(stopBits)));
    if (m_port)
        close();

    m_lossPending = false;
    m_port = new QSerialPort(PortLinks::resolve(name), this);
    m_name = name;
    m_port->setBaudRate(baudRate, QSerialPort::AllDirections);
    m_port->setFlowControl(QSerialPort::NoFlowControl);
    m_port->setParity(static_cast<QSerialPort::Parity>(parity));
    m_port->setDataBits(static_cast<QSerialPort::DataBits>(dataBits));
    m_port->setStopBits(static_cast<QSerialPort::StopBits>(stopBits));
    m_port->open(QIODevice::ReadWrite);

    bool result = false;
    if (m_port->isOpen()) {
        LOG_OPEN(Logger::Info)(QStringLiteral("[%1] Opened --> Baud=%2 Parity=%3 Data=%4 Stop=%5.")
                                   .arg(portName(), this->baudRate(), this->parity(), this->dataBits(),
                                        this->stopBits()));
        connect(m_port, &QSerialPort::errorOccurred, this, [this](QSerialPort::SerialPortError e) { portError(e); });
        Q_EMIT opened(portName());
        result = true;
    } else {
        const QString message = QStringLiteral("[%1] Failed to open port.").arg(portName());
        LOG_OPEN(Logger::Error)(message);
        Q_EMIT error(message);
    }
    // Wired after a failed open as well, deliberately.
    if (m_mode == Asynchronous) {
        connect(m_port, &QSerialPort::readyRead, this, &SerialPort::receive);
        connect(m_port, &QSerialPort::bytesWritten, this, &SerialPort::bytesWritten);
    }
    return result;
}

void SerialPort::close()
{
    if (!m_port)
        return;
    m_lossPending = false;
    // Closing a device that went away fails again; that is no news to anyone.
    disconnect(m_port, &QSerialPort::errorOccurred, this, nullptr);
    if (m_port->isOpen()) {
        m_port->close();
        LOG_INFO(QStringLiteral("[%1] Closed.").arg(portName()));
        Q_EMIT closed(portName());
    }
    // Deferred: close() may run from a handler of the port's own readyRead or
    // bytesWritten, and the port still touches itself after that signal returns.
    m_port->deleteLater();
    m_port = nullptr;
}

bool SerialPort::isOpen() const
{
    return m_port && m_port->isOpen();
}

void SerialPort::setBaudRate(const int &rate)
{
    if (m_port)
        m_port->setBaudRate(rate, QSerialPort::AllDirections);
}

bool SerialPort::setDtr(const bool &on)
{
    if (!m_port)
        return false;
    if (traceEnabled)
        LOG_INFO(QStringLiteral("[%1] DTR %2").arg(portName(), on ? QStringLiteral("Set") : QStringLiteral("Clr")));
    return m_port->setDataTerminalReady(on);
}

bool SerialPort::setRts(const bool &on)
{
    if (!m_port)
        return false;
    if (traceEnabled)
        LOG_INFO(QStringLiteral("[%1] RTS %2").arg(portName(), on ? QStringLiteral("Set") : QStringLiteral("Clr")));
    return m_port->setRequestToSend(on);
}

int SerialPort::lineStatus() const
{
    return m_port ? int(m_port->pinoutSignals()) : 0;
}

void SerialPort::flush()
{
    if (m_port)
        m_port->clear(QSerialPort::AllDirections);
}

int SerialPort::writeBuffer(const QByteArray &data, const int &responseTimeoutMs)
{
    if (!m_port)
        return 0;
    if (traceEnabled)
        LOG_TRACE(QStringLiteral("[%1] Tx: %2").arg(portName(), QString::fromLatin1(data.toHex())));
    if (responseTimeoutMs != 0) {
        m_timer->setInterval(responseTimeoutMs);
        m_timer->start();
    }

    const int size = data.size();
    int remaining = size;
    for (;;) {
        const qint64 written = m_port->write(data.constData() + (size - remaining), remaining);
        if (!m_port->waitForBytesWritten(1000) || written <= 0) {
            LOG_ERROR(QStringLiteral("[%1] Tx FAIL").arg(portName()));
            finishLoss();
            return size - remaining;
        }
        remaining -= int(written);
        if (remaining <= 0)
            return size - remaining;
        if (traceEnabled)
            LOG_TRACE(QStringLiteral("[%1] %2 bytes sent, %3 of %4 bytes.")
                          .arg(portName(), QString::number(written), QString::number(size - remaining),
                               QString::number(size)));
    }
}

int SerialPort::writeString(const QString &text, const int &responseTimeoutMs)
{
    return writeBuffer(text.toLatin1(), responseTimeoutMs);
}

QByteArray SerialPort::readBuffer(const int &count, const unsigned long &intervalMs, const unsigned long &timeoutMs)
{
    // Without a port, or with no interval to divide by, there is nothing to poll.
    if (!m_port)
        return QByteArray();
    const unsigned long tries = intervalMs == 0 ? 0 : timeoutMs / intervalMs;
    for (unsigned long i = 0; i < tries; ++i) {
        if (!m_port->waitForReadyRead(5)) {
            // A dead device fails every wait at once; polling it on would only spin.
            if (m_lossPending)
                break;
            continue;
        }
        if (m_port->bytesAvailable() >= count)
            break;
        sleep(intervalMs);
    }
    const QByteArray bytes = m_port->readAll();
    finishLoss();
    return bytes;
}

void SerialPort::sleep(const unsigned long &ms)
{
    Sleeper::msleep(ms);
}

QString SerialPort::portName() const
{
    if (!m_port)
        return QString();
    QString name = m_name;
    if (name.contains(devicePrefix))
        name.remove(devicePrefix);
    return name;
}

QString SerialPort::baudRate(const int &value) const
{
    return QStringLiteral("%1").arg(value);
}

QString SerialPort::dataBits(const int &value) const
{
    return QStringLiteral("%1").arg(value);
}

QString SerialPort::stopBits(const int &value) const
{
    switch (value) {
    case 1: return QStringLiteral("1");
    case 2: return QStringLiteral("2");
    case 3: return QStringLiteral("1.5");
    default: return QStringLiteral("Unknown");
    }
}

QString SerialPort::parity(const int &value) const
{
    // Index 1 is no parity setting; it reads "INVALID" on purpose.
    static const QStringList names = {QStringLiteral("NONE"), QStringLiteral("INVALID"), QStringLiteral("EVEN"),
                                      QStringLiteral("ODD"),  QStringLiteral("SPACE"),   QStringLiteral("MARK")};
    return value >= 0 && value < names.size() ? names.at(value) : QString();
}

QString SerialPort::baudRate() const
{
    return m_port ? baudRate(m_port->baudRate(QSerialPort::AllDirections)) : QString();
}

QString SerialPort::dataBits() const
{
    return m_port ? dataBits(m_port->dataBits()) : QString();
}

QString SerialPort::stopBits() const
{
    return m_port ? stopBits(m_port->stopBits()) : QString();
}

QString SerialPort::parity() const
{
    return m_port ? parity(m_port->parity()) : QString();
}

QString SerialPort::errorString() const
{
    return m_port ? m_port->errorString() : QString();
}

QMap<int, QString> SerialPort::availablePorts()
{
    QList<QPair<QString, QString>> ports;
    const QList<QSerialPortInfo> infos = QSerialPortInfo::availablePorts();
    for (const QSerialPortInfo &info : infos)
        ports.append({info.portName(), info.manufacturer()});
    const QList<QPair<QString, QString>> links = PortLinks::links();
    for (const auto &link : links) {
        QString manufacturer;
        for (const QSerialPortInfo &info : infos) {
            if (info.systemLocation() == link.second)
                manufacturer = info.manufacturer();
        }
        ports.append({link.first, manufacturer});
    }
    return portMap(ports);
}

QMap<int, QString> SerialPort::portMap(const QList<QPair<QString, QString>> &ports)
{
    static const QRegularExpression comNumber(QStringLiteral("COM(\\d+)"));
    QMap<int, QString> map;
    for (const auto &port : ports) {
        const QRegularExpressionMatch match = comNumber.match(port.first);
        if (!match.hasMatch())
            continue;
        map.insert(match.captured(1).toInt(), port.first + QLatin1Char(' ') + port.second);
    }
    return map;
}

void SerialPort::receive()
{
    m_timer->stop();
    m_buffer = m_port ? m_port->readAll() : QByteArray();
    QList<QVariant> bytes;
    bytes.reserve(m_buffer.size());
    for (const char byte : std::as_const(m_buffer))
        bytes.append(int(quint8(byte)));
    Q_EMIT dataReceived(bytes);
}

void SerialPort::timeout()
{
    m_timer->stop();
    if (m_port)
        m_port->readAll();
    Q_EMIT readtimeout();
}

void SerialPort::portError(int error)
{
    // A read that fails or finds the line hung up, or a resource error, means the
    // device is gone: its descriptor would stay readable and fail forever.
    if (error != QSerialPort::ReadError && error != QSerialPort::ResourceError)
        return;
    if (m_lossPending || !m_port || !m_port->isOpen())
        return;
    m_lossPending = true;
    m_lossReason = m_port->errorString();
    // The port is inside its own read when it reports this; it is closed once that returns.
    QMetaObject::invokeMethod(this, &SerialPort::finishLoss, Qt::QueuedConnection);
}

void SerialPort::finishLoss()
{
    if (!m_lossPending || !m_port)
        return;
    const QString name = portName();
    LOG_ERROR(QStringLiteral("[%1] Connection lost: %2").arg(name, m_lossReason));
    close();
    Q_EMIT connectionLost(name);
}
