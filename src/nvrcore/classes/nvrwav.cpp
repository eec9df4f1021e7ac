// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "nvrwav.h"

#include "classes/nvroptions.h"
#include "classes/soxprocess.h"
#include "kvcore.h"
#include "kvhex.h"
#include "logger.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {
// Silence, and what a lone last byte becomes.
const quint16 silenceCode = 0x2000;

// The product's sample code: the sample at 90 percent, as an unsigned 12-bit value in bits 2 to 13.
quint16 deviceSampleCode(qint16 sample)
{
    // Integer division truncates toward zero, so -1 stays silence.
    const int scaled = sample * 90 / 100;
    return quint16(((scaled + 0x8000) >> 2) & 0x3FFC);
}
}

NvrWav::NvrWav(QObject *parent) : Wav(parent)
{
}

NvrWav::~NvrWav() = default;

bool NvrWav::importFile(const QString &fileName)
{
    clear();
    const QString workFile = workFileName(fileName);
    // The source must never be touched, and it would be if it were the work file itself.
    const QFileInfo source(fileName);
    if (source.exists() && source.canonicalFilePath() == QFileInfo(workFile).canonicalFilePath())
        return false;
    if (QFile::exists(workFile) && !QFile::remove(workFile))
        return false;
    QDir().mkpath(QFileInfo(workFile).path());
    LOG_TRACE() << "Infile:" << fileName << "Outfile:" << workFile;

    // Without options, the built-in default (SoX on) holds.
    if (!g_nvrOptions || g_nvrOptions->soxLibraryEnabled()) {
        SoxProcess sox;
        if (!sox.resample(fileName, workFile, 1, m_sampleRate, m_bitsPerSample, m_trimSeconds))
            return false;
    } else {
        QFile::copy(fileName, workFile);
    }

    if (!readFile(workFile))
        return false;
    if (m_deviceFormat)
        convertToDeviceFormat();
    return true;
}

void NvrWav::convertToDeviceFormat()
{
    QByteArray &bytes = image();
    const int end = HeaderSize + dataSize();
    for (int p = HeaderSize; p < end; p += 2) {
        quint16 code = silenceCode;
        if (end - p >= 2) {
            const auto *sample = reinterpret_cast<const unsigned char *>(bytes.constData() + p);
            code = deviceSampleCode(qint16(ucharToShort(sample)));
        }
        const QByteArray pair = KvHex::UshortToBuffer(code);
        bytes[p] = pair.at(0);
        // An odd byte count leaves no room for the second byte: it becomes the chunk's padding byte.
        if (p + 1 < bytes.size())
            bytes[p + 1] = pair.at(1);
        else
            bytes.append(pair.at(1));
    }
}

bool NvrWav::saveFile(const QString &fileName)
{
    return Wav::saveFile(saveFileName(fileName));
}

QString NvrWav::saveFileName(const QString &fileName) const
{
    const QString suffix = QFileInfo(fileName).completeSuffix();
    if (suffix.isEmpty())
        return fileName + QLatin1Char('.') + m_fileSuffix;
    QString path = fileName;
    return path.replace(suffix, m_fileSuffix, Qt::CaseInsensitive);
}

QString NvrWav::workFileName(const QString &fileName)
{
    return QStringLiteral("%1/tmp/%2").arg(KvCore::applicationDirPath(), QFileInfo(fileName).fileName());
}

unsigned NvrWav::trimSeconds() const
{
    return m_trimSeconds;
}

void NvrWav::setTrimSeconds(unsigned seconds)
{
    m_trimSeconds = seconds;
}

unsigned NvrWav::bitsPerSample() const
{
    return m_bitsPerSample;
}

void NvrWav::setBitsPerSample(unsigned bits)
{
    m_bitsPerSample = bits;
}

unsigned NvrWav::sampleRate() const
{
    return m_sampleRate;
}

void NvrWav::setSampleRate(unsigned rate)
{
    m_sampleRate = rate;
}

bool NvrWav::deviceFormat() const
{
    return m_deviceFormat;
}

void NvrWav::setDeviceFormat(bool on)
{
    m_deviceFormat = on;
}

QString NvrWav::fileSuffix() const
{
    return m_fileSuffix;
}

void NvrWav::setFileSuffix(const QString &suffix)
{
    m_fileSuffix = suffix;
}

QByteArray NvrWav::swapSamples(const QByteArray &data)
{
    QByteArray swapped;
    swapped.reserve(data.size() + 1);
    for (int i = 0; i < data.size(); i += 2) {
        swapped.append(i + 1 < data.size() ? data.at(i + 1) : '\0');
        swapped.append(data.at(i));
    }
    return swapped;
}

int NvrWav::ucharToShort(const unsigned char *bytes)
{
    return bytes[1] * 256 + bytes[0];
}

int NvrWav::BufferToShort(const QByteArray &data)
{
    return data.size() < 2 ? 0 : ucharToShort(reinterpret_cast<const unsigned char *>(data.constData()));
}
