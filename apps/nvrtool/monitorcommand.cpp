// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "monitorcommand.h"

#include "nvrtool.h"

#include "classes/nvroptions.h"
#include "classes/seriallink.h"
#include "classes/serialtraffic.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QMap>
#include <QSocketNotifier>
#include <QTime>
#include <QTimer>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {
enum ExitCode { Success = 0, Failure = 1, UsageError = 2 };

// SIGINT and SIGTERM reach the event loop through this pair: a handler may do nothing else safely.
int signalPipe[2] = {-1, -1};

void onSignal(int)
{
    const char byte = 1;
    const ssize_t ignored = ::write(signalPipe[1], &byte, 1);
    Q_UNUSED(ignored)
}

int fail(const QString &message)
{
    std::fprintf(stderr, "nvrtool: %s\n", message.toLocal8Bit().constData());
    return Failure;
}

int usageError(const QString &message)
{
    std::fprintf(stderr, "nvrtool: monitor: %s (see nvrtool --help)\n", message.toLocal8Bit().constData());
    return UsageError;
}

void writeOut(FILE *stream, const QByteArray &bytes)
{
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stream);
    std::fflush(stream);
}

}

MonitorCommand::MonitorCommand(QObject *parent) : QObject(parent), m_link(new SerialLink(this))
{
    connect(m_link->port(), &SerialPort::dataReceived, this, &MonitorCommand::receive);
    connect(m_link, &SerialLink::connectionLost, this, &MonitorCommand::lost);
    connect(m_link, &SerialLink::connectionRestored, this, &MonitorCommand::restored);
}

MonitorCommand::~MonitorCommand() = default;

void MonitorCommand::addOptions(QCommandLineParser &parser)
{
    parser.setApplicationDescription(
        QStringLiteral("Shows what the product sends and sends it each line of standard input; waits for the "
                       "device when it goes away. Ends at the end of standard input (after %1 ms for answers), "
                       "or on SIGINT or SIGTERM.")
            .arg(answerWaitMs));
    parser.addOptions({
        {QStringLiteral("port"),
         QStringLiteral("COM<n> (through the link ports/COM<n>) or a device path; default: the options' "
                        "configuration port."),
         QStringLiteral("name")},
        {QStringLiteral("baud"), QStringLiteral("Line speed in bits per second (default: %1); 8 data bits, no parity, "
                                                "one stop bit.")
                                     .arg(defaultBaudRate),
         QStringLiteral("n"), QString::number(defaultBaudRate)},
        {QStringLiteral("hex"), QStringLiteral("One line per received chunk: RX, the bytes in hex, the printable text.")},
        {QStringLiteral("timestamps"), QStringLiteral("Start every output line with the local time HH:MM:SS.mmm.")},
        {QStringLiteral("log"), QStringLiteral("Also append everything shown, with timestamps, to <file>."),
         QStringLiteral("file")},
        {QStringLiteral("eol"), QStringLiteral("Line ending sent after each input line: none, cr, lf or crlf "
                                               "(default: cr)."),
         QStringLiteral("ending"), QStringLiteral("cr")},
    });
}

int MonitorCommand::command(NvrTool &tool, const QStringList &arguments)
{
    QCommandLineParser parser;
    addOptions(parser);
    if (!tool.parse(parser, arguments, QStringLiteral("monitor")))
        return tool.exitCode();
    MonitorCommand monitor;
    return monitor.run(parser);
}

int MonitorCommand::run(const QCommandLineParser &parser)
{
    if (!parser.positionalArguments().isEmpty())
        return usageError(QStringLiteral("unexpected argument: %1").arg(parser.positionalArguments().first()));
    bool ok = false;
    const int baudRate = parser.value(QStringLiteral("baud")).toInt(&ok);
    if (!ok || baudRate <= 0)
        return usageError(QStringLiteral("not a line speed: %1").arg(parser.value(QStringLiteral("baud"))));
    static const QMap<QString, QByteArray> endings = {
        {QStringLiteral("none"), QByteArray()},
        {QStringLiteral("cr"), QByteArrayLiteral("\r")},
        {QStringLiteral("lf"), QByteArrayLiteral("\n")},
        {QStringLiteral("crlf"), QByteArrayLiteral("\r\n")},
    };
    const QString eol = parser.value(QStringLiteral("eol"));
    if (!endings.contains(eol))
        return usageError(QStringLiteral("--eol takes none, cr, lf or crlf, not %1").arg(eol));
    m_eol = endings.value(eol);
    m_hex = parser.isSet(QStringLiteral("hex"));
    m_timestamps = parser.isSet(QStringLiteral("timestamps"));
    QString name = parser.value(QStringLiteral("port"));
    if (name.isEmpty())
        name = QStringLiteral("COM%1").arg(NvrOptions(QStringList()).comPortNumber());

    if (parser.isSet(QStringLiteral("log"))) {
        m_log.setFileName(parser.value(QStringLiteral("log")));
        if (!m_log.open(QIODevice::WriteOnly | QIODevice::Append))
            return fail(QStringLiteral("cannot write %1: %2").arg(m_log.fileName(), m_log.errorString()));
    }
    if (!m_link->open(name, baudRate, 0, 8, 1, SerialPort::Asynchronous))
        return fail(m_link->errorString());

    if (::socketpair(AF_UNIX, SOCK_STREAM, 0, signalPipe) != 0)
        return fail(QStringLiteral("cannot watch for signals: %1").arg(QString::fromLocal8Bit(std::strerror(errno))));
    QSocketNotifier signalNotifier(signalPipe[0], QSocketNotifier::Read);
    connect(&signalNotifier, &QSocketNotifier::activated, this, &MonitorCommand::stop);
    struct sigaction action = {};
    action.sa_handler = onSignal;
    ::sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    ::sigaction(SIGINT, &action, nullptr);
    ::sigaction(SIGTERM, &action, nullptr);

    // A terminal shares this flag with the shell, which gets it back as it was.
    const int inputFlags = ::fcntl(STDIN_FILENO, F_GETFL);
    ::fcntl(STDIN_FILENO, F_SETFL, inputFlags | O_NONBLOCK);
    m_input = new QSocketNotifier(STDIN_FILENO, QSocketNotifier::Read, this);
    connect(m_input, &QSocketNotifier::activated, this, &MonitorCommand::readInput);

    const int code = QCoreApplication::exec();
    ::fcntl(STDIN_FILENO, F_SETFL, inputFlags);
    action.sa_handler = SIG_DFL;
    ::sigaction(SIGINT, &action, nullptr);
    ::sigaction(SIGTERM, &action, nullptr);
    ::close(signalPipe[0]);
    ::close(signalPipe[1]);
    return code;
}

void MonitorCommand::receive(const QList<QVariant> &values)
{
    QByteArray bytes;
    bytes.reserve(values.size());
    for (const QVariant &value : values)
        bytes.append(char(value.toInt()));
    if (bytes.isEmpty())
        return;
    if (m_hex) {
        const QByteArray line = SerialTraffic::hexLine(SerialTraffic::Received, bytes) + '\n';
        writeOut(stdout, m_timestamps ? timestamp() + line : line);
        writeLog(line);
        return;
    }
    QByteArray shown;
    for (const char byte : std::as_const(bytes)) {
        if (m_timestamps && m_outputAtLineStart)
            shown += timestamp();
        shown += byte;
        m_outputAtLineStart = byte == '\n';
    }
    writeOut(stdout, shown);
    writeLog(bytes);
}

void MonitorCommand::readInput()
{
    char chunk[4096];
    const ssize_t n = ::read(STDIN_FILENO, chunk, sizeof chunk);
    if (n < 0 && (errno == EAGAIN || errno == EINTR))
        return;
    if (n > 0) {
        m_pendingInput.append(chunk, int(n));
        int end;
        while ((end = m_pendingInput.indexOf('\n')) >= 0) {
            QByteArray line = m_pendingInput.left(end);
            m_pendingInput.remove(0, end + 1);
            if (line.endsWith('\r'))
                line.chop(1);
            sendLine(line);
        }
        return;
    }
    // The end of the input (or an input that cannot be read): a last line without its newline still goes.
    m_input->setEnabled(false);
    if (!m_pendingInput.isEmpty())
        sendLine(m_pendingInput);
    m_pendingInput.clear();
    QTimer::singleShot(answerWaitMs, this, &MonitorCommand::stop);
}

void MonitorCommand::sendLine(const QByteArray &line)
{
    if (!m_link->isOpen()) {
        if (!m_droppedNoted)
            status(QStringLiteral("not connected: input is not sent until %1 is back").arg(m_link->name()));
        m_droppedNoted = true;
        return;
    }
    m_link->port()->writeBuffer(line + m_eol, 0);
}

void MonitorCommand::lost(const QString &name)
{
    m_droppedNoted = false;
    status(QStringLiteral("disconnected: %1").arg(name));
}

void MonitorCommand::restored(const QString &name)
{
    status(QStringLiteral("reconnected: %1").arg(name));
}

void MonitorCommand::stop()
{
    m_link->close();
    if (m_log.isOpen())
        m_log.flush();
    QCoreApplication::exit(Success);
}

void MonitorCommand::status(const QString &text)
{
    const QByteArray line = text.toLocal8Bit() + '\n';
    writeOut(stderr, line);
    if (!m_log.isOpen())
        return;
    if (!m_logAtLineStart)
        writeLog("\n");
    writeLog(line);
}

void MonitorCommand::writeLog(const QByteArray &text)
{
    if (!m_log.isOpen())
        return;
    QByteArray stamped;
    for (const char byte : text) {
        if (m_logAtLineStart)
            stamped += timestamp();
        stamped += byte;
        m_logAtLineStart = byte == '\n';
    }
    m_log.write(stamped);
    m_log.flush();
}

QByteArray MonitorCommand::timestamp()
{
    return QTime::currentTime().toString(QStringLiteral("HH:mm:ss.zzz ")).toLatin1();
}
