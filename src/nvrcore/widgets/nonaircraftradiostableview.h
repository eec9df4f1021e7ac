// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_NONAIRCRAFTRADIOSTABLEVIEW_H
#define NVR_NONAIRCRAFTRADIOSTABLEVIEW_H

#include "widgets/librarytableview.h"

/**
 * The non-aircraft radios' table: the display-name and summary columns hidden, the radio type,
 * yes/no flag and Bluetooth profile edited with lists.
 */
class NVRCORE_EXPORT NonAircraftRadiosTableView : public LibraryTableView
{
    Q_OBJECT
public:
    explicit NonAircraftRadiosTableView(QWidget *parent = nullptr);
    ~NonAircraftRadiosTableView() override;
};

#endif
