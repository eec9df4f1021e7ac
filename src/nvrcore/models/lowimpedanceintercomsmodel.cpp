// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "lowimpedanceintercomsmodel.h"

#include "librarysingleton_p.h"

namespace {
LowImpedanceIntercomsModel *s_instance = nullptr;
}

LowImpedanceIntercomsModel::LowImpedanceIntercomsModel(QObject *parent) : BaseAudioSystemsModel(parent)
{
    setUnitColumn(6, tr("%1 mVrms"));
    openLibrary(QStringLiteral("LowImpedanceIntercomsModel"), QStringLiteral("lowimpedance-intercoms.csv"));
}

LowImpedanceIntercomsModel::~LowImpedanceIntercomsModel() = default;

LowImpedanceIntercomsModel *LowImpedanceIntercomsModel::instance()
{
    return libraryInstance(s_instance);
}

void LowImpedanceIntercomsModel::destroyInstance()
{
    destroyLibrary(s_instance);
}
