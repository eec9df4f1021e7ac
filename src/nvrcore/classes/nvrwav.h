// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_NVRWAV_H
#define NVR_NVRWAV_H

#include "nvrcore_export.h"

#include "wav.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

/**
 * A WAV file in the form the product plays: importFile() turns any sound
 * file the SoX tool reads into mono, 16 bits, 22050 Hz, at most 11 seconds
 * (the targets can be changed), and saveFile() names the file with the
 * product's suffix "kv37.wav".
 *
 * The import works on a copy in the application's "tmp" folder with the
 * source's file name; the source is never written. With the SoX option off
 * the file is copied and read unchanged, so it must already be a WAV file.
 * With deviceFormat on, every sample is rewritten into the product's 14-bit
 * sample code after reading.
 *
 * A failed import leaves the object empty and errorString() says why: the
 * source is missing, SoX is missing or refused it (in its own words), or,
 * with SoX off, the file is not a PCM WAV file, whose copy would be
 * unplayable. A sound without samples is refused either way. An import that
 * cut the sound short tells so through cutNotice().
 */
class NVRCORE_EXPORT NvrWav : public Wav
{
    Q_OBJECT
public:
    explicit NvrWav(QObject *parent = nullptr);
    ~NvrWav() override;

    /// Saves under saveFileName(fileName).
    bool saveFile(const QString &fileName) override;
    virtual bool importFile(const QString &fileName);

    /// The source's length when the latest import cut it to trimSeconds(); 0 when nothing was cut.
    qint64 cutFromMs() const;
    /// "cut from 15.0 s to 11.0 s" after an import that cut the sound; empty otherwise.
    QString cutNotice() const;
    /// What of the sound differs from the import target ("2 channels", "44100 Hz", ...); empty when nothing.
    QStringList formatDifferences() const;

    /**
     * fileName with its complete suffix (from the first dot of the name)
     * replaced by fileSuffix(), or with fileSuffix() appended when it has
     * none. The suffix text is replaced wherever it occurs in the path, also
     * in folder names, ignoring case.
     */
    QString saveFileName(const QString &fileName) const;
    /// Where importFile() puts its copy of fileName.
    static QString workFileName(const QString &fileName);

    unsigned trimSeconds() const;
    void setTrimSeconds(unsigned seconds);
    unsigned bitsPerSample() const;
    void setBitsPerSample(unsigned bits);
    unsigned sampleRate() const;
    void setSampleRate(unsigned rate);
    bool deviceFormat() const;
    void setDeviceFormat(bool on);
    QString fileSuffix() const;
    void setFileSuffix(const QString &suffix);

    /// The two bytes of every 16-bit sample exchanged; an odd last byte pairs with a zero.
    static QByteArray swapSamples(const QByteArray &data);
    /// The little-endian unsigned value of bytes[0] and bytes[1].
    static int ucharToShort(const unsigned char *bytes);
    /// The little-endian unsigned value of the first two bytes; 0 when there are fewer.
    static int BufferToShort(const QByteArray &data);

private:
    bool convert(const QString &fileName, const QString &workFile);
    /// False, with the reason, when a plain copy of fileName would not be a playable sound.
    bool checkCopyable(const QString &fileName);
    bool fail(const QString &reason);
    void convertToDeviceFormat();

    unsigned m_trimSeconds = 11;
    unsigned m_bitsPerSample = 16;
    unsigned m_sampleRate = 22050;
    bool m_deviceFormat = false;
    QString m_fileSuffix = QStringLiteral("kv37.wav");
    qint64 m_cutFromMs = 0;
};

#endif
