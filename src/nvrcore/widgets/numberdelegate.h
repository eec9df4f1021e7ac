// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_NUMBERDELEGATE_H
#define NVR_NUMBERDELEGATE_H

#include "nvrcore_export.h"

#include <QStyledItemDelegate>

/**
 * Edits a number column of a library in place and refuses, where it is
 * typed, what is not a number within the column's range: Enter or Tab
 * then keep the editor open and a note under it names the column and the
 * range ("MIC Output: a number from 0.001 to 100"). Leaving the cell with
 * such a text drops the edit. An empty cell is allowed (the libraries keep
 * levels that are not known as empty cells).
 */
class NVRCORE_EXPORT NumberDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    NumberDelegate(double minimum, double maximum, bool whole, QObject *parent = nullptr);
    ~NumberDelegate() override;

    /// The note for text typed into index's column, or an empty text when it is accepted.
    QString refusal(const QString &text, const QModelIndex &index) const;

    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    double m_minimum;
    double m_maximum;
    bool m_whole;
};

#endif
