// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_LOWIMPEDANCEINTERCOMSTABLEEDITWIDGET_H
#define NVR_LOWIMPEDANCEINTERCOMSTABLEEDITWIDGET_H

#include "widgets/librarytableeditwidget.h"

/// The editor of the low-impedance intercoms (the LowImpedanceIntercomsModel singleton).
class NVRCORE_EXPORT LowImpedanceIntercomsTableEditWidget : public LibraryTableEditWidget
{
    Q_OBJECT
public:
    explicit LowImpedanceIntercomsTableEditWidget(QWidget *parent = nullptr);
    ~LowImpedanceIntercomsTableEditWidget() override;
};

#endif
