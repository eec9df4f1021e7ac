// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_SERIALDATADEVICESTABLEEDITWIDGET_H
#define NVR_SERIALDATADEVICESTABLEEDITWIDGET_H

#include "widgets/librarytableeditwidget.h"

/// The editor of the serial data devices (the process-wide NvrLibraries::serialDataDevices()).
class NVRCORE_EXPORT SerialDataDevicesTableEditWidget : public LibraryTableEditWidget
{
    Q_OBJECT
public:
    explicit SerialDataDevicesTableEditWidget(QWidget *parent = nullptr);
    ~SerialDataDevicesTableEditWidget() override;
};

#endif
