// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "nonaircraftradiostableeditwidget.h"

#include "models/nonaircraftradios.h"
#include "models/nvrlibraries.h"
#include "widgets/nonaircraftradiostableview.h"

NonAircraftRadiosTableEditWidget::NonAircraftRadiosTableEditWidget(QWidget *parent) : LibraryTableEditWidget(parent)
{
    setObjectName(QStringLiteral("NonAircraftRadiosTableEditWidget"));
    setLibraryName(tr("Non-aircraft radios"));
    setLibrary(new NonAircraftRadiosTableView(this), NvrLibraries::nonAircraftRadios(), tr("New Radio"));
}

NonAircraftRadiosTableEditWidget::~NonAircraftRadiosTableEditWidget() = default;
