// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
// Bytes as memory address codes and as hexadecimal memory contents.
#include "fuzzsupport.h"

#include "classes/memory.h"
#include "classes/memoryaddress.h"

#include <cstdlib>
#include <cstring>

namespace {
void parseAddress(const QString &address)
{
    MemoryAddress::fieldType(address);
    MemoryAddress::busNumber(address);
    MemoryAddress::deviceAddress(address);
    MemoryAddress::memoryAddress(address);
    MemoryAddress::memorySize(address);
    MemoryAddress::pinActiveConfig(address);
    MemoryAddress::pullUpConfig(address);
}
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    FuzzSupport::init();
    const QByteArray bytes = FuzzSupport::bytes(data, size);
    parseAddress(QString::fromLatin1(bytes));
    parseAddress(QString::fromUtf8(bytes));

    const QString text = QString::fromLatin1(bytes);
    Memory::HexStringToInt(text);
    Memory::HexStringToByteArray(text);
    // Every byte array must come back whole from its hexadecimal form.
    if (Memory::HexStringToByteArray(Memory::ByteArrayToHexString(bytes)) != bytes)
        std::abort();
    for (const char byte : bytes)
        Memory::ByteToHexString(static_cast<uchar>(byte));
    if (size >= sizeof(int)) {
        int value;
        std::memcpy(&value, data, sizeof value);
        Memory::HexStringToInt(Memory::IntToHexString(value));
    }
    return 0;
}
