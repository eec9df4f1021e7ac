// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "headsetstableview.h"

#include "models/headsetsmodel.h"

HeadSetsTableView::HeadSetsTableView(QWidget *parent) : LibraryTableView(parent)
{
    setObjectName(QStringLiteral("HeadSetsTableView"));
    setHiddenColumns({HeadSetsModel::IdColumn, HeadSetsModel::SelectStringColumn});
    // The ranges the library itself accepts, refused here already as they are typed.
    setNumberColumn(3, 1.0, 10.0);
    setNumberColumn(4, 1, 100000, true);
    setNumberColumn(6, 0.01, 1.0);
}

HeadSetsTableView::~HeadSetsTableView() = default;
