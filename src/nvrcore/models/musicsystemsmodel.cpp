// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "musicsystemsmodel.h"

#include "librarysingleton_p.h"

namespace {
MusicSystemsModel *s_instance = nullptr;
}

MusicSystemsModel::MusicSystemsModel(QObject *parent) : BaseAudioSystemsModel(parent)
{
    openLibrary(QStringLiteral("MusicSystemsModel"), QStringLiteral("musicsystems.csv"));
}

MusicSystemsModel::~MusicSystemsModel() = default;

MusicSystemsModel *MusicSystemsModel::instance()
{
    return libraryInstance(s_instance);
}

void MusicSystemsModel::destroyInstance()
{
    destroyLibrary(s_instance);
}
