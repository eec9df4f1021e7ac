// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_RECORDHISTORY_H
#define NVR_RECORDHISTORY_H

#include "nvrcore_export.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QVariant>

#include <functional>

class QAbstractItemModel;
class QUndoStack;

/**
 * Keeps the changes made to a library's table as undoable steps on a
 * QUndoStack. It knows nothing of a library: it works on any table model
 * through data(), setData(), insertRows() and removeRows(), so every rule
 * of the model still applies when a step is undone or redone.
 *
 * A record is found again by the value of its key column (the id, or the
 * embedded legend), the row it last had deciding between equal keys, so
 * records that sort, or that the model appends wherever asked, stay found.
 * Changes are made first and recorded after (record*()), since the model
 * may refuse them or complete them itself (a new id, a default type).
 *
 * appendRecords() adds records from text, each one the library checks as
 * if the user had typed it; a refused record is taken out again and its
 * reason (the library's own message) kept for the caller to show.
 */
class NVRCORE_EXPORT RecordHistory : public QObject
{
    Q_OBJECT
public:
    using Values = QVariantList;

    struct Refusal
    {
        int line = 0; ///< position of the record in the list given, from 0
        QString reason;
    };

    explicit RecordHistory(QUndoStack *stack, QObject *parent = nullptr);
    ~RecordHistory() override;

    QUndoStack *stack() const { return m_stack; }
    QAbstractItemModel *model() const { return m_model; }
    void setModel(QAbstractItemModel *model);
    int keyColumn() const { return m_keyColumn; }
    void setKeyColumn(int column) { m_keyColumn = column; }

    /// Every cell of the row (edit role), in column order.
    Values rowValues(int row) const;
    /// The row holding the key of values, preferring hint among equal keys; -1 when none does.
    int findRow(const Values &values, int hint = -1) const;

    /// The row changed from before to what it holds now; nothing is recorded when it did not change.
    void recordEdit(const QString &text, int row, const Values &before);
    /// The rows were added and hold what they will be restored to.
    void recordInserted(const QString &text, const QList<int> &rows);
    /// Removes the rows as one step; false when the model refused one (those before it stay removed, and recorded).
    bool removeRecords(const QString &text, const QList<int> &rows);
    /**
     * Appends one record per entry of records, setting the given columns
     * (cells past the end of an entry are left as the model makes them) in
     * column order. A record the model takes is then given to check, which
     * names what it refuses (empty: accepted). The records kept are one
     * step, named by text from their number; the rows refused are returned
     * with their reasons.
     */
    QList<Refusal> appendRecords(const std::function<QString(int kept)> &text, const QList<QStringList> &records,
                                 const QList<int> &columns, const std::function<QString(int row)> &check = {});

Q_SIGNALS:
    /// A step was undone or redone: the table changed.
    void changed();

private:
    class Command;
    friend class Command;
    /// Makes the row hold to (inserting it when from is empty, removing it when to is empty).
    bool apply(const Values &from, const Values &to, int &row);
    /// Inserts a row where the model puts it; its row, or -1.
    int insertRow(int row);
    /// Sets the cells of row that differ from values, in column order; false when one is refused.
    bool setRow(int row, const Values &values, const QList<int> &columns = {});

    QUndoStack *m_stack;
    QPointer<QAbstractItemModel> m_model;
    int m_keyColumn = 0;
};

#endif
