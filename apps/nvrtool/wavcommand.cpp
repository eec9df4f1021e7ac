// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "wavcommand.h"

#include "classes/nvroptions.h"
#include "classes/nvrwav.h"
#include "nvrtool.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>

int WavCommand::run(NvrTool &tool, const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Converts a sound file into the product's WAV form."));
    parser.addOptions({
        {{QStringLiteral("o"), QStringLiteral("output")},
         QStringLiteral("The file to write; its suffix becomes the product's."), QStringLiteral("file")},
        {QStringLiteral("device-format"), QStringLiteral("Write the samples in the product's own code.")},
        {QStringLiteral("no-sox"), QStringLiteral("Copy the file instead of converting it; it must be a WAV file.")},
    });
    if (!tool.parse(parser, arguments, QStringLiteral("wav"), QStringLiteral("import IN")))
        return tool.exitCode();
    const QStringList positional = parser.positionalArguments();
    if (positional.size() != 2 || positional.first() != QLatin1String("import"))
        return tool.usageError(QStringLiteral("wav: 'import IN' expected"));
    if (!parser.isSet(QStringLiteral("output")))
        return tool.usageError(QStringLiteral("wav import: --output is required"));
    const QString input = positional.at(1);
    if (!QFileInfo(input).isFile())
        return tool.fail(QStringLiteral("no such file: %1").arg(input));

    // The import reads the SoX switch from the application options; nothing else of them matters here.
    NvrOptions options({QCoreApplication::applicationFilePath()});
    options.setSoxLibraryEnabled(!parser.isSet(QStringLiteral("no-sox")));
    g_nvrOptions = &options;
    NvrWav wav;
    wav.setDeviceFormat(parser.isSet(QStringLiteral("device-format")));
    const bool imported = wav.importFile(input);
    g_nvrOptions = nullptr;
    if (!imported)
        return tool.fail(QStringLiteral("cannot import %1").arg(input));
    const QString output = parser.value(QStringLiteral("output"));
    if (!wav.saveFile(output))
        return tool.fail(QStringLiteral("cannot write %1").arg(wav.saveFileName(output)));
    tool.print(wav.saveFileName(output).toUtf8() + '\n');
    return NvrTool::Success;
}
