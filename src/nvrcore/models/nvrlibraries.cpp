// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "nvrlibraries.h"

#include "bluetoothdevices.h"
#include "headsetsmodel.h"
#include "legendsconverttablemodel.h"
#include "librarysingleton_p.h"
#include "nonaircraftradios.h"
#include "serialdatadevices.h"

namespace {
BluetoothDevices *s_bluetoothDevices = nullptr;
NonAircraftRadios *s_nonAircraftRadios = nullptr;
SerialDataDevices *s_serialDataDevices = nullptr;
HeadSetsModel *s_headSets = nullptr;
LegendsConvertTableModel *s_legends = nullptr;

// These two leave reading to their owner.
template<typename Library>
Library *readLibrary(Library *&slot)
{
    if (!slot) {
        slot = new Library();
        slot->readData();
    }
    return slot;
}
}

BluetoothDevices *NvrLibraries::bluetoothDevices()
{
    return libraryInstance(s_bluetoothDevices);
}

NonAircraftRadios *NvrLibraries::nonAircraftRadios()
{
    return libraryInstance(s_nonAircraftRadios);
}

SerialDataDevices *NvrLibraries::serialDataDevices()
{
    return libraryInstance(s_serialDataDevices);
}

HeadSetsModel *NvrLibraries::headSets()
{
    return readLibrary(s_headSets);
}

LegendsConvertTableModel *NvrLibraries::legends()
{
    return readLibrary(s_legends);
}

void NvrLibraries::destroyAll()
{
    destroyLibrary(s_bluetoothDevices);
    destroyLibrary(s_nonAircraftRadios);
    destroyLibrary(s_serialDataDevices);
    destroyLibrary(s_headSets);
    destroyLibrary(s_legends);
}
