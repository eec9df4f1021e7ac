// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
//
// Whole-process time of "nvrtool header decode FILE": start, library load,
// decoding and exit, as a script calling the tool sees it. Both the raw and
// the hex-text form of one header are timed; rounds alternate between them.
// Usage: bench_nvrtool [rounds]

#include "classes/productdataheader.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>
#include <QVector>

#include <algorithm>

namespace {

struct Timing
{
    QVector<double> ms;
    void print(QTextStream &out, const char *name) const
    {
        QVector<double> sorted = ms;
        std::sort(sorted.begin(), sorted.end());
        const int n = sorted.size();
        const double median = n % 2 ? sorted[n / 2] : (sorted[n / 2 - 1] + sorted[n / 2]) / 2;
        out << qSetFieldWidth(24) << Qt::left << name << qSetFieldWidth(0) << "median " << median
            << " ms, min " << sorted.first() << " ms, max " << sorted.last() << " ms\n";
    }
};

// Milliseconds from start to exit, or -1 when the run failed.
double decode(const QString &file)
{
    QElapsedTimer timer;
    timer.start();
    QProcess tool;
    tool.start(QStringLiteral(NVRTOOL_BINARY), {QStringLiteral("header"), QStringLiteral("decode"), file});
    if (!tool.waitForFinished(60000) || tool.exitStatus() != QProcess::NormalExit || tool.exitCode() != 0
        || !tool.readAllStandardOutput().contains("(matches)"))
        return -1;
    return double(timer.nsecsElapsed()) / 1e6;
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
    const int rounds = argc > 1 ? QString::fromLocal8Bit(argv[1]).toInt() : 20;
    QTextStream out(stdout);
    QTextStream err(stderr);
    if (rounds <= 0) {
        err << "usage: bench_nvrtool [rounds > 0]\n";
        return 2;
    }

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

    Timing rawTiming;
    Timing hexTiming;
    for (int round = 0; round < rounds; ++round) {
        const double rawMs = decode(raw);
        const double hexMs = decode(hex);
        if (rawMs < 0 || hexMs < 0) {
            err << "nvrtool header decode failed\n";
            return 1;
        }
        rawTiming.ms << rawMs;
        hexTiming.ms << hexMs;
    }
    out << "nvrtool header decode, whole process, " << rounds << " rounds\n";
    rawTiming.print(out, "raw 56-byte file:");
    hexTiming.print(out, "hex text file:");
    return 0;
}
