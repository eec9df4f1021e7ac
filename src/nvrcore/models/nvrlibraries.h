// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_NVRLIBRARIES_H
#define NVR_NVRLIBRARIES_H

#include "nvrcore_export.h"

class BluetoothDevices;
class HeadSetsModel;
class LegendsConvertTableModel;
class NonAircraftRadios;
class SerialDataDevices;

/**
 * The process-wide objects of the libraries whose classes are not singletons
 * themselves, shared by their editors and by whoever asks to save before the
 * application ends. Each is created without a parent and loaded from its
 * files on first use; destroyAll() frees them, and the next use loads them
 * anew. The audio-system libraries and the radios keep their own instance().
 */
class NVRCORE_EXPORT NvrLibraries
{
public:
    static BluetoothDevices *bluetoothDevices();
    static NonAircraftRadios *nonAircraftRadios();
    static SerialDataDevices *serialDataDevices();
    static HeadSetsModel *headSets();
    static LegendsConvertTableModel *legends();

    static void destroyAll();
};

#endif
