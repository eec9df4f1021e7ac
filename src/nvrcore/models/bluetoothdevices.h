// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_BLUETOOTHDEVICES_H
#define NVR_BLUETOOTHDEVICES_H

#include "nvrcsvmodel.h"

/**
 * The library of Bluetooth devices, nevradat/bluetoothdevices.csv,
 * loaded anew by each object; its further columns are plain text.
 */
class NVRCORE_EXPORT BluetoothDevices : public NvrCsvModel
{
    Q_OBJECT
public:
    explicit BluetoothDevices(QObject *parent = nullptr);
    ~BluetoothDevices() override;
};

#endif
