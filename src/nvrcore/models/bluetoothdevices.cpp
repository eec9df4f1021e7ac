// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "bluetoothdevices.h"

BluetoothDevices::BluetoothDevices(QObject *parent) : NvrCsvModel(parent)
{
    openLibrary(QStringLiteral("BluetoothDevices"), QStringLiteral("bluetoothdevices.csv"));
}

BluetoothDevices::~BluetoothDevices() = default;
