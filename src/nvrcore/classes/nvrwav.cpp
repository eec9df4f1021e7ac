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
#include <QRegularExpression>

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

const quint16 pcmFormat = 1;

// The names technicians meet in sound editors for the encodings a WAV file may hold.
QString encodingName(quint16 code)
{
    switch (code) {
    case 2:
        return QStringLiteral("Microsoft ADPCM");
    case 3:
        return QStringLiteral("floating point");
    case 6:
        return QStringLiteral("A-law");
    case 7:
        return QStringLiteral("\u00B5-law");
    case 0x11:
        return QStringLiteral("IMA ADPCM");
    case 0x31:
        return QStringLiteral("GSM 6.10");
    case 0x55:
        return QStringLiteral("MP3");
    default:
        return QStringLiteral("encoding 0x%1").arg(code, 4, 16, QLatin1Char('0'));
    }
}

// The playing time of a sound as the tool describes it: samples over rate, in milliseconds; -1 when not given.
qint64 describedDurationMs(const QString &description)
{
    static const QRegularExpression rate(QStringLiteral("^Sample Rate\\s*:\\s*(\\d+)"),
                                         QRegularExpression::MultilineOption);
    static const QRegularExpression samples(QStringLiteral("^Duration\\s*:.*=\\s*(\\d+) samples"),
                                            QRegularExpression::MultilineOption);
    const qint64 perSecond = rate.match(description).captured(1).toLongLong();
    const QRegularExpressionMatch count = samples.match(description);
    if (perSecond <= 0 || !count.hasMatch())
        return -1;
    return count.captured(1).toLongLong() * 1000 / perSecond;
}

QString secondsText(qint64 ms)
{
    return QString::number(ms / 1000.0, 'f', 1);
}
}

NvrWav::NvrWav(QObject *parent) : Wav(parent)
{
}

NvrWav::~NvrWav() = default;

bool NvrWav::importFile(const QString &fileName)
{
    clear();
    m_cutFromMs = 0;
    const QString workFile = workFileName(fileName);
    // The source must never be touched, and it would be if it were the work file itself.
    const QFileInfo source(fileName);
    if (source.exists() && source.canonicalFilePath() == QFileInfo(workFile).canonicalFilePath())
        return fail(tr("%1 is the work file itself; choose a file outside %2").arg(fileName, source.path()));
    if (QFile::exists(workFile) && !QFile::remove(workFile))
        return fail(tr("cannot remove the old work file %1").arg(workFile));
    QDir().mkpath(QFileInfo(workFile).path());
    LOG_TRACE() << "Infile:" << fileName << "Outfile:" << workFile;
    if (!source.exists())
        return fail(tr("no such file: %1").arg(fileName));

    // Without options, the built-in default (SoX on) holds.
    const bool sox = !g_nvrOptions || g_nvrOptions->soxLibraryEnabled();
    if (sox) {
        if (!convert(fileName, workFile))
            return false;
    } else {
        if (!checkCopyable(fileName))
            return false;
        QFile copy(fileName);
        if (!copy.copy(workFile))
            return fail(tr("cannot copy %1 to %2: %3").arg(fileName, workFile, copy.errorString()));
    }

    if (!readFile(workFile))
        return false;
    if (dataSize() == 0) {
        clear();
        QFile::remove(workFile);
        return fail(tr("no sound in %1").arg(fileName));
    }
    if (sox && durationMs() >= qint64(m_trimSeconds) * 1000) {
        // Only the source's own length tells whether the end was cut off.
        SoxProcess describe;
        const qint64 sourceMs = describedDurationMs(describe.metadata(fileName));
        if (sourceMs > durationMs())
            m_cutFromMs = sourceMs;
    }
    if (m_deviceFormat)
        convertToDeviceFormat();
    return true;
}

bool NvrWav::convert(const QString &fileName, const QString &workFile)
{
    SoxProcess sox;
    if (sox.resample(fileName, workFile, 1, m_sampleRate, m_bitsPerSample, m_trimSeconds))
        return true;
    QFile::remove(workFile);
    if (!QFileInfo(sox.exe()).isFile())
        return fail(tr("SoX is not installed: %1 is missing").arg(sox.exe()));
    if (sox.errorOutput().isEmpty())
        return fail(tr("SoX could not convert %1: %2").arg(fileName, sox.lastError()));
    // SoX names itself by its path before its verdict; its own words follow "FAIL".
    const QStringList lines = sox.errorOutput().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QString reason = lines.last().trimmed();
    for (const QString &line : lines) {
        const int verdict = line.indexOf(QLatin1String(" FAIL "));
        if (verdict >= 0)
            reason = line.mid(verdict + 6).trimmed();
    }
    return fail(tr("SoX could not convert %1: %2").arg(fileName, reason));
}

bool NvrWav::checkCopyable(const QString &fileName)
{
    // A plain copy keeps the source's encoding; only PCM survives the canonical header unchanged.
    Wav source;
    if (!source.readFile(fileName))
        return fail(tr("%1; without SoX only PCM WAV files can be taken").arg(source.errorString()));
    if (source.format().audioFormat != pcmFormat) {
        return fail(tr("%1 is %2, not PCM: without SoX only PCM sound can be taken")
                        .arg(fileName, encodingName(source.format().audioFormat)));
    }
    if (source.dataSize() == 0)
        return fail(tr("no sound in %1").arg(fileName));
    return true;
}

bool NvrWav::fail(const QString &reason)
{
    clear();
    setErrorString(reason);
    return false;
}

qint64 NvrWav::cutFromMs() const
{
    return m_cutFromMs;
}

QString NvrWav::cutNotice() const
{
    if (m_cutFromMs <= 0)
        return QString();
    return tr("cut from %1 s to %2 s").arg(secondsText(m_cutFromMs), secondsText(durationMs()));
}

QStringList NvrWav::formatDifferences() const
{
    const WavFormat form = format();
    QStringList differences;
    if (form.channels != 1)
        differences << tr("%n channels", nullptr, form.channels);
    if (form.bitsPerSample != m_bitsPerSample)
        differences << tr("%1 bits").arg(form.bitsPerSample);
    if (form.sampleRate != m_sampleRate)
        differences << tr("%1 Hz").arg(form.sampleRate);
    if (durationMs() > qint64(m_trimSeconds) * 1000)
        differences << tr("%1 s").arg(secondsText(durationMs()));
    return differences;
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
