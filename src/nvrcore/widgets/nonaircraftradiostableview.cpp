// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "nonaircraftradiostableview.h"

#include "widgets/nonaircraftradiostableviewdelegate.h"

NonAircraftRadiosTableView::NonAircraftRadiosTableView(QWidget *parent) : LibraryTableView(parent)
{
    setObjectName(QStringLiteral("NonAircraftRadiosTableView"));
    setHiddenColumns({1, 11});
    setItemDelegate(new NonAircraftRadiosTableViewDelegate(this));
    setNumberColumn(5, 0.001, 100);
    setNumberColumn(7, 0.001, 100);
    setNumberColumn(8, 1, 100000, true);
}

NonAircraftRadiosTableView::~NonAircraftRadiosTableView() = default;
