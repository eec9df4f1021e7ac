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
        {QStringLiteral("no-sox"),
         QStringLiteral("Copy the file instead of converting it; it must be a PCM WAV file.")},
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
    const bool sox = !parser.isSet(QStringLiteral("no-sox"));
    NvrOptions options({QCoreApplication::applicationFilePath()});
    options.setSoxLibraryEnabled(sox);
    g_nvrOptions = &options;
    NvrWav wav;
    wav.setDeviceFormat(parser.isSet(QStringLiteral("device-format")));
    const bool imported = wav.importFile(input);
    g_nvrOptions = nullptr;
    if (!imported)
        return tool.fail(wav.errorString());
    const QString output = parser.value(QStringLiteral("output"));
    if (!wav.saveFile(output))
        return tool.fail(wav.errorString());
    if (!wav.cutNotice().isEmpty())
        tool.warn(QStringLiteral("%1 %2").arg(input, wav.cutNotice()));
    const QStringList differences = wav.formatDifferences();
    if (!sox && !differences.isEmpty()) {
        tool.warn(QStringLiteral("%1 kept as it is without SoX, unlike the product's form "
                                 "(mono, %2 bits, %3 Hz, up to %4 s): %5")
                      .arg(input)
                      .arg(wav.bitsPerSample())
                      .arg(wav.sampleRate())
                      .arg(wav.trimSeconds())
                      .arg(differences.join(QLatin1String(", "))));
    }
    tool.print(wav.saveFileName(output).toUtf8() + '\n');
    return NvrTool::Success;
}
