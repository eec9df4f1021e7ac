// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_AUDIOSYSTEMSTABLEEDITWIDGET_H
#define NVR_AUDIOSYSTEMSTABLEEDITWIDGET_H

#include "widgets/librarytableeditwidget.h"

/// The editor of the aircraft audio systems (the AudioSystemsModel singleton).
class NVRCORE_EXPORT AudioSystemsTableEditWidget : public LibraryTableEditWidget
{
    Q_OBJECT
public:
    explicit AudioSystemsTableEditWidget(QWidget *parent = nullptr);
    ~AudioSystemsTableEditWidget() override;
};

#endif
