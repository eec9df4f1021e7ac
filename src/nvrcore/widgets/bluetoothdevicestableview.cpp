// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "bluetoothdevicestableview.h"

BluetoothDevicesTableView::BluetoothDevicesTableView(QWidget *parent) : LibraryTableView(parent)
{
    setObjectName(QStringLiteral("BluetoothDevicesTableView"));
    setHiddenColumns({1});
}

BluetoothDevicesTableView::~BluetoothDevicesTableView() = default;
