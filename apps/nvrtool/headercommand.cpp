// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "headercommand.h"

#include "classes/productdataheader.h"
#include "headerfile.h"
#include "kvcore.h"
#include "kvhex.h"
#include "nvrtool.h"
#include "widgets/modstatuswidget.h"

#include <QCommandLineParser>
#include <QFile>
#include <QRegularExpression>
#include <QTextStream>

namespace {

QString hex32(quint32 value)
{
    return KvHex::IntToString(static_cast<int>(value));
}

// 0 marks a time the header never got.
QString timeText(quint32 seconds, const QDateTime &time)
{
    return seconds == 0 ? QStringLiteral("none") : KvCore::dateTimeToString(time);
}

// The mod list is made for the HTML view; a terminal wants it without tags.
QString plainText(const QString &html)
{
    static const QRegularExpression tag(QStringLiteral("<[^>]*>"));
    return QString(html).remove(tag);
}

// Accepts decimal and 0x-prefixed hexadecimal, as users copy them from either form.
bool parseUnsigned(const QString &text, uint &value)
{
    bool ok = false;
    value = text.startsWith(QLatin1String("0x"), Qt::CaseInsensitive) ? text.mid(2).toUInt(&ok, 16)
                                                                      : text.toUInt(&ok, 10);
    return ok;
}

}

int HeaderCommand::run(NvrTool &tool, const QStringList &arguments)
{
    const QString action = arguments.value(1);
    const QStringList rest = QStringList{arguments.first()} + arguments.mid(2);
    if (action == QLatin1String("decode"))
        return decode(tool, rest);
    if (action == QLatin1String("encode"))
        return encode(tool, rest);
    if (action == QLatin1String("--help") || action == QLatin1String("-h")) {
        tool.print("Usage: nvrtool header decode FILE [--html]\n"
                   "       nvrtool header encode --model TEXT --serial TEXT [options] -o FILE\n"
                   "'nvrtool header decode --help' and 'nvrtool header encode --help' describe the options.\n");
        return NvrTool::Success;
    }
    return tool.usageError(action.isEmpty() ? QStringLiteral("header: decode or encode expected")
                                            : QStringLiteral("header: unknown action: %1").arg(action));
}

int HeaderCommand::decode(NvrTool &tool, const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Decodes a product header from raw bytes or hex text "
                                                    "('-' reads standard input)."));
    parser.addOption({QStringLiteral("html"), QStringLiteral("Write the HTML table instead of plain lines.")});
    if (!tool.parse(parser, arguments, QStringLiteral("header decode"), QStringLiteral("FILE")))
        return tool.exitCode();
    if (parser.positionalArguments().size() != 1)
        return tool.usageError(QStringLiteral("header decode: one file expected"));
    const QString fileName = parser.positionalArguments().first();
    QByteArray bytes;
    if (!tool.readInput(fileName, bytes))
        return NvrTool::Failure;
    bytes = HeaderFile::decode(bytes);

    ProductDataHeader header;
    if (!header.setData(bytes)) {
        return tool.fail(QStringLiteral("header too short in %1: %2 bytes, %3 needed")
                             .arg(fileName)
                             .arg(bytes.size())
                             .arg(header.headerSize()));
    }
    QString text;
    QTextStream out(&text);
    if (parser.isSet(QStringLiteral("html"))) {
        header.output(out);
        out << '\n';
    } else {
        // Field bytes come from a product or a file: a control character must not break the lines.
        out << "Product Model: " << NvrTool::escaped(header.productModel) << '\n'
            << "Serial #: " << NvrTool::escaped(header.serialNumber) << '\n'
            << "Mod Status: " << hex32(header.modStatus) << " ("
            << plainText(ModStatusWidget::modStatusString(header.modStatus)) << ")\n"
            << "Build Configuration: " << NvrTool::escaped(header.buildConfiguration) << '\n'
            << "Initialized Date: " << timeText(header.createdTime, header.createdDateTime()) << '\n'
            << "Nevra Ver: " << NvrTool::escaped(header.softwareVersion) << '\n'
            << "Data Last Modified: " << timeText(header.programTime, header.lastProgrammedDateTime()) << '\n'
            << "Product Data Crc: " << hex32(header.productDataCrc) << '\n'
            << "Product Header Crc: " << hex32(header.headerCrc)
            << (header.headerCrc == header.calculatedHeaderCrc
                    ? QStringLiteral(" (matches)")
                    : QStringLiteral(" (mismatch, calculated %1)").arg(hex32(header.calculatedHeaderCrc)))
            << '\n';
    }
    out.flush();
    tool.print(text.toUtf8());
    // The fields are still worth reading, but a script must not take a damaged header for a good one.
    if (header.headerCrc != header.calculatedHeaderCrc) {
        return tool.fail(QStringLiteral("header CRC mismatch in %1: stored %2, calculated %3")
                             .arg(fileName, hex32(header.headerCrc), hex32(header.calculatedHeaderCrc)));
    }
    return NvrTool::Success;
}

int HeaderCommand::encode(NvrTool &tool, const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Writes a new product header, created now."));
    parser.addOptions({
        {QStringLiteral("model"), QStringLiteral("Product model, up to 16 characters."), QStringLiteral("text")},
        {QStringLiteral("serial"), QStringLiteral("Serial number, up to 8 characters."), QStringLiteral("text")},
        {QStringLiteral("mod-status"), QStringLiteral("Mod status word, decimal or 0x hex (default 0)."),
         QStringLiteral("value"), QStringLiteral("0")},
        {QStringLiteral("build-configuration"), QStringLiteral("Build configuration, up to 4 characters (default A)."),
         QStringLiteral("text"), QStringLiteral("A")},
        {QStringLiteral("programmed"), QStringLiteral("Also stamp the programming time.")},
        {QStringLiteral("hex"), QStringLiteral("Write hex text instead of the raw bytes.")},
        {{QStringLiteral("o"), QStringLiteral("output")}, QStringLiteral("The file to write."), QStringLiteral("file")},
    });
    if (!tool.parse(parser, arguments, QStringLiteral("header encode")))
        return tool.exitCode();
    if (!parser.positionalArguments().isEmpty())
        return tool.usageError(QStringLiteral("header encode: unexpected argument: %1").arg(parser.positionalArguments().first()));
    if (!parser.isSet(QStringLiteral("model")) || !parser.isSet(QStringLiteral("serial")) || !parser.isSet(QStringLiteral("output")))
        return tool.usageError(QStringLiteral("header encode: --model, --serial and --output are required"));
    const QString model = parser.value(QStringLiteral("model"));
    const QString serial = parser.value(QStringLiteral("serial"));
    const QString build = parser.value(QStringLiteral("build-configuration"));
    // A longer text would be written whole and shift every later field.
    const struct {
        QString name;
        QString value;
        int width;
    } fields[] = {{QStringLiteral("model"), model, HeaderFile::modelWidth},
                  {QStringLiteral("serial"), serial, HeaderFile::serialWidth},
                  {QStringLiteral("build configuration"), build, HeaderFile::buildConfigurationWidth}};
    for (const auto &field : fields) {
        if (field.value.toLatin1().size() > field.width)
            return tool.usageError(QStringLiteral("header encode: %1 longer than %2 characters: %3")
                                       .arg(field.name)
                                       .arg(field.width)
                                       .arg(field.value));
    }
    uint modStatus = 0;
    if (!parseUnsigned(parser.value(QStringLiteral("mod-status")), modStatus))
        return tool.usageError(QStringLiteral("header encode: not a number: %1").arg(parser.value(QStringLiteral("mod-status"))));

    ProductDataHeader header;
    header.setProductInfo(model, serial, modStatus, build);
    if (parser.isSet(QStringLiteral("programmed")))
        header.punchProgramTime();
    const QByteArray bytes = HeaderFile::encode(header.data(), parser.isSet(QStringLiteral("hex")));
    const QString output = parser.value(QStringLiteral("output"));
    QFile file(output);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
        return tool.fail(QStringLiteral("cannot write %1: %2").arg(output, file.errorString()));
    return NvrTool::Success;
}
