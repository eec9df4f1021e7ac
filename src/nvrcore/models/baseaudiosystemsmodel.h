// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_BASEAUDIOSYSTEMSMODEL_H
#define NVR_BASEAUDIOSYSTEMSMODEL_H

#include "nvrcsvmodel.h"

/**
 * The column rules shared by the level-bearing audio equipment: levels in
 * columns 4, 6, 8 and 10 shown in Vrms, a yes/no flag in column 12 (0 for a
 * new record) and a summary of company, model and the column 4 and 6 levels
 * in column 13. Derived libraries load their file.
 */
class NVRCORE_EXPORT BaseAudioSystemsModel : public NvrCsvModel
{
    Q_OBJECT
public:
    explicit BaseAudioSystemsModel(QObject *parent = nullptr);
    ~BaseAudioSystemsModel() override;
};

#endif
