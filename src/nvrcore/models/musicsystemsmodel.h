// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_MUSICSYSTEMSMODEL_H
#define NVR_MUSICSYSTEMSMODEL_H

#include "baseaudiosystemsmodel.h"

/// The library of music systems, nevradat/musicsystems.csv; one per process.
class NVRCORE_EXPORT MusicSystemsModel : public BaseAudioSystemsModel
{
    Q_OBJECT
public:
    explicit MusicSystemsModel(QObject *parent = nullptr);
    ~MusicSystemsModel() override;

    static MusicSystemsModel *instance();
    static void destroyInstance();
};

#endif
