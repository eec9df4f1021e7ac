// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_BLUETOOTHDEVICESTABLEEDITWIDGET_H
#define NVR_BLUETOOTHDEVICESTABLEEDITWIDGET_H

#include "widgets/librarytableeditwidget.h"

/// The editor of the Bluetooth devices (the process-wide NvrLibraries::bluetoothDevices()).
class NVRCORE_EXPORT BluetoothDevicesTableEditWidget : public LibraryTableEditWidget
{
    Q_OBJECT
public:
    explicit BluetoothDevicesTableEditWidget(QWidget *parent = nullptr);
    ~BluetoothDevicesTableEditWidget() override;
};

#endif
