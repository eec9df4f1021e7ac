// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_SOXPROCESS_H
#define NVR_SOXPROCESS_H

#include "nvrcore_export.h"

#include "kvprocess.h"

#include <QString>

/**
 * The SoX sound tool that ships in the application's bin folder, run to
 * describe a sound file and to convert and cut sound files into WAV.
 *
 * Every operation runs one command line to its end and reports the run's
 * success; paths go into the line in double quotes, so blanks are safe.
 * The tool's standard output is logged at Trace level as it arrives and
 * kept for metadata().
 */
class NVRCORE_EXPORT SoxProcess : public KvProcess
{
    Q_OBJECT
public:
    explicit SoxProcess(QObject *parent = nullptr);
    ~SoxProcess() override;

    /// <application directory>/bin/sox.exe
    QString exe() const;
    /// The tool's description of file; empty when the run fails.
    QString metadata(const QString &file);
    bool resample(const QString &inFile, const QString &outFile, const unsigned &channels,
                  const unsigned &sampleRate, const unsigned &bitsPerSample);
    /// Also keeps only the first seconds of the sound.
    bool resample(const QString &inFile, const QString &outFile, const unsigned &channels,
                  const unsigned &sampleRate, const unsigned &bitsPerSample, const unsigned &seconds);
    /// Keeps only the first seconds of a WAV file.
    bool trim(const QString &inFile, const QString &outFile, const unsigned &seconds);

    /// The standard output of the latest run.
    QString stdOutput() const;

public Q_SLOTS:
    void readFromStdOutput();

private:
    bool run(const QString &commandLine);

    QString m_stdOutput;
};

#endif
