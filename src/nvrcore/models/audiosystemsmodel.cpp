// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "audiosystemsmodel.h"

#include "librarysingleton_p.h"

namespace {
AudioSystemsModel *s_instance = nullptr;
}

AudioSystemsModel::AudioSystemsModel(QObject *parent) : BaseAudioSystemsModel(parent)
{
    openLibrary(QStringLiteral("AudioSystemsModel"), QStringLiteral("audiosystems.csv"));
}

AudioSystemsModel::~AudioSystemsModel() = default;

AudioSystemsModel *AudioSystemsModel::instance()
{
    return libraryInstance(s_instance);
}

void AudioSystemsModel::destroyInstance()
{
    destroyLibrary(s_instance);
}
