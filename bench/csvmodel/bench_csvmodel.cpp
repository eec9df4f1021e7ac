// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
//
// Loads a generated 100,000-row, 14-column CSV file with CsvModel and reads
// every cell as a view would; prints the figures beside the time to merely
// read the bytes and Python's csv.reader over the same file.
#include "bestseconds.h"
#include "models/csvmodel.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>

namespace {
constexpr int Rows = 100000;
constexpr int Columns = 14;
constexpr int Repeats = 7;

QByteArray generate()
{
    QByteArray out = "\"Id\",\"Name\",\"Company\",\"Model\",\"MicOut\",\"MicConn\",\"PhonesIn\",\"PhonesConn\","
                     "\"Level3\",\"Note3\",\"Level4\",\"Note4\",\"Flag\",\"Summary\"\n";
    out.reserve(11 * 1000 * 1000);
    for (int r = 0; r < Rows; ++r) {
        const QByteArray n = QByteArray::number(r);
        out += "\"" + n + "\",\"\",\"Maker " + QByteArray::number(r % 97) + "\",\"Model " + n + "\",\"0.775\","
               "\"XLR\",\"1.25\",\"TRS, 1/4\",\"0.5\",\"-\",\"2\",\"note " + n + "\",\"" + QByteArray::number(r % 2)
               + "\",\"\"\n";
    }
    return out;
}

/// A field of /proc/self/status in kB ("VmRSS", "VmHWM"); -1 when unknown.
qint64 statusKb(const char *field)
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QFile::ReadOnly))
        return -1;
    const QByteArray prefix = QByteArray(field) + ':';
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith(prefix))
            return line.mid(prefix.size()).trimmed().split(' ').value(0).toLongLong();
    }
    return -1;
}

/// Resets the peak resident size to the current one (Linux 4.0 and later).
bool resetPeak()
{
    QFile clear(QStringLiteral("/proc/self/clear_refs"));
    return clear.open(QFile::WriteOnly) && clear.write("5") == 1;
}

/// Python's csv.reader over the file, best of Repeats: rows kept in a list like the model keeps them, or only walked.
double pythonSeconds(const QString &path, bool keepRows)
{
    const QString script = QStringLiteral(
        "import csv, sys, time\n"
        "best = 1e9\n"
        "for _ in range(int(sys.argv[2])):\n"
        "    t = time.perf_counter()\n"
        "    with open(sys.argv[1], newline='', encoding='utf-8') as f:\n"
        "        rows = list(csv.reader(f)) if sys.argv[3] == 'keep' else sum(1 for _ in csv.reader(f))\n"
        "    best = min(best, time.perf_counter() - t)\n"
        "print(best)\n");
    QProcess python;
    python.start(QStringLiteral("python3"), {QStringLiteral("-c"), script, path, QString::number(Repeats),
                                              keepRows ? QStringLiteral("keep") : QStringLiteral("walk")});
    if (!python.waitForFinished(300000) || python.exitCode() != 0)
        return -1;
    return python.readAllStandardOutput().trimmed().toDouble();
}
}

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QTextStream out(stdout);
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("bench.csv"));
    {
        QFile file(path);
        if (!file.open(QFile::WriteOnly) || file.write(generate()) < 0) {
            out << "cannot write " << path << Qt::endl;
            return 1;
        }
    }
    const double mb = QFile(path).size() / 1e6;
    out << "file: " << Rows << " rows x " << Columns << " columns, " << QString::number(mb, 'f', 2) << " MB\n";

    // Memory first, in a process that has not loaded the table yet.
    const qint64 before = statusKb("VmRSS");
    const bool peakReset = resetPeak();
    auto *model = new CsvModel(path);
    const qint64 peak = statusKb("VmHWM");
    const qint64 loaded = statusKb("VmRSS");
    out << "memory: resident after load +" << (loaded - before) / 1024 << " MB, peak during load +"
        << (peakReset ? QString::number((peak - before) / 1024) : QStringLiteral("?")) << " MB (before: "
        << before / 1024 << " MB)\n";

    const double read = bestSeconds(Repeats, [&] {
        QFile file(path);
        file.open(QFile::ReadOnly);
        volatile int size = file.readAll().size();
        Q_UNUSED(size)
    });
    const double load = bestSeconds(Repeats, [&] { model->setSource(path); });
    out << "read bytes only:     " << QString::number(read * 1000, 'f', 1) << " ms, "
        << QString::number(mb / read, 'f', 0) << " MB/s\n";
    out << "CsvModel::setSource: " << QString::number(load * 1000, 'f', 1) << " ms, "
        << QString::number(mb / load, 'f', 0) << " MB/s (" << model->rowCount() << " rows, "
        << model->columnCount() << " columns)\n";
    out.flush();

    const double walked = pythonSeconds(path, false);
    const double kept = pythonSeconds(path, true);
    if (walked > 0 && kept > 0) {
        out << "python csv.reader, rows only walked:  " << QString::number(walked * 1000, 'f', 1) << " ms, "
            << QString::number(mb / walked, 'f', 0) << " MB/s\n";
        out << "python csv.reader, rows kept in list: " << QString::number(kept * 1000, 'f', 1) << " ms, "
            << QString::number(mb / kept, 'f', 0) << " MB/s\n";
        out << "setSource is " << QString::number(walked / load, 'f', 1) << " times as fast as csv.reader walking ("
            << QString::number(kept / load, 'f', 1) << " times against keeping the rows)\n";
    } else {
        out << "python csv.reader: not run (python3 missing or failed)\n";
    }

    qint64 characters = 0;
    const double cells = bestSeconds(Repeats, [&] {
        for (int r = 0; r < model->rowCount(); ++r) {
            for (int c = 0; c < model->columnCount(); ++c)
                characters += model->data(model->index(r, c), Qt::DisplayRole).toString().size();
        }
    });
    const double count = double(model->rowCount()) * model->columnCount();
    out << "display reads:       " << QString::number(cells * 1000, 'f', 1) << " ms for " << qint64(count)
        << " cells, " << QString::number(count / cells / 1e6, 'f', 2) << " million cells/s\n";
    delete model;
    return characters > 0 ? 0 : 1;
}
