// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_MEMORYADDRESS_P_H
#define NVR_MEMORYADDRESS_P_H

// Internal to MemoryAddress (and its benchmark); not installed, not exported.

namespace MemoryAddressForms {

/// A code's form is its pattern's position in the list below, counted from 1.
enum Form { NoForm = 0, DcpLevel = 1, MemoryByte = 2, EepromBlock = 3, IoPin = 4, IoPort = 5 };

/**
 * One pattern per form, in form order: the first pattern that matches decides
 * the form, so new forms may only be appended.
 *
 * In the port form the pull-up mask's class reads "[\\da-fA-F]": a literal
 * backslash, 'd' and the hex letters, but no digits. A port code with a mask
 * is therefore valid only when both mask characters are hex letters
 * (P:0.20.01.FF is a port code, P:0.20.01.0F is none). The class stays as
 * it is so that every code keeps the meaning it has always had.
 */
inline constexpr const char *patterns[] = {
    R"(^D:(?<bus>[\da-fA-F])\.(?<device>[\da-fA-F][\da-fA-F])\.(?<dcp>[\da-fA-F][\da-fA-F])$)",
    R"(^B:(?<bus>[\da-fA-F])\.(?<device>[\da-fA-F][\da-fA-F])\.(?<mem_address>[\da-fA-F][\da-fA-F])$)",
    R"(^E:(?<bus>[\da-fA-F])\.(?<device>[\da-fA-F][\da-fA-F])\.(?<mem_address>[\da-fA-F][\da-fA-F])\.(?<size>[\da-fA-F][\da-fA-F])$)",
    R"(^I:(?<bus>[\da-fA-F])\.(?<device>[\da-fA-F][\da-fA-F])\.(?<pin>[\da-fA-F][\da-fA-F])(\.(?<active>H|L)(?<pullup>E|D))?$)",
    R"(^P:(?<bus>[\da-fA-F])\.(?<device>[\da-fA-F][\da-fA-F])\.(?<port>[\da-fA-F][\da-fA-F])(\.(?<pullup>[\\da-fA-F][\\da-fA-F]))?$)",
};

inline constexpr int patternCount = sizeof(patterns) / sizeof(patterns[0]);

}

#endif
