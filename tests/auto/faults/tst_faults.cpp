// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
//
// Real failures of the world around the library: folders that are files or
// have gone, a full disk, a serial peer that dies mid-transfer, a sound tool
// that is killed or never finishes. The tests run as root, so permissions
// cannot provoke these; each failure is made for real instead.
#include "classes/nvrwav.h"
#include "classes/productsfile.h"
#include "classes/rtsfile.h"
#include "classes/serialport.h"
#include "classes/soxprocess.h"
#include "fulldisk.h"
#include "logcapture.h"
#include "messageboxrecorder.h"
#include "models/audiosystemsmodel.h"
#include "models/headsetsmodel.h"
#include "models/legendsconverttablemodel.h"
#include "models/productsmodel.h"
#include "models/rtstablemodel.h"
#include "ptypair.h"
#include "testappdir.h"
#include "testfiles.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonObject>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <atomic>
#include <csignal>
#include <functional>
#include <thread>

#include <sys/stat.h>
#include <unistd.h>

namespace {
/// The ids of this process's children running the program named comm.
QList<pid_t> childPids(const QByteArray &comm)
{
    // Children forked by the main thread; reading one file keeps the poll
    // fast enough to catch a short-lived child, also under the sanitizers.
    QList<pid_t> pids;
    const QList<QByteArray> ids = TestFiles::read(QStringLiteral("/proc/%1/task/%1/children").arg(getpid())).split(' ');
    for (const QByteArray &id : ids) {
        const pid_t pid = id.toInt();
        if (pid > 0 && TestFiles::read(QStringLiteral("/proc/%1/comm").arg(pid)).trimmed() == comm)
            pids << pid;
    }

    return pids;
}
}

class tst_Faults : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { TestAppDir::prepare(); }

    void cleanupTestCase()
    {
        AudioSystemsModel::destroyInstance();
        RtsFile::destroyInstance();
        ProductsFile::destroyInstance();
        ProductsModel::destroyInstance();
        TestAppDir::cleanup();
    }

    void csvLibrarySavesSilently()
    {
        MessageBoxRecorder boxes;
        const QString path = dataPath(QStringLiteral("audiosystems.csv"));
        QVERIFY(TestFiles::write(path, "Id,Type,Company,Model,Mic,Level,Phones\n1,0,Acme,X1,0.5,1,1.0\n"));
        AudioSystemsModel *model = AudioSystemsModel::instance();
        QVERIFY(model->submit());
        const QByteArray saved = TestFiles::read(path);
        QVERIFY2(saved.contains("\"Acme\",\"X1\""), saved.constData());

        // Full disk: the write fails, the previous file stays whole.
        QVERIFY(model->setData(model->index(0, 3), QStringLiteral("Longer Model Name Than Before")));
        {
            FullDisk full(16);
            QVERIFY(model->submit());
        }
        QCOMPARE(TestFiles::read(path), saved);

        // A file where the data folder should be, then the folder gone altogether.
        withDataFolderAsFile([&] { QVERIFY(model->submit()); });
        QCOMPARE(TestFiles::read(path), saved);
        const QString folder = TestAppDir::filePath(QStringLiteral("nevradat"));
        QVERIFY(QDir(folder).removeRecursively());
        QVERIFY(model->submit());
        QVERIFY(!QFile::exists(path));
        QVERIFY(QDir().mkpath(folder));
        QCOMPARE(boxes.count(), 0);
        // The model is still usable: once the folder is back, saving works again.
        QVERIFY(model->submit());
        QVERIFY(TestFiles::read(path).contains("Longer Model Name Than Before"));
    }

    void productsSaveFailureIsShownAndKeepsTheFile()
    {
        MessageBoxRecorder boxes(QMessageBox::Ok);
        ProductsFile *file = ProductsFile::instance();
        ProductsModel *model = ProductsModel::instance();
        const QString path = QDir::current().filePath(QStringLiteral("nevradat/products.dat"));
        model->insertFromJsonArray(QJsonArray{QJsonObject{{"productNumber", "P1"}, {"startBuildConfigRev", "A"},
                                                          {"endBuildConfigRev", "C"}, {"hardwareConfiguration", 1}}});
        QVERIFY(file->saveToJsonFile(path, true));
        const QByteArray saved = TestFiles::read(path);
        QVERIFY(saved.contains("P1"));
        QCOMPARE(boxes.count(), 0);

        model->insertFromJsonArray(QJsonArray{QJsonObject{{"productNumber", "P2"}}});
        {
            FullDisk full(16);
            QVERIFY(!file->saveToJsonFile(path, true));
        }
        QCOMPARE(TestFiles::read(path), saved);
        QCOMPARE(boxes.count(), 1);
        QCOMPARE(boxes.last().title, QStringLiteral("Error Saving File"));
        QVERIFY2(boxes.last().text.startsWith(QStringLiteral("Unable to save '%1'.\n").arg(path)),
                 qPrintable(boxes.last().text));

        withDataFolderAsFile([&] {
            QVERIFY(!file->saveToJsonFile(path, true));
            QCOMPARE(boxes.count(), 2);
            // Without showErrors, the same failure stays silent.
            QVERIFY(!file->saveToJsonFile(path, false));
            QCOMPARE(boxes.count(), 2);
        });
        QCOMPARE(TestFiles::read(path), saved);
    }

    void radioFilesSaveSilentlyAndKeepTheirFiles()
    {
        MessageBoxRecorder boxes;
        RtsFile *file = RtsFile::instance();
        RtsTableModel *model = RtsTableModel::instance();
        file->appendNew(200, QStringLiteral("Acme"), QStringLiteral("VHF-1"), Rt::RtType(1), QStringLiteral("1.00"),
                        QString(), QStringLiteral("0.100"), QString(), 0);
        QVERIFY(file->saveFiles());
        const QByteArray base = TestFiles::read(file->baseFileName());
        const QByteArray user = TestFiles::read(file->userFileName());
        QVERIFY(user.contains("Acme"));

        // Write failures are not checked, yet they must not cost the files on disk.
        file->appendNew(201, QStringLiteral("Acme"), QStringLiteral("HF-2"), Rt::RtType(2), QStringLiteral("1.00"),
                        QString(), QStringLiteral("0.100"), QString(), 0);
        file->setModified(true);
        {
            FullDisk full(16);
            QVERIFY(file->saveFiles());
            QVERIFY(file->saveBaseFile());
        }
        QCOMPARE(TestFiles::read(file->userFileName()), user);
        QCOMPARE(TestFiles::read(file->baseFileName()), base);

        withDataFolderAsFile([&] {
            QVERIFY(file->saveFiles());
            QVERIFY(file->saveBaseFile());
        });
        QCOMPARE(TestFiles::read(file->userFileName()), user);
        QCOMPARE(boxes.count(), 0);
        QVERIFY(model->rowCount() > 0);
    }

    void headsetsAndLegendsSaveSilentlyAndKeepTheirFiles()
    {
        MessageBoxRecorder boxes;
        HeadSetsModel headsets;
        headsets.readData();
        LegendsConvertTableModel legends;
        legends.readData();
        QVERIFY(headsets.insertRows(headsets.rowCount(), 1));
        QVERIFY(legends.insertRows(0, 1));
        QVERIFY(legends.setData(legends.index(0, 0), QStringLiteral("AB")));
        const auto saveBoth = [&] {
            QVERIFY(headsets.submitAll());
            QVERIFY(legends.submit());
        };
        saveBoth();
        const QStringList paths{headsets.baseFileName(), headsets.userFileName(), legends.fileName()};
        QList<QByteArray> saved;
        for (const QString &path : paths)
            saved << TestFiles::read(path);
        QVERIFY(saved.at(1).contains("New Headset"));
        QVERIFY(saved.at(2).contains("AB"));

        const int newRow = headsets.rowCount() - 1;
        QVERIFY(headsets.setData(headsets.index(newRow, HeadSetsModel::ModelColumn), QStringLiteral("Renamed")));
        QVERIFY(legends.setData(legends.index(0, 1), QStringLiteral("Alpha Bravo")));
        {
            FullDisk full(16);
            saveBoth();
        }
        withDataFolderAsFile(saveBoth);
        for (int i = 0; i < paths.size(); ++i)
            QCOMPARE(TestFiles::read(paths.at(i)), saved.at(i));
        QCOMPARE(boxes.count(), 0);
        // Nothing was lost in memory: once the disk takes it, the edit is written.
        saveBoth();
        QVERIFY(TestFiles::read(headsets.userFileName()).contains("Renamed"));
        QVERIFY(TestFiles::read(legends.fileName()).contains("Alpha Bravo"));
    }

    void serialLineLosesItsPeer()
    {
        LogCapture log;
        SerialPort port;
        QSignalSpy timeouts(&port, &SerialPort::readtimeout);
        QSignalSpy received(&port, &SerialPort::dataReceived);
        QSignalSpy lost(&port, &SerialPort::connectionLost);
        {
            PtyPair pair;
            START_PAIR(pair);
            QVERIFY(port.open(pair.portA(), 9600, 0, 8, 1, SerialPort::Asynchronous));
            // The peer takes the question and dies before it answers: the response
            // timer still ends the exchange, once.
            QElapsedTimer clock;
            clock.start();
            QCOMPARE(port.writeBuffer("Q", 500), 1);
            QCOMPARE(pair.peerRead(1), QByteArray("Q"));
            pair.stop();
            QVERIFY(timeouts.wait(5000));
            QVERIFY(clock.elapsed() >= 450);
            QCOMPARE(received.count(), 0);
            // The loss was noticed by itself: the port is closed and the next write sends nothing.
            QTRY_COMPARE(lost.count(), 1);
            QVERIFY(!port.isOpen());
            QVERIFY(port.writeBuffer(QByteArray(4096, 'x'), 0) < 4096);
            QCOMPARE(port.readBuffer(1, 10, 50), QByteArray());
        }
        QTest::qWait(100);
        QCOMPARE(timeouts.count(), 1);

        // The port is not left half open: it closes and opens again on a live line.
        port.close();
        QVERIFY(!port.isOpen());
        PtyPair fresh;
        START_PAIR(fresh);
        QVERIFY(port.open(fresh.portA(), 9600, 0, 8, 1, SerialPort::Synchronous));
        QCOMPARE(port.writeBuffer("ok", 0), 2);
        QCOMPARE(fresh.peerRead(2), QByteArray("ok"));
        QVERIFY(fresh.peerWrite("back"));
        QCOMPARE(port.readBuffer(4, 20, 2000), QByteArray("back"));
    }

    void soxKilledOrHanging()
    {
        QTemporaryDir dir;
        const QString source = dir.filePath(QStringLiteral("long source.wav"));
        {
            SoxProcess maker;
            QVERIFY(maker.exec(QStringLiteral("\"%1\" -n -r 44100 -b 16 -c 2 \"%2\" synth 120 sine 440")
                                   .arg(maker.exe(), source)));
        }
        const QByteArray original = TestFiles::read(source);
        QVERIFY(original.size() > 1000000);

        // Killed mid-conversion: the import fails at once and the source is as it was.
        {
            LogCapture log;
            NvrWav wav;
            wav.setTrimSeconds(120); // the whole source, so that SoX runs long enough to be caught
            // The import blocks this thread, so another one kills SoX once it runs.
            std::atomic_bool killed{false};
            std::thread killer([&killed] {
                QElapsedTimer clock;
                clock.start();
                while (!killed && clock.elapsed() < 20000) {
                    const QList<pid_t> pids = childPids("sox.exe");
                    killed = !pids.isEmpty() && ::kill(pids.first(), SIGKILL) == 0;
                    std::this_thread::yield();
                }
            });
            QElapsedTimer clock;
            clock.start();
            const bool imported = wav.importFile(source);
            killer.join();
            QVERIFY(killed);
            QVERIFY(!imported);
            QVERIFY2(clock.elapsed() < 15000, qPrintable(QString::number(clock.elapsed())));
            QVERIFY2(log.messages(LogRecord::Error).join(QLatin1Char('\n')).contains(QLatin1String("crashed")),
                     qPrintable(log.messages().join(QLatin1Char('\n'))));
            QCOMPARE(TestFiles::read(source), original);
            QCOMPARE(wav.rawData(), QByteArray());
        }

        // Hanging: a source that never delivers its bytes (a pipe nobody writes
        // into) holds SoX until the import's time-out, which stops it.
        const QString pipe = dir.filePath(QStringLiteral("stalled.wav"));
        QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        {
            LogCapture log;
            NvrWav wav;
            QElapsedTimer clock;
            clock.start();
            QVERIFY(!wav.importFile(pipe));
            QVERIFY2(clock.elapsed() >= KvProcess::DefaultTimeoutMs - 100
                         && clock.elapsed() < 4 * KvProcess::DefaultTimeoutMs,
                     qPrintable(QString::number(clock.elapsed())));
            QVERIFY2(log.messages(LogRecord::Error).join(QLatin1Char('\n')).contains(QLatin1String("was stopped")),
                     qPrintable(log.messages().join(QLatin1Char('\n'))));
            QVERIFY(childPids("sox.exe").isEmpty());
        }
    }

private:
    QString dataPath(const QString &name) const { return TestAppDir::filePath(QStringLiteral("nevradat/") + name); }
    /// Puts a regular file where the data folder should be, runs fn, then brings the folder back.
    void withDataFolderAsFile(const std::function<void()> &fn)
    {
        const QString folder = TestAppDir::filePath(QStringLiteral("nevradat"));
        const QString aside = TestAppDir::filePath(QStringLiteral("nevradat.aside"));
        QDir(aside).removeRecursively();
        QVERIFY(QDir().rename(folder, aside));
        QVERIFY(TestFiles::write(folder, "not a folder"));
        fn();
        QVERIFY(QFile::remove(folder));
        QVERIFY(QDir().rename(aside, folder));
    }
};

QTEST_MAIN(tst_Faults)
#include "tst_faults.moc"
