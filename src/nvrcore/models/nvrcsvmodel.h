// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_NVRCSVMODEL_H
#define NVR_NVRCSVMODEL_H

#include "csvmodel.h"

#include <QHash>

#include <functional>

/**
 * The common base of the equipment libraries kept as CSV files. Columns 0 to
 * 3 are the record id, a display name (shown as company and model), the
 * company and the model; company plus model is unique (case-sensitive).
 *
 * Ids below 200 are factory records, read-only unless editAll is set; user
 * records take the free ids from 200 to 255 (0 when all are taken), and the
 * library holds at most 256 rows. Accepted edits, insertions and removals
 * mark the model modified until submit() or revert(); askToSave() offers to
 * save. Refusals are shown in warning boxes and leave the table unchanged.
 *
 * A library configures itself in its constructor: how its further columns
 * are displayed (units, yes/no flags, list entries, summaries, columns that
 * only apply for one value of another column), the values a new record
 * starts with, and then openLibrary() with its file in the data directory.
 */
class NVRCORE_EXPORT NvrCsvModel : public CsvModel
{
    Q_OBJECT
public:
    explicit NvrCsvModel(QObject *parent = nullptr);
    ~NvrCsvModel() override;

    /// Lets factory records and the id column be edited; nothing in the library sets it.
    bool editAll = false;

    bool isModified() const { return m_modified; }

    int id(const QModelIndex &index) const;
    QString company(const QModelIndex &index) const;
    QString model(const QModelIndex &index) const;
    /// The column-0 index of the record with this id, or an invalid index.
    QModelIndex locate(const unsigned int &id) const;
    /// The column-2 index of the record with exactly this company and model, or an invalid index.
    QModelIndex locate(const QString &company, const QString &model) const;

    /**
     * Asks whether to save unsaved changes: true when there are none, when
     * saved, or when discarded (the edits then stay in memory); false on Cancel.
     */
    bool askToSave(const bool &canCancel);

    /**
     * Asked with the model before every save of any CSV library; a save it
     * refuses does not happen: submit() returns false and the changes stay.
     * None by default; a host sets it to question what the file cannot keep.
     */
    using SaveCheck = std::function<bool(NvrCsvModel *model)>;
    static void setSaveCheck(const SaveCheck &check);

    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    /// Appends one new record ("Company", "New Model", the next free user id); any other count is refused.
    bool insertRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;
    bool removeRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;

public Q_SLOTS:
    bool submit() override;
    void revert() override;

protected:
    /// Names the model (the save prompt shows the name) and loads <data directory>/fileName.
    void openLibrary(const QString &name, const QString &fileName);

    /// Shows the column's text in pattern ("%1 Vrms").
    void setUnitColumn(int column, const QString &pattern);
    /// Shows "Yes" for the value 1 and "No" otherwise.
    void setYesNoColumn(int column);
    /// Shows the entry the column's value indexes; values past the list show its last entry.
    void setListColumn(int column, const QStringList &entries);
    /// Shows pattern filled with company, model and the texts of the two columns.
    void setSummaryColumn(int column, const QString &pattern, int first, int second);
    /**
     * The column applies only while controlColumn holds value: otherwise it
     * is read-only and shows its plain text.
     */
    void setColumnCondition(int column, int controlColumn, int value);
    void setNewRecordValue(int column, const QVariant &value);

    /// The integer value of the row's cell in column (0 when not a number), capped at last.
    int listValue(const QModelIndex &index, int column, int last) const;

private:
    struct ColumnDisplay
    {
        enum Kind { Plain, Unit, YesNo, List, Summary } kind = Plain;
        QString pattern;
        QStringList entries;
        int first = -1;
        int second = -1;
        int controlColumn = -1;
        int controlValue = 0;
    };

    bool applies(const QModelIndex &index) const;
    QString displayText(const QModelIndex &index, const ColumnDisplay &display) const;
    QString cellText(const QModelIndex &index, int column) const;

    bool m_modified = false;
    QHash<int, ColumnDisplay> m_columns;
    QList<QPair<int, QVariant>> m_newRecordValues;
};

#endif
