// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "nonaircraftradiostableviewdelegate.h"

#include "models/nonaircraftradios.h"

NonAircraftRadiosTableViewDelegate::NonAircraftRadiosTableViewDelegate(QObject *parent) : ComboBoxDelegate(parent)
{
    setComboItems(4, NonAircraftRadios::radioTypes());
    setComboItems(9, {tr("No"), tr("Yes")});
    setComboItems(10, NonAircraftRadios::bluetoothProfiles());
}

NonAircraftRadiosTableViewDelegate::~NonAircraftRadiosTableViewDelegate() = default;
