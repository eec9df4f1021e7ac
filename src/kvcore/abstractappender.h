// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef KV_ABSTRACTAPPENDER_H
#define KV_ABSTRACTAPPENDER_H

#include "kvcore_export.h"
#include "logrecord.h"

/**
 * Where log records go. The logger passes each record at or above
 * detailsLevel() (Trace by default) to append(); subclasses write it
 * somewhere.
 */
class KVCORE_EXPORT AbstractAppender
{
public:
    AbstractAppender() = default;
    virtual ~AbstractAppender();
    AbstractAppender(const AbstractAppender &) = delete;
    AbstractAppender &operator=(const AbstractAppender &) = delete;

    LogRecord::Level detailsLevel() const { return m_detailsLevel; }
    void setDetailsLevel(LogRecord::Level level) { m_detailsLevel = level; }

    virtual void append(const LogRecord &record) = 0;

private:
    LogRecord::Level m_detailsLevel = LogRecord::Trace;
};

#endif
