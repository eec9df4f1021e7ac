// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_HEADSETSTABLEVIEW_H
#define NVR_HEADSETSTABLEVIEW_H

#include "widgets/librarytableview.h"

/// The headsets' table, without the id and select-string columns.
class NVRCORE_EXPORT HeadSetsTableView : public LibraryTableView
{
    Q_OBJECT
public:
    explicit HeadSetsTableView(QWidget *parent = nullptr);
    ~HeadSetsTableView() override;
};

#endif
