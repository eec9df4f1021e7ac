// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
//
// Cost of importing a sound file through NvrWav against running the bare sox
// command line with the same arguments, in one run: rounds alternate between
// the two so that both see the same machine. The input is an 11-second
// stereo 44.1 kHz file; both must write the same WAV bytes, and NvrWav
// should stay within 1.2 times the bare command.
// Usage: bench_wavimport [rounds]

#include "classes/nvrwav.h"
#include "classes/soxprocess.h"
#include "processtiming.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>

namespace {

QByteArray readAll(const QString &path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

// The conversion NvrWav asks of sox, without the library around it.
bool runBare(const QString &sox, const QString &in, const QString &out)
{
    QFile::remove(out);
    QProcess process;
    process.start(sox, {in, QStringLiteral("-c"), QStringLiteral("1"), QStringLiteral("-b"), QStringLiteral("16"),
                        QStringLiteral("-r"), QStringLiteral("22050"), QStringLiteral("-t"), QStringLiteral("wav"),
                        out, QStringLiteral("-D"), QStringLiteral("trim"), QStringLiteral("0"),
                        QStringLiteral("11")});
    return process.waitForFinished(60000) && process.exitStatus() == QProcess::NormalExit
           && process.exitCode() == 0;
}

}

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    const int rounds = ProcessTiming::rounds(argc, argv, 10);
    if (rounds == 0)
        return 2;
    QTextStream out(stdout);
    QTextStream err(stderr);

    const QString sox = SoxProcess().exe();
    QTemporaryDir dir;
    const QString input = dir.filePath(QStringLiteral("input.wav"));
    // The same output file as the import's, so both write to the same disk.
    const QString bareOutput = NvrWav::workFileName(input);
    if (QProcess::execute(sox, {QStringLiteral("-n"), QStringLiteral("-r"), QStringLiteral("44100"),
                                QStringLiteral("-b"), QStringLiteral("16"), QStringLiteral("-c"),
                                QStringLiteral("2"), input, QStringLiteral("synth"), QStringLiteral("11"),
                                QStringLiteral("pinknoise")})
        != 0) {
        err << "could not make the input with " << sox << "\n";
        return 2;
    }

    NvrWav wav;
    ProcessTiming library;
    ProcessTiming bare;
    QElapsedTimer timer;
    // One untimed round of each first, so neither pays for loading sox from disk.
    bool ok = wav.importFile(input) && runBare(sox, input, bareOutput);
    for (int round = 0; ok && round < rounds; ++round) {
        for (int turn = 0; ok && turn < 2; ++turn) {
            const bool libraryTurn = (round + turn) % 2 == 0;
            timer.start();
            ok = libraryTurn ? wav.importFile(input) : runBare(sox, input, bareOutput);
            (libraryTurn ? library : bare).add(timer.nsecsElapsed() / 1e6);
        }
    }
    // The bare command writes what the import read, byte for byte.
    ok = ok && runBare(sox, input, bareOutput);
    const QByteArray bareBytes = readAll(bareOutput);
    QFile::remove(bareOutput);
    if (!ok) {
        err << "a conversion failed\n";
        return 1;
    }

    const double libraryMs = library.median();
    const double bareMs = bare.median();
    out << "input: 11 s, 2 channels, 44100 Hz, 16 bits; " << rounds << " rounds, median of each\n";
    out << "NvrWav::importFile: " << QString::number(libraryMs, 'f', 1) << " ms\n";
    out << "bare sox command:   " << QString::number(bareMs, 'f', 1) << " ms\n";
    out << "ratio: " << QString::number(libraryMs / bareMs, 'f', 3) << " (limit 1.2)\n";
    if (wav.rawData() != bareBytes) {
        out << "MISMATCH: the two conversions wrote different files\n";
        return 1;
    }
    return 0;
}
