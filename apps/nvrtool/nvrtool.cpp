// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "nvrtool.h"

#include "classes/lookuptable.h"
#include "classes/memory.h"
#include "classes/memoryaddress.h"
#include "classes/nvroptions.h"
#include "classes/nvrwav.h"
#include "classes/productdataheader.h"
#include "classes/serialport.h"
#include "headerfile.h"
#include "kvcore.h"
#include "kvhex.h"
#include "librarytable.h"
#include "monitorcommand.h"
#include "widgets/modstatuswidget.h"

#include <QAbstractItemModel>
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTextStream>

#include <cstdio>

namespace {

const QString s_dataOption = QStringLiteral("data");

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

NvrTool::NvrTool() = default;

NvrTool::~NvrTool() = default;

int NvrTool::run(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Works with product headers, memory codes, audio files and "
                                                    "the equipment libraries from the command line."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOption({s_dataOption, QStringLiteral("Use the data directory <dir> instead of the one beside the tool."),
                      QStringLiteral("dir")});
    parser.addPositionalArgument(QStringLiteral("command"),
                                 QStringLiteral("address, header, ports, wav, lib, lookup or monitor; "
                                                "'nvrtool <command> --help' describes each."));
    // Everything after the command belongs to the command's own parser.
    parser.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsPositionalArguments);
    if (!parser.parse(arguments))
        return usageError(parser.errorText());
    if (parser.isSet(QStringLiteral("version"))) {
        print(QStringLiteral("nvrtool %1\n").arg(QCoreApplication::applicationVersion()).toUtf8());
        return Success;
    }
    const QStringList rest = parser.positionalArguments();
    if (parser.isSet(QStringLiteral("help")) || rest.isEmpty()) {
        if (rest.isEmpty() && !parser.isSet(QStringLiteral("help")))
            return usageError(QStringLiteral("no command given"));
        print(parser.helpText().toUtf8());
        return Success;
    }
    m_dataDirectory = parser.value(s_dataOption);

    using Command = int (NvrTool::*)(const QStringList &);
    static const QList<QPair<QString, Command>> commands = {
        {QStringLiteral("address"), &NvrTool::address}, {QStringLiteral("header"), &NvrTool::header},
        {QStringLiteral("ports"), &NvrTool::ports},     {QStringLiteral("wav"), &NvrTool::wav},
        {QStringLiteral("lib"), &NvrTool::lib},         {QStringLiteral("lookup"), &NvrTool::lookup},
        {QStringLiteral("monitor"), &NvrTool::monitor},
    };
    for (const auto &command : commands) {
        if (command.first == rest.first())
            return (this->*command.second)(QStringList{arguments.first()} + rest.mid(1));
    }
    return usageError(QStringLiteral("unknown command: %1").arg(rest.first()));
}

bool NvrTool::parse(QCommandLineParser &parser, const QStringList &arguments, const QString &command,
                    const QString &positional)
{
    parser.addHelpOption();
    parser.addOption({s_dataOption, QStringLiteral("Use the data directory <dir> instead of the one beside the tool."),
                      QStringLiteral("dir")});
    parser.addPositionalArgument(command, QString(), positional.isEmpty() ? command : command + QLatin1Char(' ') + positional);
    if (!parser.parse(arguments)) {
        m_exitCode = usageError(QStringLiteral("%1: %2").arg(command, parser.errorText()));
        return false;
    }
    if (parser.isSet(QStringLiteral("help"))) {
        print(parser.helpText().toUtf8());
        m_exitCode = Success;
        return false;
    }
    if (parser.isSet(s_dataOption))
        m_dataDirectory = parser.value(s_dataOption);
    if (!useDataDirectory(m_dataDirectory)) {
        m_exitCode = Failure;
        return false;
    }
    return true;
}

bool NvrTool::useDataDirectory(const QString &directory)
{
    if (directory.isEmpty())
        return true;
    const QFileInfo info(directory);
    if (!info.isDir()) {
        fail(QStringLiteral("no data directory: %1").arg(directory));
        return false;
    }
    // The library finds its data as "nevradat" under the application directory.
    const QString base = QDir::cleanPath(info.absoluteFilePath() + QLatin1String("/.."));
    KvCore::setApplicationDirPath(base);
    return true;
}

bool NvrTool::readInput(const QString &fileName, QByteArray &bytes)
{
    QFile file;
    bool opened = false;
    if (fileName == QLatin1String("-")) {
        opened = file.open(stdin, QIODevice::ReadOnly);
    } else {
        file.setFileName(fileName);
        opened = file.open(QIODevice::ReadOnly);
    }
    if (!opened) {
        fail(QStringLiteral("cannot read %1: %2").arg(fileName, file.errorString()));
        return false;
    }
    bytes = file.readAll();
    return true;
}

int NvrTool::address(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Shows the field type and every value of memory codes."));
    parser.addOption({QStringLiteral("json"), QStringLiteral("Write a JSON array.")});
    if (!parse(parser, arguments, QStringLiteral("address"), QStringLiteral("CODE...")))
        return m_exitCode;
    const QStringList codes = parser.positionalArguments();
    if (codes.isEmpty())
        return usageError(QStringLiteral("address: no code given"));
    for (const QString &code : codes) {
        if (MemoryAddress::fieldType(code) == Nevra::NoField)
            return fail(QStringLiteral("not a memory code: %1").arg(code));
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
    print(parser.isSet(QStringLiteral("json")) ? QJsonDocument(array).toJson(QJsonDocument::Indented) : text);
    return Success;
}

int NvrTool::header(const QStringList &arguments)
{
    const QString action = arguments.value(1);
    const QStringList rest = QStringList{arguments.first()} + arguments.mid(2);
    if (action == QLatin1String("decode"))
        return headerDecode(rest);
    if (action == QLatin1String("encode"))
        return headerEncode(rest);
    if (action == QLatin1String("--help") || action == QLatin1String("-h")) {
        print("Usage: nvrtool header decode FILE [--html]\n"
              "       nvrtool header encode --model TEXT --serial TEXT [options] -o FILE\n"
              "'nvrtool header decode --help' and 'nvrtool header encode --help' describe the options.\n");
        return Success;
    }
    return usageError(action.isEmpty() ? QStringLiteral("header: decode or encode expected")
                                       : QStringLiteral("header: unknown action: %1").arg(action));
}

int NvrTool::headerDecode(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Decodes a product header from raw bytes or hex text "
                                                    "('-' reads standard input)."));
    parser.addOption({QStringLiteral("html"), QStringLiteral("Write the HTML table instead of plain lines.")});
    if (!parse(parser, arguments, QStringLiteral("header decode"), QStringLiteral("FILE")))
        return m_exitCode;
    if (parser.positionalArguments().size() != 1)
        return usageError(QStringLiteral("header decode: one file expected"));
    const QString fileName = parser.positionalArguments().first();
    QByteArray bytes;
    if (!readInput(fileName, bytes))
        return Failure;
    bytes = HeaderFile::decode(bytes);

    ProductDataHeader header;
    if (!header.setData(bytes)) {
        return fail(QStringLiteral("header too short in %1: %2 bytes, %3 needed")
                        .arg(fileName)
                        .arg(bytes.size())
                        .arg(header.headerSize()));
    }
    if (parser.isSet(QStringLiteral("html"))) {
        QString html;
        QTextStream stream(&html);
        header.output(stream);
        stream << '\n';
        stream.flush();
        print(html.toUtf8());
        return Success;
    }
    const bool crcMatches = header.headerCrc == header.calculatedHeaderCrc;
    QString text;
    QTextStream out(&text);
    out << "Product Model: " << header.productModel << '\n'
        << "Serial #: " << header.serialNumber << '\n'
        << "Mod Status: " << hex32(header.modStatus) << " (" << plainText(ModStatusWidget::modStatusString(header.modStatus))
        << ")\n"
        << "Build Configuration: " << header.buildConfiguration << '\n'
        << "Initialized Date: " << timeText(header.createdTime, header.createdDateTime()) << '\n'
        << "Nevra Ver: " << header.softwareVersion << '\n'
        << "Data Last Modified: " << timeText(header.programTime, header.lastProgrammedDateTime()) << '\n'
        << "Product Data Crc: " << hex32(header.productDataCrc) << '\n'
        << "Product Header Crc: " << hex32(header.headerCrc)
        << (crcMatches ? QStringLiteral(" (matches)")
                       : QStringLiteral(" (mismatch, calculated %1)").arg(hex32(header.calculatedHeaderCrc)))
        << '\n';
    out.flush();
    print(text.toUtf8());
    return Success;
}

int NvrTool::headerEncode(const QStringList &arguments)
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
    if (!parse(parser, arguments, QStringLiteral("header encode")))
        return m_exitCode;
    if (!parser.positionalArguments().isEmpty())
        return usageError(QStringLiteral("header encode: unexpected argument: %1").arg(parser.positionalArguments().first()));
    if (!parser.isSet(QStringLiteral("model")) || !parser.isSet(QStringLiteral("serial")) || !parser.isSet(QStringLiteral("output")))
        return usageError(QStringLiteral("header encode: --model, --serial and --output are required"));
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
            return usageError(QStringLiteral("header encode: %1 longer than %2 characters: %3")
                                  .arg(field.name)
                                  .arg(field.width)
                                  .arg(field.value));
    }
    uint modStatus = 0;
    if (!parseUnsigned(parser.value(QStringLiteral("mod-status")), modStatus))
        return usageError(QStringLiteral("header encode: not a number: %1").arg(parser.value(QStringLiteral("mod-status"))));

    ProductDataHeader header;
    header.setProductInfo(model, serial, modStatus, build);
    if (parser.isSet(QStringLiteral("programmed")))
        header.punchProgramTime();
    const QByteArray bytes = HeaderFile::encode(header.data(), parser.isSet(QStringLiteral("hex")));
    const QString output = parser.value(QStringLiteral("output"));
    QFile file(output);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
        return fail(QStringLiteral("cannot write %1: %2").arg(output, file.errorString()));
    return Success;
}

int NvrTool::ports(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Lists the COM ports by number, with their manufacturer."));
    if (!parse(parser, arguments, QStringLiteral("ports")))
        return m_exitCode;
    if (!parser.positionalArguments().isEmpty())
        return usageError(QStringLiteral("ports: unexpected argument: %1").arg(parser.positionalArguments().first()));
    const QMap<int, QString> map = SerialPort::availablePorts();
    QByteArray text;
    for (auto it = map.cbegin(); it != map.cend(); ++it)
        text += QStringLiteral("%1\t%2\n").arg(it.key()).arg(it.value().trimmed()).toUtf8();
    print(text);
    return Success;
}

int NvrTool::wav(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Converts a sound file into the product's WAV form."));
    parser.addOptions({
        {{QStringLiteral("o"), QStringLiteral("output")},
         QStringLiteral("The file to write; its suffix becomes the product's."), QStringLiteral("file")},
        {QStringLiteral("device-format"), QStringLiteral("Write the samples in the product's own code.")},
        {QStringLiteral("no-sox"), QStringLiteral("Copy the file instead of converting it; it must be a WAV file.")},
    });
    if (!parse(parser, arguments, QStringLiteral("wav"), QStringLiteral("import IN")))
        return m_exitCode;
    const QStringList positional = parser.positionalArguments();
    if (positional.size() != 2 || positional.first() != QLatin1String("import"))
        return usageError(QStringLiteral("wav: 'import IN' expected"));
    if (!parser.isSet(QStringLiteral("output")))
        return usageError(QStringLiteral("wav import: --output is required"));
    const QString input = positional.at(1);
    if (!QFileInfo(input).isFile())
        return fail(QStringLiteral("no such file: %1").arg(input));

    // The import reads the SoX switch from the application options; nothing else of them matters here.
    NvrOptions options({QCoreApplication::applicationFilePath()});
    options.setSoxLibraryEnabled(!parser.isSet(QStringLiteral("no-sox")));
    g_nvrOptions = &options;
    NvrWav wav;
    wav.setDeviceFormat(parser.isSet(QStringLiteral("device-format")));
    const bool imported = wav.importFile(input);
    g_nvrOptions = nullptr;
    if (!imported)
        return fail(QStringLiteral("cannot import %1").arg(input));
    const QString output = parser.value(QStringLiteral("output"));
    if (!wav.saveFile(output))
        return fail(QStringLiteral("cannot write %1").arg(wav.saveFileName(output)));
    print(wav.saveFileName(output).toUtf8() + '\n');
    return Success;
}

int NvrTool::lib(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Writes a library's table. Libraries: %1.")
                                         .arg(LibraryTable::names().join(QLatin1String(", "))));
    parser.addOption({QStringLiteral("format"), QStringLiteral("csv (default) or json."), QStringLiteral("format"),
                      QStringLiteral("csv")});
    if (!parse(parser, arguments, QStringLiteral("lib"), QStringLiteral("export NAME")))
        return m_exitCode;
    const QStringList positional = parser.positionalArguments();
    if (positional.size() != 2 || positional.first() != QLatin1String("export"))
        return usageError(QStringLiteral("lib: 'export NAME' expected"));
    const QString format = parser.value(QStringLiteral("format"));
    if (format != QLatin1String("csv") && format != QLatin1String("json"))
        return usageError(QStringLiteral("lib export: unknown format: %1").arg(format));
    const LibraryTable::Entry *library = LibraryTable::find(positional.at(1));
    if (!library) {
        return fail(QStringLiteral("unknown library: %1 (known: %2)")
                        .arg(positional.at(1), LibraryTable::names().join(QLatin1String(", "))));
    }
    const QString dataDirectory = KvCore::applicationDirPath() + QLatin1String("/nevradat");
    if (!QFileInfo(dataDirectory).isDir())
        return fail(QStringLiteral("no data directory: %1").arg(dataDirectory));

    // The products file is found from the working directory, the other libraries from the application's.
    const QString workingDirectory = QDir::currentPath();
    QDir::setCurrent(KvCore::applicationDirPath());
    const QAbstractItemModel *model = library->open();
    QDir::setCurrent(workingDirectory);
    print(format == QLatin1String("json") ? LibraryTable::toJson(*model) : LibraryTable::toCsv(*model));
    library->close();
    return Success;
}

int NvrTool::lookup(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Finds the entry of a lookup table nearest to a value: "
                                                    "its index, display text and code."));
    if (!parse(parser, arguments, QStringLiteral("lookup"), QStringLiteral("FILE GROUP VALUE")))
        return m_exitCode;
    const QStringList positional = parser.positionalArguments();
    if (positional.size() != 3)
        return usageError(QStringLiteral("lookup: FILE GROUP VALUE expected"));
    bool ok = false;
    const double value = positional.at(2).toDouble(&ok);
    if (!ok)
        return usageError(QStringLiteral("lookup: not a number: %1").arg(positional.at(2)));
    if (!QFileInfo(positional.first()).isFile())
        return fail(QStringLiteral("no such file: %1").arg(positional.first()));

    LookUpTable table(positional.first(), positional.at(1));
    table.readData();
    const int index = table.displayValueIndex(value);
    if (index < 0)
        return fail(QStringLiteral("no entries in group %1 of %2").arg(positional.at(1), positional.first()));
    print(QStringLiteral("%1\t%2\t%3\n")
              .arg(index)
              .arg(table.displayValues().at(index), Memory::IntToHexString(uchar(table.values().at(index))))
              .toUtf8());
    return Success;
}

int NvrTool::monitor(const QStringList &arguments)
{
    QCommandLineParser parser;
    MonitorCommand::addOptions(parser);
    if (!parse(parser, arguments, QStringLiteral("monitor")))
        return m_exitCode;
    MonitorCommand command;
    return command.run(parser);
}

int NvrTool::fail(const QString &message)
{
    std::fprintf(stderr, "nvrtool: %s\n", message.toLocal8Bit().constData());
    return Failure;
}

int NvrTool::usageError(const QString &message)
{
    std::fprintf(stderr, "nvrtool: %s (see nvrtool --help)\n", message.toLocal8Bit().constData());
    return UsageError;
}

void NvrTool::print(const QByteArray &text)
{
    std::fwrite(text.constData(), 1, size_t(text.size()), stdout);
    std::fflush(stdout);
}
