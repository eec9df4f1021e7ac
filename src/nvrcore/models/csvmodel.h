// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_CSVMODEL_H
#define NVR_CSVMODEL_H

#include "nvrcore_export.h"

#include <QAbstractTableModel>
#include <QStringList>

class QIODevice;

/**
 * An editable, flat table over a comma-separated text file, held whole in
 * memory. Each row is one string whose cells are joined by U+0001; a row may
 * hold fewer cells than the table has columns (its missing cells read empty).
 *
 * Reading: one line per row, CR and LF dropped, UTF-8 up to a NUL byte.
 * Double quotes toggle quoting anywhere in a cell and are dropped, except
 * right after a backslash (then both stay); doubled quotes are not an escape
 * and quoted line breaks are not supported. Blank lines become rows of empty
 * cells; the column count is the widest line's.
 *
 * Writing: every cell between double quotes, exactly columnCount() cells a
 * line, Latin-1, LF line ends. Quotes inside cells are not escaped, so only
 * plain ASCII text without quotes survives a round trip unchanged.
 *
 * submit() saves to and revert() reloads from the file last given by name,
 * always with a header line and the comma, whatever the model was loaded
 * with. Failures to read or write are not reported (submit() still returns
 * true); reading what cannot be opened gives an empty table. revert() resets
 * the model. Removing columns keeps the reported column count (the freed
 * columns read empty until the next load).
 */
class NVRCORE_EXPORT CsvModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    explicit CsvModel(QObject *parent = nullptr);
    explicit CsvModel(QIODevice *source, QObject *parent = nullptr, bool withHeader = true,
                      QChar separator = QLatin1Char(','));
    explicit CsvModel(const QString &fileName, QObject *parent = nullptr, bool withHeader = true,
                      QChar separator = QLatin1Char(','));
    ~CsvModel() override;

    /// Replaces the table; emits no reset, so a caller showing it in a view must tell the view.
    void setSource(QIODevice *source, bool withHeader = true, QChar separator = QLatin1Char(','));
    /// As above, and remembers fileName for submit() and revert().
    void setSource(const QString &fileName, bool withHeader = true, QChar separator = QLatin1Char(','));
    void toCSV(QIODevice *target, bool withHeader = true, QChar separator = QLatin1Char(','));
    /**
     * Writes through a temporary file that replaces fileName only once it is
     * complete, so a failed write leaves the previous file as it was. Does not
     * change the remembered file name.
     */
    void toCSV(const QString &fileName, bool withHeader = true, QChar separator = QLatin1Char(','));

    QString fileName() const { return m_fileName; }

    using QAbstractTableModel::setHeaderData;
    /**
     * Emits headerDataChanged(Qt::Horizontal, 0, titles.size()), one past the
     * last title, also when the titles are unchanged; the column count stays.
     */
    void setHeaderData(const QStringList &titles);

    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool insertRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;
    bool insertColumns(int column, int count, const QModelIndex &parent = QModelIndex()) override;
    bool removeRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;
    bool removeColumns(int column, int count, const QModelIndex &parent = QModelIndex()) override;

public Q_SLOTS:
    bool submit() override;
    void revert() override;

private:
    bool write(QIODevice *target, bool withHeader, QChar separator);

    QStringList m_rows;
    QStringList m_header;
    int m_columnCount = 0;
    QString m_fileName;
};

#endif
