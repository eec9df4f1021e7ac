// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "serialdatadevicestableeditwidget.h"

#include "models/serialdatadevices.h"
#include "models/nvrlibraries.h"
#include "widgets/serialdatadevicestableview.h"

SerialDataDevicesTableEditWidget::SerialDataDevicesTableEditWidget(QWidget *parent) : LibraryTableEditWidget(parent)
{
    setObjectName(QStringLiteral("SerialDataDevicesTableEditWidget"));
    setLibraryName(tr("Serial data devices"));
    setLibrary(new SerialDataDevicesTableView(this), NvrLibraries::serialDataDevices(), tr("New Serial Data Device"));
}

SerialDataDevicesTableEditWidget::~SerialDataDevicesTableEditWidget() = default;
