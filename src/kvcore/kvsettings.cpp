// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "kvsettings.h"

#include <QCoreApplication>

KvSettings::KvSettings(QObject *parent)
    : QSettings(QCoreApplication::organizationName(), QCoreApplication::applicationName(), parent)
{
}

KvSettings::~KvSettings() = default;
