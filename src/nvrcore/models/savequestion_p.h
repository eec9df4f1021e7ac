// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_SAVEQUESTION_P_H
#define NVR_SAVEQUESTION_P_H

#include <QCoreApplication>
#include <QMessageBox>

#include <functional>

/*
 * The question a library asks before its unsaved changes could be lost:
 * Save (which runs save) and Discard answer true, Cancel (offered only when
 * canCancel) false. Save is the default button.
 */
inline bool askToSaveChanges(const QString &text, bool canCancel, const std::function<void()> &save)
{
    QMessageBox box;
    box.setText(text);
    box.setInformativeText(QCoreApplication::translate("NvrLibrary", "Do you want to save your changes?"));
    box.setIcon(QMessageBox::Question);
    QMessageBox::StandardButtons buttons = QMessageBox::Save | QMessageBox::Discard;
    if (canCancel)
        buttons |= QMessageBox::Cancel;
    box.setStandardButtons(buttons);
    box.setDefaultButton(QMessageBox::Save);
    switch (box.exec()) {
    case QMessageBox::Save:
        save();
        return true;
    case QMessageBox::Cancel:
        return false;
    default:
        return true;
    }
}

#endif
