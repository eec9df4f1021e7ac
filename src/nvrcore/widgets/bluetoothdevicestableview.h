// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_BLUETOOTHDEVICESTABLEVIEW_H
#define NVR_BLUETOOTHDEVICESTABLEVIEW_H

#include "widgets/librarytableview.h"

/// The Bluetooth devices' table, without the display-name column.
class NVRCORE_EXPORT BluetoothDevicesTableView : public LibraryTableView
{
    Q_OBJECT
public:
    explicit BluetoothDevicesTableView(QWidget *parent = nullptr);
    ~BluetoothDevicesTableView() override;
};

#endif
