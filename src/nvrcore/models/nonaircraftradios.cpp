// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "nonaircraftradios.h"

namespace {
constexpr int TypeColumn = 4;
constexpr int ProfileColumn = 10;
constexpr int Receiver = 1;

const QStringList typeList = {QStringLiteral("Unknown"), QStringLiteral("Receiver"), QStringLiteral("Transceiver"),
                              QStringLiteral("Not Installed")};
// The A2DP entry has no closing parenthesis; files and views share the text as it is.
const QStringList profileList = {QStringLiteral("Unknown"), QStringLiteral("HFP (Hands Free Profile)"),
                                 QStringLiteral("A2DP (Advanced Audio Distribution Profile"),
                                 QStringLiteral("None")};
}

NonAircraftRadios::NonAircraftRadios(QObject *parent) : NvrCsvModel(parent)
{
    const QString volts = tr("%1 Vrms");
    setListColumn(TypeColumn, typeList);
    setUnitColumn(5, volts);
    setUnitColumn(7, volts);
    setUnitColumn(8, tr("%1 Ohms"));
    setColumnCondition(7, TypeColumn, Receiver);
    setColumnCondition(8, TypeColumn, Receiver);
    setYesNoColumn(9);
    setListColumn(ProfileColumn, profileList);
    setSummaryColumn(11, tr("%1 %2 [MIC Input = %3, Rx Output = %4]"), 7, 5);
    setNewRecordValue(TypeColumn, Receiver);
    setNewRecordValue(9, 0);
    openLibrary(QStringLiteral("NonAircraftRadios"), QStringLiteral("non-aircraftradios.csv"));
}

NonAircraftRadios::~NonAircraftRadios() = default;

int NonAircraftRadios::radioType(const QModelIndex &index) const
{
    return listValue(index, TypeColumn, typeList.size() - 1);
}

int NonAircraftRadios::bluetoothProfile(const QModelIndex &index) const
{
    return listValue(index, ProfileColumn, profileList.size() - 1);
}

QStringList NonAircraftRadios::radioTypes()
{
    return typeList;
}

QStringList NonAircraftRadios::bluetoothProfiles()
{
    return profileList;
}
