// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_SERIALDATADEVICES_H
#define NVR_SERIALDATADEVICES_H

#include "nvrcsvmodel.h"

/**
 * The library of serial data devices, nevradat/serialdatadevices.csv,
 * loaded anew by each object; its further columns are plain text.
 */
class NVRCORE_EXPORT SerialDataDevices : public NvrCsvModel
{
    Q_OBJECT
public:
    explicit SerialDataDevices(QObject *parent = nullptr);
    ~SerialDataDevices() override;
};

#endif
