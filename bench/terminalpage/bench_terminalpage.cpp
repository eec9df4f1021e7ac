// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
//
// How fast the host's terminal page takes in a peer that sends as fast as a
// pseudo-terminal allows, beside "cat" reading the same pseudo-terminal, and
// the longest the window's event loop stood still meanwhile (what a user
// would feel as a frozen window). The peer writes lines of text from a thread
// of its own; the page counts as done when it has received every byte and
// drawn its last batch. The session log is off: the figure is the display's.
// Usage: bench_terminalpage [megabytes, default 4]

#include "classes/nvroptions.h"
#include "classes/serialport.h"
#include "terminalpage.h"
#include "widgets/terminalview.h"

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QPlainTextEdit>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace {
QByteArray payload(qint64 size)
{
    const QByteArray line = "The quick brown fox 0123456789 jumps over the lazy dog \x01\x02\r\n";
    QByteArray bytes;
    bytes.reserve(int(size));
    while (bytes.size() < size)
        bytes += line;
    bytes.truncate(int(size));
    return bytes;
}

bool waitForLink(const QString &path)
{
    for (int i = 0; i < 500 && !QFileInfo::exists(path); ++i)
        QThread::msleep(10);
    return QFileInfo::exists(path);
}

/// Writes the bytes to a device as fast as it takes them.
class Writer : public QThread
{
public:
    Writer(const QString &path, const QByteArray &bytes) : m_path(path), m_bytes(bytes) {}

protected:
    void run() override
    {
        const int fd = ::open(QFile::encodeName(m_path).constData(), O_WRONLY | O_NOCTTY);
        if (fd < 0)
            return;
        qint64 done = 0;
        while (done < m_bytes.size()) {
            const ssize_t n = ::write(fd, m_bytes.constData() + done, size_t(m_bytes.size() - done));
            if (n <= 0)
                break;
            done += n;
        }
        // The reader may still be draining what the pseudo-terminal holds.
        QThread::sleep(1);
        ::close(fd);
    }

private:
    QString m_path;
    QByteArray m_bytes;
};

double rate(qint64 bytes, qint64 ms)
{
    return ms > 0 ? bytes / 1048576.0 / (ms / 1000.0) : 0;
}
}

int main(int argc, char *argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && qEnvironmentVariableIsEmpty("DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    const qint64 size = (argc > 1 ? QByteArray(argv[1]).toLongLong() : 4) * 1048576;
    const QByteArray bytes = payload(size);
    QTemporaryDir dir;
    const QString a = dir.filePath(QStringLiteral("A")), b = dir.filePath(QStringLiteral("B"));
    QProcess socat;
    socat.start(QStringLiteral("socat"),
                {QStringLiteral("pty,raw,echo=0,link=") + a, QStringLiteral("pty,raw,echo=0,link=") + b});
    if (!socat.waitForStarted() || !waitForLink(a) || !waitForLink(b)) {
        std::fprintf(stderr, "bench_terminalpage: socat did not start\n");
        return 1;
    }

    // Anchor: cat reading the same pseudo-terminal, its output counted here.
    QProcess cat;
    QElapsedTimer clock;
    cat.start(QStringLiteral("cat"), {a});
    cat.waitForStarted();
    QThread::msleep(100);
    {
        Writer writer(b, bytes);
        clock.start();
        writer.start();
        qint64 got = 0;
        while (got < size && clock.elapsed() < 120000 && cat.waitForReadyRead(5000))
            got += cat.readAllStandardOutput().size();
        const qint64 catMs = clock.elapsed();
        cat.kill();
        cat.waitForFinished();
        writer.wait();
        std::printf("cat:           %lld bytes in %lld ms = %.1f MiB/s\n", got, catMs, rate(got, catMs));
    }

    // The page, on COM<n> linked to the same pseudo-terminal.
    const QString ports = QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("ports"));
    QDir().mkpath(ports);
    const QString link = ports + QStringLiteral("/COM98");
    QFile::remove(link);
    QFile::link(a, link);
    NvrOptions options({QStringLiteral("nevra"), QStringLiteral("-noconnect")});
    options.setComPortNumber(98);
    TerminalPage page(&options);
    page.findChild<QCheckBox *>(QStringLiteral("logSessions"))->setChecked(false);
    page.resize(1000, 700);
    page.show();
    page.connectPort();
    if (!page.isConnected()) {
        std::fprintf(stderr, "bench_terminalpage: the page did not connect\n");
        return 1;
    }
    qint64 received = 0;
    QObject::connect(page.findChild<SerialPort *>(), &SerialPort::dataReceived,
                     [&received](const QList<QVariant> &chunk) { received += chunk.size(); });
    qint64 longestStall = 0;
    QElapsedTimer tick;
    QTimer heartbeat;
    heartbeat.setInterval(5);
    QObject::connect(&heartbeat, &QTimer::timeout, [&] {
        longestStall = qMax(longestStall, tick.restart());
    });
    Writer writer(b, bytes);
    clock.start();
    tick.start();
    heartbeat.start();
    writer.start();
    while (received < size && clock.elapsed() < 120000)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    page.view()->flush();
    QCoreApplication::processEvents();
    const qint64 pageMs = clock.elapsed();
    heartbeat.stop();
    std::printf("terminal page: %lld bytes in %lld ms = %.1f MiB/s, longest event-loop stall %lld ms, "
                "%d rows kept\n",
                received, pageMs, rate(received, pageMs), longestStall,
                page.view()->textView()->document()->blockCount());
    page.disconnectPort();
    writer.wait();
    QFile::remove(link);
    socat.terminate();
    socat.waitForFinished();
    return received == size ? 0 : 1;
}
