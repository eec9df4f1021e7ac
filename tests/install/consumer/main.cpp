// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
//
// A program outside the project that uses the installed package: it names a
// memory code and writes a product header to the file given.

#include "classes/memoryaddress.h"
#include "classes/productdataheader.h"

#include <QFile>

#include <cstdio>

int main(int argc, char **argv)
{
    if (argc != 2)
        return 2;
    const QString code = QStringLiteral("D:0.20.01");
    std::printf("%s %s\n", qPrintable(code), qPrintable(Nevra::fieldTypeToString(MemoryAddress::fieldType(code))));

    ProductDataHeader header;
    header.setProductInfo(QStringLiteral("CONSUMER"), QStringLiteral("1"), 0, QStringLiteral("A"));
    QFile file(QString::fromLocal8Bit(argv[1]));
    return file.open(QIODevice::WriteOnly) && file.write(header.data()) == header.headerSize() ? 0 : 1;
}
