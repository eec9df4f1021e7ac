// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_LOOKUPTABLE_H
#define NVR_LOOKUPTABLE_H

#include "nvrcore_export.h"

#include <QByteArray>
#include <QObject>
#include <QStringList>

/**
 * The display texts of a setting's one-byte codes, read from one group of
 * an INI file:
 *
 *     [group]
 *     count=3
 *     0=Off,00
 *     1=5,0A
 *     default=Off
 *
 * Entry i holds the display text (which cannot contain a comma) and the
 * code in hexadecimal, of which the low 8 bits count. An entry without both
 * items is skipped. displayValueIndex() snaps a number to the nearest entry.
 */
class NVRCORE_EXPORT LookUpTable : public QObject
{
    Q_OBJECT
public:
    explicit LookUpTable(const QString &fileName, const QString &group, QObject *parent = nullptr);
    ~LookUpTable() override;

    /// Copies the entries and the default, not the file name and group.
    LookUpTable &operator=(const LookUpTable &other);

    /// Reloads the table; a missing file leaves it empty and the default as it was.
    void readData();

    /**
     * The index of the entry whose display text, as a number (0 when it is
     * none), equals value; otherwise of the nearest entry by magnitude,
     * assuming ascending magnitudes, the lower one on a tie. A value beyond
     * the table gives the last index, and so does one below the first entry.
     * -1 for an empty table.
     */
    int displayValueIndex(const double &value) const;

    QStringList displayValues() const;
    QByteArray values() const;
    QString defaultValue() const;
    QString fileName() const;
    QString group() const;
    /// Free texts a host may attach to the entries; readData() leaves them alone.
    QStringList descriptions() const;
    void setDescriptions(const QStringList &descriptions);

private:
    QStringList m_displayValues;
    QByteArray m_values;
    QString m_defaultValue;
    QString m_fileName;
    QString m_group;
    QStringList m_descriptions;
};

#endif
