// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_TEST_POPUPMENUCHOOSER_H
#define NVR_TEST_POPUPMENUCHOOSER_H

#include <QObject>
#include <QStringList>
#include <QTimer>

/**
 * Chooses an entry of the next popup menu, so that a test can open a modal
 * menu (QMenu::exec) without hanging on it. Create it, then open the menu:
 * the first popup menu that shows has its entries recorded and the entry
 * with the given text chosen with the keyboard, as a user would; a menu
 * without that entry is closed.
 */
class PopupMenuChooser : public QObject
{
    Q_OBJECT
public:
    explicit PopupMenuChooser(const QString &choice, QObject *parent = nullptr);
    ~PopupMenuChooser() override;

    /// The texts of the menu's entries in order, a separator as "-"; empty until a menu showed.
    QStringList entries() const { return m_entries; }

private:
    void poll();

    QTimer m_timer;
    QString m_choice;
    QStringList m_entries;
};

#endif
