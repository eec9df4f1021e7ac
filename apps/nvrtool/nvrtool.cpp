// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "nvrtool.h"

#include "addresscommand.h"
#include "headercommand.h"
#include "kvcore.h"
#include "libcommand.h"
#include "lookupcommand.h"
#include "monitorcommand.h"
#include "portscommand.h"
#include "wavcommand.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdio>

namespace {

const QString s_dataOption = QStringLiteral("data");

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

    using Command = int (*)(NvrTool &, const QStringList &);
    static const QList<QPair<QString, Command>> commands = {
        {QStringLiteral("address"), &AddressCommand::run},
        {QStringLiteral("header"), &HeaderCommand::run},
        {QStringLiteral("ports"), &PortsCommand::run},
        {QStringLiteral("wav"), &WavCommand::run},
        {QStringLiteral("lib"), &LibCommand::run},
        {QStringLiteral("lookup"), &LookupCommand::run},
        {QStringLiteral("monitor"), &MonitorCommand::command},
    };
    for (const auto &command : commands) {
        if (command.first == rest.first())
            return command.second(*this, QStringList{arguments.first()} + rest.mid(1));
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

int NvrTool::exitCode() const
{
    return m_exitCode;
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
    // The library finds its data as "nevradat" under the application directory, so a folder of
    // another name cannot be used: say so rather than report a missing sibling.
    if (info.fileName() != QLatin1String("nevradat")) {
        fail(QStringLiteral("not a data directory: %1 (it must be a folder named nevradat)").arg(directory));
        return false;
    }
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

int NvrTool::fail(const QString &message)
{
    std::fprintf(stderr, "nvrtool: %s\n", escaped(message).toLocal8Bit().constData());
    return Failure;
}

int NvrTool::usageError(const QString &message)
{
    std::fprintf(stderr, "nvrtool: %s (see nvrtool --help)\n", escaped(message).toLocal8Bit().constData());
    return UsageError;
}

void NvrTool::warn(const QString &message)
{
    std::fprintf(stderr, "nvrtool: warning: %s\n", escaped(message).toLocal8Bit().constData());
}

void NvrTool::print(const QByteArray &text)
{
    std::fwrite(text.constData(), 1, size_t(text.size()), stdout);
    std::fflush(stdout);
}

QString NvrTool::escaped(const QString &text)
{
    QString result;
    result.reserve(text.size());
    for (const QChar c : text) {
        const ushort code = c.unicode();
        // C0, DEL and the C1 controls that Latin-1 bytes 0x80 to 0x9F become.
        if (code < 0x20 || (code >= 0x7F && code < 0xA0))
            result += QStringLiteral("\\x%1").arg(code, 2, 16, QLatin1Char('0'));
        else
            result += c;
    }
    return result;
}
