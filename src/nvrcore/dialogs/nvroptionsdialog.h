// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_NVROPTIONSDIALOG_H
#define NVR_NVROPTIONSDIALOG_H

#include "kvbaseformdialog.h"

class QSpinBox;
class QTextEdit;

/**
 * The application options dialog: the product configuration COM port (1 to
 * 255) and the product control COM port (0 to 255, 0 = none), both wrapping,
 * above a list of the COM ports present right now. OK stays disabled while
 * both ports are the same. The caller sets and reads the spin boxes.
 */
class NvrOptionsDialog : public KvBaseFormDialog
{
    Q_OBJECT
public:
    explicit NvrOptionsDialog(QWidget *parent = nullptr);
    ~NvrOptionsDialog() override;

    QSpinBox *comPortSpinBox() const;
    QSpinBox *comPort2SpinBox() const;

    bool isValid() const override;

protected:
    void connectSignals() override;

private:
    QSpinBox *m_comPortSpinBox = nullptr;
    QSpinBox *m_comPort2SpinBox = nullptr;
};

#endif
