// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "recordhistory.h"

#include "logger.h"

#include <QAbstractButton>
#include <QPushButton>
#include <QAbstractItemModel>
#include <QApplication>
#include <QEvent>
#include <QMessageBox>
#include <QTimer>
#include <QUndoCommand>
#include <QUndoStack>

#include <algorithm>

namespace {
/// While it lives, answers the library's message boxes itself and keeps what they said.
class MessageCatcher : public QObject
{
public:
    MessageCatcher() { qApp->installEventFilter(this); }
    ~MessageCatcher() override { qApp->removeEventFilter(this); }

    /// What the boxes said since the last call, and forgets it.
    QString take()
    {
        const QString text = m_messages.join(QLatin1Char(' '));
        m_messages.clear();
        return text;
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        auto *box = qobject_cast<QMessageBox *>(watched);
        if (box && event->type() == QEvent::Show && box->isModal()) {
            QString text = box->text();
            if (!box->informativeText().isEmpty())
                text += QLatin1Char(' ') + box->informativeText();
            m_messages.append(text.replace(QLatin1Char('\n'), QLatin1Char(' ')));
            QTimer::singleShot(0, box, [box] {
                QAbstractButton *answer = box->defaultButton();
                if (!answer && !box->buttons().isEmpty())
                    answer = box->buttons().constFirst();
                if (answer)
                    answer->click();
                else
                    box->done(0);
            });
        }
        return false;
    }

private:
    QStringList m_messages;
};

bool sameValue(const QVariant &left, const QVariant &right)
{
    return left.toString() == right.toString();
}
}

/// One step: rows that changed from one set of values to another (empty values: no such row).
class RecordHistory::Command : public QUndoCommand
{
public:
    struct Change
    {
        Values before;
        Values after;
        int row = -1;
    };

    Command(RecordHistory *history, const QString &text, const QList<Change> &changes)
        : QUndoCommand(text), m_history(history), m_changes(changes)
    {
    }

    void undo() override
    {
        for (int i = m_changes.size() - 1; i >= 0; --i) {
            Change &change = m_changes[i];
            if (!m_history->apply(change.after, change.before, change.row))
                LOG_WARNING(QStringLiteral("Undo of '%1' could not restore row %2").arg(text()).arg(change.row));
        }
        Q_EMIT m_history->changed();
    }

    void redo() override
    {
        // The changes were made before the step was recorded.
        if (m_done) {
            m_done = false;
            return;
        }
        for (Change &change : m_changes) {
            if (!m_history->apply(change.before, change.after, change.row))
                LOG_WARNING(QStringLiteral("Redo of '%1' could not restore row %2").arg(text()).arg(change.row));
        }
        Q_EMIT m_history->changed();
    }

private:
    RecordHistory *m_history;
    QList<Change> m_changes;
    bool m_done = true;
};

RecordHistory::RecordHistory(QUndoStack *stack, QObject *parent) : QObject(parent), m_stack(stack)
{
}

RecordHistory::~RecordHistory() = default;

void RecordHistory::setModel(QAbstractItemModel *model)
{
    if (model == m_model)
        return;
    m_model = model;
    m_stack->clear();
}

RecordHistory::Values RecordHistory::rowValues(int row) const
{
    Values values;
    if (!m_model || row < 0 || row >= m_model->rowCount())
        return values;
    for (int column = 0; column < m_model->columnCount(); ++column)
        values.append(m_model->index(row, column).data(Qt::EditRole));
    return values;
}

int RecordHistory::findRow(const Values &values, int hint) const
{
    if (!m_model || m_keyColumn >= values.size())
        return -1;
    const QVariant key = values.at(m_keyColumn);
    const auto matches = [&](int row) { return sameValue(m_model->index(row, m_keyColumn).data(Qt::EditRole), key); };
    if (hint >= 0 && hint < m_model->rowCount() && matches(hint))
        return hint;
    for (int row = 0; row < m_model->rowCount(); ++row) {
        if (matches(row))
            return row;
    }
    return -1;
}

void RecordHistory::recordEdit(const QString &text, int row, const Values &before)
{
    const Values after = rowValues(row);
    if (after.isEmpty() || before.size() != after.size()
        || std::equal(before.cbegin(), before.cend(), after.cbegin(), sameValue))
        return;
    m_stack->push(new Command(this, text, {{before, after, row}}));
}

void RecordHistory::recordInserted(const QString &text, const QList<int> &rows)
{
    QList<Command::Change> changes;
    for (int row : rows)
        changes.append({Values(), rowValues(row), row});
    if (!changes.isEmpty())
        m_stack->push(new Command(this, text, changes));
}

bool RecordHistory::removeRecords(const QString &text, const QList<int> &rows)
{
    if (!m_model)
        return false;
    QList<int> ordered = rows;
    // From the bottom up, so that the rows still to go keep their numbers; undone the other way round.
    std::sort(ordered.begin(), ordered.end(), std::greater<int>());
    ordered.erase(std::unique(ordered.begin(), ordered.end()), ordered.end());
    QList<Command::Change> changes;
    bool removedAll = true;
    for (int row : qAsConst(ordered)) {
        const Values before = rowValues(row);
        if (before.isEmpty() || !m_model->removeRows(row, 1)) {
            removedAll = false;
            break;
        }
        changes.append({before, Values(), row});
    }
    if (!changes.isEmpty())
        m_stack->push(new Command(this, text, changes));
    return removedAll;
}

QList<RecordHistory::Refusal> RecordHistory::appendRecords(const std::function<QString(int)> &text,
                                                           const QList<QStringList> &records,
                                                           const QList<int> &columns,
                                                           const std::function<QString(int)> &check)
{
    QList<Refusal> refusals;
    if (!m_model)
        return refusals;
    MessageCatcher messages;
    QList<Command::Change> changes;
    for (int line = 0; line < records.size(); ++line) {
        const QStringList &cells = records.at(line);
        const int row = insertRow(m_model->rowCount());
        if (row < 0) {
            refusals.append({line, messages.take()});
            continue;
        }
        Values values = rowValues(row);
        QList<int> given;
        for (int i = 0; i < columns.size() && i < cells.size(); ++i) {
            const int column = columns.at(i);
            if (column >= 0 && column < values.size()) {
                values[column] = cells.at(i);
                given.append(column);
            }
        }
        std::sort(given.begin(), given.end());
        const bool taken = setRow(row, values, given);
        QString reason = taken ? QString() : messages.take();
        if (taken && check)
            reason = check(row);
        if (!taken || !reason.isEmpty()) {
            m_model->removeRows(row, 1);
            messages.take();
            refusals.append({line, reason});
            continue;
        }
        changes.append({Values(), rowValues(row), row});
    }
    if (!changes.isEmpty())
        m_stack->push(new Command(this, text(changes.size()), changes));
    return refusals;
}

bool RecordHistory::apply(const Values &from, const Values &to, int &row)
{
    if (!m_model)
        return false;
    if (from.isEmpty()) {
        row = insertRow(row);
        return row >= 0 && setRow(row, to);
    }
    const int found = findRow(from, row);
    if (found < 0)
        return false;
    row = found;
    if (to.isEmpty())
        return m_model->removeRows(row, 1);
    return setRow(row, to);
}

int RecordHistory::insertRow(int row)
{
    // Some libraries append wherever asked: the row is the one the model announces.
    int inserted = -1;
    const QMetaObject::Connection connection =
        connect(m_model, &QAbstractItemModel::rowsInserted, this,
                [&inserted](const QModelIndex &, int first, int) { inserted = first; });
    const bool ok = m_model->insertRows(qBound(0, row, m_model->rowCount()), 1);
    disconnect(connection);
    return ok ? inserted : -1;
}

bool RecordHistory::setRow(int row, const Values &values, const QList<int> &columns)
{
    QList<int> order = columns;
    if (order.isEmpty()) {
        for (int column = 0; column < values.size(); ++column)
            order.append(column);
    }
    const bool restoring = columns.isEmpty();
    bool ok = true;
    for (int column : qAsConst(order)) {
        const QModelIndex index = m_model->index(row, column);
        if (column >= values.size() || sameValue(index.data(Qt::EditRole), values.at(column)))
            continue;
        // Typed-in records only fill what a user could type; restoring brings back every cell.
        if (!restoring && !(m_model->flags(index) & Qt::ItemIsEditable))
            continue;
        if (!m_model->setData(index, values.at(column), Qt::EditRole)) {
            ok = false;
            if (!restoring)
                break;
        }
    }
    return ok;
}
