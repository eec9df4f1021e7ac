// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "kvinifile.h"

#include <QFile>
#include <QSaveFile>
#include <QTemporaryFile>

namespace {

const QByteArray byteOrderMark("\xEF\xBB\xBF");

// Windows-1252 differs from Latin-1 only in 0x80-0x9F; its five undefined bytes keep their value.
const char16_t windows1252High[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

}

QString KvIniFile::groupSpelling(const QSettings &settings, const QString &name)
{
    const QStringList groups = settings.childGroups();
    if (groups.contains(name))
        return name;
    for (const QString &group : groups) {
        if (group.compare(name, Qt::CaseInsensitive) == 0)
            return group;
    }
    return name;
}

KvIniFile::KvIniFile(const QString &fileName, Mode mode)
{
    QString path = fileName;
    QFile file(fileName);
    QByteArray utf8;
    if (file.open(QIODevice::ReadOnly) && needsConversion(file.readAll(), utf8)) {
        file.close();
        if (mode == Write) {
            QSaveFile converted(fileName);
            if (converted.open(QIODevice::WriteOnly) && converted.write(utf8) == utf8.size())
                converted.commit();
        } else {
            m_copy = std::make_unique<QTemporaryFile>();
            if (m_copy->open() && m_copy->write(utf8) == utf8.size() && m_copy->flush())
                path = m_copy->fileName();
        }
    }
    m_settings = std::make_unique<QSettings>(path, QSettings::IniFormat);
    useUtf8(*m_settings);
}

KvIniFile::~KvIniFile()
{
    // QSettings writes on destruction; it must be done before its copy goes.
    m_settings.reset();
}

void KvIniFile::beginGroup(const QString &name)
{
    m_settings->beginGroup(groupSpelling(*m_settings, name));
    m_keys.clear();
    const QStringList keys = m_settings->childKeys();
    for (const QString &key : keys)
        m_keys.insert(key.toLower(), key);
}

void KvIniFile::endGroup()
{
    m_settings->endGroup();
    m_keys.clear();
}

void KvIniFile::removeGroup(const QString &name)
{
    const QStringList groups = m_settings->childGroups();
    for (const QString &group : groups) {
        if (group.compare(name, Qt::CaseInsensitive) == 0)
            m_settings->remove(group);
    }
}

QString KvIniFile::actualKey(const QString &key) const
{
    // The exact spelling first: a file from Windows may hold the same name twice in other cases.
    if (m_settings->group().isEmpty() || m_settings->contains(key))
        return key;
    return m_keys.value(key.toLower(), key);
}

QVariant KvIniFile::value(const QString &key, const QVariant &defaultValue) const
{
    return m_settings->value(actualKey(key), defaultValue);
}

bool KvIniFile::contains(const QString &key) const
{
    return m_settings->contains(actualKey(key));
}

void KvIniFile::useUtf8(QSettings &settings)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    settings.setIniCodec("UTF-8");
#else
    Q_UNUSED(settings) // Qt 6 reads and writes INI files as UTF-8 already.
#endif
}

QString KvIniFile::fromWindows1252(const QByteArray &bytes)
{
    QString text;
    text.reserve(bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<uchar>(c);
        text.append(byte >= 0x80 && byte < 0xA0 ? QChar(windows1252High[byte - 0x80]) : QChar(byte));
    }
    return text;
}

bool KvIniFile::needsConversion(const QByteArray &bytes, QByteArray &utf8)
{
    const bool marked = bytes.startsWith(byteOrderMark);
    const QByteArray body = marked ? bytes.mid(byteOrderMark.size()) : bytes;
    // Valid UTF-8 survives the round trip; anything else came from a Windows code page.
    const bool valid = QString::fromUtf8(body).toUtf8() == body;
    if (valid && !marked)
        return false;
    utf8 = valid ? body : fromWindows1252(body).toUtf8();
    return true;
}
