// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "classes/soxprocess.h"
#include "logcapture.h"
#include "testappdir.h"
#include "wav.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>

class tst_SoxProcess : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void exec_data();
    void exec();
    void outputArrivesWhileRunning();
    void timeoutStopsTheProgram();
    void commands_data();
    void commands();
    void metadata();

private:
    QTemporaryDir m_dir;
    QString m_stereo; // 3 s, 2 channels, 44100 Hz, 16 bits, in a folder with blanks
};

void tst_SoxProcess::initTestCase()
{
    TestAppDir::prepare();
    QVERIFY(m_dir.isValid());
    QVERIFY(QDir(m_dir.path()).mkpath(QStringLiteral("with blanks")));
    m_stereo = m_dir.filePath(QStringLiteral("with blanks/in put.wav"));
    QCOMPARE(QProcess::execute(TestAppDir::filePath(QStringLiteral("bin/sox.exe")),
                               {QStringLiteral("-n"), QStringLiteral("-r"), QStringLiteral("44100"),
                                QStringLiteral("-b"), QStringLiteral("16"), QStringLiteral("-c"), QStringLiteral("2"),
                                m_stereo, QStringLiteral("synth"), QStringLiteral("3"), QStringLiteral("sine"),
                                QStringLiteral("440")}),
             0);
}

void tst_SoxProcess::cleanupTestCase()
{
    TestAppDir::cleanup();
}

void tst_SoxProcess::exec_data()
{
    QTest::addColumn<QString>("commandLine");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<QByteArray>("output");
    QTest::addColumn<QString>("error"); // the start of the one error record, if any

    QTest::newRow("exit code 0") << QStringLiteral("true") << true << QByteArray() << QString();
    QTest::newRow("quoted blanks stay one argument")
        << QStringLiteral("printf \"%s|\" \"a b\" c") << true << QByteArray("a b|c|") << QString();
    QTest::newRow("exit code 3, error output logged")
        << QStringLiteral("sh -c \"echo partial; echo broken >&2; exit 3\"") << false << QByteArray("partial\n")
        << QStringLiteral("sh returned 3: broken");
    QTest::newRow("crash") << QStringLiteral("sh -c \"kill -SEGV $$\"") << false << QByteArray()
                           << QStringLiteral("sh crashed");
    QTest::newRow("missing program") << QStringLiteral("\"/nonexistent/no such tool\" -x") << false << QByteArray()
                                     << QStringLiteral("Could not start /nonexistent/no such tool: ");
    QTest::newRow("empty line") << QStringLiteral("  ") << false << QByteArray()
                                << QStringLiteral("Empty command line");
}

void tst_SoxProcess::exec()
{
    QFETCH(QString, commandLine);
    QFETCH(bool, ok);
    QFETCH(QByteArray, output);
    QFETCH(QString, error);

    LogCapture log;
    KvProcess process;
    QCOMPARE(process.exec(commandLine), ok);
    QCOMPARE(process.commandLine(), commandLine);
    QCOMPARE(process.state(), QProcess::NotRunning);
    QCOMPARE(process.isOpen() ? process.readAllStandardOutput() : QByteArray(), output);
    const QStringList errors = log.messages(LogRecord::Error);
    if (error.isEmpty()) {
        QCOMPARE(errors, QStringList());
    } else {
        QCOMPARE(errors.size(), 1);
        QVERIFY2(errors.first().startsWith(error), qPrintable(errors.first()));
        QCOMPARE(log.records().first().file, QStringLiteral("src/kvcore/kvprocess"));
    }
}

void tst_SoxProcess::outputArrivesWhileRunning()
{
    KvProcess process;
    QList<QPair<QByteArray, QProcess::ProcessState>> pieces;
    connect(&process, &QProcess::readyReadStandardOutput, this,
            [&] { pieces.append({process.readAllStandardOutput(), process.state()}); });
    QVERIFY(process.exec(QStringLiteral("sh -c \"echo first; sleep 1; echo second\"")));
    QVERIFY(pieces.size() >= 2);
    QCOMPARE(pieces.first().first, QByteArray("first\n"));
    QCOMPARE(pieces.first().second, QProcess::Running);
}

void tst_SoxProcess::timeoutStopsTheProgram()
{
    LogCapture log;
    KvProcess process;
    QCOMPARE(process.timeoutMs(), 30000);
    process.setTimeoutMs(300);
    QElapsedTimer timer;
    timer.start();
    QVERIFY(!process.exec(QStringLiteral("sleep 20")));
    QVERIFY(timer.elapsed() >= 300);
    QVERIFY2(timer.elapsed() < 10000, "the program was not stopped at the time-out");
    QCOMPARE(process.state(), QProcess::NotRunning);
    QCOMPARE(log.messages(LogRecord::Error), {QStringLiteral("sleep did not end within 300 ms and was stopped")});
}

void tst_SoxProcess::commands_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QString>("arguments"); // after the quoted tool path
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("bits");
    QTest::addColumn<qint64>("durationMs");

    // Rates and bit sizes differ between rows so that a swapped -b and -r shows.
    QTest::newRow("resample") << QStringLiteral("resample") << QStringLiteral("\"IN\" -c 1 -b 8 -r 16000 -t wav -D \"OUT\"")
                              << 1 << 16000 << 8 << qint64(3000);
    QTest::newRow("resample and cut") << QStringLiteral("resample and cut")
                                      << QStringLiteral("\"IN\" -c 1 -b 16 -r 22050 -t wav \"OUT\" -D trim 0 2") << 1
                                      << 22050 << 16 << qint64(2000);
    QTest::newRow("trim") << QStringLiteral("trim") << QStringLiteral("-t wav \"IN\" -t wav \"OUT\" -D trim 0 1") << 2
                          << 44100 << 16 << qint64(1000);
}

void tst_SoxProcess::commands()
{
    QFETCH(QString, operation);
    QFETCH(QString, arguments);
    QFETCH(int, channels);
    QFETCH(int, rate);
    QFETCH(int, bits);
    QFETCH(qint64, durationMs);

    const QString out = m_dir.filePath(QStringLiteral("with blanks/out %1.wav").arg(QTest::currentDataTag()));
    SoxProcess sox;
    QCOMPARE(sox.exe(), TestAppDir::path() + QStringLiteral("/bin/sox.exe"));
    bool ok = false;
    if (operation == QLatin1String("resample"))
        ok = sox.resample(m_stereo, out, 1, 16000, 8);
    else if (operation == QLatin1String("resample and cut"))
        ok = sox.resample(m_stereo, out, 1, 22050, 16, 2);
    else
        ok = sox.trim(m_stereo, out, 1);
    QCOMPARE(sox.commandLine(), QStringLiteral("\"%1\" ").arg(sox.exe())
                                    + QString(arguments).replace(QLatin1String("IN"), m_stereo)
                                          .replace(QLatin1String("OUT"), out));
    QVERIFY(ok);

    Wav result;
    QVERIFY(result.readFile(out));
    QCOMPARE(int(result.format().channels), channels);
    QCOMPARE(int(result.format().sampleRate), rate);
    QCOMPARE(int(result.format().bitsPerSample), bits);
    QCOMPARE(result.durationMs(), durationMs);
}

void tst_SoxProcess::metadata()
{
    LogCapture log;
    SoxProcess sox;
    const QString description = sox.metadata(m_stereo);
    QVERIFY2(description.contains(QLatin1String("Channels       : 2")), qPrintable(description));
    QVERIFY(description.contains(QLatin1String("Sample Rate    : 44100")));
    QCOMPARE(sox.commandLine(), QStringLiteral("\"%1\" --i \"%2\"").arg(sox.exe(), m_stereo));

    const QList<LogRecord> traces = log.records();
    QVERIFY(!traces.isEmpty());
    QString logged;
    for (const LogRecord &record : traces) {
        QCOMPARE(record.level, LogRecord::Trace);
        QCOMPARE(record.file, QStringLiteral("src/nvrcore/classes/soxprocess"));
        QCOMPARE(record.function, QStringLiteral("void SoxProcess::readFromStdOutput()"));
        QVERIFY(record.message.startsWith(QLatin1String("StdOutput: ")));
        logged += record.message.mid(11);
    }
    QCOMPARE(logged, description);

    // A failed run describes nothing, whatever an earlier run left behind.
    const QString notAudio = m_dir.filePath(QStringLiteral("notes.wav"));
    QFile file(notAudio);
    QVERIFY(file.open(QFile::WriteOnly));
    file.write("not a sound\n");
    file.close();
    QCOMPARE(sox.metadata(notAudio), QString());
    QCOMPARE(sox.stdOutput(), QString());
}

QTEST_GUILESS_MAIN(tst_SoxProcess)
#include "tst_soxprocess.moc"
