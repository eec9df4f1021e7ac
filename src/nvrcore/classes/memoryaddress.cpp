// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "memoryaddress.h"

#include "memoryaddress_p.h"

#include <QRegularExpression>
#include <QVector>

using namespace MemoryAddressForms;

namespace {

struct FoundForm
{
    Form form = NoForm;
    QRegularExpressionMatch match;

    // A group that took no part in the match (the optional tails of I: and P:) is a null text.
    QString group(const QString &name) const { return match.captured(name); }
    int hexGroup(const QString &name) const { return group(name).toInt(nullptr, 16); }
};

// Codes are parsed by the thousand while tables load; compiling the patterns
// once instead of on every call makes that many times faster.
const QVector<QRegularExpression> &compiledPatterns()
{
    static const QVector<QRegularExpression> compiled = [] {
        QVector<QRegularExpression> list;
        list.reserve(patternCount);
        for (const char *pattern : patterns) {
            QRegularExpression expression{QLatin1String(pattern)};
            expression.optimize();
            list.append(expression);
        }
        return list;
    }();
    return compiled;
}

FoundForm findForm(const QString &address)
{
    const QVector<QRegularExpression> &compiled = compiledPatterns();
    for (int i = 0; i < compiled.size(); ++i) {
        QRegularExpressionMatch match = compiled.at(i).match(address);
        if (match.hasMatch())
            return {static_cast<Form>(i + 1), match};
    }
    return {};
}

}

Nevra::FieldTypes MemoryAddress::fieldType(const QString &address)
{
    static const Nevra::FieldTypes byForm[] = {Nevra::NoField,     Nevra::DcpLevelField, Nevra::EepromField,
                                               Nevra::EepromField, Nevra::IoPinField,    Nevra::IoPortField};
    return byForm[findForm(address).form];
}

int MemoryAddress::busNumber(const QString &address)
{
    const FoundForm found = findForm(address);
    return found.form == NoForm ? -1 : found.hexGroup(QStringLiteral("bus"));
}

int MemoryAddress::deviceAddress(const QString &address)
{
    const FoundForm found = findForm(address);
    return found.form == NoForm ? -1 : found.hexGroup(QStringLiteral("device"));
}

int MemoryAddress::memoryAddress(const QString &address)
{
    const FoundForm found = findForm(address);
    switch (found.form) {
    case DcpLevel: return found.hexGroup(QStringLiteral("dcp"));
    case MemoryByte:
    case EepromBlock: return found.hexGroup(QStringLiteral("mem_address"));
    case IoPin: return found.hexGroup(QStringLiteral("pin"));
    case IoPort: return found.hexGroup(QStringLiteral("port"));
    case NoForm: break;
    }
    return -1;
}

int MemoryAddress::memorySize(const QString &address)
{
    const FoundForm found = findForm(address);
    return found.form == EepromBlock ? found.hexGroup(QStringLiteral("size")) : 1;
}

int MemoryAddress::pinActiveConfig(const QString &address)
{
    const FoundForm found = findForm(address);
    if (found.form != IoPin)
        return -1;
    return found.group(QStringLiteral("active")) == QLatin1String("L") ? 0 : 1;
}

int MemoryAddress::pullUpConfig(const QString &address)
{
    const FoundForm found = findForm(address);
    if (found.form == IoPin)
        return found.group(QStringLiteral("pullup")) == QLatin1String("D") ? 0 : 1;
    if (found.form == IoPort) {
        const QString mask = found.group(QStringLiteral("pullup"));
        return mask.isNull() ? 255 : mask.toInt(nullptr, 16);
    }
    return -1;
}
