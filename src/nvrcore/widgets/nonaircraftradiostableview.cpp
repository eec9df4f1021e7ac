// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "nonaircraftradiostableview.h"

#include "widgets/nonaircraftradiostableviewdelegate.h"

NonAircraftRadiosTableView::NonAircraftRadiosTableView(QWidget *parent) : LibraryTableView(parent)
{
    setObjectName(QStringLiteral("NonAircraftRadiosTableView"));
    setHiddenColumns({1, 11});
    setItemDelegate(new NonAircraftRadiosTableViewDelegate(this));
}

NonAircraftRadiosTableView::~NonAircraftRadiosTableView() = default;
