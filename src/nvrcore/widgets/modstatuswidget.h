// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_MODSTATUSWIDGET_H
#define NVR_MODSTATUSWIDGET_H

#include "nvrcore_export.h"

#include <QFrame>
#include <QList>

class QCheckBox;

/**
 * Shows and edits a product's modification status: ten check boxes "1" to
 * "10", box k standing for bit k of the word. Bits 10 to 31 are neither
 * shown nor kept. modStatusChanged() follows the user's clicks only, never
 * setModStatus().
 */
class NVRCORE_EXPORT ModStatusWidget : public QFrame
{
    Q_OBJECT
public:
    explicit ModStatusWidget(QWidget *parent = nullptr);
    ~ModStatusWidget() override;

    void setModStatus(const uint &status);
    uint modStatus() const;

    /**
     * The applied mods in bold, separated by commas without blanks
     * ("<b>1</b>,<b>3</b>"); "None" for 0, and the empty text when only
     * bits above 9 are set.
     */
    static QString modStatusString(const uint &status);

Q_SIGNALS:
    void modStatusChanged(uint status);

public Q_SLOTS:
    void cbClicked();

private:
    QList<QCheckBox *> m_checkBoxes;
};

#endif
