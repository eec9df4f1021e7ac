// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
//
// Whole-process time of "nvrtool header decode FILE": start, library load,
// decoding and exit, as a script calling the tool sees it. Both the raw and
// the hex-text form of one header are timed; the anchor is "nvrtool --version",
// the same start, library load and exit with no work. Rounds alternate.
// Usage: bench_nvrtool [rounds]

#include "classes/productdataheader.h"
#include "processtiming.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>

namespace {

// Milliseconds from start to exit, or -1 when the run failed or its output lacks what it must say.
double run(const QStringList &arguments, const QByteArray &expected)
{
    QElapsedTimer timer;
    timer.start();
    QProcess tool;
    tool.start(QStringLiteral(NVRTOOL_BINARY), arguments);
    if (!tool.waitForFinished(60000) || tool.exitStatus() != QProcess::NormalExit || tool.exitCode() != 0
        || !tool.readAllStandardOutput().contains(expected))
        return -1;
    return double(timer.nsecsElapsed()) / 1e6;
}

double decode(const QString &file)
{
    return run({QStringLiteral("header"), QStringLiteral("decode"), file}, "(matches)");
}

bool writeFile(const QString &name, const QByteArray &bytes)
{
    QFile file(name);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

}

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    const int rounds = ProcessTiming::rounds(argc, argv, 20);
    if (rounds == 0)
        return 2;
    QTextStream out(stdout);
    QTextStream err(stderr);

    ProductDataHeader header;
    header.setProductInfo(QStringLiteral("KV-37"), QStringLiteral("4711"), 0x3, QStringLiteral("B"));
    const QByteArray bytes = header.data();
    QTemporaryDir dir;
    const QString raw = dir.filePath(QStringLiteral("header.bin"));
    const QString hex = dir.filePath(QStringLiteral("header.txt"));
    if (!writeFile(raw, bytes) || !writeFile(hex, bytes.toHex(' '))) {
        err << "could not write the header files in " << dir.path() << "\n";
        return 2;
    }

    ProcessTiming rawTiming;
    ProcessTiming hexTiming;
    ProcessTiming anchor;
    for (int round = 0; round < rounds; ++round) {
        const double anchorMs = run({QStringLiteral("--version")}, "nvrtool");
        const double rawMs = decode(raw);
        const double hexMs = decode(hex);
        if (rawMs < 0 || hexMs < 0 || anchorMs < 0) {
            err << "an nvrtool run failed\n";
            return 1;
        }
        rawTiming.add(rawMs);
        hexTiming.add(hexMs);
        anchor.add(anchorMs);
    }
    out << "nvrtool header decode, whole process, " << rounds << " rounds\n";
    rawTiming.print(out, "raw 56-byte file:");
    hexTiming.print(out, "hex text file:");
    anchor.print(out, "anchor, nvrtool --version:");
    out << "decode / anchor (medians): raw " << rawTiming.median() / anchor.median() << ", hex text "
        << hexTiming.median() / anchor.median() << "\n";
    return 0;
}
