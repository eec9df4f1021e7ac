// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "classes/nevra.h"
#include "classes/productdataheader.h"
#include "testappdir.h"
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

namespace {

struct Result
{
    int exitCode = -1;
    QByteArray out;
    QByteArray err;
};

Result runTool(const QStringList &arguments, const QByteArray &input = QByteArray())
{
    QProcess tool;
    tool.start(QStringLiteral(NVRTOOL_BINARY), arguments);
    Result result;
    if (!tool.waitForStarted(30000))
        return result;
    tool.write(input);
    tool.closeWriteChannel();
    if (!tool.waitForFinished(60000) || tool.exitStatus() != QProcess::NormalExit)
        return result;
    result.exitCode = tool.exitCode();
    result.out = tool.readAllStandardOutput();
    result.err = tool.readAllStandardError();
    return result;
}

bool writeFile(const QString &fileName, const QByteArray &bytes)
{
    QFile file(fileName);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QByteArray readFile(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// A failure or usage error says what failed in one line, and prints no result.
#define VERIFY_ONE_LINE_ERROR(result, code, needle)                                                      \
    do {                                                                                                 \
        QCOMPARE((result).exitCode, code);                                                               \
        QVERIFY2((result).err.startsWith("nvrtool: ") && (result).err.count('\n') == 1, (result).err);   \
        QVERIFY2((result).err.contains(needle), (result).err);                                           \
        QVERIFY((result).out.isEmpty());                                                                 \
    } while (false)

}

class tst_NvrTool : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void commandLine_data();
    void commandLine();
    void addressCodes();
    void headerRoundTrip();
    void headerErrors_data();
    void headerErrors();
    void portsFollowTheLinks();
    void wavImport();
    void libraryExport();
    void lookupNearestEntry();

private:
    /// A fresh application directory with its "nevradat" folder and the SoX link.
    QString makeAppDir(const QTemporaryDir &dir) const;
};

void tst_NvrTool::initTestCase()
{
    TestAppDir::prepare();
}

void tst_NvrTool::cleanupTestCase()
{
    TestAppDir::cleanup();
}

QString tst_NvrTool::makeAppDir(const QTemporaryDir &dir) const
{
    QDir(dir.path()).mkpath(QStringLiteral("nevradat"));
    QDir(dir.path()).mkpath(QStringLiteral("bin"));
    QFile::link(QStandardPaths::findExecutable(QStringLiteral("sox")), dir.filePath(QStringLiteral("bin/sox.exe")));
    return dir.filePath(QStringLiteral("nevradat"));
}

void tst_NvrTool::commandLine_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QByteArray>("needle");

    QTest::newRow("version") << QStringList{QStringLiteral("--version")} << 0 << QByteArray("nvrtool 0.");
    QTest::newRow("help") << QStringList{QStringLiteral("--help")} << 0 << QByteArray("lookup");
    QTest::newRow("command help") << QStringList{QStringLiteral("lib"), QStringLiteral("--help")} << 0
                                  << QByteArray("radios");
    QTest::newRow("no command") << QStringList() << 2 << QByteArray("no command");
    QTest::newRow("unknown command") << QStringList{QStringLiteral("frobnicate")} << 2 << QByteArray("frobnicate");
    QTest::newRow("unknown option") << QStringList{QStringLiteral("--bogus")} << 2 << QByteArray("bogus");
    QTest::newRow("unknown command option") << QStringList{QStringLiteral("ports"), QStringLiteral("--bogus")} << 2
                                            << QByteArray("bogus");
    QTest::newRow("missing data directory")
        << QStringList{QStringLiteral("ports"), QStringLiteral("--data"), QStringLiteral("/nonexistent/nevradat")} << 1
        << QByteArray("/nonexistent/nevradat");
}

void tst_NvrTool::commandLine()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, exitCode);
    QFETCH(QByteArray, needle);
    const Result result = runTool(arguments);
    if (exitCode == 0) {
        QCOMPARE(result.exitCode, 0);
        QVERIFY2(result.out.contains(needle), result.out);
        QVERIFY(result.err.isEmpty());
    } else {
        VERIFY_ONE_LINE_ERROR(result, exitCode, needle);
    }
}

void tst_NvrTool::addressCodes()
{
    Result result = runTool({QStringLiteral("address"), QStringLiteral("D:0.20.01"), QStringLiteral("I:1.2A.05.LD"),
                             QStringLiteral("E:0.50.10.20"), QStringLiteral("P:0.20.01")});
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.out,
             QByteArray("D:0.20.01: DCP Level, bus 0, device 32, address 1, size 1, pin active -1, pull-up -1\n"
                        "I:1.2A.05.LD: I/O Pin, bus 1, device 42, address 5, size 1, pin active 0, pull-up 0\n"
                        "E:0.50.10.20: EEPROM, bus 0, device 80, address 16, size 32, pin active -1, pull-up -1\n"
                        "P:0.20.01: I/O Port, bus 0, device 32, address 1, size 1, pin active -1, pull-up 255\n"));

    result = runTool({QStringLiteral("address"), QStringLiteral("--json"), QStringLiteral("P:0.20.01.FF")});
    QCOMPARE(result.exitCode, 0);
    const QJsonArray array = QJsonDocument::fromJson(result.out).array();
    QCOMPARE(array.size(), 1);
    const QJsonObject code = array.first().toObject();
    QCOMPARE(code.value(QLatin1String("fieldTypeName")).toString(), QStringLiteral("I/O Port"));
    QCOMPARE(code.value(QLatin1String("fieldType")).toInt(), int(Nevra::IoPortField));
    QCOMPARE(code.value(QLatin1String("pullUpConfig")).toInt(), 255);

    // One bad code fails the whole run, so a script never reads half an answer.
    result = runTool({QStringLiteral("address"), QStringLiteral("D:0.20.01"), QStringLiteral("P:0.20.01.0F")});
    VERIFY_ONE_LINE_ERROR(result, 1, "not a memory code: P:0.20.01.0F");
    result = runTool({QStringLiteral("address")});
    VERIFY_ONE_LINE_ERROR(result, 2, "no code");
}

void tst_NvrTool::headerRoundTrip()
{
    QTemporaryDir dir;
    const QString raw = dir.filePath(QStringLiteral("header.bin"));
    const QString hex = dir.filePath(QStringLiteral("header.txt"));
    Result result = runTool({QStringLiteral("header"), QStringLiteral("encode"), QStringLiteral("--model"),
                             QStringLiteral("KV-37 PANEL"), QStringLiteral("--serial"), QStringLiteral("A1234567"),
                             QStringLiteral("--mod-status"), QStringLiteral("0x205"),
                             QStringLiteral("--build-configuration"), QStringLiteral("C"), QStringLiteral("-o"), raw});
    QCOMPARE(result.exitCode, 0);
    const QByteArray bytes = readFile(raw);
    QCOMPARE(bytes.size(), 56);
    ProductDataHeader header;
    QVERIFY(header.setData(bytes));
    QCOMPARE(header.productModel, QStringLiteral("KV-37 PANEL"));
    QCOMPARE(header.serialNumber, QStringLiteral("A1234567"));
    QCOMPARE(header.modStatus, 0x205u);
    // Written into its field, but a writer's version up to x.69 makes readers ignore it.
    QCOMPARE(bytes.mid(36, 4), QByteArray("C\0\0\0", 4));
    QCOMPARE(header.buildConfiguration, QStringLiteral("A"));
    QCOMPARE(header.headerCrc, header.calculatedHeaderCrc);
    QVERIFY(header.createdTime != 0);
    QCOMPARE(header.programTime, 0u);

    result = runTool({QStringLiteral("header"), QStringLiteral("decode"), raw});
    QCOMPARE(result.exitCode, 0);
    const QByteArray decoded = result.out;
    QVERIFY2(decoded.startsWith("Product Model: KV-37 PANEL\nSerial #: A1234567\nMod Status: 0x00000205 (1,3,10)\n"
                                "Build Configuration: A\n"),
             decoded);
    QVERIFY2(decoded.contains("Data Last Modified: none\n"), decoded);
    QVERIFY2(decoded.endsWith(QByteArray("Product Header Crc: ") +
                              QByteArray::number(header.headerCrc, 16).toUpper().rightJustified(8, '0').prepend("0x") +
                              " (matches)\n"),
             decoded);

    // Hex text from a file or from standard input decodes to the same fields.
    QVERIFY(writeFile(hex, bytes.toHex(' ') + '\n'));
    QCOMPARE(runTool({QStringLiteral("header"), QStringLiteral("decode"), hex}).out, decoded);
    QCOMPARE(runTool({QStringLiteral("header"), QStringLiteral("decode"), QStringLiteral("-")}, bytes).out, decoded);
    QCOMPARE(runTool({QStringLiteral("header"), QStringLiteral("decode"), QStringLiteral("-")}, bytes.toHex()).out,
             decoded);

    // The --hex form of encode is what decode reads back, programming time included.
    result = runTool({QStringLiteral("header"), QStringLiteral("encode"), QStringLiteral("--model"),
                      QStringLiteral("M"), QStringLiteral("--serial"), QStringLiteral("1"), QStringLiteral("--hex"),
                      QStringLiteral("--programmed"), QStringLiteral("--output"), hex});
    QCOMPARE(result.exitCode, 0);
    QVERIFY(readFile(hex).startsWith("4D 00 00"));
    result = runTool({QStringLiteral("header"), QStringLiteral("decode"), hex});
    QVERIFY2(result.out.contains("Build Configuration: A\n") && !result.out.contains("Modified: none"), result.out);

    // A changed model byte breaks the header CRC: reported, yet still decoded.
    QByteArray damaged = bytes;
    damaged[0] = 'X';
    QVERIFY(writeFile(raw, damaged));
    result = runTool({QStringLiteral("header"), QStringLiteral("decode"), raw});
    QCOMPARE(result.exitCode, 0);
    QVERIFY2(result.out.contains("Product Model: XV-37 PANEL\n"), result.out);
    QVERIFY2(result.out.contains(" (mismatch, calculated 0x"), result.out);

    result = runTool({QStringLiteral("header"), QStringLiteral("decode"), QStringLiteral("--html"), raw});
    QCOMPARE(result.exitCode, 0);
    QVERIFY(result.out.startsWith("<table"));
    QVERIFY(result.out.contains("<b>Product Model:</b></td><td>XV-37 PANEL</td>"));
    QVERIFY(result.out.contains("<span style='color:red'> [Calculated = 0x"));
}

void tst_NvrTool::headerErrors_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("input");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QByteArray>("needle");

    const QString decode = QStringLiteral("decode");
    const QString encode = QStringLiteral("encode");
    const QStringList valid = {encode, QStringLiteral("--model"), QStringLiteral("M"), QStringLiteral("--serial"),
                               QStringLiteral("1")};
    QTest::newRow("missing file") << QStringList{decode, QStringLiteral("@dir/none.bin")} << QByteArray() << 1
                                  << QByteArray("cannot read");
    QTest::newRow("short header") << QStringList{decode, QStringLiteral("-")} << QByteArray(55, '\x01') << 1
                                  << QByteArray("55 bytes, 56 needed");
    QTest::newRow("short hex text") << QStringList{decode, QStringLiteral("-")} << QByteArray("4D 00 00\n") << 1
                                    << QByteArray("3 bytes, 56 needed");
    QTest::newRow("empty input") << QStringList{decode, QStringLiteral("-")} << QByteArray() << 1
                                 << QByteArray("0 bytes");
    QTest::newRow("no file named") << QStringList{decode} << QByteArray() << 2 << QByteArray("one file");
    QTest::newRow("no action") << QStringList() << QByteArray() << 2 << QByteArray("decode or encode");
    QTest::newRow("unknown action") << QStringList{QStringLiteral("patch")} << QByteArray() << 2
                                    << QByteArray("patch");
    QTest::newRow("no output") << valid << QByteArray() << 2 << QByteArray("required");
    QTest::newRow("model too long") << QStringList{encode, QStringLiteral("--model"), QString(17, QLatin1Char('M')),
                                                   QStringLiteral("--serial"), QStringLiteral("1"),
                                                   QStringLiteral("-o"), QStringLiteral("@dir/h.bin")}
                                    << QByteArray() << 2 << QByteArray("model longer than 16");
    QTest::newRow("serial too long") << QStringList{encode, QStringLiteral("--model"), QStringLiteral("M"),
                                                    QStringLiteral("--serial"), QStringLiteral("123456789"),
                                                    QStringLiteral("-o"), QStringLiteral("@dir/h.bin")}
                                     << QByteArray() << 2 << QByteArray("serial longer than 8");
    QTest::newRow("bad mod status") << valid + QStringList{QStringLiteral("--mod-status"), QStringLiteral("0xZZ"),
                                                           QStringLiteral("-o"), QStringLiteral("@dir/h.bin")}
                                    << QByteArray() << 2 << QByteArray("not a number: 0xZZ");
    QTest::newRow("unwritable output") << valid + QStringList{QStringLiteral("-o"), QStringLiteral("@dir/file/h.bin")}
                                       << QByteArray() << 1 << QByteArray("cannot write");
}

void tst_NvrTool::headerErrors()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, input);
    QFETCH(int, exitCode);
    QFETCH(QByteArray, needle);
    QTemporaryDir dir;
    QVERIFY(writeFile(dir.filePath(QStringLiteral("file")), "a regular file, no folder"));
    arguments.replaceInStrings(QStringLiteral("@dir"), dir.path());
    const Result result = runTool(QStringList{QStringLiteral("header")} + arguments, input);
    VERIFY_ONE_LINE_ERROR(result, exitCode, needle);
    QVERIFY(!QFile::exists(dir.filePath(QStringLiteral("h.bin"))));
}

void tst_NvrTool::portsFollowTheLinks()
{
    QTemporaryDir dir;
    const QString data = makeAppDir(dir);
    QDir(dir.path()).mkpath(QStringLiteral("ports"));
    QVERIFY(QFile::link(QStringLiteral("/dev/ptmx"), dir.filePath(QStringLiteral("ports/COM12"))));
    QVERIFY(QFile::link(QStringLiteral("/dev/ptmx"), dir.filePath(QStringLiteral("ports/COM3"))));
    Result result = runTool({QStringLiteral("ports"), QStringLiteral("--data"), data});
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.out, QByteArray("3\tCOM3\n12\tCOM12\n"));

    result = runTool({QStringLiteral("ports"), QStringLiteral("extra"), QStringLiteral("--data"), data});
    VERIFY_ONE_LINE_ERROR(result, 2, "extra");
}

void tst_NvrTool::wavImport()
{
    QTemporaryDir dir;
    const QString data = makeAppDir(dir);
    const QString source = dir.filePath(QStringLiteral("tone.wav"));
    QProcess sox;
    sox.start(QStandardPaths::findExecutable(QStringLiteral("sox")),
              {QStringLiteral("-n"), QStringLiteral("-r"), QStringLiteral("44100"), QStringLiteral("-c"),
               QStringLiteral("2"), QStringLiteral("-b"), QStringLiteral("16"), source, QStringLiteral("synth"),
               QStringLiteral("0.5"), QStringLiteral("sine"), QStringLiteral("440")});
    QVERIFY(sox.waitForFinished(30000) && sox.exitCode() == 0);

    const QString converted = dir.filePath(QStringLiteral("out.kv37.wav"));
    Result result = runTool({QStringLiteral("wav"), QStringLiteral("import"), source, QStringLiteral("-o"),
                             dir.filePath(QStringLiteral("out.wav")), QStringLiteral("--data"), data});
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.out, converted.toUtf8() + '\n');
    Wav wav;
    QVERIFY(wav.readFile(converted));
    QCOMPARE(wav.format().channels, quint16(1));
    QCOMPARE(wav.format().sampleRate, quint32(22050));
    QCOMPARE(wav.format().bitsPerSample, quint16(16));
    const QByteArray plain = readFile(converted);

    // The device form rewrites every sample: same size, other bytes.
    result = runTool({QStringLiteral("wav"), QStringLiteral("import"), source, QStringLiteral("--device-format"),
                      QStringLiteral("-o"), dir.filePath(QStringLiteral("device")), QStringLiteral("--data"), data});
    QCOMPARE(result.exitCode, 0);
    const QByteArray device = readFile(dir.filePath(QStringLiteral("device.kv37.wav")));
    QCOMPARE(device.size(), plain.size());
    QVERIFY(device != plain);

    // Without SoX the file is taken as it is: still two channels at 44.1 kHz.
    result = runTool({QStringLiteral("wav"), QStringLiteral("import"), source, QStringLiteral("--no-sox"),
                      QStringLiteral("-o"), dir.filePath(QStringLiteral("copy.wav")), QStringLiteral("--data"), data});
    QCOMPARE(result.exitCode, 0);
    QVERIFY(wav.readFile(dir.filePath(QStringLiteral("copy.kv37.wav"))));
    QCOMPARE(wav.format().channels, quint16(2));
    QCOMPARE(wav.format().sampleRate, quint32(44100));

    const QString text = dir.filePath(QStringLiteral("notes.txt"));
    QVERIFY(writeFile(text, "no sound in here\n"));
    QVERIFY(writeFile(dir.filePath(QStringLiteral("file")), "a regular file, no folder"));
    const QString out = dir.filePath(QStringLiteral("x.wav"));
    const QString wavCommand = QStringLiteral("wav");
    const QString import = QStringLiteral("import");
    const QString dataOption = QStringLiteral("--data");
    result = runTool({wavCommand, import, dir.filePath(QStringLiteral("none.wav")), QStringLiteral("-o"), out,
                      dataOption, data});
    VERIFY_ONE_LINE_ERROR(result, 1, "no such file");
    result = runTool({wavCommand, import, text, QStringLiteral("-o"), out, dataOption, data});
    VERIFY_ONE_LINE_ERROR(result, 1, "cannot import");
    result = runTool({wavCommand, import, text, QStringLiteral("--no-sox"), QStringLiteral("-o"), out, dataOption, data});
    VERIFY_ONE_LINE_ERROR(result, 1, "cannot import");
    result = runTool({wavCommand, import, source, QStringLiteral("-o"), dir.filePath(QStringLiteral("file/x.wav")),
                      dataOption, data});
    VERIFY_ONE_LINE_ERROR(result, 1, "cannot write");
    result = runTool({wavCommand, import, source, dataOption, data});
    VERIFY_ONE_LINE_ERROR(result, 2, "--output");
    result = runTool({wavCommand, QStringLiteral("export"), source, QStringLiteral("-o"), out, dataOption, data});
    VERIFY_ONE_LINE_ERROR(result, 2, "import IN");
    QVERIFY(!QFile::exists(dir.filePath(QStringLiteral("x.kv37.wav"))));
}

void tst_NvrTool::libraryExport()
{
    QTemporaryDir dir;
    const QString data = makeAppDir(dir);
    const QByteArray csv = "Id,Name,Company,Model,Vrms,Note\n"
                           "3,Factory,Acme,Box 1,0.5,\"loud, clear\"\n"
                           "200,Mine,Own,Say hi,0.7,\n";
    QVERIFY(writeFile(data + QLatin1String("/bluetoothdevices.csv"), csv));
    QVERIFY(writeFile(data + QLatin1String("/products.dat"),
                      R"({"kvlproducts": {"products": [{"productNumber": "11-100", "startBuildConfigRev": "A",
                          "endBuildConfigRev": "C", "hardwareConfiguration": "2"}]}})"));

    const QString lib = QStringLiteral("lib");
    const QString exportAction = QStringLiteral("export");
    const QString dataOption = QStringLiteral("--data");
    Result result = runTool({lib, exportAction, QStringLiteral("bluetoothdevices"), dataOption, data});
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.out, csv);

    result = runTool({lib, exportAction, QStringLiteral("bluetoothdevices"), QStringLiteral("--format"),
                      QStringLiteral("json"), dataOption, data});
    QCOMPARE(result.exitCode, 0);
    const QJsonArray rows = QJsonDocument::fromJson(result.out).array();
    QCOMPARE(rows.size(), 2);
    QCOMPARE(rows.at(1).toObject().value(QLatin1String("Id")).toString(), QStringLiteral("200"));
    QCOMPARE(rows.at(0).toObject().value(QLatin1String("Note")).toString(), QStringLiteral("loud, clear"));

    // The products file is found from the working directory, which the tool moves to the data's parent.
    result = runTool({lib, exportAction, QStringLiteral("products"), dataOption, data});
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.out, QByteArray("Product Number,Starting Build Config Rev,Ending Build Config Rev,"
                                    "Hardware Configuration\n11-100,A,C,2\n"));

    // Without radio files the library starts from its default table.
    result = runTool({lib, exportAction, QStringLiteral("radios"), dataOption, data});
    QCOMPARE(result.exitCode, 0);
    QVERIFY2(result.out.startsWith("Id,Manufacturer,Model,"), result.out);
    QVERIFY2(result.out.contains("\n0,Radio Not Installed,"), result.out);

    // Headsets are rebuilt from their factory table; legends read their file.
    result = runTool({lib, exportAction, QStringLiteral("headsets"), dataOption, data});
    QCOMPARE(result.exitCode, 0);
    QVERIFY2(result.out.startsWith("Id,Manufacturer,Model,"), result.out);
    QVERIFY2(result.out.contains("\n1,Default Headset,"), result.out);
    QVERIFY(writeFile(data + QLatin1String("/legendsconvert.dat"), "[LegendsConvert]\ncount=1\n0=COM1, COM 1\n"));
    result = runTool({lib, exportAction, QStringLiteral("legendsconvert"), QStringLiteral("--format"),
                      QStringLiteral("json"), dataOption, data});
    QCOMPARE(result.exitCode, 0);
    QVERIFY2(result.out.contains("\"COM 1\""), result.out);

    result = runTool({lib, exportAction, QStringLiteral("headphones"), dataOption, data});
    VERIFY_ONE_LINE_ERROR(result, 1, "unknown library: headphones");
    result = runTool({lib, exportAction, QStringLiteral("radios"), QStringLiteral("--format"), QStringLiteral("xml"),
                      dataOption, data});
    VERIFY_ONE_LINE_ERROR(result, 2, "unknown format: xml");
    result = runTool({lib, QStringLiteral("import"), QStringLiteral("radios"), dataOption, data});
    VERIFY_ONE_LINE_ERROR(result, 2, "export NAME");
    result = runTool({lib, exportAction, QStringLiteral("radios"), dataOption, dir.filePath(QStringLiteral("gone"))});
    VERIFY_ONE_LINE_ERROR(result, 1, "no data directory");
}

void tst_NvrTool::lookupNearestEntry()
{
    QTemporaryDir dir;
    const QString table = dir.filePath(QStringLiteral("levels.ini"));
    QVERIFY(writeFile(table, "[volume]\ncount=4\n0=Off,00\n1=5,0A\n2=10,114\n3=20,1E\ndefault=Off\n"));
    const QString lookup = QStringLiteral("lookup");
    const QString group = QStringLiteral("volume");

    // Nearest by magnitude, the lower one on a tie; only the code's low byte counts.
    const struct {
        const char *value;
        QByteArray line;
    } rows[] = {{"5", "1\t5\t0A\n"}, {"7", "1\t5\t0A\n"}, {"7.5", "1\t5\t0A\n"}, {"8", "2\t10\t14\n"},
                {"99", "3\t20\t1E\n"}};
    for (const auto &row : rows) {
        const Result result = runTool({lookup, table, group, QString::fromLatin1(row.value)});
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(result.out, row.line);
    }

    Result result = runTool({lookup, dir.filePath(QStringLiteral("none.ini")), group, QStringLiteral("1")});
    VERIFY_ONE_LINE_ERROR(result, 1, "no such file");
    result = runTool({lookup, table, QStringLiteral("balance"), QStringLiteral("1")});
    VERIFY_ONE_LINE_ERROR(result, 1, "no entries in group balance");
    result = runTool({lookup, table, group, QStringLiteral("loud")});
    VERIFY_ONE_LINE_ERROR(result, 2, "not a number: loud");
    result = runTool({lookup, table, group});
    VERIFY_ONE_LINE_ERROR(result, 2, "FILE GROUP VALUE");
}

QTEST_GUILESS_MAIN(tst_NvrTool)
#include "tst_nvrtool.moc"
