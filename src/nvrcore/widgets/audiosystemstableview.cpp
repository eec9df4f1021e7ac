// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "audiosystemstableview.h"

#include "widgets/audiosystemstableviewdelegate.h"

AudioSystemsTableView::AudioSystemsTableView(QWidget *parent) : LibraryTableView(parent)
{
    setObjectName(QStringLiteral("AudioSystemsTableView"));
    setHiddenColumns({1, 13});
    setItemDelegate(new AudioSystemsTableViewDelegate(this));
}

AudioSystemsTableView::~AudioSystemsTableView() = default;
