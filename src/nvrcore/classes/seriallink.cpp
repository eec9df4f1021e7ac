// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "seriallink.h"

#include "portlinks.h"
#include "portlock.h"

#include <QDir>
#include <QFileInfo>
#include <QTimer>

namespace {
// A device that is there but will not open yet (its permissions still being
// set, say) is tried again after this long, not at every look.
constexpr int retryMs = 1000;
}

SerialLink::SerialLink(QObject *parent)
    : QObject(parent), m_port(new SerialPort(this)), m_watchTimer(new QTimer(this)), m_lock(new PortLock)
{
    m_watchTimer->setInterval(watchIntervalMs);
    connect(m_watchTimer, &QTimer::timeout, this, &SerialLink::lookForDevice);
    connect(m_port, &SerialPort::connectionLost, this, &SerialLink::portLost);
    // However the port closes, the device is free for others again.
    connect(m_port, &SerialPort::closed, this, [this] { m_lock->unlock(); });
}

SerialLink::~SerialLink()
{
    close();
}

bool SerialLink::open(const QString &name, int baudRate, int parity, int dataBits, int stopBits,
                      const SerialPort::Mode &mode)
{
    m_watchTimer->stop();
    m_waiting = false;
    m_name = name;
    m_baudRate = baudRate;
    m_parity = parity;
    m_dataBits = dataBits;
    m_stopBits = stopBits;
    m_mode = mode;
    return tryOpen();
}

void SerialLink::close()
{
    m_watchTimer->stop();
    m_waiting = false;
    m_port->close();
    m_lock->unlock();
}

bool SerialLink::isOpen() const
{
    return m_port->isOpen();
}

bool SerialLink::tryOpen()
{
    // Closed first, so that the lock taken below is not released by this close.
    m_port->close();
    m_error.clear();
    const QString link = PortLinks::linkPath(m_name);
    const QString device = PortLinks::resolve(m_name);
    const bool present = QFileInfo::exists(device);
    if (present && !m_lock->lock(device)) {
        m_error = tr("%1 is in use by %2.").arg(m_name, m_lock->holder());
        return false;
    }
    if (m_port->open(m_name, m_baudRate, m_parity, m_dataBits, m_stopBits, m_mode))
        return true;
    m_lock->unlock();
    if (!link.isEmpty() && !present)
        m_error = tr("%1 has no device: %2 is not a link to one.").arg(m_name, QDir::toNativeSeparators(link));
    else if (!present)
        m_error = tr("%1 does not exist.").arg(m_name);
    else
        m_error = tr("%1 could not be opened: %2.").arg(m_name, m_port->errorString());
    return false;
}

void SerialLink::portLost()
{
    m_lock->unlock();
    m_waiting = true;
    m_failedDevice.clear();
    m_watchTimer->start();
    Q_EMIT connectionLost(m_name);
}

void SerialLink::lookForDevice()
{
    const QString device = PortLinks::resolve(m_name);
    if (!QFileInfo::exists(device))
        return;
    if (device == m_failedDevice && m_sinceFailure.elapsed() < retryMs)
        return;
    if (!tryOpen()) {
        m_failedDevice = device;
        m_sinceFailure.start();
        return;
    }
    m_watchTimer->stop();
    m_waiting = false;
    Q_EMIT connectionRestored(m_name);
}
