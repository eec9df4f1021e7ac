// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "bluetoothdevicestableeditwidget.h"

#include "models/bluetoothdevices.h"
#include "models/nvrlibraries.h"
#include "widgets/bluetoothdevicestableview.h"

BluetoothDevicesTableEditWidget::BluetoothDevicesTableEditWidget(QWidget *parent) : LibraryTableEditWidget(parent)
{
    setObjectName(QStringLiteral("BluetoothDevicesTableEditWidget"));
    setLibraryName(tr("Bluetooth devices"));
    setLibrary(new BluetoothDevicesTableView(this), NvrLibraries::bluetoothDevices(), tr("New Bluetooth Device"));
}

BluetoothDevicesTableEditWidget::~BluetoothDevicesTableEditWidget() = default;
