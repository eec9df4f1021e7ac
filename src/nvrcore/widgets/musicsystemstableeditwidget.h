// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_MUSICSYSTEMSTABLEEDITWIDGET_H
#define NVR_MUSICSYSTEMSTABLEEDITWIDGET_H

#include "widgets/librarytableeditwidget.h"

/// The editor of the aircraft music systems (the MusicSystemsModel singleton).
class NVRCORE_EXPORT MusicSystemsTableEditWidget : public LibraryTableEditWidget
{
    Q_OBJECT
public:
    explicit MusicSystemsTableEditWidget(QWidget *parent = nullptr);
    ~MusicSystemsTableEditWidget() override;
};

#endif
