// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef KV_KVSETTINGS_H
#define KV_KVSETTINGS_H

#include "kvcore_export.h"

#include <QSettings>

/// The application's settings: QSettings under the application's organisation and name.
class KVCORE_EXPORT KvSettings : public QSettings
{
    Q_OBJECT
public:
    explicit KvSettings(QObject *parent = nullptr);
    ~KvSettings() override;
};

#endif
