// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_FUZZSUPPORT_H
#define NVR_FUZZSUPPORT_H

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <cstdint>

/**
 * What every fuzz harness needs before its first input: one offscreen
 * QApplication (wait cursors and message boxes need one), an application
 * directory of its own in a temporary folder with empty data folders, and
 * the library's singletons created there. Logging stays without appenders,
 * so records are dropped instead of flooding the fuzzer's output.
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
};

#endif
