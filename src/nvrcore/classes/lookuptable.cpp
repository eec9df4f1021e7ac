// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "lookuptable.h"

#include "kvfileutils.h"
#include "kvinifile.h"
#include "logger.h"

#include <QSettings>

#include <algorithm>
#include <cmath>

LookUpTable::LookUpTable(const QString &fileName, const QString &group, QObject *parent)
    : QObject(parent), m_fileName(fileName), m_group(group)
{
}

LookUpTable::~LookUpTable() = default;

LookUpTable &LookUpTable::operator=(const LookUpTable &other)
{
    m_displayValues = other.m_displayValues;
    m_values = other.m_values;
    m_defaultValue = other.m_defaultValue;
    return *this;
}

void LookUpTable::readData()
{
    m_displayValues.clear();
    m_values.clear();
    if (!KvFileUtils::fileExists(m_fileName)) {
        LOG_ERROR(m_fileName + QLatin1String(" does not exist."));
        return;
    }
    KvIniFile file(m_fileName);
    file.beginGroup(m_group);
    const QSettings &settings = file.settings();
    const int count = file.value(QStringLiteral("count")).toInt();
    // The count and the key numbers come from the file: only the entries
    // present are read, so that a huge count or one entry numbered in the
    // billions does not walk billions of keys that are not there.
    QList<int> present;
    const QStringList keys = settings.childKeys();
    for (const QString &key : keys) {
        bool isNumber = false;
        const int i = key.toInt(&isNumber);
        if (isNumber && i >= 0 && i < count && key == QString::number(i))
            present.append(i);
    }
    std::sort(present.begin(), present.end());
    const int end = present.isEmpty() ? 0 : present.last() + 1;
    if (end < count) {
        LOG_ERROR(QStringLiteral("%1 [%2]: count is %3, but entries end at %4; the rest skipped.")
                      .arg(m_fileName, m_group)
                      .arg(count)
                      .arg(end));
    }
    const QString skipped = QStringLiteral("%1 [%2] %3: an entry needs a display text and a code; skipped.");
    int expected = 0;
    for (const int i : std::as_const(present)) {
        if (i == expected + 1)
            LOG_ERROR(skipped.arg(m_fileName, m_group, QString::number(expected)));
        else if (i > expected)
            LOG_ERROR(QStringLiteral("%1 [%2] %3 to %4: no entries; skipped.")
                          .arg(m_fileName, m_group)
                          .arg(expected)
                          .arg(i - 1));
        expected = i + 1;
        const QStringList items = settings.value(QString::number(i)).toStringList();
        if (items.size() < 2) {
            // A lone text would need a made-up code; better no entry than a wrong one.
            LOG_ERROR(skipped.arg(m_fileName, m_group, QString::number(i)));
            continue;
        }
        m_displayValues.append(items.at(0));
        m_values.append(static_cast<char>(items.at(1).toUInt(nullptr, 16) & 0xFF));
    }
    m_defaultValue = file.value(QStringLiteral("default")).toString();
    file.endGroup();
}

int LookUpTable::displayValueIndex(const double &value) const
{
    const int n = m_displayValues.size();
    if (n == 0)
        return -1;
    QVector<double> x(n);
    for (int i = 0; i < n; ++i)
        x[i] = m_displayValues.at(i).toDouble();

    for (int i = 0; i < n; ++i) {
        if (x.at(i) == value)
            return i;
    }

    const double magnitude = std::fabs(value);
    int above = 0;
    while (above < n && std::fabs(x.at(above)) <= magnitude)
        ++above;
    // Deliberately the last index for a value below the whole table as well, not the first.
    if (above == n || above == 0)
        return n - 1;
    const double below = magnitude - std::fabs(x.at(above - 1));
    const double over = std::fabs(x.at(above)) - magnitude;
    return below > over ? above : above - 1;
}

QStringList LookUpTable::displayValues() const
{
    return m_displayValues;
}

QByteArray LookUpTable::values() const
{
    return m_values;
}

QString LookUpTable::defaultValue() const
{
    return m_defaultValue;
}

QString LookUpTable::fileName() const
{
    return m_fileName;
}

QString LookUpTable::group() const
{
    return m_group;
}

QStringList LookUpTable::descriptions() const
{
    return m_descriptions;
}

void LookUpTable::setDescriptions(const QStringList &descriptions)
{
    m_descriptions = descriptions;
}
