// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_NVRCORE_H
#define NVR_NVRCORE_H

#include "nvrcore_export.h"

#include <QString>

/**
 * Whole-file text helpers for the host. Failures are shown to the user in
 * parentless modal warning boxes (usable before any main window exists),
 * so call them from the GUI thread only.
 */
class NVRCORE_EXPORT NvrCore
{
public:
    /**
     * The file's content as UTF-8, cut at the first NUL byte; the null text
     * when the file is empty or cannot be opened (then a box titled caption
     * says why).
     */
    static QString readFromTextFile(const QString &fileName, const QString &caption);
    /**
     * Replaces the file with text in UTF-8. The old file is removed before
     * the new one is written, without a backup: a failure while writing
     * leaves no file at all.
     */
    static bool saveToTextFile(const QString &fileName, const QString &text);
};

#endif
