// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "hostmessage.h"

#include "classes/nvroptions.h"
#include "logger.h"

#include <QCoreApplication>
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

bool HostMessage::askToSave(QWidget *from, const QString &title, const QString &text, const std::function<bool()> &save)
{
    QMessageBox box(QMessageBox::Question, title, text, QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel,
                    from);
    box.setInformativeText(QCoreApplication::translate("HostMessage", "Do you want to save it?"));
    box.setDefaultButton(QMessageBox::Save);
    switch (box.exec()) {
    case QMessageBox::Save:
        return save();
    case QMessageBox::Discard:
        return true;
    default:
        return false;
    }
}
