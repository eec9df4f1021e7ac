// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "headerfile.h"

#include "classes/memory.h"
#include "kvhex.h"

#include <QRegularExpression>
#include <QString>

bool HeaderFile::isHexText(const QByteArray &content)
{
    static const QRegularExpression hexText(QStringLiteral("^[\\s0-9A-Fa-f]*[0-9A-Fa-f][\\s0-9A-Fa-f]*$"));
    return hexText.match(QString::fromLatin1(content)).hasMatch();
}

QByteArray HeaderFile::decode(const QByteArray &content)
{
    return isHexText(content) ? Memory::HexStringToByteArray(QString::fromLatin1(content)) : content;
}

QByteArray HeaderFile::encode(const QByteArray &header, bool hexText)
{
    return hexText ? KvHex::BufferToHexString(header).toLatin1() + '\n' : header;
}
