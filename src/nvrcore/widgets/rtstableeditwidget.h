// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_RTSTABLEEDITWIDGET_H
#define NVR_RTSTABLEEDITWIDGET_H

#include "nvrcore_export.h"

#include "kvcore.h"
#include "widgets/tableeditwidget.h"

class RtsTableView;

/**
 * The radio library editor: the RtsTableModel singleton (loaded through
 * RtsFile on construction) in an RtsTableView named "radiosTableView3",
 * with a new button and an edit button. Both open an RtFormDialog; every
 * accepted form saves both radio files at once and shows "Radios Data
 * Saved" for a moment. A new record whose form is cancelled is removed
 * again. Changes to the model mark the radio files modified.
 *
 * beforeEditRecord() and afterEditRecord() run around every form, for
 * subclasses that must react to an edit.
 */
class NVRCORE_EXPORT RtsTableEditWidget : public TableEditWidget
{
    Q_OBJECT
public:
    explicit RtsTableEditWidget(QWidget *parent = nullptr);
    ~RtsTableEditWidget() override;

    RtsTableView *rtsTableView() const;
    /// Opens the form on index (of the RtsTableModel); true when it was accepted.
    bool editRecord(const QModelIndex &index, const KvCore::EditTypes &editType);

public Q_SLOTS:
    void newClicked() override;
    void editClicked() override;
    void submitClicked() override;
    void enableSubmit() override;

protected:
    virtual void beforeEditRecord(const QModelIndex &index, const KvCore::EditTypes &editType);
    virtual void afterEditRecord(const QModelIndex &index, const KvCore::EditTypes &editType, bool accepted);

private:
    RtsTableView *m_view;
};

#endif
