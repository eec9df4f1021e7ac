// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_NONAIRCRAFTRADIOSTABLEVIEWDELEGATE_H
#define NVR_NONAIRCRAFTRADIOSTABLEVIEWDELEGATE_H

#include "widgets/comboboxdelegate.h"

/**
 * Edits the indexed columns of the non-aircraft radios with lists: the
 * radio type (column 4), the yes/no flag (column 9) and the Bluetooth
 * profile (column 10).
 */
class NVRCORE_EXPORT NonAircraftRadiosTableViewDelegate : public ComboBoxDelegate
{
    Q_OBJECT
public:
    explicit NonAircraftRadiosTableViewDelegate(QObject *parent = nullptr);
    ~NonAircraftRadiosTableViewDelegate() override;
};

#endif
