// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_PRODUCTFORMDIALOG_H
#define NVR_PRODUCTFORMDIALOG_H

#include "nvrcore_export.h"

#include "kvbaseformdialog.h"

class QLabel;
class QLineEdit;

/**
 * The form for one product configuration row of the ProductsModel (or a
 * proxy of it): product number, starting and ending revision (one capital
 * letter each) and hardware configuration (one digit, 1 to 9).
 *
 * It accepts a filled form whose range runs forwards and overlaps no
 * other range of the same product, and says why it refuses a range.
 * Created by name through the meta-type system, hence the invokable
 * constructor.
 */
class NVRCORE_EXPORT ProductFormDialog : public KvBaseFormDialog
{
    Q_OBJECT
public:
    Q_INVOKABLE explicit ProductFormDialog(QWidget *parent = nullptr);
    ~ProductFormDialog() override;

    bool isValid() const override;

protected:
    void connectSignals() override;

private:
    QLineEdit *m_product;
    QLineEdit *m_startRev;
    QLineEdit *m_endRev;
    QLineEdit *m_hardwareConfiguration;
    QLabel *m_message;
};

#endif
