// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "numberdelegate.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QToolTip>

NumberDelegate::NumberDelegate(double minimum, double maximum, bool whole, QObject *parent)
    : QStyledItemDelegate(parent), m_minimum(minimum), m_maximum(maximum), m_whole(whole)
{
}

NumberDelegate::~NumberDelegate() = default;

QString NumberDelegate::refusal(const QString &text, const QModelIndex &index) const
{
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty())
        return QString();
    bool ok = false;
    const double value = m_whole ? trimmed.toInt(&ok) : trimmed.toDouble(&ok);
    if (ok && value >= m_minimum && value <= m_maximum)
        return QString();
    const QString field = index.model() ? index.model()->headerData(index.column(), Qt::Horizontal).toString() : QString();
    const QString range = (m_whole ? tr("a whole number from %1 to %2") : tr("a number from %1 to %2"))
                              .arg(QLocale::c().toString(m_minimum), QLocale::c().toString(m_maximum));
    return tr("%1: \"%2\" is not %3").arg(field, trimmed, range);
}

void NumberDelegate::setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const
{
    auto *edit = qobject_cast<QLineEdit *>(editor);
    if (edit && !refusal(edit->text(), index).isEmpty())
        return;
    if (edit)
        model->setData(index, edit->text().trimmed(), Qt::EditRole);
    else
        QStyledItemDelegate::setModelData(editor, model, index);
}

bool NumberDelegate::eventFilter(QObject *object, QEvent *event)
{
    auto *edit = qobject_cast<QLineEdit *>(object);
    auto *view = edit ? qobject_cast<QAbstractItemView *>(parent()) : nullptr;
    if (!view)
        return QStyledItemDelegate::eventFilter(object, event);
    const QModelIndex index = view->currentIndex();
    const bool leaving = event->type() == QEvent::FocusOut;
    bool ending = false;
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        ending = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Tab || key == Qt::Key_Backtab;
    }
    if (!ending && !leaving)
        return QStyledItemDelegate::eventFilter(object, event);
    const QString note = refusal(edit->text(), index);
    if (note.isEmpty())
        return QStyledItemDelegate::eventFilter(object, event);
    if (leaving) {
        // Gone elsewhere: the cell keeps its value rather than taking what was refused.
        Q_EMIT closeEditor(edit, NoHint);
        return false;
    }
    edit->setToolTip(note);
    QToolTip::showText(edit->mapToGlobal(QPoint(0, edit->height())), note, edit);
    return true;
}
