// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "addresscommand.h"

#include "classes/memoryaddress.h"
#include "nvrtool.h"

#include <QCommandLineParser>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

QJsonObject addressObject(const QString &code)
{
    const Nevra::FieldTypes type = MemoryAddress::fieldType(code);
    return {
        {QStringLiteral("code"), code},
        {QStringLiteral("fieldType"), int(type)},
        {QStringLiteral("fieldTypeName"), Nevra::fieldTypeToString(type)},
        {QStringLiteral("busNumber"), MemoryAddress::busNumber(code)},
        {QStringLiteral("deviceAddress"), MemoryAddress::deviceAddress(code)},
        {QStringLiteral("memoryAddress"), MemoryAddress::memoryAddress(code)},
        {QStringLiteral("memorySize"), MemoryAddress::memorySize(code)},
        {QStringLiteral("pinActiveConfig"), MemoryAddress::pinActiveConfig(code)},
        {QStringLiteral("pullUpConfig"), MemoryAddress::pullUpConfig(code)},
    };
}

}

int AddressCommand::run(NvrTool &tool, const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Shows the field type and every value of memory codes."));
    parser.addOption({QStringLiteral("json"), QStringLiteral("Write a JSON array.")});
    if (!tool.parse(parser, arguments, QStringLiteral("address"), QStringLiteral("CODE...")))
        return tool.exitCode();
    const QStringList codes = parser.positionalArguments();
    if (codes.isEmpty())
        return tool.usageError(QStringLiteral("address: no code given"));
    for (const QString &code : codes) {
        if (MemoryAddress::fieldType(code) == Nevra::NoField)
            return tool.fail(QStringLiteral("not a memory code: %1").arg(code));
    }
    QJsonArray array;
    QByteArray text;
    for (const QString &code : codes) {
        const QJsonObject object = addressObject(code);
        array.append(object);
        text += QStringLiteral("%1: %2, bus %3, device %4, address %5, size %6, pin active %7, pull-up %8\n")
                    .arg(code, object.value(QLatin1String("fieldTypeName")).toString())
                    .arg(object.value(QLatin1String("busNumber")).toInt())
                    .arg(object.value(QLatin1String("deviceAddress")).toInt())
                    .arg(object.value(QLatin1String("memoryAddress")).toInt())
                    .arg(object.value(QLatin1String("memorySize")).toInt())
                    .arg(object.value(QLatin1String("pinActiveConfig")).toInt())
                    .arg(object.value(QLatin1String("pullUpConfig")).toInt())
                    .toUtf8();
    }
    tool.print(parser.isSet(QStringLiteral("json")) ? QJsonDocument(array).toJson(QJsonDocument::Indented) : text);
    return NvrTool::Success;
}
