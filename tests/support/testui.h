// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_TEST_TESTUI_H
#define NVR_TEST_TESTUI_H

#include <QAbstractItemView>
#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>

#include <algorithm>

/// A user's hands on widgets: real key and mouse events.
namespace TestUi {

/// Replaces a line edit's text the way a user does: select all, then type.
inline void retype(QLineEdit *edit, const QString &text)
{
    QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
    if (text.isEmpty())
        QTest::keyClick(edit, Qt::Key_Backspace);
    else
        QTest::keyClicks(edit, text);
}

/// Scrolls the cell into sight and clicks its centre.
inline void clickCell(QAbstractItemView *view, const QModelIndex &index, Qt::KeyboardModifiers modifiers = {})
{
    view->scrollTo(index);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, modifiers, view->visualRect(index).center());
}

/// Double-clicks the cell as a window system reports it; the in-place editor that opens, or null when none does.
inline QWidget *openCellEditor(QAbstractItemView *view, const QModelIndex &index)
{
    // The second press arrives as the double click.
    view->scrollTo(index);
    const QPoint centre = view->visualRect(index).center();
    QTest::mousePress(view->viewport(), Qt::LeftButton, {}, centre);
    QTest::mouseRelease(view->viewport(), Qt::LeftButton, {}, centre);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, centre);
    QTest::mouseRelease(view->viewport(), Qt::LeftButton, {}, centre);
    return view->indexWidget(index);
}

/// Whether any message box is on screen, modal or not.
inline bool messageBoxShown()
{
    const QWidgetList widgets = QApplication::topLevelWidgets();
    return std::any_of(widgets.cbegin(), widgets.cend(),
                       [](QWidget *widget) { return qobject_cast<QMessageBox *>(widget) && widget->isVisible(); });
}

}

#endif
