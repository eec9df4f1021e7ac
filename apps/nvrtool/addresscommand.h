// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_ADDRESSCOMMAND_H
#define NVR_ADDRESSCOMMAND_H

#include <QStringList>

class NvrTool;

/// "nvrtool address": the field type and values of memory codes.
class AddressCommand
{
public:
    static int run(NvrTool &tool, const QStringList &arguments);
};

#endif
