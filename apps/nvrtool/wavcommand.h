// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_WAVCOMMAND_H
#define NVR_WAVCOMMAND_H

#include <QStringList>

class NvrTool;

/// "nvrtool wav import": a sound file in the product's WAV form.
class WavCommand
{
public:
    static int run(NvrTool &tool, const QStringList &arguments);
};

#endif
