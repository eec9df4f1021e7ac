// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "serialdatadevicestableview.h"

SerialDataDevicesTableView::SerialDataDevicesTableView(QWidget *parent) : LibraryTableView(parent)
{
    setObjectName(QStringLiteral("SerialDataDevicesTableView"));
    setHiddenColumns({1});
}

SerialDataDevicesTableView::~SerialDataDevicesTableView() = default;
