// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_SERIALPORT_H
#define NVR_SERIALPORT_H

#include "nvrcore_export.h"

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QObject>
#include <QPair>
#include <QString>
#include <QVariant>

class QSerialPort;
class QTimer;

/**
 * The serial line to the product: one QSerialPort at a time, opened with
 * numeric line settings (the values of the QSerialPort enumerations; flow
 * control is always none), with a logged summary, a chunked write that waits
 * for each chunk to leave the driver, an optional response time-out armed by
 * a write, and two ways of receiving: polled with readBuffer(), or signalled
 * with dataReceived() in Asynchronous mode.
 *
 * Names of the form COM<n> (also with the "\\.\" prefix) open the device that
 * the link <application directory>/ports/COM<n> points at, while the port
 * still reports itself as COM<n>. Every other name is opened as given.
 *
 * Traffic lines of setDtr(), setRts() and writeBuffer() are logged only while
 * traceEnabled is true (the default); open, close and failures always are.
 *
 * A device that goes away while open (an adapter pulled, the far end of a
 * pseudo-terminal closed) shows as a read or resource error or a hang-up. The
 * first one closes the port, logs one Error line and emits connectionLost()
 * once; nothing keeps polling the dead device afterwards. SerialLink reopens
 * the port when the device comes back.
 */
class NVRCORE_EXPORT SerialPort : public QObject
{
    Q_OBJECT
public:
    enum Mode { Synchronous = 0, Asynchronous = 1 };
    Q_ENUM(Mode)

    explicit SerialPort(QObject *parent = nullptr);
    ~SerialPort() override;

    virtual bool open(const QString &name, int baudRate, int parity, int dataBits, int stopBits,
                      const SerialPort::Mode &mode);
    void close();
    bool isOpen() const;

    void setBaudRate(const int &rate);
    bool setDtr(const bool &on);
    bool setRts(const bool &on);
    int lineStatus() const;
    /// Discards pending input and output in both directions; sends nothing.
    void flush();

    /// Returns the number of bytes that left; a non-zero time-out arms readtimeout().
    int writeBuffer(const QByteArray &data, const int &responseTimeoutMs);
    int writeString(const QString &text, const int &responseTimeoutMs);
    /**
     * Polls timeoutMs / intervalMs times for count bytes (a stop threshold,
     * not a length) and returns whatever has arrived. Sleeps intervalMs only
     * after a poll that brought data; otherwise each poll waits 5 ms. Returns
     * at once, with what the port holds, when the time-out is below the
     * interval; an empty array with no port or a zero interval.
     */
    QByteArray readBuffer(const int &count, const unsigned long &intervalMs, const unsigned long &timeoutMs);
    static void sleep(const unsigned long &ms);

    /// The port's name without the "\\.\" prefix; empty with no port.
    QString portName() const;
    QString baudRate(const int &value) const;
    QString dataBits(const int &value) const;
    QString stopBits(const int &value) const;
    QString parity(const int &value) const;
    QString baudRate() const;
    QString dataBits() const;
    QString stopBits() const;
    QString parity() const;
    /// Why the last operation on the port failed, in the system's words; empty with no port.
    QString errorString() const;

    /// The COM ports present, by number: "COM<n> <manufacturer>".
    static QMap<int, QString> availablePorts();
    /// The map availablePorts() builds from (port name, manufacturer) pairs, in the order given.
    static QMap<int, QString> portMap(const QList<QPair<QString, QString>> &ports);

    bool traceEnabled = true;

Q_SIGNALS:
    void opened(const QString &portName);
    void closed(const QString &portName);
    void error(const QString &message);
    void dataReceived(QList<QVariant> bytes);
    void readtimeout();
    void bytesWritten(qint64 count);
    /// The device of the open port went away; the port is closed already.
    void connectionLost(const QString &portName);

public Q_SLOTS:
    void receive();
    void timeout();

private:
    void portError(int error);
    /// Closes a port whose device went away and tells the owner; once per loss.
    void finishLoss();

    Mode m_mode = Synchronous;
    QTimer *m_timer = nullptr;
    QByteArray m_buffer;
    QSerialPort *m_port = nullptr;
    QString m_name;
    QString m_lossReason;
    bool m_lossPending = false;
};

#endif
