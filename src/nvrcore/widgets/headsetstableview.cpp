// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "headsetstableview.h"

#include "models/headsetsmodel.h"

HeadSetsTableView::HeadSetsTableView(QWidget *parent) : LibraryTableView(parent)
{
    setObjectName(QStringLiteral("HeadSetsTableView"));
    setHiddenColumns({HeadSetsModel::IdColumn, HeadSetsModel::SelectStringColumn});
}

HeadSetsTableView::~HeadSetsTableView() = default;
