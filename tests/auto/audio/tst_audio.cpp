// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "classes/nvroptions.h"
#include "classes/nvrwav.h"
#include "classes/soxprocess.h"
#include "kvcore.h"
#include "kvhex.h"
#include "logcapture.h"
#include "testappdir.h"
#include "testfiles.h"

#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>

#include <memory>

namespace {
QByteArray chunk(const char *id, const QByteArray &body)
{
    return QByteArray(id, 4) + KvHex::UintToBuffer(body.size()) + body + QByteArray(body.size() & 1, '\0');
}

QByteArray fmtBody(quint16 tag, quint16 channels)
{
    return KvHex::UshortToBuffer(tag) + KvHex::UshortToBuffer(channels) + KvHex::UintToBuffer(8000)
           + KvHex::UintToBuffer(16000 * channels) + KvHex::UshortToBuffer(2 * channels) + KvHex::UshortToBuffer(16);
}

QByteArray riff(const QByteArray &chunks)
{
    return "RIFF" + KvHex::UintToBuffer(4 + chunks.size()) + "WAVE" + chunks;
}

}

class tst_Audio : public QObject
{
    Q_OBJECT

    QString input(const QString &name) const { return m_dir.filePath(name); }
    bool makeSound(const QString &name, const QString &format, const QString &seconds)
    {
        const QStringList arguments = QStringLiteral("-n %1").arg(format).split(QLatin1Char(' '))
                                      + QStringList{input(name), "synth", seconds, "sine", "440"};
        return QProcess::execute(TestAppDir::filePath("bin/sox.exe"), arguments) == 0;
    }

    QTemporaryDir m_dir;
    std::unique_ptr<NvrOptions> m_options;

private Q_SLOTS:
    void initTestCase()
    {
        TestAppDir::prepare();
        m_options = std::make_unique<NvrOptions>(QStringList{"tst_audio"});
        g_nvrOptions = m_options.get();
        const QString stereo = QStringLiteral("-r 44100 -b 16 -c 2");
        QVERIFY(QDir(m_dir.path()).mkpath("my sounds"));
        QVERIFY(makeSound("stereo.wav", stereo, "20"));
        QVERIFY(makeSound("my sounds/with blanks.wav", stereo, "3"));
        QVERIFY(makeSound("mono8.wav", "-r 8000 -b 8 -c 1", "3"));
        QVERIFY(makeSound("eleven.wav", "-r 22050 -b 16 -c 1", "11"));
        // A compressed input exists only where the installed SoX writes it.
        makeSound("stereo.flac", stereo, "20");
    }

    void cleanupTestCase()
    {
        g_nvrOptions = nullptr;
        m_options.reset();
        TestAppDir::cleanup();
    }

    void init()
    {
        m_options->setSoxLibraryEnabled(true);
        TestAppDir::clearData();
    }

    void exec_data()
    {
        QTest::addColumn<QString>("commandLine");
        QTest::addColumn<int>("timeoutMs");
        QTest::addColumn<QByteArray>("output");
        QTest::addColumn<QString>("error"); // the start of the one error record; empty on success

        QTest::newRow("quoted blanks") << "printf \"%s|\" \"a b\" c" << 30000 << QByteArray("a b|c|") << "";
        QTest::newRow("exit code 3") << "sh -c \"echo partial; echo broken >&2; exit 3\"" << 30000
                                     << QByteArray("partial\n") << "sh returned 3: broken";
        QTest::newRow("exit code 1") << "sh -c \"echo first >&2; echo second >&2; exit 1\"" << 30000 << QByteArray()
                                     << "sh returned 1: first\nsecond";
        QTest::newRow("crash") << "sh -c \"kill -SEGV $$\"" << 30000 << QByteArray() << "sh crashed";
        QTest::newRow("missing program") << "\"/nonexistent/no such tool\" -x" << 30000 << QByteArray()
                                         << "Could not start /nonexistent/no such tool: ";
        QTest::newRow("time-out") << "sleep 20" << 300 << QByteArray()
                                  << "sleep did not end within 300 ms and was stopped";
    }

    void exec()
    {
        QFETCH(QString, commandLine);
        QFETCH(int, timeoutMs);
        QFETCH(QByteArray, output);
        QFETCH(QString, error);

        LogCapture log;
        KvProcess process;
        process.setTimeoutMs(timeoutMs);
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(process.exec(commandLine), error.isEmpty());
        QVERIFY2(timer.elapsed() < 10000, "the program was not stopped at the time-out");
        QVERIFY(timer.elapsed() >= (timeoutMs < KvProcess::DefaultTimeoutMs ? timeoutMs : 0));
        QCOMPARE(process.state(), QProcess::NotRunning);
        QCOMPARE(process.readAllStandardOutput(), output);
        const QStringList errors = log.messages(LogRecord::Error);
        QCOMPARE(errors.size(), error.isEmpty() ? 0 : 1);
        if (!error.isEmpty())
            QVERIFY2(errors.first().startsWith(error), qPrintable(errors.first()));
        // The caller gets the same reason as the log.
        QCOMPARE(process.lastError(), errors.value(0));
    }

    void outputArrivesWhileRunning()
    {
        KvProcess process;
        QList<QPair<QByteArray, QProcess::ProcessState>> pieces;
        connect(&process, &QProcess::readyReadStandardOutput, this,
                [&] { pieces.append({process.readAllStandardOutput(), process.state()}); });
        QVERIFY(process.exec("sh -c \"echo first; sleep 1; echo second\""));
        QVERIFY(pieces.size() >= 2);
        QCOMPARE(pieces.first().first, QByteArray("first\n"));
        QCOMPARE(pieces.first().second, QProcess::Running);
    }

    void soxCommands_data()
    {
        QTest::addColumn<QVector<uint>>("format"); // channels, bits, rate
        QTest::addColumn<qint64>("durationMs");
        // Rates and bit sizes differ so that a dropped or swapped argument shows.
        QTest::newRow("resample") << QVector<uint>{1, 8, 16000} << qint64(3000);
        QTest::newRow("resample and cut") << QVector<uint>{1, 16, 22050} << qint64(2000);
        QTest::newRow("trim") << QVector<uint>{2, 16, 44100} << qint64(1000);
    }

    void soxCommands()
    {
        QFETCH(QVector<uint>, format);
        QFETCH(qint64, durationMs);

        const QString in = input("my sounds/with blanks.wav");
        const QString out = input(QStringLiteral("my sounds/out %1.wav").arg(QTest::currentDataTag()));
        SoxProcess sox;
        const QString row = QString::fromLatin1(QTest::currentDataTag());
        const bool ok = row == "resample"           ? sox.resample(in, out, 1, 16000, 8)
                        : row == "resample and cut" ? sox.resample(in, out, 1, 22050, 16, 2)
                                                    : sox.trim(in, out, 1);
        QVERIFY(ok);
        Wav result;
        QVERIFY(result.readFile(out));
        QCOMPARE(QVector<uint>({result.format().channels, result.format().bitsPerSample, result.format().sampleRate}),
                 format);
        QCOMPARE(result.durationMs(), durationMs);
    }

    void metadata()
    {
        SoxProcess sox;
        const QString description = sox.metadata(input("stereo.wav"));
        QVERIFY2(description.contains("Channels       : 2"), qPrintable(description));

        // A failed run describes nothing, whatever an earlier run left behind.
        QVERIFY(TestFiles::write(input("notes.wav"), "not a sound\n"));
        QCOMPARE(sox.metadata(input("notes.wav")), QString());
    }

    void readFile_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<int>("channels"); // 0: refused
        QTest::addColumn<QByteArray>("samples");

        const QByteArray fmt = chunk("fmt ", fmtBody(1, 2));
        const QByteArray samples = QByteArray::fromHex("0102030405060708");
        const QByteArray extensible = fmtBody(0xFFFE, 1) + QByteArray::fromHex("1600100004000000")
                                      + QByteArray::fromHex("0100000000001000800000aa00389b71");
        QTest::newRow("odd list chunk first") << riff(fmt + chunk("LIST", "abc") + chunk("data", samples)) << 2
                                              << samples;
        QTest::newRow("extensible format") << riff(chunk("fmt ", extensible) + chunk("data", samples)) << 1
                                           << samples;
        QTest::newRow("samples cut short") << riff(fmt) + "data" + KvHex::UintToBuffer(100) + samples << 2
                                           << samples;
        // The canonical form pads an odd count, so the next chunk a writer appends is at an even offset.
        QTest::newRow("odd count cut short") << riff(fmt) + "data" + KvHex::UintToBuffer(100) + samples.left(5) << 2
                                             << samples.left(5);
        QTest::newRow("data before format") << riff(chunk("data", samples) + fmt) << 0 << QByteArray();
        QTest::newRow("no channels") << riff(chunk("fmt ", fmtBody(1, 0)) + chunk("data", samples)) << 0
                                     << QByteArray();
        QTest::newRow("not RIFF") << riff(fmt + chunk("data", samples)).replace(0, 4, "RIFX") << 0 << QByteArray();
    }

    void readFile()
    {
        QFETCH(QByteArray, file);
        QFETCH(int, channels);
        QFETCH(QByteArray, samples);

        QVERIFY(TestFiles::write(input("parse.wav"), file));
        Wav wav;
        wav.setAudioData("stale");
        QCOMPARE(wav.readFile(input("parse.wav")), channels > 0);
        QCOMPARE(wav.audioData(), samples);
        QCOMPARE(wav.dataSize(), samples.size());
        QCOMPARE(int(wav.format().channels), channels);
        if (channels > 0) // always rewritten into the canonical header
            QCOMPARE(wav.rawData(), riff(chunk("fmt ", fmtBody(1, channels)) + chunk("data", samples)));
    }

    void importWithSox_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<qint64>("durationMs");
        QTest::addColumn<QString>("cutNotice");
        QTest::newRow("stereo 44.1 kHz, 20 s") << "stereo.wav" << qint64(11000) << "cut from 20.0 s to 11.0 s";
        QTest::newRow("8-bit mono, 3 s") << "mono8.wav" << qint64(3000) << "";
        QTest::newRow("exactly 11 s") << "eleven.wav" << qint64(11000) << "";
        QTest::newRow("FLAC") << "stereo.flac" << qint64(11000) << "cut from 20.0 s to 11.0 s";
    }

    void importWithSox()
    {
        QFETCH(QString, name);
        QFETCH(qint64, durationMs);
        QFETCH(QString, cutNotice);
        const QString source = input(name);
        if (!QFile::exists(source))
            QSKIP("the installed SoX does not write this format");
        const QByteArray original = TestFiles::read(source);

        NvrWav wav;
        QVERIFY(wav.importFile(source));
        const QString workFile = TestAppDir::filePath("tmp/" + name);
        QCOMPARE(TestFiles::read(workFile), wav.rawData()); // WAV data, whatever the name says
        QCOMPARE(TestFiles::read(source), original);
        const WavFormat format = wav.format();
        QCOMPARE(QVector<uint>({format.channels, format.bitsPerSample, format.sampleRate}),
                 QVector<uint>({1, 16, 22050}));
        QCOMPARE(wav.durationMs(), durationMs);
        QCOMPARE(wav.cutNotice(), cutNotice);
        int loudest = 0;
        const QByteArray samples = wav.audioData();
        for (int i = 0; i < samples.size(); i += 2)
            loudest = qMax(loudest, qAbs(int(qFromLittleEndian<qint16>(samples.constData() + i))));
        QVERIFY2(loudest > 8000, "the converted sound is silent");
    }

    void importWithoutSox_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("format"); // SoX's options for the file
        QTest::addColumn<QString>("refusal"); // empty: copied as it is
        QTest::newRow("16-bit stereo") << "stereo.wav" << "" << "";
        QTest::newRow("8-bit unsigned") << "mono8.wav" << "" << "";
        QTest::newRow("24-bit, extensible header") << "pcm24.wav" << "-e signed -b 24" << "";
        QTest::newRow("IMA ADPCM") << "ima.wav" << "-e ima-adpcm" << "ima.wav is IMA ADPCM, not PCM";
        QTest::newRow("Microsoft ADPCM") << "ms.wav" << "-e ms-adpcm" << "ms.wav is Microsoft ADPCM, not PCM";
        QTest::newRow("GSM") << "gsm.wav" << "-e gsm-full-rate" << "gsm.wav is GSM 6.10, not PCM";
        QTest::newRow("A-law") << "alaw.wav" << "-e a-law" << "alaw.wav is A-law, not PCM";
        QTest::newRow("float") << "float.wav" << "-e floating-point -b 32" << "float.wav is floating point, not PCM";
        QTest::newRow("RF64") << "rf64.wav" << "" << "rf64.wav: it is an RF64 file";
        QTest::newRow("no samples") << "silent.wav" << "" << "no sound in " + input("silent.wav");
    }

    void importWithoutSox()
    {
        QFETCH(QString, name);
        QFETCH(QString, format);
        QFETCH(QString, refusal);

        m_options->setSoxLibraryEnabled(false);
        const QString source = input(name);
        if (!format.isEmpty())
            QVERIFY(makeSound(name, "-r 8000 -c 1 " + format, "1"));
        if (name == "rf64.wav") { // the 64-bit variant, as recorders write it for long takes
            const QByteArray plain = TestFiles::read(input("mono8.wav"));
            const QByteArray ds64 = chunk("ds64", QByteArray(28, '\0'));
            QVERIFY(TestFiles::write(source, "RF64" + QByteArray(4, '\xff') + "WAVE" + ds64 + plain.mid(12)));
        } else if (name == "silent.wav") {
            QVERIFY(TestFiles::write(source, riff(chunk("fmt ", fmtBody(1, 1)) + chunk("data", QByteArray()))));
        }
        NvrWav wav;
        QCOMPARE(wav.importFile(source), refusal.isEmpty());
        const QString workFile = NvrWav::workFileName(source);
        if (!refusal.isEmpty()) {
            // Nothing is written that a player could not open.
            QVERIFY(wav.isEmpty());
            QVERIFY(!QFile::exists(workFile));
            QVERIFY2(wav.errorString().contains(refusal), qPrintable(wav.errorString()));
            return;
        }
        QCOMPARE(TestFiles::read(workFile), TestFiles::read(source));
        Wav original;
        QVERIFY(original.readFile(source));
        QCOMPARE(wav.rawData(), original.rawData());
    }

    void importWithoutSoxTool()
    {
        NvrWav wav;
        const QString source = input("stereo.wav");
        // Without the tool the import fails with the reason, after making the work folder.
        m_options->setSoxLibraryEnabled(true);
        QTemporaryDir elsewhere;
        KvCore::setApplicationDirPath(elsewhere.path());
        LogCapture log;
        const bool imported = wav.importFile(source);
        KvCore::setApplicationDirPath(QString());
        QVERIFY(!imported);
        QVERIFY(QFileInfo(elsewhere.filePath("tmp")).isDir());
        const QStringList errors = log.messages(LogRecord::Error);
        QCOMPARE(errors.size(), 1);
        QVERIFY2(errors.first().startsWith(QStringLiteral("Could not start %1/bin/sox.exe: ").arg(elsewhere.path())),
                 qPrintable(errors.first()));
        QCOMPARE(wav.errorString(), QStringLiteral("SoX is not installed: %1/bin/sox.exe is missing").arg(elsewhere.path()));
    }

    void importRefusesBadInput_data()
    {
        QTest::addColumn<QString>("name"); // "@" for the application directory
        QTest::addColumn<QByteArray>("bytes"); // null: no such file
        QTest::addColumn<bool>("sox");
        QTest::addColumn<QString>("reason");
        const QByteArray wav = TestFiles::read(input("mono8.wav"));
        const QByteArray empty = riff(chunk("fmt ", fmtBody(1, 1)) + chunk("data", QByteArray()));
        const struct
        {
            const char *row;
            QString name;
            QByteArray bytes;
            QString withSox;
            QString withoutSox;
        } inputs[] = {
            {"text named .wav", "notes.wav", "not a sound at all\n", "SoX could not convert " + input("notes.wav") + ": ",
             "it is not a WAV file"},
            {"missing file", "missing.wav", QByteArray(), "no such file: ", "no such file: "},
            {"header cut short", "cut.wav", wav.left(30), "SoX could not convert", "its format chunk is damaged"},
            {"source is the work file", "@tmp/mono8.wav", wav, "is the work file itself", "is the work file itself"},
            {"no samples", "empty.wav", empty, "no sound in " + input("empty.wav"), "no sound in " + input("empty.wav")},
        };
        for (const auto &in : inputs) {
            QTest::addRow("%s, SoX on", in.row) << in.name << in.bytes << true << in.withSox;
            QTest::addRow("%s, SoX off", in.row) << in.name << in.bytes << false << in.withoutSox;
        }
    }

    void importRefusesBadInput()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        QFETCH(bool, sox);
        QFETCH(QString, reason);

        m_options->setSoxLibraryEnabled(sox);
        const QString source = name.startsWith('@') ? TestAppDir::filePath(name.mid(1)) : input(name);
        if (!bytes.isNull())
            QVERIFY(TestFiles::write(source, bytes));
        NvrWav wav;
        wav.setAudioData("stale");
        QVERIFY(!wav.importFile(source));
        QVERIFY(wav.isEmpty());
        QVERIFY2(wav.errorString().contains(reason), qPrintable(wav.errorString()));
        QCOMPARE(QFile::exists(source), !bytes.isNull());
        QCOMPARE(TestFiles::read(source), bytes.isNull() ? QByteArray() : bytes);
    }

    void deviceFormat_data()
    {
        QTest::addColumn<QByteArray>("samples");
        QTest::addColumn<QByteArray>("codes");
        QTest::newRow("-32768") << QByteArray::fromHex("0080") << QByteArray::fromHex("3003");
        QTest::newRow("32767") << QByteArray::fromHex("ff7f") << QByteArray::fromHex("cc3c");
        QTest::newRow("-1 truncates to silence") << QByteArray::fromHex("ffff") << QByteArray::fromHex("0020");
        QTest::newRow("-100") << QByteArray::fromHex("9cff") << QByteArray::fromHex("e81f");
        QTest::newRow("trailing odd byte") << QByteArray::fromHex("6400ff") << QByteArray::fromHex("14200020");
    }

    void deviceFormat()
    {
        QFETCH(QByteArray, samples);
        QFETCH(QByteArray, codes);

        m_options->setSoxLibraryEnabled(false);
        Wav plain;
        plain.setAudioData(samples);
        QVERIFY(plain.saveFile(input("samples.wav")));
        NvrWav wav;
        wav.setDeviceFormat(true);
        QVERIFY(wav.importFile(input("samples.wav")));
        QCOMPARE(wav.rawData().mid(Wav::HeaderSize), codes);
        QCOMPARE(wav.dataSize(), samples.size()); // an odd count keeps its padding byte outside the data
        QCOMPARE(TestFiles::read(input("samples.wav")), plain.rawData());
    }

    void saveFile_data()
    {
        QTest::addColumn<QString>("given");
        QTest::addColumn<QString>("saved");
        QTest::addColumn<bool>("ok");
        QTest::newRow("complete suffix") << "a.b.wav" << "a.kv37.wav" << true;
        QTest::newRow("no suffix") << "noext" << "noext.kv37.wav" << true;
        QTest::newRow("upper case") << "LOUD.WAV" << "LOUD.kv37.wav" << true;
        QTest::newRow("already the product's") << "m.kv37.wav" << "m.kv37.wav" << true;
        // Kept: the suffix text is replaced in folder names too.
        QTest::newRow("suffix text in a folder") << "Wav/take.wav" << "kv37.wav/take.kv37.wav" << true;
        QTest::newRow("below a file") << "plain file/x" << "plain file/x.kv37.wav" << false;
    }

    void saveFile()
    {
        QFETCH(QString, given);
        QFETCH(QString, saved);
        QFETCH(bool, ok);

        // Relative names, so that no folder above has the suffix text in its name.
        const QString home = QDir::currentPath();
        QVERIFY(QDir::setCurrent(m_dir.path()));
        QVERIFY(TestFiles::write("plain file", "x"));
        QDir().mkpath(QFileInfo(saved).path());
        NvrWav wav;
        const bool emptySaved = wav.saveFile(given);
        wav.setAudioData("abcd");
        QCOMPARE(wav.saveFileName(given), saved);
        const bool savedOk = wav.saveFile(given);
        const QByteArray written = TestFiles::read(saved);
        QFile::remove(saved);
        QVERIFY(QDir::setCurrent(home));
        QVERIFY(!emptySaved);
        QCOMPARE(savedOk, ok);
        QCOMPARE(written, ok ? wav.rawData() : QByteArray());
    }
};

QTEST_GUILESS_MAIN(tst_Audio)
#include "tst_audio.moc"
