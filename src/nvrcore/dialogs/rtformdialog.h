// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_RTFORMDIALOG_H
#define NVR_RTFORMDIALOG_H

#include "nvrcore_export.h"

#include "kvbaseformdialog.h"

#include <QMetaObject>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;

/**
 * The form for one radio record of the RtsTableModel (or a proxy of it).
 *
 * It accepts only a receive level of 1.0 to 10.0 V, a transmit level of
 * 0.01 to 1.0 V (the hint says 0.1, as users have always been told), a
 * manufacturer, and a manufacturer and model that no other record has.
 * Changing the type or the include-in-receivers box writes the record at
 * once, so that the model's type rules (which also set the include flag)
 * show while the form is open. Fields whose cells the model holds
 * read-only (base records, levels a type has no use for) cannot be edited.
 */
class NVRCORE_EXPORT RtFormDialog : public KvBaseFormDialog
{
    Q_OBJECT
public:
    explicit RtFormDialog(QWidget *parent = nullptr);
    ~RtFormDialog() override;

    bool isValid() const override;
    void setModelIndex(const QModelIndex &index, KvCore::EditTypes editType = KvCore::EditRecord) override;
    /// The model row the form edits; -1 before setModelIndex().
    int row() const;

protected:
    void connectSignals() override;

private:
    void commitNow();
    void updateEditable();

    QComboBox *m_type;
    QLineEdit *m_manufacturer;
    QLineEdit *m_model;
    QCheckBox *m_includeInRxList;
    QLineEdit *m_rxLevel;
    QLineEdit *m_rxDescription;
    QLineEdit *m_txLevel;
    QLineEdit *m_txDescription;
    QLabel *m_rxMessage;
    QLabel *m_txMessage;
    QLabel *m_duplicate;
    int m_row = -1;
    bool m_committing = false;
    QMetaObject::Connection m_modelConnection;
};

#endif
