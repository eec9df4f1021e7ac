// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_SERIALLINK_H
#define NVR_SERIALLINK_H

#include "nvrcore_export.h"
#include "serialport.h"

#include <QElapsedTimer>
#include <QObject>
#include <QString>

#include <memory>

class PortLock;
class QTimer;

/**
 * A serial line that outlives its device. It owns a SerialPort for a port
 * name (COM<n> through its link in the ports folder, or a device path),
 * takes the device for this process alone, and when the device goes away
 * waits for the same device to return: the COM<n> link or the path resolves
 * again. It checks at most five times a second, which is a file lookup while
 * nothing is there, and reopens with the settings of the last open().
 *
 * Owners talk through port() and its signals as before; this class adds the
 * reason for a failed open, in words for the user, and the loss and return.
 */
class NVRCORE_EXPORT SerialLink : public QObject
{
    Q_OBJECT
public:
    /// How often a lost device is looked for.
    static constexpr int watchIntervalMs = 200;

    explicit SerialLink(QObject *parent = nullptr);
    ~SerialLink() override;

    SerialPort *port() const { return m_port; }

    /// Opens the port; false with errorString() set when it cannot be opened. A failed open is not retried.
    bool open(const QString &name, int baudRate, int parity, int dataBits, int stopBits,
              const SerialPort::Mode &mode);
    /// Closes the port and stops waiting for a lost device.
    void close();
    bool isOpen() const;
    /// The device went away and the link waits for it.
    bool isWaiting() const { return m_waiting; }
    /// The port name given to open().
    QString name() const { return m_name; }
    /// Why the last open failed, for example that another program holds the device (with its process id).
    QString errorString() const { return m_error; }

Q_SIGNALS:
    void connectionLost(const QString &name);
    void connectionRestored(const QString &name);

private:
    bool tryOpen();
    void portLost();
    void lookForDevice();

    SerialPort *m_port;
    QTimer *m_watchTimer;
    std::unique_ptr<PortLock> m_lock;
    QString m_name;
    int m_baudRate = 9600;
    int m_parity = 0;
    int m_dataBits = 8;
    int m_stopBits = 1;
    SerialPort::Mode m_mode = SerialPort::Synchronous;
    QString m_error;
    bool m_waiting = false;
    QString m_failedDevice;
    QElapsedTimer m_sinceFailure;
};

#endif
