// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_AUDIOSYSTEMSTABLEVIEWDELEGATE_H
#define NVR_AUDIOSYSTEMSTABLEVIEWDELEGATE_H

#include "widgets/comboboxdelegate.h"

/// Edits the yes/no flag (column 12) of the audio-system libraries with a "No"/"Yes" list.
class NVRCORE_EXPORT AudioSystemsTableViewDelegate : public ComboBoxDelegate
{
    Q_OBJECT
public:
    explicit AudioSystemsTableViewDelegate(QObject *parent = nullptr);
    ~AudioSystemsTableViewDelegate() override;
};

#endif
