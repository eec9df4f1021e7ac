// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "tserial.h"

#include "portlinks.h"
#include "sleeper.h"

#include <QByteArray>
#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace {
speed_t speedFor(int rate)
{
    static const struct {
        int rate;
        speed_t speed;
    } speeds[] = {
        {50, B50},         {75, B75},         {110, B110},         {134, B134},       {150, B150},
        {200, B200},       {300, B300},       {600, B600},         {1200, B1200},     {1800, B1800},
        {2400, B2400},     {4800, B4800},     {9600, B9600},       {19200, B19200},   {38400, B38400},
        {57600, B57600},   {115200, B115200}, {230400, B230400},
#ifdef B460800
        {460800, B460800},
#endif
#ifdef B921600
        {921600, B921600},
#endif
    };
    for (const auto &entry : speeds) {
        if (entry.rate == rate)
            return entry.speed;
    }
    return B0;
}

void setModemLine(int fd, int line, int mode)
{
    ::ioctl(fd, (mode & 3) == 0 ? TIOCMBIC : TIOCMBIS, &line);
}
}

Tserial::Tserial() = default;

Tserial::~Tserial()
{
    closeDevice();
}

int Tserial::connect(const char *portName, int rate, int dtrControl, int rtsControl, serial_parity parity)
{
    if (!m_connected)
        closeDevice();
    if (!portName) {
        closeDevice();
        return NoPortName;
    }
    // A name that does not fit is refused rather than cut to another device's name.
    if (qstrnlen(portName, sizeof m_deviceName) >= sizeof m_deviceName)
        return OpenFailed;
    qstrncpy(m_deviceName, portName, sizeof m_deviceName);
    m_baudRate = rate;
    m_parityMode = parity;

    if (m_connected) {
        // Connecting again is how the settings reach the line; the outcome is not reported.
        applySettings(dtrControl, rtsControl);
        return Connected;
    }

    const QByteArray device = QFile::encodeName(PortLinks::resolve(QFile::decodeName(m_deviceName)));
    // Without O_NONBLOCK the open could wait forever for the carrier of a
    // modem line; the handle is made blocking again right after.
    m_deviceHandle = ::open(device.constData(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (m_deviceHandle < 0) {
        m_deviceHandle = -1;
        return OpenFailed;
    }
    ::fcntl(m_deviceHandle, F_SETFL, ::fcntl(m_deviceHandle, F_GETFL) & ~O_NONBLOCK);
    // The line is not shared while we hold it.
    ::ioctl(m_deviceHandle, TIOCEXCL);
    m_connected = true;
    return Connected;
}

void Tserial::applySettings(int dtrControl, int rtsControl)
{
    termios tio{};
    const speed_t speed = speedFor(m_baudRate);
    // An unknown rate leaves the line as it is, like any other refused setting.
    if (speed == B0 || ::tcgetattr(m_deviceHandle, &tio) != 0)
        return;
    // Raw mode would reset the read time-outs; the line keeps the ones it has.
    const cc_t readMinimum = tio.c_cc[VMIN];
    const cc_t readTimeout = tio.c_cc[VTIME];
    ::cfmakeraw(&tio);
    tio.c_cc[VMIN] = readMinimum;
    tio.c_cc[VTIME] = readTimeout;
    ::cfsetispeed(&tio, speed);
    ::cfsetospeed(&tio, speed);
    tio.c_cflag &= ~tcflag_t(CSIZE | CSTOPB | PARENB | PARODD | CRTSCTS);
    tio.c_cflag |= CS8 | CREAD | CLOCAL;
    tio.c_iflag &= ~tcflag_t(INPCK | IXON | IXOFF | IXANY);
    if (m_parityMode == parityOdd || m_parityMode == parityEven) {
        tio.c_cflag |= PARENB | (m_parityMode == parityOdd ? PARODD : 0);
        tio.c_iflag |= INPCK;
    }
    // Deliberately XON 0x13 and XOFF 0x19; with software flow control off they never act.
    tio.c_cc[VSTART] = 0x13;
    tio.c_cc[VSTOP] = 0x19;
    ::tcsetattr(m_deviceHandle, TCSANOW, &tio);
    setModemLine(m_deviceHandle, TIOCM_DTR, dtrControl);
    setModemLine(m_deviceHandle, TIOCM_RTS, rtsControl);
}

void Tserial::disconnect()
{
    closeDevice();
    m_connected = false;
}

bool Tserial::isConnected() const
{
    return m_deviceHandle >= 0;
}

void Tserial::sendChar(char c)
{
    sendArray(&c, 1);
}

void Tserial::sendArray(const char *buffer, int length)
{
    if (m_deviceHandle < 0 || !buffer)
        return;
    // A synchronous write hands over every byte, though the system may take them in parts.
    int done = 0;
    while (done < length) {
        const ssize_t written = ::write(m_deviceHandle, buffer + done, size_t(length - done));
        if (written > 0)
            done += int(written);
        else if (written == 0 || errno != EINTR)
            return;
    }
}

char Tserial::getChar()
{
    char c = 0;
    getArray(&c, 1);
    return c;
}

int Tserial::getArray(char *buffer, int length)
{
    if (m_deviceHandle < 0)
        return 0;
    ssize_t got;
    do {
        got = ::read(m_deviceHandle, buffer, size_t(length > 0 ? length : 0));
    } while (got < 0 && errno == EINTR);
    return got > 0 ? int(got) : 0;
}

int Tserial::getNbrOfBytes()
{
    int queued = 0;
    if (m_deviceHandle < 0 || ::ioctl(m_deviceHandle, FIONREAD, &queued) != 0)
        return 0;
    return queued;
}

int Tserial::flush_rx()
{
    const int queued = getNbrOfBytes();
    for (int i = 0; i < queued; ++i)
        getChar();
    return queued;
}

int Tserial::getArrayIfThere(char *buffer, int length, int pollMs, int tries)
{
    int available = 0;
    for (int i = 0; i < tries; ++i) {
        available = getNbrOfBytes();
        if (length <= available) {
            getArray(buffer, length);
            return available;
        }
        Sleeper::msleep(static_cast<unsigned long>(pollMs > 0 ? pollMs : 0));
    }
    if (available >= 1)
        getArray(buffer, available);
    return available;
}

char Tserial::getCharIfThere(int pollMs, int tries)
{
    char c = 0;
    getArrayIfThere(&c, 1, pollMs, tries);
    return c;
}

void Tserial::closeDevice()
{
    if (m_deviceHandle >= 0)
        ::close(m_deviceHandle);
    m_deviceHandle = -1;
}
