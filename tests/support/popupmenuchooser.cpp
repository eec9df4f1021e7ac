// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "popupmenuchooser.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QTest>

PopupMenuChooser::PopupMenuChooser(const QString &choice, QObject *parent) : QObject(parent), m_choice(choice)
{
    connect(&m_timer, &QTimer::timeout, this, &PopupMenuChooser::poll);
    m_timer.start(10);
}

PopupMenuChooser::~PopupMenuChooser() = default;

void PopupMenuChooser::poll()
{
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    if (!menu)
        return;
    m_timer.stop();
    QAction *choice = nullptr;
    const QList<QAction *> actions = menu->actions();
    for (QAction *action : actions) {
        m_entries.append(action->isSeparator() ? QStringLiteral("-") : action->text());
        if (!action->isSeparator() && action->text() == m_choice)
            choice = action;
    }
    if (!choice) {
        menu->close();
        return;
    }
    menu->setActiveAction(choice);
    QTest::keyClick(menu, Qt::Key_Return);
}
