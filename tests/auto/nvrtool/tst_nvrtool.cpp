// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "classes/nevra.h"
#include "classes/productdataheader.h"
#include "kvcrc.h"
#include "testappdir.h"
#include "testfiles.h"
#include "toolrun.h"
#include "wav.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

class tst_NvrTool : public QObject
{
    Q_OBJECT

    /// Runs the tool; "@" in an argument stands for the fixture folder, "@data" for its data folder.
    ToolRun run(QStringList arguments, const QByteArray &input = QByteArray()) const
    {
        arguments.replaceInStrings("@data", m_dir.filePath("nevradat")).replaceInStrings("@", m_dir.path() + '/');
        return ToolRun::run(QStringLiteral(NVRTOOL_BINARY), arguments, input);
    }
    QByteArray output(const QStringList &arguments, const QByteArray &input = QByteArray()) const
    {
        const ToolRun result = run(arguments, input);
        return result.exitCode == 0 && result.err.isEmpty() ? result.out : "failed: " + result.err;
    }
    QString path(const QString &name) const { return m_dir.filePath(name); }

    // An application folder with its data folder and the SoX link, a sound, a lookup table and a
    // regular file to make paths through it fail.
    QTemporaryDir m_dir;

private Q_SLOTS:
    void initTestCase()
    {
        TestAppDir::prepare();
        QDir(m_dir.path()).mkpath("nevradat");
        QDir(m_dir.path()).mkpath("bin");
        const QString sox = QStandardPaths::findExecutable("sox");
        QVERIFY(QFile::link(sox, path("bin/sox.exe")));
        QCOMPARE(QProcess::execute(sox, QStringList{"-n", "-r", "44100", "-c", "2", "-b", "16", path("tone.wav"),
                                                    "synth", "0.5", "sine", "440"}),
                 0);
        QVERIFY(TestFiles::write(path("notes.txt"), "no sound in here\n"));
        QCOMPARE(QProcess::execute(sox, QStringList{"-n", "-r", "8000", "-e", "ima-adpcm", path("adpcm.wav"), "synth",
                                                    "0.5", "sine", "440"}),
                 0);
        Wav silent;
        silent.setAudioData(QByteArray());
        QVERIFY(silent.saveFile(path("silent.wav")));
        QVERIFY(TestFiles::write(path("file"), "a regular file, no folder"));
        QVERIFY(TestFiles::write(path("levels.ini"), "[volume]\ncount=4\n0=Off,00\n1=5,0A\n2=10,114\n3=20,1E\ndefault=Off\n"));
        // Data folders that hold nothing, or a products file cut off in the middle.
        QDir(m_dir.path()).mkpath("empty/nevradat");
        QDir(m_dir.path()).mkpath("broken/nevradat");
        QVERIFY(TestFiles::write(path("broken/nevradat/products.dat"), R"({"kvlproducts": {"products": [)"));
    }

    void cleanupTestCase() { TestAppDir::cleanup(); }

    void helpAndVersion()
    {
        QVERIFY(output({"--version"}).startsWith("nvrtool 1.70."));
        QVERIFY(output({"--help"}).contains("lookup"));
        QVERIFY(output({"lib", "--help"}).contains("radios"));
    }

    void errors_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QByteArray>("input");
        QTest::addColumn<int>("exitCode"); // 2: usage, 1: failure
        QTest::addColumn<QByteArray>("needle");
        const QByteArray none;

        QTest::newRow("unknown command") << QStringList{"frobnicate"} << none << 2 << QByteArray("frobnicate");
        QTest::newRow("unknown option") << QStringList{"ports", "--bogus"} << none << 2 << QByteArray("bogus");
        QTest::newRow("data directory of another name") << QStringList{"lib", "export", "radios", "--data", "@"}
                                                        << none << 1 << QByteArray("must be a folder named nevradat");
        QTest::newRow("missing data directory") << QStringList{"ports", "--data", "/nonexistent/nevradat"} << none
                                                << 1 << QByteArray("/nonexistent/nevradat");
        // One bad code fails the whole run, so a script never reads half an answer.
        QTest::newRow("bad address") << QStringList{"address", "D:0.20.01", "P:0.20.01.0F"} << none << 1
                                     << QByteArray("not a memory code: P:0.20.01.0F");

        const QStringList encode = {"header", "encode", "--model", "M", "--serial", "1"};
        QTest::newRow("header file missing") << QStringList{"header", "decode", "@none.bin"} << none << 1
                                             << QByteArray("cannot read");
        QTest::newRow("short header") << QStringList{"header", "decode", "-"} << QByteArray(55, '\x01') << 1
                                      << QByteArray("55 bytes, 56 needed");
        QTest::newRow("model too long")
            << QStringList{"header", "encode", "--model", QString(17, 'M'), "--serial", "1", "-o", "@h.bin"} << none
            << 2 << QByteArray("model longer than 16");
        QTest::newRow("header unwritable") << encode + QStringList{"-o", "@file/h.bin"} << none << 1
                                           << QByteArray("cannot write");

        const QStringList wav = {"wav", "import", "-o", "@x.wav", "--data", "@data"};
        QTest::newRow("wav input missing") << wav + QStringList{"@none.wav"} << none << 1
                                           << QByteArray("no such file: ");
        QTest::newRow("wav not a sound") << wav + QStringList{"@notes.txt"} << none << 1
                                         << QByteArray("SoX could not convert " + path("notes.txt").toUtf8()
                                                       + ": formats: no handler for file extension `txt'");
        QTest::newRow("wav without SoX installed")
            << QStringList{"wav", "import", "@tone.wav", "-o", "@x.wav", "--data", "@empty/nevradat"} << none << 1
            << QByteArray("SoX is not installed: ");
        QTest::newRow("wav compressed, SoX off") << wav + QStringList{"@adpcm.wav", "--no-sox"} << none << 1
                                                 << QByteArray("adpcm.wav is IMA ADPCM, not PCM");
        QTest::newRow("wav without samples") << wav + QStringList{"@silent.wav"} << none << 1
                                             << QByteArray("no sound in " + path("silent.wav").toUtf8());
        QTest::newRow("wav unwritable")
            << QStringList{"wav", "import", "@tone.wav", "-o", "@file/x.wav", "--data", "@data"} << none << 1
            << QByteArray("cannot write " + path("file/x.kv37.wav").toUtf8() + ": ");

        QTest::newRow("unknown library") << QStringList{"lib", "export", "headphones", "--data", "@data"} << none
                                         << 2 << QByteArray("unknown library: headphones");
        // Radios would rebuild both files and the CSV libraries would print an empty table.
        QTest::newRow("radio files missing") << QStringList{"lib", "export", "radios", "--data", "@empty/nevradat"}
                                             << none << 1
                                             << QByteArray("radios: radiosbase.dat and radiosuser.dat are not in");
        QTest::newRow("CSV library missing")
            << QStringList{"lib", "export", "musicsystems", "--data", "@empty/nevradat"} << none << 1
            << QByteArray("musicsystems: musicsystems.csv is not in");
        QTest::newRow("products not JSON") << QStringList{"lib", "export", "products", "--data", "@broken/nevradat"}
                                           << none << 1 << QByteArray("products.dat is not valid JSON: ");

        QTest::newRow("lookup group missing") << QStringList{"lookup", "@levels.ini", "balance", "1"} << none << 1
                                              << QByteArray("no entries in group balance");
        QTest::newRow("lookup not a number") << QStringList{"lookup", "@levels.ini", "volume", "loud"} << none << 2
                                             << QByteArray("not a number: loud");
    }

    void errors()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QByteArray, input);
        QFETCH(int, exitCode);
        QFETCH(QByteArray, needle);
        // A failure or usage error says what failed in one line, and prints and writes no result.
        const ToolRun result = run(arguments, input);
        QCOMPARE(result.exitCode, exitCode);
        QVERIFY2(result.err.startsWith("nvrtool: ") && result.err.count('\n') == 1, result.err);
        QVERIFY2(result.err.contains(needle), result.err);
        QVERIFY(result.out.isEmpty());
        QVERIFY(!QFile::exists(path("h.bin")) && !QFile::exists(path("x.kv37.wav")));
        QVERIFY(QDir(path("empty/nevradat")).isEmpty());
    }

    void addressCodes()
    {
        QCOMPARE(output({"address", "E:0.50.10.20", "I:1.2A.05.LD"}),
                 QByteArray("E:0.50.10.20: EEPROM, bus 0, device 80, address 16, size 32, pin active -1, pull-up -1\n"
                            "I:1.2A.05.LD: I/O Pin, bus 1, device 42, address 5, size 1, pin active 0, pull-up 0\n"));

        const QJsonArray array = QJsonDocument::fromJson(output({"address", "--json", "P:0.20.01.FF"})).array();
        QCOMPARE(array.size(), 1);
        const QJsonObject code = array.first().toObject();
        QCOMPARE(code.value("fieldTypeName").toString(), QStringLiteral("I/O Port"));
        QCOMPARE(code.value("fieldType").toInt(), int(Nevra::IoPortField));
        QCOMPARE(code.value("pullUpConfig").toInt(), 255);
    }

    void headerRoundTrip()
    {
        const QString raw = path("header.bin");
        const QString hex = path("header.txt");
        QVERIFY(!output({"header", "encode", "--model", "KV-37 PANEL", "--serial", "A1234567", "--mod-status",
                         "0x205", "--build-configuration", "C", "-o", raw})
                     .startsWith("failed"));
        const QByteArray bytes = TestFiles::read(raw);
        QCOMPARE(bytes.size(), 56);
        ProductDataHeader header;
        QVERIFY(header.setData(bytes));
        // Readers take the field only from writers above x.69, which this version is.
        QCOMPARE(bytes.mid(36, 4), QByteArray("C\0\0\0", 4));

        const QByteArray decoded = output({"header", "decode", raw});
        QVERIFY2(decoded.startsWith("Product Model: KV-37 PANEL\nSerial #: A1234567\n"
                                    "Mod Status: 0x00000205 (1,3,10)\nBuild Configuration: C\n"),
                 decoded);
        QVERIFY2(decoded.contains("Data Last Modified: none\n"), decoded);
        QVERIFY2(decoded.endsWith("Product Header Crc: 0x"
                                  + QByteArray::number(header.headerCrc, 16).toUpper().rightJustified(8, '0')
                                  + " (matches)\n"),
                 decoded);

        // Hex text from a file or from standard input decodes to the same fields.
        QVERIFY(TestFiles::write(hex, bytes.toHex(' ') + '\n'));
        QCOMPARE(output({"header", "decode", hex}), decoded);
        QCOMPARE(output({"header", "decode", "-"}, bytes), decoded);
        QCOMPARE(output({"header", "decode", "-"}, bytes.toHex()), decoded);

        // The --hex form of encode is what decode reads back, programming time included.
        QVERIFY(!output({"header", "encode", "--model", "M", "--serial", "1", "--hex", "--programmed", "--output",
                         hex})
                     .startsWith("failed"));
        QVERIFY(TestFiles::read(hex).startsWith("4D 00 00"));
        const QByteArray programmed = output({"header", "decode", hex});
        QVERIFY2(programmed.contains("Build Configuration: A\n") && !programmed.contains("Modified: none"),
                 programmed);

        // A changed model byte breaks the header CRC: still decoded, but the run fails. Control
        // characters in a field must not break the one-field-a-line output.
        QByteArray damaged = bytes;
        damaged.replace(0, 3, "X\n\x85");
        QVERIFY(TestFiles::write(raw, damaged));
        const auto crcText = [](quint32 crc) { return "0x" + QByteArray::number(crc, 16).toUpper().rightJustified(8, '0'); };
        for (const char *form : {"--html", "--"}) {
            const ToolRun result = run({"header", "decode", form, raw});
            QCOMPARE(result.exitCode, 1);
            QCOMPARE(result.err, "nvrtool: header CRC mismatch in " + raw.toUtf8() + ": stored " + crcText(header.headerCrc)
                                     + ", calculated " + crcText(KvCrc::crc32(damaged, 28)) + "\n");
            QVERIFY2(result.out.startsWith(qstrcmp(form, "--html") == 0 ? "<table"
                                                                         : "Product Model: X\\x0a\\x8537 PANEL\nSerial"),
                     result.out);
        }
    }

    void portsFollowTheLinks()
    {
        QDir(m_dir.path()).mkpath("ports");
        QVERIFY(QFile::link("/dev/ptmx", path("ports/COM12")));
        QVERIFY(QFile::link("/dev/ptmx", path("ports/COM3")));
        // The numbered ports first; then, as "-", whatever serial devices this machine has without a number.
        const QByteArray listed = output({"ports", "--data", "@data"});
        const QByteArray numbered("3\tCOM3\t/dev/ptmx\t\t\n12\tCOM12\t/dev/ptmx\t\t\n");
        QVERIFY2(listed.startsWith(numbered), listed.constData());
        for (const QByteArray &line : listed.mid(numbered.size()).split('\n'))
            QVERIFY2(line.isEmpty() || (line.startsWith("-\t") && line.count('\t') == 4), line.constData());
    }

    void wavImport()
    {
        const QString converted = path("out.kv37.wav");
        QCOMPARE(output({"wav", "import", "@tone.wav", "-o", "@out.wav", "--data", "@data"}),
                 converted.toUtf8() + '\n');
        Wav wav;
        QVERIFY(wav.readFile(converted));
        QCOMPARE(QVector<uint>({wav.format().channels, wav.format().sampleRate, wav.format().bitsPerSample}),
                 QVector<uint>({1, 22050, 16}));
        const QByteArray plain = TestFiles::read(converted);

        // The device form rewrites every sample: same size, other bytes.
        QVERIFY(!output({"wav", "import", "@tone.wav", "--device-format", "-o", "@device", "--data", "@data"})
                     .startsWith("failed"));
        const QByteArray device = TestFiles::read(path("device.kv37.wav"));
        QCOMPARE(device.size(), plain.size());
        QVERIFY(device != plain);

        // Without SoX the file is taken as it is, with a word on what the product would not play.
        ToolRun result = run({"wav", "import", "@tone.wav", "--no-sox", "-o", "@copy.wav", "--data", "@data"});
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(TestFiles::read(path("copy.kv37.wav")), TestFiles::read(path("tone.wav")));
        QVERIFY2(result.err.startsWith("nvrtool: warning: ") && result.err.endsWith(": 2 channels, 44100 Hz\n"),
                 result.err);

        // A sound longer than the product keeps is cut, and the tool says so.
        QCOMPARE(QProcess::execute(QStandardPaths::findExecutable("sox"),
                                   {"-n", "-r", "22050", "-b", "16", "-c", "1", path("long.wav"), "synth", "15", "sine",
                                    "440"}),
                 0);
        result = run({"wav", "import", "@long.wav", "-o", "@long.wav", "--data", "@data"});
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(result.err, "nvrtool: warning: " + path("long.wav").toUtf8() + " cut from 15.0 s to 11.0 s\n");
    }

    void libraryExport()
    {
        // The file escapes a quote with a backslash, which the library keeps in the cell; the export
        // doubles the quote as CSV readers expect.
        const QByteArray csv = "Id,Name,Company,Model,Vrms,Note\n"
                               "3,Factory,Acme,Box 1,0.5,\"loud, clear\"\n"
                               "200,Mine,Own,Say \\\"hi\\\",0.7,\n";
        QVERIFY(TestFiles::write(path("nevradat/bluetoothdevices.csv"), csv));
        QVERIFY(TestFiles::write(path("nevradat/products.dat"),
                          R"({"kvlproducts": {"products": [{"productNumber": "11-100", "startBuildConfigRev": "A",
                              "endBuildConfigRev": "C", "hardwareConfiguration": "2"}]}})"));
        QVERIFY(TestFiles::write(path("nevradat/legendsconvert.dat"), "[LegendsConvert]\ncount=1\n0=COM1, COM 1\n"));

        QCOMPARE(output({"lib", "export", "bluetoothdevices", "--data", "@data"}),
                 QByteArray(csv).replace("Say \\\"hi\\\"", "\"Say \\\"\"hi\\\"\"\""));
        const QByteArray json = output({"lib", "export", "bluetoothdevices", "--format", "json", "--data", "@data"});
        const QJsonArray rows = QJsonDocument::fromJson(json).array();
        QCOMPARE(rows.size(), 2);
        QCOMPARE(rows.at(1).toObject().value("Id").toString(), QStringLiteral("200"));
        QCOMPARE(rows.at(0).toObject().value("Note").toString(), QStringLiteral("loud, clear"));
        QCOMPARE(rows.at(1).toObject().value("Model").toString(), QStringLiteral("Say \\\"hi\\\""));

        // The products file is found from the working directory, which the tool moves to the data's parent.
        QCOMPARE(output({"lib", "export", "products", "--data", "@data"}),
                 QByteArray("Product Number,Starting Build Config Rev,Ending Build Config Rev,"
                            "Hardware Configuration\n11-100,A,C,2\n"));

        QByteArray out = output({"lib", "export", "legendsconvert", "--format", "json", "--data", "@data"});
        QVERIFY2(out.contains("\"COM 1\""), out);

        // Export only reads: the radio files, which the library rewrites when one is missing, stay as they are.
        QVERIFY(TestFiles::write(path("nevradat/radiosbase.dat"), "[Rts]\ncount=1\n0=10, Acme, Com 1, 1, 0.50, Rx, "
                                                                   "0.50, Tx, 1\n"));
        QVERIFY(TestFiles::write(path("nevradat/radiosuser.dat"), "[Rts]\ncount=0\nautoincid=200\n"));
        const QDir data(path("nevradat"));
        const QStringList files = data.entryList(QDir::Files);
        out = output({"lib", "export", "radios", "--data", "@data"});
        QVERIFY2(out.startsWith("Id,Manufacturer,Model,") && out.contains("\n10,Acme,Com 1,"), out);
        QCOMPARE(data.entryList(QDir::Files), files);
        QCOMPARE(TestFiles::read(path("nevradat/radiosuser.dat")), QByteArray("[Rts]\ncount=0\nautoincid=200\n"));
    }

    void lookupNearestEntry()
    {
        // Nearest by magnitude; only the code's low byte counts.
        QCOMPARE(output({"lookup", "@levels.ini", "volume", "8"}), QByteArray("2\t10\t14\n"));
    }
};

QTEST_GUILESS_MAIN(tst_NvrTool)
#include "tst_nvrtool.moc"
