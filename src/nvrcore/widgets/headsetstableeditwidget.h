// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_HEADSETSTABLEEDITWIDGET_H
#define NVR_HEADSETSTABLEEDITWIDGET_H

#include "widgets/librarytableeditwidget.h"

/// The editor of the headsets (the process-wide NvrLibraries::headSets()).
class NVRCORE_EXPORT HeadSetsTableEditWidget : public LibraryTableEditWidget
{
    Q_OBJECT
public:
    explicit HeadSetsTableEditWidget(QWidget *parent = nullptr);
    ~HeadSetsTableEditWidget() override;
};

#endif
