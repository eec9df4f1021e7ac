// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NEVRA_HOSTMESSAGE_H
#define NEVRA_HOSTMESSAGE_H

#include <QString>

#include <functional>

class QWidget;

/**
 * The host's own informational messages. Each goes to the log and the
 * window's status line; a message box shows it as well unless the options
 * turn messages off (-nomessages), so that unattended runs never stop on a
 * box. Questions and warnings about lost data are not informational: they
 * are always asked.
 */
class HostMessage
{
public:
    static void inform(QWidget *from, const QString &title, const QString &text);
    /**
     * Asks whether to save unsaved work (Save, Discard, Cancel): Save runs
     * save and answers its result, Discard answers true, Cancel false.
     */
    static bool askToSave(QWidget *from, const QString &title, const QString &text, const std::function<bool()> &save);
};

#endif
