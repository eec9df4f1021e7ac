// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "musicsystemstableeditwidget.h"

#include "models/musicsystemsmodel.h"
#include "widgets/audiosystemstableview.h"

MusicSystemsTableEditWidget::MusicSystemsTableEditWidget(QWidget *parent) : LibraryTableEditWidget(parent)
{
    setObjectName(QStringLiteral("MusicSystemsTableEditWidget"));
    auto *view = new AudioSystemsTableView(this);
    view->setObjectName(QStringLiteral("MusicSystemsTableView"));
    setLibraryName(tr("Music systems"));
    setLibrary(view, MusicSystemsModel::instance(), tr("New Aircraft Music System"));
}

MusicSystemsTableEditWidget::~MusicSystemsTableEditWidget() = default;
