// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef KV_WAV_H
#define KV_WAV_H

#include "kvcore_export.h"

#include <QByteArray>
#include <QObject>
#include <QString>

/// The fields of a WAV file's format chunk; all zero for an empty file.
struct WavFormat
{
    quint16 audioFormat = 0; ///< 1 for integer PCM
    quint16 channels = 0;
    quint32 sampleRate = 0;
    quint32 byteRate = 0;
    quint16 blockAlign = 0;
    quint16 bitsPerSample = 0;
};

/**
 * A WAV file held whole in memory as its file image: the canonical 44-byte
 * RIFF header (RIFF, a 16-byte "fmt " chunk, "data") followed by the sample
 * data. Files with other chunks (lists, facts, an extensible format chunk)
 * are read and rewritten into that canonical form, so the samples always
 * start at byte 44; a header that cannot be parsed is refused and leaves the
 * object empty, and errorString() says why. The samples are kept as they
 * are: no format is converted. An odd count of sample bytes is followed by
 * the padding byte that RIFF requires; dataSize() does not count it.
 *
 * setAudioData() on an empty object starts a mono 16-bit 22050 Hz PCM file.
 * Subclasses reimplement the virtual operations to add naming or checks.
 */
class KVCORE_EXPORT Wav : public QObject
{
    Q_OBJECT
public:
    static constexpr int HeaderSize = 44;

    explicit Wav(QObject *parent = nullptr);
    ~Wav() override;

    /// Writes the file image; false when there is nothing to write or writing fails.
    virtual bool saveFile(const QString &fileName);
    /// Takes a whole file image; false (and empty) when its header cannot be parsed.
    virtual bool setRawData(const QByteArray &data);
    /// Replaces the sample data, keeping the format.
    virtual void setAudioData(const QByteArray &data);
    /// False (and empty) when the file cannot be read or its header cannot be parsed.
    virtual bool readFile(const QString &fileName);
    virtual void clear();

    bool isEmpty() const;
    const QByteArray &rawData() const;
    QByteArray audioData() const;
    /// The number of sample-data bytes.
    int dataSize() const;
    WavFormat format() const;
    /// The playing time of the samples, rounded down to the millisecond.
    qint64 durationMs() const;
    /// Why the latest read or save failed, naming the file; empty after a success.
    QString errorString() const;

protected:
    /// The file image for in-place edits of the samples; the header must stay canonical.
    QByteArray &image();
    void setErrorString(const QString &text);

private:
    QByteArray m_image;
    QString m_errorString;
};

#endif
