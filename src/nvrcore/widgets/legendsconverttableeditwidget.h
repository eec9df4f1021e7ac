// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_LEGENDSCONVERTTABLEEDITWIDGET_H
#define NVR_LEGENDSCONVERTTABLEEDITWIDGET_H

#include "widgets/librarytableeditwidget.h"

/**
 * The editor of the legend conversion table (the process-wide
 * NvrLibraries::legends()), in a table named "LegendsConvertTableView".
 */
class NVRCORE_EXPORT LegendsConvertTableEditWidget : public LibraryTableEditWidget
{
    Q_OBJECT
public:
    explicit LegendsConvertTableEditWidget(QWidget *parent = nullptr);
    ~LegendsConvertTableEditWidget() override;
};

#endif
