// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_AUDIOSYSTEMSTABLEVIEW_H
#define NVR_AUDIOSYSTEMSTABLEVIEW_H

#include "widgets/librarytableview.h"

/**
 * The audio-system libraries' table (aircraft audio systems, intercoms and music systems): the
 * display-name and summary columns hidden, the yes/no flag edited with a list. Their editors
 * rename it, since each library keeps its own layout.
 */
class NVRCORE_EXPORT AudioSystemsTableView : public LibraryTableView
{
    Q_OBJECT
public:
    explicit AudioSystemsTableView(QWidget *parent = nullptr);
    ~AudioSystemsTableView() override;
};

#endif
