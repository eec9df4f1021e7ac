// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef KV_KVWAITCURSOR_H
#define KV_KVWAITCURSOR_H

#include "kvwidgets_export.h"

/**
 * Shows the wait cursor as the application's override cursor for the
 * lifetime of the object, so that every return path restores it. Does
 * nothing when there is no GUI application.
 */
class KVWIDGETS_EXPORT KvWaitCursor
{
public:
    KvWaitCursor();
    ~KvWaitCursor();
    KvWaitCursor(const KvWaitCursor &) = delete;
    KvWaitCursor &operator=(const KvWaitCursor &) = delete;

private:
    bool m_active;
};

#endif
