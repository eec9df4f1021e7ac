// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "serialdatadevices.h"

SerialDataDevices::SerialDataDevices(QObject *parent) : NvrCsvModel(parent)
{
    openLibrary(QStringLiteral("SerialDataDevices"), QStringLiteral("serialdatadevices.csv"));
}

SerialDataDevices::~SerialDataDevices() = default;
