// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_LIBRARYTABLEEDITWIDGET_H
#define NVR_LIBRARYTABLEEDITWIDGET_H

#include "widgets/tableeditwidget.h"

class LibraryTableView;

/**
 * The editor of a library edited in place: the library's table below the
 * new, delete, save and cancel buttons. New appends a record through the
 * model's insertRows(), delete removes the current one (only user records
 * can be chosen for it), save and cancel call the model's submit() and
 * revert(). Each library's editor names itself and calls setLibrary() once.
 */
class NVRCORE_EXPORT LibraryTableEditWidget : public TableEditWidget
{
    Q_OBJECT
public:
    explicit LibraryTableEditWidget(QWidget *parent = nullptr);
    ~LibraryTableEditWidget() override;

    LibraryTableView *libraryView() const { return m_view; }
    QAbstractItemModel *libraryModel() const;

protected:
    /// Shows model in view (a child of this editor) and gives the new button its tooltip.
    void setLibrary(LibraryTableView *view, QAbstractItemModel *model, const QString &newToolTip);

private:
    LibraryTableView *m_view = nullptr;
};

#endif
