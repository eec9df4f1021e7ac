// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "audiosystemstableview.h"

#include "widgets/audiosystemstableviewdelegate.h"

AudioSystemsTableView::AudioSystemsTableView(QWidget *parent) : LibraryTableView(parent)
{
    setObjectName(QStringLiteral("AudioSystemsTableView"));
    setHiddenColumns({1, 13});
    setItemDelegate(new AudioSystemsTableViewDelegate(this));
    // Levels in Vrms; a level beyond 100 V or below 1 mV is a typing error.
    for (int column : {4, 6, 8, 10})
        setNumberColumn(column, 0.001, 100);
}

AudioSystemsTableView::~AudioSystemsTableView() = default;
