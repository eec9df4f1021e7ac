// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "kvwaitcursor.h"

#include <QCursor>
#include <QGuiApplication>

KvWaitCursor::KvWaitCursor() : m_active(qobject_cast<QGuiApplication *>(QCoreApplication::instance()) != nullptr)
{
    if (m_active)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

KvWaitCursor::~KvWaitCursor()
{
    if (m_active)
        QGuiApplication::restoreOverrideCursor();
}
