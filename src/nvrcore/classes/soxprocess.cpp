// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "soxprocess.h"

#include "kvcore.h"
#include "logger.h"

SoxProcess::SoxProcess(QObject *parent) : KvProcess(parent)
{
    connect(this, &QProcess::readyReadStandardOutput, this, &SoxProcess::readFromStdOutput);
}

SoxProcess::~SoxProcess() = default;

QString SoxProcess::exe() const
{
    return QStringLiteral("%1/bin/sox.exe").arg(KvCore::applicationDirPath());
}

QString SoxProcess::metadata(const QString &file)
{
    return run(QStringLiteral("\"%1\" --i \"%2\"").arg(exe(), file)) ? m_stdOutput : QString();
}

bool SoxProcess::resample(const QString &inFile, const QString &outFile, const unsigned &channels,
                          const unsigned &sampleRate, const unsigned &bitsPerSample)
{
    // The tool names the bits before the rate, unlike the parameters.
    return run(QStringLiteral("\"%1\" \"%2\" -c %3 -b %4 -r %5 -t wav -D \"%6\"")
                   .arg(exe(), inFile, QString::number(channels), QString::number(bitsPerSample),
                        QString::number(sampleRate), outFile));
}

bool SoxProcess::resample(const QString &inFile, const QString &outFile, const unsigned &channels,
                          const unsigned &sampleRate, const unsigned &bitsPerSample, const unsigned &seconds)
{
    return run(QStringLiteral("\"%1\" \"%2\" -c %3 -b %4 -r %5 -t wav \"%6\" -D trim 0 %7")
                   .arg(exe(), inFile, QString::number(channels), QString::number(bitsPerSample),
                        QString::number(sampleRate), outFile, QString::number(seconds)));
}

bool SoxProcess::trim(const QString &inFile, const QString &outFile, const unsigned &seconds)
{
    return run(QStringLiteral("\"%1\" -t wav \"%2\" -t wav \"%3\" -D trim 0 %4")
                   .arg(exe(), inFile, outFile, QString::number(seconds)));
}

QString SoxProcess::stdOutput() const
{
    return m_stdOutput;
}

void SoxProcess::readFromStdOutput()
{
    QByteArray bytes = readAllStandardOutput();
    const int zero = bytes.indexOf('\0');
    if (zero >= 0)
        bytes.truncate(zero);
    const QString text = QString::fromLatin1(bytes);
    // A long description may come in several pieces; metadata() wants all of them.
    m_stdOutput += text;
    LOG_TRACE(QStringLiteral("StdOutput: %1").arg(text));
}

bool SoxProcess::run(const QString &commandLine)
{
    m_stdOutput.clear();
    return exec(commandLine);
}
