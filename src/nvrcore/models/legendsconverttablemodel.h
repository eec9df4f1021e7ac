// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_LEGENDSCONVERTTABLEMODEL_H
#define NVR_LEGENDSCONVERTTABLEMODEL_H

#include "nvrcore_export.h"

#include <QAbstractTableModel>
#include <QVector>

/**
 * The table that maps the short legends embedded in a panel's memory image
 * (four characters, padded on the right with blanks) to readable ones, so
 * that screens show the readable form and write back the embedded one.
 * Embedded legends are unique; converted legends are not checked. Texts
 * longer than four characters are kept whole, never cut.
 *
 * Kept in nevradat/legendsconvert.dat, an INI file with one group
 * "LegendsConvert". The constructor does not read it: call readData().
 * submit() overwrites the keys it writes without clearing the group, so a
 * shorter table leaves stale keys behind; reading stops at "count" and never
 * sees them. Edits mark the table modified until submit() or a new read.
 */
class NVRCORE_EXPORT LegendsConvertTableModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column { EmbeddedColumn, ConvertedColumn, ColumnCount };

    explicit LegendsConvertTableModel(QObject *parent = nullptr);
    ~LegendsConvertTableModel() override;

    QString fileName() const { return m_fileName; }
    bool isModified() const { return m_modified; }

    /// The row's embedded legend; four blanks for an invalid index.
    QString embeddedLegend(const QModelIndex &index) const;
    QString convertedLegend(const QModelIndex &index) const;
    /// The first row whose embedded legend is legend padded to four characters, or an invalid index.
    QModelIndex locateEmbeddedLegend(const QString &legend) const;
    QModelIndex locateConvertedLegend(const QString &legend) const;
    /// The readable form of an embedded legend; without one, the legend trimmed.
    QString convertFromEmbedded(const QString &legend) const;
    /// The embedded form of a readable legend; without one, the legend padded to four characters.
    QString convertToEmbedded(const QString &legend) const;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    bool insertRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;
    bool removeRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;

    void readData();
    /// Asks whether to save unsaved changes; false when the user cancels.
    bool askToSave(const bool &canCancel);

public Q_SLOTS:
    bool submit() override;
    /// Reads the file again, dropping unsaved changes.
    void revert() override;

private:
    struct LegendPair
    {
        QString embedded;
        QString converted;
    };

    QVector<LegendPair> m_pairs;
    QString m_fileName;
    bool m_modified = false;
};

#endif
