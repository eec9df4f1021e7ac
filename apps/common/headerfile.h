// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_HEADERFILE_H
#define NVR_HEADERFILE_H

#include <QByteArray>

/**
 * A product header as kept in a file: either the raw record or hex text
 * ("0A 1B ..."), the form in which bytes are shown and copied elsewhere.
 * Also the widths of the header's text fields, which callers must keep
 * to: a longer text is written whole and shifts every later field.
 */
class HeaderFile
{
public:
    static constexpr int modelWidth = 16;
    static constexpr int serialWidth = 8;
    static constexpr int buildConfigurationWidth = 4;

    /// True when the content is nothing but hex digits and white space.
    static bool isHexText(const QByteArray &content);
    /// The header bytes a file holds, whichever of the two forms it has.
    static QByteArray decode(const QByteArray &content);
    /// The file content for header bytes: hex text on one line, or the bytes as they are.
    static QByteArray encode(const QByteArray &header, bool hexText);
};

#endif
