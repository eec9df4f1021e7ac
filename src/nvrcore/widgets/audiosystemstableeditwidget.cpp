// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "audiosystemstableeditwidget.h"

#include "models/audiosystemsmodel.h"
#include "widgets/audiosystemstableview.h"

AudioSystemsTableEditWidget::AudioSystemsTableEditWidget(QWidget *parent) : LibraryTableEditWidget(parent)
{
    setObjectName(QStringLiteral("AudioSystemsTableEditWidget"));
    setLibraryName(tr("Audio systems"));
    setLibrary(new AudioSystemsTableView(this), AudioSystemsModel::instance(), tr("New Aircraft Audio System"));
}

AudioSystemsTableEditWidget::~AudioSystemsTableEditWidget() = default;
