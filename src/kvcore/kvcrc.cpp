// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "kvcrc.h"

#include <array>

namespace {
constexpr std::array<quint32, 256> makeTable()
{
    std::array<quint32, 256> table{};
    for (quint32 i = 0; i < 256; ++i) {
        quint32 c = i;
        for (int k = 0; k < 8; ++k)
            c = (c & 1) ? (0xEDB88320u ^ (c >> 1)) : (c >> 1);
        table[i] = c;
    }
    return table;
}
constexpr std::array<quint32, 256> crcTable = makeTable();
}

quint32 KvCrc::crc32(const QByteArray &bytes, int length)
{
    return crc32(bytes.constData(), qBound(0, length, int(bytes.size())));
}

quint32 KvCrc::crc32(const char *bytes, int length)
{
    quint32 crc = 0xFFFFFFFFu;
    for (int i = 0; bytes && i < length; ++i)
        crc = crcTable[(crc ^ quint8(bytes[i])) & 0xFFu] ^ (crc >> 8);
    return crc ^ 0xFFFFFFFFu;
}
