// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "headsetstableeditwidget.h"

#include "models/headsetsmodel.h"
#include "models/nvrlibraries.h"
#include "widgets/headsetstableview.h"

HeadSetsTableEditWidget::HeadSetsTableEditWidget(QWidget *parent) : LibraryTableEditWidget(parent)
{
    setObjectName(QStringLiteral("HeadSetsTableEditWidget"));
    setLibraryName(tr("Headsets"));
    setLibrary(new HeadSetsTableView(this), NvrLibraries::headSets(), tr("New Headset"));
}

HeadSetsTableEditWidget::~HeadSetsTableEditWidget() = default;
