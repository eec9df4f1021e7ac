// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "baseaudiosystemsmodel.h"

BaseAudioSystemsModel::BaseAudioSystemsModel(QObject *parent) : NvrCsvModel(parent)
{
    const QString volts = tr("%1 Vrms");
    for (int column : {4, 6, 8, 10})
        setUnitColumn(column, volts);
    setYesNoColumn(12);
    setSummaryColumn(13, tr("%1 %2 [MIC Output = %3, Phones Input = %4]"), 4, 6);
    setNewRecordValue(12, 0);
}

BaseAudioSystemsModel::~BaseAudioSystemsModel() = default;
