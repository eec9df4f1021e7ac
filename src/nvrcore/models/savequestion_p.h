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
 *
 * The text names the file by its object's name; where an editor has given
 * the library a name in words (the property "libraryName" of library), the
 * question names it too, so that the user knows which library is meant.
 */
inline bool askToSaveChanges(const QObject *library, const QString &text, bool canCancel,
                             const std::function<void()> &save)
{
    QMessageBox box;
    box.setText(text);
    const QString question = QCoreApplication::translate("NvrLibrary", "Do you want to save your changes?");
    const QString name = library->property("libraryName").toString();
    box.setInformativeText(name.isEmpty() ? question
                                          : QCoreApplication::translate("NvrLibrary", "%1: %2").arg(name, question));
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
