// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_TEST_PTYPAIR_H
#define NVR_TEST_PTYPAIR_H

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

/**
 * A pair of connected pseudo-terminals made by socat: what is written to one
 * end can be read from the other, as over a null-modem cable. portA() is
 * meant for the code under test; the test plays the device on the other end
 * with the peer functions (a raw, non-blocking descriptor on portB()).
 * stop() ends socat, so that both ends lose their peer, as a pulled adapter
 * does; start() again brings the pair back under the same link paths.
 */
class PtyPair
{
public:
    PtyPair();
    ~PtyPair();
    PtyPair(const PtyPair &) = delete;
    PtyPair &operator=(const PtyPair &) = delete;

    /// Starts socat and waits until both ends exist; false (with a reason in error()) otherwise.
    bool start(int timeoutMs = 5000);
    void stop();
    QString error() const { return m_error; }

    /// The two ends as links in a temporary folder.
    QString portA() const;
    QString portB() const;
    /// The pseudo-terminal device behind an end ("/dev/pts/N").
    QString deviceA() const;
    QString deviceB() const;

    /// Waits, without an event loop, until count bytes wait unread at portA().
    bool waitQueuedAtA(int count, int timeoutMs = 5000) const;

    bool openPeer();
    void closePeer();
    bool peerWrite(const QByteArray &bytes);
    /// Reads what arrives at the peer until count bytes came or timeoutMs passed.
    QByteArray peerRead(int count, int timeoutMs = 2000);

private:
    QTemporaryDir m_dir;
    QProcess m_socat;
    QString m_error;
    int m_peer = -1;
};

/// CPU time (user and system) a process used so far, in milliseconds; 0 for this process.
qint64 processCpuMs(qint64 pid = 0);

/// Starts the pair and opens its peer end, or fails the current test with socat's reason.
#define START_PAIR(pair) QVERIFY2((pair).start() && (pair).openPeer(), qPrintable((pair).error()))

#endif
