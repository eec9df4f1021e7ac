// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "wav.h"

#include "kvhex.h"

#include <QCoreApplication>
#include <QFile>
#include <QSaveFile>

namespace {
const quint16 pcmFormat = 1;
const quint16 extensibleFormat = 0xFFFE;
const int fmtSize = 16;
// Offset of the sub-format code inside an extensible format chunk.
const int subFormatOffset = 24;

// The 44-byte header for the format chunk's fields and sampleBytes; nothing for an unusable format.
QByteArray canonicalHeader(QByteArray fmt, int sampleBytes)
{
    if (KvHex::BufferToUshort(fmt, 0) == extensibleFormat) {
        // The sub-format's first two bytes are the plain format code.
        if (fmt.size() < subFormatOffset + 2)
            return QByteArray();
        fmt.replace(0, 2, fmt.mid(subFormatOffset, 2));
    }
    const quint16 channels = KvHex::BufferToUshort(fmt, 2);
    const quint32 rate = KvHex::BufferToUint(fmt, 4);
    const quint32 byteRate = KvHex::BufferToUint(fmt, 8);
    const quint16 blockAlign = KvHex::BufferToUshort(fmt, 12);
    if (channels == 0 || rate == 0 || byteRate == 0 || blockAlign == 0)
        return QByteArray();

    QByteArray header;
    header.reserve(Wav::HeaderSize);
    header += "RIFF";
    // The RIFF size counts the padding byte that follows an odd count of samples bytes.
    header += KvHex::UintToBuffer(quint32(Wav::HeaderSize - 8 + sampleBytes + (sampleBytes & 1)));
    header += "WAVEfmt ";
    header += KvHex::UintToBuffer(fmtSize);
    header += fmt.left(fmtSize);
    header += "data";
    header += KvHex::UintToBuffer(quint32(sampleBytes));
    return header;
}

QByteArray canonicalImage(const QByteArray &fmt, const char *samples, int count)
{
    QByteArray image = canonicalHeader(fmt, count);
    if (!image.isEmpty()) {
        image.reserve(Wav::HeaderSize + count + 1);
        image.append(samples, count);
        // Readers expect the next chunk at an even offset; an odd count is followed by a padding byte.
        if (count & 1)
            image.append('\0');
    }
    return image;
}

QByteArray defaultFmt()
{
    const quint16 channels = 1;
    const quint32 rate = 22050;
    const quint16 bits = 16;
    const quint16 blockAlign = channels * bits / 8;
    return KvHex::UshortToBuffer(pcmFormat) + KvHex::UshortToBuffer(channels) + KvHex::UintToBuffer(rate)
           + KvHex::UintToBuffer(rate * blockAlign) + KvHex::UshortToBuffer(blockAlign)
           + KvHex::UshortToBuffer(bits);
}

QString tr(const char *text)
{
    return QCoreApplication::translate("Wav", text);
}

// Walks the RIFF chunks to "fmt " and "data"; nothing, and why in error, when the header is unusable.
// Samples cut short by the end of the file are kept as far as they go, as
// players do with a recording that was interrupted.
QByteArray parse(const QByteArray &file, QString &error)
{
    if (file.startsWith("RF64")) {
        error = tr("it is an RF64 file (the WAV form for very large sounds)");
        return QByteArray();
    }
    if (file.size() < 12 || !file.startsWith("RIFF") || file.mid(8, 4) != "WAVE") {
        error = tr("it is not a WAV file");
        return QByteArray();
    }
    QByteArray fmt;
    qint64 at = 12;
    while (at + 8 <= file.size()) {
        const QByteArray id = file.mid(int(at), 4);
        const qint64 size = KvHex::BufferToUint(file, int(at + 4));
        const qint64 body = at + 8;
        if (id == "fmt ") {
            if (size < fmtSize || body + size > file.size()) {
                error = tr("its format chunk is damaged");
                return QByteArray();
            }
            fmt = file.mid(int(body), int(size));
        } else if (id == "data") {
            if (fmt.isEmpty()) {
                error = tr("its sound data come before the format chunk");
                return QByteArray();
            }
            const int count = int(qMin(size, file.size() - body));
            const QByteArray header = canonicalHeader(fmt, count);
            if (header.isEmpty()) {
                error = tr("its format chunk names no channels, rate or block size");
                return QByteArray();
            }
            // Most files are canonical already: share their bytes rather than copy a large sound.
            if (body + count + (count & 1) == file.size() && file.startsWith(header))
                return file;
            return canonicalImage(fmt, file.constData() + body, count);
        }
        at = body + size + (size & 1); // chunks are padded to an even length
    }
    error = tr("it has no sound data chunk");
    return QByteArray();
}
}

Wav::Wav(QObject *parent) : QObject(parent)
{
}

Wav::~Wav() = default;

bool Wav::saveFile(const QString &fileName)
{
    m_errorString.clear();
    if (m_image.isEmpty()) {
        m_errorString = tr("there is no sound to save");
        return false;
    }
    // Written aside and renamed, so a failed save never leaves half a file behind.
    QSaveFile file(fileName);
    if (file.open(QIODevice::WriteOnly) && file.write(m_image) == m_image.size() && file.commit())
        return true;
    m_errorString = tr("cannot write %1: %2").arg(fileName, file.errorString());
    return false;
}

bool Wav::setRawData(const QByteArray &data)
{
    QString reason;
    m_image = parse(data, reason);
    m_errorString = reason.isEmpty() ? QString() : tr("cannot read the sound: %1").arg(reason);
    return !m_image.isEmpty();
}

void Wav::setAudioData(const QByteArray &data)
{
    const QByteArray fmt = m_image.isEmpty() ? defaultFmt() : m_image.mid(20, fmtSize);
    m_image = canonicalImage(fmt, data.constData(), data.size());
}

bool Wav::readFile(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        clear();
        m_errorString = tr("cannot read %1: %2").arg(fileName, file.errorString());
        return false;
    }
    QString reason;
    m_image = parse(file.readAll(), reason);
    m_errorString = reason.isEmpty() ? QString() : tr("cannot read %1: %2").arg(fileName, reason);
    return !m_image.isEmpty();
}

void Wav::clear()
{
    m_image.clear();
}

bool Wav::isEmpty() const
{
    return m_image.isEmpty();
}

const QByteArray &Wav::rawData() const
{
    return m_image;
}

QByteArray Wav::audioData() const
{
    return m_image.mid(HeaderSize, dataSize());
}

int Wav::dataSize() const
{
    if (m_image.isEmpty())
        return 0;
    // The header's count, which a padding byte after an odd count does not change.
    return int(qMin<qint64>(KvHex::BufferToUint(m_image, 40), m_image.size() - HeaderSize));
}

WavFormat Wav::format() const
{
    WavFormat format;
    if (m_image.isEmpty())
        return format;
    format.audioFormat = KvHex::BufferToUshort(m_image, 20);
    format.channels = KvHex::BufferToUshort(m_image, 22);
    format.sampleRate = KvHex::BufferToUint(m_image, 24);
    format.byteRate = KvHex::BufferToUint(m_image, 28);
    format.blockAlign = KvHex::BufferToUshort(m_image, 32);
    format.bitsPerSample = KvHex::BufferToUshort(m_image, 34);
    return format;
}

qint64 Wav::durationMs() const
{
    const quint32 byteRate = format().byteRate;
    return byteRate == 0 ? 0 : qint64(dataSize()) * 1000 / byteRate;
}

QString Wav::errorString() const
{
    return m_errorString;
}

QByteArray &Wav::image()
{
    return m_image;
}

void Wav::setErrorString(const QString &text)
{
    m_errorString = text;
}
