// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "legendsconverttableeditwidget.h"

#include "models/legendsconverttablemodel.h"
#include "models/nvrlibraries.h"
#include "widgets/librarytableview.h"

LegendsConvertTableEditWidget::LegendsConvertTableEditWidget(QWidget *parent) : LibraryTableEditWidget(parent)
{
    setObjectName(QStringLiteral("LegendsConvertTableEditWidget"));
    auto *view = new LibraryTableView(this);
    view->setObjectName(QStringLiteral("LegendsConvertTableView"));
    setLibraryName(tr("Legends"));
    setLibrary(view, NvrLibraries::legends(), tr("New Legend"));
}

LegendsConvertTableEditWidget::~LegendsConvertTableEditWidget() = default;
