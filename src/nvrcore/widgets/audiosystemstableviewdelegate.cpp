// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "audiosystemstableviewdelegate.h"

AudioSystemsTableViewDelegate::AudioSystemsTableViewDelegate(QObject *parent) : ComboBoxDelegate(parent)
{
    setComboItems(12, {tr("No"), tr("Yes")});
}

AudioSystemsTableViewDelegate::~AudioSystemsTableViewDelegate() = default;
