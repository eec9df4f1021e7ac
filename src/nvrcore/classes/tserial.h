// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_TSERIAL_H
#define NVR_TSERIAL_H

#include "nvrcore_export.h"

/// Parity of a Tserial line.
enum serial_parity { parityNone = 0, parityOdd = 1, parityEven = 2 };

/**
 * A plain synchronous serial line over the operating system's calls, without
 * the event loop: open by name, write bytes, blocking reads, and reads that
 * poll the receive queue with a sleep between polls. Nothing is logged and
 * nothing throws; with no open device every transfer is a no-op returning 0.
 *
 * The first connect() only opens the device: the line keeps the settings and
 * read time-outs the driver already has. A second connect() on the open line
 * applies raw mode, the rate, 8 data bits, one stop bit, the parity and the
 * DTR/RTS modes, and is the way to set them.
 *
 * A name "COM<n>" (also with the "\\.\" prefix) opens the device behind the
 * link <application directory>/ports/COM<n>; other names are device paths.
 * Names longer than 63 characters are refused.
 *
 * getChar() and getArray() block as the device's read time-outs decide; on a
 * raw line that is until a byte arrives. The polling reads never block.
 */
class NVRCORE_EXPORT Tserial
{
public:
    /// Results of connect(). Bit values; this implementation never sets 1, 2 or 4.
    enum ConnectResult {
        Connected = 0,
        EventMaskFailed = 1,
        TimeoutsFailed = 2,
        StateFailed = 4,
        OpenFailed = 8,
        NoPortName = 16
    };

    Tserial();
    ~Tserial();
    Tserial(const Tserial &) = delete;
    Tserial &operator=(const Tserial &) = delete;

    /**
     * DTR and RTS modes: 0 drops the line, 1 raises it; the handshake modes
     * (2, and 3 for RTS) have no equivalent here and raise it as well.
     */
    int connect(const char *portName, int rate, int dtrControl, int rtsControl, serial_parity parity);
    void disconnect();
    bool isConnected() const;

    void sendChar(char c);
    void sendArray(const char *buffer, int length);
    /// The byte read, or 0 when the read delivered nothing.
    char getChar();
    int getArray(char *buffer, int length);
    /// Bytes waiting in the receive queue.
    int getNbrOfBytes();
    /// Reads and drops the bytes queued now, one by one; returns their count.
    int flush_rx();
    /**
     * Polls the queue up to tries times, pollMs apart, until length bytes are
     * there, and copies at most length of them. Returns the number that were
     * queued, which may be more than length: copy the smaller of the two.
     */
    int getArrayIfThere(char *buffer, int length, int pollMs, int tries);
    /// One byte as getArrayIfThere() would fetch it; 0 when nothing came.
    char getCharIfThere(int pollMs, int tries);

private:
    void closeDevice();
    void applySettings(int dtrControl, int rtsControl);

    char m_deviceName[64] = {};
    int m_baudRate = 0;
    serial_parity m_parityMode = parityNone;
    int m_deviceHandle = -1;
    bool m_connected = false;
};

#endif
