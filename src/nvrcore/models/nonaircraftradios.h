// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_NONAIRCRAFTRADIOS_H
#define NVR_NONAIRCRAFTRADIOS_H

#include "nvrcsvmodel.h"

/**
 * The library of non-aircraft radios, nevradat/non-aircraftradios.csv,
 * loaded anew by each object. Column 4 holds the radio type and column 10
 * the Bluetooth profile, both as indexes into fixed lists; the MIC input
 * level and impedance (columns 7 and 8) apply, and can be edited, only for
 * radio type 1. A new record is of type 1 with the yes/no flag (column 9) off.
 */
class NVRCORE_EXPORT NonAircraftRadios : public NvrCsvModel
{
    Q_OBJECT
public:
    explicit NonAircraftRadios(QObject *parent = nullptr);
    ~NonAircraftRadios() override;

    /// The row's radio type, capped at 3; 0 for an invalid index or a cell that is not a number.
    int radioType(const QModelIndex &index) const;
    /// The row's Bluetooth profile, capped at 3; 0 for an invalid index or a cell that is not a number.
    int bluetoothProfile(const QModelIndex &index) const;

    static QStringList radioTypes();
    static QStringList bluetoothProfiles();
};

#endif
