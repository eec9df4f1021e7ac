// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef KV_KVINIFILE_H
#define KV_KVINIFILE_H

#include "kvcore_export.h"

#include <QHash>
#include <QSettings>
#include <QString>

#include <memory>

class QTemporaryFile;

/**
 * An INI file as users bring it from Windows, read and written the same way
 * by Qt 5 and Qt 6 builds: Qt's own escapes, UTF-8 with or without a
 * byte-order mark, Windows-1252 bytes that are not valid UTF-8, CRLF line
 * ends, and group and key names in any letter case (the Windows settings
 * class ignores case, so files made there may spell "[rts]" or "COUNT=").
 * Whatever it read, it writes UTF-8 without a byte-order mark.
 *
 * Every INI reader and writer of the program goes through this class, so
 * that no library handles encodings or letter case on its own. Reading never
 * changes the file: a file that QSettings cannot read as it stands (a
 * byte-order mark, Windows-1252 text) is read from a UTF-8 copy in the
 * system's temporary folder. Opening for writing converts such a file in
 * place first, so the values the writer leaves alone keep their text.
 */
class KVCORE_EXPORT KvIniFile
{
public:
    enum Mode { Read, Write };

    explicit KvIniFile(const QString &fileName, Mode mode = Read);
    ~KvIniFile();
    KvIniFile(const KvIniFile &) = delete;
    KvIniFile &operator=(const KvIniFile &) = delete;

    QSettings &settings() { return *m_settings; }
    const QSettings &settings() const { return *m_settings; }
    QSettings::Status status() const { return m_settings->status(); }

    /// Enters the top-level group spelled in any letter case (the file's spelling wins).
    void beginGroup(const QString &name);
    void endGroup();
    /// Removes the top-level group in every spelling, so that a rewrite leaves one.
    void removeGroup(const QString &name);

    /// Keys of the current group looked up without regard to letter case.
    QVariant value(const QString &key, const QVariant &defaultValue = QVariant()) const;
    bool contains(const QString &key) const;

    /// The name of the top-level group as the file spells it, in any letter case; name when absent.
    static QString groupSpelling(const QSettings &settings, const QString &name);
    /// Makes QSettings of either Qt version read and write UTF-8 (for settings classes of their own).
    static void useUtf8(QSettings &settings);
    /// The bytes as Windows-1252 text, each undefined byte as the control character of its value.
    static QString fromWindows1252(const QByteArray &bytes);
    /// The file's text as QSettings must see it in UTF-8; false when it can stand as it is.
    static bool needsConversion(const QByteArray &bytes, QByteArray &utf8);

private:
    QString actualKey(const QString &key) const;

    std::unique_ptr<QTemporaryFile> m_copy;
    std::unique_ptr<QSettings> m_settings;
    QHash<QString, QString> m_keys; // lower case -> the file's spelling, in the current group
};

#endif
