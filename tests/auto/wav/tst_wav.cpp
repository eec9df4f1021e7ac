// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "classes/nvroptions.h"
#include "classes/nvrwav.h"
#include "kvcore.h"
#include "kvhex.h"
#include "logcapture.h"
#include "testappdir.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace {
QByteArray chunk(const char *id, const QByteArray &body)
{
    return QByteArray(id, 4) + KvHex::UintToBuffer(body.size()) + body + QByteArray(body.size() & 1, '\0');
}

QByteArray fmtBody(quint16 tag, quint16 channels, quint32 rate, quint16 bits)
{
    const quint16 align = channels * bits / 8;
    return KvHex::UshortToBuffer(tag) + KvHex::UshortToBuffer(channels) + KvHex::UintToBuffer(rate)
           + KvHex::UintToBuffer(rate * align) + KvHex::UshortToBuffer(align) + KvHex::UshortToBuffer(bits);
}

QByteArray riff(const QByteArray &chunks)
{
    return "RIFF" + KvHex::UintToBuffer(4 + chunks.size()) + "WAVE" + chunks;
}

QByteArray readAll(const QString &path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

void writeAll(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QFile::WriteOnly));
    QCOMPARE(file.write(bytes), qint64(bytes.size()));
}
}

class tst_Wav : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void readFile_data();
    void readFile();
    void audioDataAndSave();
    void importWithSox_data();
    void importWithSox();
    void importWithoutSox();
    void importRefusesBadInput_data();
    void importRefusesBadInput();
    void importWithoutSoxPresent();
    void deviceFormat_data();
    void deviceFormat();
    void saveFile_data();
    void saveFile();
    void byteHelpers();

private:
    QString input(const QString &name) const { return m_dir.filePath(name); }
    bool makeSound(const QString &name, const QStringList &format, const QString &seconds);

    QTemporaryDir m_dir;
    std::unique_ptr<NvrOptions> m_options;
};

bool tst_Wav::makeSound(const QString &name, const QStringList &format, const QString &seconds)
{
    const QStringList arguments = QStringList{QStringLiteral("-n")} + format
                                  + QStringList{input(name), QStringLiteral("synth"), seconds,
                                                QStringLiteral("sine"), QStringLiteral("440")};
    return QProcess::execute(TestAppDir::filePath(QStringLiteral("bin/sox.exe")), arguments) == 0;
}

void tst_Wav::initTestCase()
{
    TestAppDir::prepare();
    m_options = std::make_unique<NvrOptions>(QStringList{QStringLiteral("tst_wav")});
    g_nvrOptions = m_options.get();
    const QStringList stereo = {QStringLiteral("-r"), QStringLiteral("44100"), QStringLiteral("-b"),
                                QStringLiteral("16"), QStringLiteral("-c"), QStringLiteral("2")};
    QVERIFY(QDir(m_dir.path()).mkpath(QStringLiteral("my sounds")));
    QVERIFY(makeSound(QStringLiteral("stereo.wav"), stereo, QStringLiteral("20")));
    QVERIFY(makeSound(QStringLiteral("my sounds/with blanks.wav"), stereo, QStringLiteral("3")));
    QVERIFY(makeSound(QStringLiteral("mono8.wav"),
                      {QStringLiteral("-r"), QStringLiteral("8000"), QStringLiteral("-b"), QStringLiteral("8"),
                       QStringLiteral("-c"), QStringLiteral("1")},
                      QStringLiteral("3")));
    // Compressed inputs exist only where the installed SoX writes them.
    makeSound(QStringLiteral("stereo.flac"), stereo, QStringLiteral("20"));
    makeSound(QStringLiteral("stereo.mp3"), stereo.mid(0, 2) + stereo.mid(4), QStringLiteral("20"));
}

void tst_Wav::cleanupTestCase()
{
    g_nvrOptions = nullptr;
    m_options.reset();
    TestAppDir::cleanup();
}

void tst_Wav::init()
{
    m_options->setSoxLibraryEnabled(true);
    TestAppDir::clearData();
}

void tst_Wav::readFile_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<int>("channels");
    QTest::addColumn<QByteArray>("samples");

    const QByteArray fmt = chunk("fmt ", fmtBody(1, 2, 8000, 16));
    const QByteArray samples = QByteArray::fromHex("0102030405060708");
    const QByteArray canonical = riff(fmt + chunk("data", samples));
    QByteArray extensible = fmtBody(0xFFFE, 1, 8000, 16) + QByteArray::fromHex("1600100004000000")
                            + QByteArray::fromHex("0100000000001000800000aa00389b71");
    QByteArray cutShort = riff(fmt) + "data" + KvHex::UintToBuffer(100) + samples;

    QTest::newRow("canonical") << canonical << true << 2 << samples;
    QTest::newRow("odd list chunk before the data")
        << riff(fmt + chunk("LIST", "abc") + chunk("data", samples)) << true << 2 << samples;
    QTest::newRow("extensible format") << riff(chunk("fmt ", extensible) + chunk("data", samples)) << true << 1
                                       << samples;
    QTest::newRow("samples cut short") << cutShort << true << 2 << samples;
    QTest::newRow("header cut short") << canonical.left(40) << false << 0 << QByteArray();
    QTest::newRow("format chunk cut short") << riff("fmt " + KvHex::UintToBuffer(16) + fmtBody(1, 2, 8000, 16).left(10))
                                            << false << 0 << QByteArray();
    QTest::newRow("no data chunk") << riff(fmt + chunk("LIST", "abcd")) << false << 0 << QByteArray();
    QTest::newRow("data before format") << riff(chunk("data", samples) + fmt) << false << 0 << QByteArray();
    QTest::newRow("no channels") << riff(chunk("fmt ", fmtBody(1, 0, 8000, 16)) + chunk("data", samples)) << false
                                 << 0 << QByteArray();
    QTest::newRow("not RIFF") << QByteArray(canonical).replace(0, 4, "RIFX") << false << 0 << QByteArray();
    QTest::newRow("empty") << QByteArray() << false << 0 << QByteArray();
}

void tst_Wav::readFile()
{
    QFETCH(QByteArray, file);
    QFETCH(bool, ok);
    QFETCH(int, channels);
    QFETCH(QByteArray, samples);

    const QString path = input(QStringLiteral("parse.wav"));
    writeAll(path, file);
    Wav wav;
    wav.setAudioData("stale");
    QCOMPARE(wav.readFile(path), ok);
    QCOMPARE(wav.isEmpty(), !ok);
    QCOMPARE(wav.audioData(), samples);
    QCOMPARE(wav.dataSize(), samples.size());
    if (!ok)
        return;
    // Always rewritten into the canonical header, so the samples start at byte 44.
    const QByteArray raw = wav.rawData();
    QCOMPARE(raw.size(), 44 + samples.size());
    QCOMPARE(raw.left(16), QByteArray("RIFF" + KvHex::UintToBuffer(36 + samples.size()) + "WAVEfmt "));
    QCOMPARE(KvHex::BufferToUint(raw, 16), 16u);
    QCOMPARE(raw.mid(36, 8), QByteArray("data" + KvHex::UintToBuffer(samples.size())));
    QCOMPARE(wav.format().audioFormat, quint16(1));
    QCOMPARE(int(wav.format().channels), channels);
    QCOMPARE(wav.format().sampleRate, 8000u);
}

void tst_Wav::audioDataAndSave()
{
    Wav wav;
    QVERIFY(!wav.saveFile(input(QStringLiteral("nothing.wav"))));
    wav.setAudioData(QByteArray(44100, '\1'));
    QCOMPARE(wav.format().channels, quint16(1));
    QCOMPARE(wav.format().sampleRate, 22050u);
    QCOMPARE(wav.format().bitsPerSample, quint16(16));
    QCOMPARE(wav.durationMs(), qint64(1000));

    const QString path = input(QStringLiteral("saved.wav"));
    QVERIFY(wav.saveFile(path));
    Wav copy;
    QVERIFY(copy.readFile(path));
    QCOMPARE(copy.rawData(), wav.rawData());
    copy.setAudioData("ab");
    QCOMPARE(copy.dataSize(), 2);
    QCOMPARE(copy.format().sampleRate, 22050u);
    QVERIFY(!wav.saveFile(path + QStringLiteral("/below a file.wav")));
    QCOMPARE(readAll(path), wav.rawData());
}

void tst_Wav::importWithSox_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<qint64>("durationMs");
    QTest::newRow("stereo 44.1 kHz, 20 s") << QStringLiteral("stereo.wav") << qint64(11000);
    QTest::newRow("8-bit mono, 3 s") << QStringLiteral("mono8.wav") << qint64(3000);
    QTest::newRow("path with blanks") << QStringLiteral("my sounds/with blanks.wav") << qint64(3000);
    QTest::newRow("FLAC") << QStringLiteral("stereo.flac") << qint64(11000);
    QTest::newRow("MP3") << QStringLiteral("stereo.mp3") << qint64(11000);
}

void tst_Wav::importWithSox()
{
    QFETCH(QString, name);
    QFETCH(qint64, durationMs);
    const QString source = input(name);
    if (!QFile::exists(source))
        QSKIP("the installed SoX does not write this format");
    const QByteArray original = readAll(source);

    LogCapture log;
    NvrWav wav;
    QVERIFY(wav.importFile(source));
    const QString workFile = TestAppDir::filePath(QStringLiteral("tmp/") + QFileInfo(name).fileName());
    QCOMPARE(NvrWav::workFileName(source), workFile);
    QCOMPARE(readAll(workFile), wav.rawData()); // a WAV image, whatever the name says
    QCOMPARE(readAll(source), original);
    QCOMPARE(wav.format().channels, quint16(1));
    QCOMPARE(wav.format().bitsPerSample, quint16(16));
    QCOMPARE(wav.format().sampleRate, 22050u);
    QCOMPARE(wav.durationMs(), durationMs);
    int loudest = 0;
    const QByteArray samples = wav.audioData();
    for (int i = 0; i + 1 < samples.size(); i += 2)
        loudest = qMax(loudest, qAbs(int(qint16(NvrWav::BufferToShort(samples.mid(i, 2))))));
    QVERIFY2(loudest > 8000, "the converted sound is silent");

    const QList<LogRecord> records = log.records();
    QCOMPARE(records.size(), 1);
    QCOMPARE(records[0].level, LogRecord::Trace);
    QCOMPARE(records[0].message, QStringLiteral("Infile: \"%1\" Outfile: \"%2\"").arg(source, workFile));
    QCOMPARE(records[0].file, QStringLiteral("src/nvrcore/classes/nvrwav"));
    QCOMPARE(records[0].function, QStringLiteral("virtual bool NvrWav::importFile(const QString&)"));

    // The same sound in the product's code: every sample within the code's range.
    wav.setDeviceFormat(true);
    QVERIFY(wav.importFile(source));
    QCOMPARE(wav.dataSize(), samples.size());
    const QByteArray codes = wav.audioData();
    for (int i = 0; i < codes.size(); i += 2) {
        const int code = NvrWav::BufferToShort(codes.mid(i, 2));
        QVERIFY2((code & ~0x3FFC) == 0 && code >= 0x0330 && code <= 0x3CCC, qPrintable(QString::number(code, 16)));
    }
}

void tst_Wav::importWithoutSox()
{
    m_options->setSoxLibraryEnabled(false);
    const QString source = input(QStringLiteral("stereo.wav"));
    NvrWav wav;
    QVERIFY(wav.importFile(source));
    QCOMPARE(wav.rawData(), readAll(source));
    QCOMPARE(readAll(NvrWav::workFileName(source)), readAll(source));
    QCOMPARE(wav.format().channels, quint16(2));
    QCOMPARE(wav.durationMs(), qint64(20000));
}

void tst_Wav::importRefusesBadInput_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes"); // null: no such file
    QTest::addColumn<bool>("sox");

    const QByteArray wav = readAll(input(QStringLiteral("mono8.wav")));
    const QList<QPair<const char *, QPair<QString, QByteArray>>> inputs = {
        {"text named .wav", {QStringLiteral("notes.wav"), "not a sound at all\n"}},
        {"text", {QStringLiteral("notes.txt"), "not a sound at all\n"}},
        {"empty file", {QStringLiteral("empty.wav"), QByteArray("")}},
        {"missing file", {QStringLiteral("missing.wav"), QByteArray()}},
        {"header cut short", {QStringLiteral("cut.wav"), wav.left(30)}},
        {"source is the work file", {QStringLiteral("@tmp/mono8.wav"), wav}},
    };
    for (const auto &in : inputs) {
        QTest::addRow("%s, SoX on", in.first) << in.second.first << in.second.second << true;
        QTest::addRow("%s, SoX off", in.first) << in.second.first << in.second.second << false;
    }
}

void tst_Wav::importRefusesBadInput()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QFETCH(bool, sox);

    m_options->setSoxLibraryEnabled(sox);
    const QString source = name.startsWith(QLatin1Char('@')) ? TestAppDir::filePath(name.mid(1)) : input(name);
    if (!bytes.isNull())
        writeAll(source, bytes);
    NvrWav wav;
    wav.setAudioData("stale");
    QVERIFY(!wav.importFile(source));
    QVERIFY(wav.isEmpty());
    QCOMPARE(QFile::exists(source), !bytes.isNull());
    QCOMPARE(readAll(source), bytes.isNull() ? QByteArray() : bytes);
}

void tst_Wav::importWithoutSoxPresent()
{
    QTemporaryDir elsewhere;
    KvCore::setApplicationDirPath(elsewhere.path());
    LogCapture log;
    NvrWav wav;
    const bool imported = wav.importFile(input(QStringLiteral("stereo.wav")));
    KvCore::setApplicationDirPath(QString());
    QVERIFY(!imported);
    QVERIFY(QFileInfo(elsewhere.filePath(QStringLiteral("tmp"))).isDir()); // made when missing
    const QStringList errors = log.messages(LogRecord::Error);
    QCOMPARE(errors.size(), 1);
    const QString start = QStringLiteral("Could not start %1/bin/sox.exe: ").arg(elsewhere.path());
    QVERIFY2(errors.first().startsWith(start), qPrintable(errors.first()));
}

void tst_Wav::deviceFormat_data()
{
    QTest::addColumn<QByteArray>("samples");
    QTest::addColumn<QByteArray>("codes");
    QTest::newRow("0") << QByteArray::fromHex("0000") << QByteArray::fromHex("0020");
    QTest::newRow("-32768") << QByteArray::fromHex("0080") << QByteArray::fromHex("3003");
    QTest::newRow("32767") << QByteArray::fromHex("ff7f") << QByteArray::fromHex("cc3c");
    QTest::newRow("-1 truncates to silence") << QByteArray::fromHex("ffff") << QByteArray::fromHex("0020");
    QTest::newRow("-100") << QByteArray::fromHex("9cff") << QByteArray::fromHex("e81f");
    QTest::newRow("100") << QByteArray::fromHex("6400") << QByteArray::fromHex("1420");
    QTest::newRow("trailing odd byte") << QByteArray::fromHex("6400ff") << QByteArray::fromHex("14200020");
}

void tst_Wav::deviceFormat()
{
    QFETCH(QByteArray, samples);
    QFETCH(QByteArray, codes);

    m_options->setSoxLibraryEnabled(false);
    Wav plain;
    plain.setAudioData(samples);
    const QString source = input(QStringLiteral("samples.wav"));
    QVERIFY(plain.saveFile(source));
    NvrWav wav;
    QVERIFY(!wav.deviceFormat());
    wav.setDeviceFormat(true);
    QVERIFY(wav.importFile(source));
    QCOMPARE(wav.rawData().mid(Wav::HeaderSize), codes);
    QCOMPARE(wav.dataSize(), samples.size()); // an odd count keeps its padding byte outside the data
    QCOMPARE(readAll(source), plain.rawData());
}

void tst_Wav::saveFile_data()
{
    QTest::addColumn<QString>("given");
    QTest::addColumn<QString>("saved");
    QTest::newRow("plain") << QStringLiteral("message.wav") << QStringLiteral("message.kv37.wav");
    QTest::newRow("complete suffix") << QStringLiteral("a.b.wav") << QStringLiteral("a.kv37.wav");
    QTest::newRow("no suffix") << QStringLiteral("noext") << QStringLiteral("noext.kv37.wav");
    QTest::newRow("upper case") << QStringLiteral("LOUD.WAV") << QStringLiteral("LOUD.kv37.wav");
    QTest::newRow("already the product's") << QStringLiteral("m.kv37.wav") << QStringLiteral("m.kv37.wav");
    // Kept: the suffix text is replaced in folder names too.
    QTest::newRow("suffix text in a folder") << QStringLiteral("Wav/take.wav")
                                             << QStringLiteral("kv37.wav/take.kv37.wav");
}

void tst_Wav::saveFile()
{
    QFETCH(QString, given);
    QFETCH(QString, saved);

    // Relative names, so that no folder above has the suffix text in its name.
    const QString home = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_dir.path()));
    QDir().mkpath(QFileInfo(saved).path());
    NvrWav wav;
    wav.setAudioData("abcd");
    QCOMPARE(wav.saveFileName(given), saved);
    const bool ok = wav.saveFile(given);
    const QByteArray written = readAll(saved);
    QFile::remove(saved);
    QVERIFY(QDir::setCurrent(home));
    QVERIFY(ok);
    QCOMPARE(written, wav.rawData());
}

void tst_Wav::byteHelpers()
{
    QCOMPARE(NvrWav::swapSamples(QByteArray::fromHex("01020304")), QByteArray::fromHex("02010403"));
    QCOMPARE(NvrWav::swapSamples(QByteArray::fromHex("010203")), QByteArray::fromHex("02010003"));
    QCOMPARE(NvrWav::swapSamples(QByteArray()), QByteArray());
    QCOMPARE(NvrWav::BufferToShort(QByteArray::fromHex("ff")), 0);
    QCOMPARE(NvrWav::BufferToShort(QByteArray::fromHex("ff7f")), 32767);
    QCOMPARE(NvrWav::BufferToShort(QByteArray::fromHex("0080ff")), 32768);
    const unsigned char bytes[] = {0xff, 0xff};
    QCOMPARE(NvrWav::ucharToShort(bytes), 65535);
}

QTEST_GUILESS_MAIN(tst_Wav)
#include "tst_wav.moc"
