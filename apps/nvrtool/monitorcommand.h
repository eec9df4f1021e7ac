// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_MONITORCOMMAND_H
#define NVR_MONITORCOMMAND_H

#include <QByteArray>
#include <QFile>
#include <QObject>
#include <QStringList>

class QCommandLineParser;
class QSocketNotifier;
class NvrTool;
class SerialLink;

/**
 * "nvrtool monitor": a terminal without a window, for scripts and remote
 * sessions. Received bytes go to standard output as they come, each line of
 * standard input goes out with the chosen line ending, and the loss and
 * return of the device are one line each on standard error. The end of
 * standard input, SIGINT and SIGTERM end the run with exit code 0.
 */
class MonitorCommand : public QObject
{
    Q_OBJECT
public:
    static constexpr int defaultBaudRate = 9600;
    /// How long answers to the last line are awaited after standard input ends.
    static constexpr int answerWaitMs = 500;

    explicit MonitorCommand(QObject *parent = nullptr);
    ~MonitorCommand() override;

    /// "nvrtool monitor": parses the command line and runs the monitor.
    static int command(NvrTool &tool, const QStringList &arguments);
    static void addOptions(QCommandLineParser &parser);
    /// Runs the monitor with the parsed options; returns the exit code.
    int run(const QCommandLineParser &parser);

private:
    void receive(const QList<QVariant> &bytes);
    void readInput();
    void sendLine(const QByteArray &line);
    void lost(const QString &name);
    void restored(const QString &name);
    void stop();
    /// A status line on standard error, and in the log.
    void status(const QString &text);
    void writeLog(const QByteArray &text);
    static QByteArray timestamp();

    SerialLink *m_link;
    QSocketNotifier *m_input = nullptr;
    QFile m_log;
    QByteArray m_eol;
    QByteArray m_pendingInput;
    bool m_hex = false;
    bool m_timestamps = false;
    bool m_outputAtLineStart = true;
    bool m_logAtLineStart = true;
    bool m_droppedNoted = false;
};

#endif
