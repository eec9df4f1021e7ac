// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
//
// Throughput of the MemoryAddress accessors: every accessor over a mix of
// valid and invalid codes, once through the library (patterns compiled once)
// and once through a reference parser that compiles the patterns on every
// call. Both must give the same results; the library should be at least 20
// times faster. Usage: bench_memoryaddress [number of codes]

#include "classes/memoryaddress.h"
#include "classes/memoryaddress_p.h"

#include <QElapsedTimer>
#include <QRegularExpression>
#include <QStringList>
#include <QTextStream>
#include <QVector>

#include <random>

namespace {

using Accessor = int (*)(const QString &);

// The plain way: find the first pattern that matches, compiling each on the
// way, then compile it once more to read a group.
namespace Reference {

QString patternOf(const QString &address)
{
    for (const char *pattern : MemoryAddressForms::patterns) {
        const QString text = QLatin1String(pattern);
        if (QRegularExpression(text).match(address).hasMatch())
            return text;
    }
    return QString();
}

int formOf(const QString &pattern)
{
    for (int i = 0; i < MemoryAddressForms::patternCount; ++i) {
        if (pattern == QLatin1String(MemoryAddressForms::patterns[i]))
            return i + 1;
    }
    return 0;
}

QString group(const QString &address, const QString &pattern, const char *name)
{
    return QRegularExpression(pattern).match(address).captured(QLatin1String(name));
}

int hexGroup(const QString &address, const QString &pattern, const char *name)
{
    return group(address, pattern, name).toInt(nullptr, 16);
}

int fieldType(const QString &address)
{
    static const int byForm[] = {0, 2, 1, 1, 3, 4};
    return byForm[formOf(patternOf(address))];
}

int busNumber(const QString &address)
{
    const QString pattern = patternOf(address);
    return pattern.isEmpty() ? -1 : hexGroup(address, pattern, "bus");
}

int deviceAddress(const QString &address)
{
    const QString pattern = patternOf(address);
    return pattern.isEmpty() ? -1 : hexGroup(address, pattern, "device");
}

int memoryAddress(const QString &address)
{
    const QString pattern = patternOf(address);
    switch (formOf(pattern)) {
    case 1: return hexGroup(address, pattern, "dcp");
    case 2:
    case 3: return hexGroup(address, pattern, "mem_address");
    case 4: return hexGroup(address, pattern, "pin");
    case 5: return hexGroup(address, pattern, "port");
    }
    return -1;
}

int memorySize(const QString &address)
{
    const QString pattern = patternOf(address);
    return formOf(pattern) == 3 ? hexGroup(address, pattern, "size") : 1;
}

int pinActiveConfig(const QString &address)
{
    const QString pattern = patternOf(address);
    if (formOf(pattern) != 4)
        return -1;
    const QString active = group(address, pattern, "active");
    return active.isNull() || active.toUpper() == QLatin1String("H") ? 1 : 0;
}

int pullUpConfig(const QString &address)
{
    const QString pattern = patternOf(address);
    const int form = formOf(pattern);
    if (form == 4) {
        const QString pullUp = group(address, pattern, "pullup");
        return pullUp.isNull() || pullUp.toUpper() == QLatin1String("E") ? 1 : 0;
    }
    if (form == 5) {
        const QString mask = group(address, pattern, "pullup");
        return mask.isNull() ? 255 : mask.toInt(nullptr, 16);
    }
    return -1;
}

const Accessor accessors[] = {fieldType,  busNumber,       deviceAddress, memoryAddress,
                              memorySize, pinActiveConfig, pullUpConfig};

}

const Accessor libraryAccessors[] = {
    [](const QString &address) { return int(MemoryAddress::fieldType(address)); },
    MemoryAddress::busNumber,
    MemoryAddress::deviceAddress,
    MemoryAddress::memoryAddress,
    MemoryAddress::memorySize,
    MemoryAddress::pinActiveConfig,
    MemoryAddress::pullUpConfig,
};

// Valid codes of all five forms (with and without their optional parts, hex
// digits in either case) and five in twelve invalid ones, from a fixed seed.
QStringList mixedCodes(int count)
{
    std::mt19937 random(20260101u);
    auto pick = [&random](const char *set) { return QLatin1Char(set[random() % qstrlen(set)]); };
    auto hex = [&pick](int digits) {
        QString text;
        for (int i = 0; i < digits; ++i)
            text += pick("0123456789abcdefABCDEF");
        return text;
    };
    auto head = [&hex](char letter) {
        return QLatin1Char(letter) + QStringLiteral(":") + hex(1) + QLatin1Char('.') + hex(2) + QLatin1Char('.') + hex(2);
    };

    QStringList codes;
    codes.reserve(count);
    for (int i = 0; i < count; ++i) {
        switch (random() % 12) {
        case 0: codes << head('D'); break;
        case 1: codes << head('B'); break;
        case 2: codes << head('E') + QLatin1Char('.') + hex(2); break;
        case 3: codes << head('I'); break;
        case 4: codes << head('I') + QLatin1Char('.') + pick("HL") + pick("ED"); break;
        case 5: codes << head('P'); break;
        case 6: codes << head('P') + QLatin1Char('.') + pick("abcdefABCDEF") + pick("abcdefABCDEF"); break;
        case 7: codes << head('d'); break; // lower-case letter
        case 8: codes << head('D') + QLatin1Char(' '); break; // trailing blank
        case 9: codes << head('P') + QStringLiteral(".0F"); break; // digit in the port mask
        case 10: codes << head('I') + QStringLiteral(".L"); break; // pin option half given
        default: codes << QStringLiteral("X:") + hex(1) + QLatin1Char('.') + hex(2); break;
        }
    }
    return codes;
}

// Runs every accessor over every code; returns the elapsed seconds and fills results.
double run(const Accessor (&accessors)[7], const QStringList &codes, QVector<int> &results)
{
    results.clear();
    results.reserve(codes.size() * 7);
    QElapsedTimer timer;
    timer.start();
    for (const QString &code : codes) {
        for (Accessor accessor : accessors)
            results.append(accessor(code));
    }
    return timer.nsecsElapsed() / 1e9;
}

}

int main(int argc, char *argv[])
{
    const int count = argc > 1 ? QString::fromLocal8Bit(argv[1]).toInt() : 100000;
    if (count <= 0) {
        QTextStream(stderr) << "usage: bench_memoryaddress [number of codes > 0]\n";
        return 2;
    }
    const QStringList codes = mixedCodes(count);

    QVector<int> cachedResults;
    QVector<int> freshResults;
    const double cachedSeconds = run(libraryAccessors, codes, cachedResults);
    const double freshSeconds = run(Reference::accessors, codes, freshResults);

    QTextStream out(stdout);
    out << "codes: " << count << ", 7 accessors each\n";
    auto line = [&out, count](const char *label, double seconds) {
        out << label << qRound64(count / seconds) << " codes/s (" << QString::number(seconds * 1000, 'f', 0)
            << " ms)\n";
    };
    line("cached patterns:       ", cachedSeconds);
    line("compiled on each call: ", freshSeconds);
    out << "ratio: " << QString::number(freshSeconds / cachedSeconds, 'f', 1) << "\n";
    if (cachedResults != freshResults) {
        out << "MISMATCH: the two parsers disagree\n";
        return 1;
    }
    return 0;
}
