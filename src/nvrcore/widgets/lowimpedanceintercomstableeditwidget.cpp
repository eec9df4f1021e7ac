// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "lowimpedanceintercomstableeditwidget.h"

#include "models/lowimpedanceintercomsmodel.h"
#include "widgets/audiosystemstableview.h"

LowImpedanceIntercomsTableEditWidget::LowImpedanceIntercomsTableEditWidget(QWidget *parent)
    : LibraryTableEditWidget(parent)
{
    setObjectName(QStringLiteral("LowImpedanceIntercomsTableEditWidget"));
    auto *view = new AudioSystemsTableView(this);
    view->setObjectName(QStringLiteral("LowImpedanceIntercomsTableView"));
    // This library keeps its phones level in mVrms.
    view->setNumberColumn(6, 1, 100000);
    setLibraryName(tr("Intercoms"));
    setLibrary(view, LowImpedanceIntercomsModel::instance(), tr("New Intercom"));
}

LowImpedanceIntercomsTableEditWidget::~LowImpedanceIntercomsTableEditWidget() = default;
