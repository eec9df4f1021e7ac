// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_NONAIRCRAFTRADIOSTABLEEDITWIDGET_H
#define NVR_NONAIRCRAFTRADIOSTABLEEDITWIDGET_H

#include "widgets/librarytableeditwidget.h"

/// The editor of the non-aircraft radios (the process-wide NvrLibraries::nonAircraftRadios()).
class NVRCORE_EXPORT NonAircraftRadiosTableEditWidget : public LibraryTableEditWidget
{
    Q_OBJECT
public:
    explicit NonAircraftRadiosTableEditWidget(QWidget *parent = nullptr);
    ~NonAircraftRadiosTableEditWidget() override;
};

#endif
