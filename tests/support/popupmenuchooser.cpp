// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "popupmenuchooser.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QTest>

namespace {
constexpr int pollIntervalMs = 10;
}

PopupMenuChooser::PopupMenuChooser(const QString &choice, int timeoutMs, QObject *parent)
    : QObject(parent), m_choice(choice), m_pollsLeft(timeoutMs / pollIntervalMs)
{
    m_timer.setInterval(pollIntervalMs);
    connect(&m_timer, &QTimer::timeout, this, &PopupMenuChooser::poll);
    m_timer.start();
}

PopupMenuChooser::~PopupMenuChooser() = default;

void PopupMenuChooser::poll()
{
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    if (!menu) {
        if (--m_pollsLeft <= 0)
            m_timer.stop();
        return;
    }
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
    m_chosen = true;
}
