// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_AUDIOSYSTEMSMODEL_H
#define NVR_AUDIOSYSTEMSMODEL_H

#include "baseaudiosystemsmodel.h"

/// The library of aircraft audio systems, nevradat/audiosystems.csv; one per process.
class NVRCORE_EXPORT AudioSystemsModel : public BaseAudioSystemsModel
{
    Q_OBJECT
public:
    explicit AudioSystemsModel(QObject *parent = nullptr);
    ~AudioSystemsModel() override;

    static AudioSystemsModel *instance();
    static void destroyInstance();
};

#endif
