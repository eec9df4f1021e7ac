// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_FUZZSUPPORT_H
#define NVR_FUZZSUPPORT_H

#include <QByteArray>
#include <QString>
#include <QVector>

#include <cstddef>
#include <cstdint>

/**
 * What every fuzz harness needs before its first input: one offscreen
 * QApplication (wait cursors and message boxes need one), an application
 * directory of its own in a temporary folder with empty data folders, and
 * the library's singletons created there. Logging stays without appenders,
 * so records are dropped instead of flooding the fuzzer's output.
 *
 * The folder is in memory when the system has /dev/shm: most harnesses
 * write one or two files per input, and a disk's truncate and write-back
 * would otherwise cost more than the parsing.
 */
class FuzzSupport
{
public:
    /// Sets everything up on the first call; later calls do nothing.
    static void init();
    /// A path inside the harness's application directory.
    static QString filePath(const QString &relative);
    /// Replaces the file at path with bytes.
    static void writeFile(const QString &path, const QByteArray &bytes);
    static QByteArray bytes(const uint8_t *data, size_t size);
    /**
     * The rows (or columns) from first to end - 1 that a harness reads cell
     * by cell: the first and the last few dozen. A loader may build hundreds
     * of empty rows, and reading each of them again would only repeat the
     * same code.
     */
    static QVector<int> sampleRows(int first, int end);
    /**
     * Whether the INI file at path declares more records under key (as
     * "Group/count") than a harness loads. Beyond what an input's bytes can
     * hold, a bigger count only makes a loader build or look up empty
     * records, at a cost that grows with the count; the loaders' cap on
     * huge counts has unit tests. The file is still parsed here, so every
     * input goes through the INI reader.
     */
    static bool declaresTooMany(const QString &path, const QString &key);
};

#endif
