// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_RTSTABLEEDITWIDGET_H
#define NVR_RTSTABLEEDITWIDGET_H

#include "nvrcore_export.h"

#include "kvcore.h"
#include "widgets/tableeditwidget.h"

#include <QVariant>

class RtsTableView;

/**
 * The radio library editor: the RtsTableModel singleton (loaded through
 * RtsFile on construction) in an RtsTableView named "radiosTableView3",
 * with a new button and an edit button. Both open an RtFormDialog; every
 * accepted form saves both radio files at once and shows "Radios Data
 * Saved" for a moment. A new record whose form is cancelled is removed
 * again. Changes to the model mark the radio files modified.
 *
 * Copy opens the form on a copy of the current radio (with an id of its
 * own); delete removes the selected user radios. Both save at once, as
 * does every undo and redo step.
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
    void copyClicked() override;
    void removeClicked() override;
    void removeSelectedRecords() override;
    void submitClicked() override;
    void enableSubmit() override;

protected:
    virtual void beforeEditRecord(const QModelIndex &index, const KvCore::EditTypes &editType);
    virtual void afterEditRecord(const QModelIndex &index, const KvCore::EditTypes &editType, bool accepted);
    void historyStepApplied() override;
    void recordsPasted() override;

private:
    void saveIfChanged(int stepBefore);

    RtsTableView *m_view;
    QVariantList m_formBefore;
};

#endif
