// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef KV_KVCRC_H
#define KV_KVCRC_H

#include "kvcore_export.h"

#include <QByteArray>

/// Checksums over byte buffers.
class KVCORE_EXPORT KvCrc
{
public:
    /**
     * The standard reflected CRC-32 (polynomial 0xEDB88320, initial value and
     * final XOR 0xFFFFFFFF) over the first length bytes; "123456789" gives
     * 0xCBF43926. A length beyond the buffer is cut to its size.
     */
    static quint32 crc32(const QByteArray &bytes, int length);
    static quint32 crc32(const char *bytes, int length);
};

#endif
