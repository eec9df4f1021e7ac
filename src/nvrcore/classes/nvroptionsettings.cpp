// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "nvroptionsettings.h"

#include "kvcore.h"
#include "kvinifile.h"

#include <QCoreApplication>

NvrOptionSettings::NvrOptionSettings() : QSettings(filePath(), QSettings::IniFormat)
{
    KvIniFile::useUtf8(*this);
}

NvrOptionSettings::~NvrOptionSettings() = default;

QString NvrOptionSettings::filePath()
{
    return KvCore::applicationDirPath() + QLatin1Char('/') + QCoreApplication::organizationName()
           + QStringLiteral("/NevraOptions.ini");
}
