// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef KV_CONSOLEAPPENDER_H
#define KV_CONSOLEAPPENDER_H

#include "abstractappender.h"

/// Writes each record as one line to standard error.
class KVCORE_EXPORT ConsoleAppender : public AbstractAppender
{
public:
    void append(const LogRecord &record) override;
};

#endif
