// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_SERIALDATADEVICESTABLEVIEW_H
#define NVR_SERIALDATADEVICESTABLEVIEW_H

#include "widgets/librarytableview.h"

/// The serial data devices' table, without the display-name column.
class NVRCORE_EXPORT SerialDataDevicesTableView : public LibraryTableView
{
    Q_OBJECT
public:
    explicit SerialDataDevicesTableView(QWidget *parent = nullptr);
    ~SerialDataDevicesTableView() override;
};

#endif
