// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_LOWIMPEDANCEINTERCOMSMODEL_H
#define NVR_LOWIMPEDANCEINTERCOMSMODEL_H

#include "baseaudiosystemsmodel.h"

/**
 * The library of low-impedance intercoms, nevradat/lowimpedance-intercoms.csv;
 * one per process. Their phones input level (column 6) is in millivolts.
 */
class NVRCORE_EXPORT LowImpedanceIntercomsModel : public BaseAudioSystemsModel
{
    Q_OBJECT
public:
    explicit LowImpedanceIntercomsModel(QObject *parent = nullptr);
    ~LowImpedanceIntercomsModel() override;

    static LowImpedanceIntercomsModel *instance();
    static void destroyInstance();
};

#endif
