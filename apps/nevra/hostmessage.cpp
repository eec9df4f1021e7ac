// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "hostmessage.h"

#include "classes/nvroptions.h"
#include "logger.h"

#include <QMainWindow>
#include <QMessageBox>
#include <QStatusBar>

namespace {
constexpr int statusMs = 10000;
}

void HostMessage::inform(QWidget *from, const QString &title, const QString &text)
{
    LOG_INFO(QStringLiteral("%1: %2").arg(title, text));
    if (auto *window = qobject_cast<QMainWindow *>(from->window()))
        window->statusBar()->showMessage(text, statusMs);
    if (!g_nvrOptions || g_nvrOptions->showMessages())
        QMessageBox::information(from, title, text);
}
