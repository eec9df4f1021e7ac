// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_NVROPTIONSETTINGS_H
#define NVR_NVROPTIONSETTINGS_H

#include "nvrcore_export.h"

#include <QSettings>

/**
 * The options file: "NevraOptions.ini" in INI format, in a folder named after
 * the organisation inside the application directory (not beside the program,
 * so that several organisations' options can sit side by side). Open one for
 * each read or write and let it go: the file is written when it is destroyed.
 */
class NVRCORE_EXPORT NvrOptionSettings : public QSettings
{
    Q_OBJECT
public:
    NvrOptionSettings();
    ~NvrOptionSettings() override;

    /// <application directory>/<organisation>/NevraOptions.ini
    static QString filePath();
};

#endif
