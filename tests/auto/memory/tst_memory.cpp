// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "classes/memory.h"
#include "classes/memoryaddress.h"

#include <QTest>

#include <climits>

class tst_Memory : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void addresses_data();
    void addresses();
    void numbersToHex_data();
    void numbersToHex();
    void hexStringToInt_data();
    void hexStringToInt();
    void byteArrays_data();
    void byteArrays();
};

void tst_Memory::addresses_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("bus");
    QTest::addColumn<int>("device");
    QTest::addColumn<int>("location");
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("active");
    QTest::addColumn<int>("pullUp");

    auto row = [](const char *name, const QString &address, int type, int bus, int device, int location, int size,
                  int active, int pullUp) {
        QTest::newRow(name) << address << type << bus << device << location << size << active << pullUp;
    };
    auto noCode = [&row](const char *name, const QString &address) { row(name, address, 0, -1, -1, -1, 1, -1, -1); };

    row("dcp level", QStringLiteral("D:1.2A.05"), 2, 1, 42, 5, 1, -1, -1);
    row("dcp level, lower-case digits", QStringLiteral("D:f.ab.cd"), 2, 15, 171, 205, 1, -1, -1);
    row("memory byte", QStringLiteral("B:0.50.10"), 1, 0, 80, 16, 1, -1, -1);
    row("eeprom block", QStringLiteral("E:0.50.10.20"), 1, 0, 80, 16, 32, -1, -1);
    row("pin, options absent", QStringLiteral("I:2.21.07"), 3, 2, 33, 7, 1, 1, 1);
    row("pin, high and enabled", QStringLiteral("I:2.21.07.HE"), 3, 2, 33, 7, 1, 1, 1);
    row("pin, low and disabled", QStringLiteral("I:2.21.07.LD"), 3, 2, 33, 7, 1, 0, 0);
    row("pin, high and disabled", QStringLiteral("I:2.21.07.HD"), 3, 2, 33, 7, 1, 1, 0);
    row("pin, low and enabled", QStringLiteral("I:2.21.07.LE"), 3, 2, 33, 7, 1, 0, 1);
    row("port, mask absent", QStringLiteral("P:0.20.01"), 4, 0, 32, 1, 1, -1, 255);
    row("port, lower-case mask", QStringLiteral("P:0.20.01.fe"), 4, 0, 32, 1, 1, -1, 254);
    row("port, mask of letters", QStringLiteral("P:0.20.01.AB"), 4, 0, 32, 1, 1, -1, 171);
    // The mask's class also admits a backslash; such a mask is no number.
    row("port, backslash in mask", QStringLiteral("P:0.20.01.\\A"), 4, 0, 32, 1, 1, -1, 0);
    // PCRE's "$" also matches before one final line feed.
    row("trailing line feed", QStringLiteral("D:1.2A.05\n"), 2, 1, 42, 5, 1, -1, -1);

    noCode("port, mask with a digit", QStringLiteral("P:0.20.01.0F"));
    noCode("port, mask of digits", QStringLiteral("P:0.20.01.12"));
    noCode("pin, active level only", QStringLiteral("I:2.21.07.L"));
    noCode("pin, lower-case options", QStringLiteral("I:2.21.07.ld"));
    noCode("pin, unknown option", QStringLiteral("I:2.21.07.XE"));
    noCode("pin, options swapped", QStringLiteral("I:2.21.07.EL"));
    noCode("lower-case letter", QStringLiteral("d:1.2A.05"));
    noCode("unknown letter", QStringLiteral("X:1.2A.05"));
    noCode("one-digit group", QStringLiteral("D:1.2A.5"));
    noCode("two-digit bus", QStringLiteral("D:12.2A.05"));
    noCode("non-hex digit", QStringLiteral("D:1.2G.05"));
    noCode("non-ASCII digit", QString::fromUtf8("D:1.2A.0\xd9\xa5"));
    noCode("missing colon", QStringLiteral("D1.2A.05"));
    noCode("trailing blank", QStringLiteral("D:1.2A.05 "));
    noCode("leading blank", QStringLiteral(" D:1.2A.05"));
    noCode("dcp level with a fourth group", QStringLiteral("D:1.2A.05.01"));
    noCode("dcp level with pin options", QStringLiteral("D:1.2A.05.HE"));
    noCode("memory byte with a size", QStringLiteral("B:0.50.10.20"));
    noCode("eeprom block without size", QStringLiteral("E:0.50.10"));
    noCode("empty", QString());
}

void tst_Memory::addresses()
{
    QFETCH(QString, address);
    QFETCH(int, type);
    QFETCH(int, bus);
    QFETCH(int, device);
    QFETCH(int, location);
    QFETCH(int, size);
    QFETCH(int, active);
    QFETCH(int, pullUp);

    QCOMPARE(int(MemoryAddress::fieldType(address)), type);
    QCOMPARE(MemoryAddress::busNumber(address), bus);
    QCOMPARE(MemoryAddress::deviceAddress(address), device);
    QCOMPARE(MemoryAddress::memoryAddress(address), location);
    QCOMPARE(MemoryAddress::memorySize(address), size);
    QCOMPARE(MemoryAddress::pinActiveConfig(address), active);
    QCOMPARE(MemoryAddress::pullUpConfig(address), pullUp);
}

void tst_Memory::numbersToHex_data()
{
    // A null byte text marks values that are no byte.
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("asByte");
    QTest::addColumn<QString>("asInt");
    QTest::newRow("0") << 0 << QStringLiteral("0") << QStringLiteral("00");
    QTest::newRow("5") << 5 << QStringLiteral("5") << QStringLiteral("05");
    QTest::newRow("10") << 10 << QStringLiteral("A") << QStringLiteral("0A");
    QTest::newRow("15") << 15 << QStringLiteral("F") << QStringLiteral("0F");
    QTest::newRow("16") << 16 << QStringLiteral("10") << QStringLiteral("10");
    QTest::newRow("255") << 255 << QStringLiteral("FF") << QStringLiteral("FF");
    QTest::newRow("300") << 300 << QString() << QStringLiteral("12C");
    QTest::newRow("max") << INT_MAX << QString() << QStringLiteral("7FFFFFFF");
    QTest::newRow("-1") << -1 << QString() << QStringLiteral("0-1");
    QTest::newRow("-16") << -16 << QString() << QStringLiteral("0-10");
    QTest::newRow("min") << INT_MIN << QString() << QStringLiteral("0-80000000");
}

void tst_Memory::numbersToHex()
{
    QFETCH(int, value);
    QFETCH(QString, asByte);
    QFETCH(QString, asInt);
    QCOMPARE(Memory::IntToHexString(value), asInt);
    if (!asByte.isNull())
        QCOMPARE(Memory::ByteToHexString(uchar(value)), asByte);
}

void tst_Memory::hexStringToInt_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("value");
    QTest::newRow("upper case") << QStringLiteral("12C") << 300;
    QTest::newRow("lower case") << QStringLiteral("ff") << 255;
    QTest::newRow("leading zero") << QStringLiteral("05") << 5;
    QTest::newRow("negative") << QStringLiteral("-1") << -1;
    QTest::newRow("largest int") << QStringLiteral("7FFFFFFF") << INT_MAX;
    QTest::newRow("beyond int") << QStringLiteral("80000000") << 0;
    QTest::newRow("not hex") << QStringLiteral("1G") << 0;
    QTest::newRow("inner blank") << QStringLiteral("1 2") << 0;
    QTest::newRow("empty") << QString() << 0;
}

void tst_Memory::hexStringToInt()
{
    QFETCH(QString, text);
    QFETCH(int, value);
    QCOMPARE(Memory::HexStringToInt(text), value);
}

void tst_Memory::byteArrays_data()
{
    // A null canonical text marks decode-only rows, whose input is not what encoding gives.
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("canonical");
    QTest::newRow("empty") << QByteArray() << QString() << QStringLiteral("");
    QTest::newRow("bytes") << QByteArray("\x00\x0a\x7f\xff", 4) << QStringLiteral("000A7FFF") << QStringLiteral("000A7FFF");
    QTest::newRow("lower case") << QByteArray("\xab\xcd", 2) << QStringLiteral("abcd") << QString();
    QTest::newRow("separators skipped") << QByteArray("\xde\xad\xbe\xef", 4) << QStringLiteral("de:ad be-ef") << QString();
    QTest::newRow("odd count") << QByteArray("\x0a\xbc", 2) << QStringLiteral("abc") << QString();
    QTest::newRow("non-Latin-1 skipped") << QByteArray("\x12\x34", 2) << QString::fromUtf8("12\xe2\x82\xac" "34")
                                         << QString();
}

void tst_Memory::byteArrays()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, text);
    QFETCH(QString, canonical);
    QCOMPARE(Memory::HexStringToByteArray(text), bytes);
    if (!canonical.isNull())
        QCOMPARE(Memory::ByteArrayToHexString(bytes), canonical);
}

QTEST_GUILESS_MAIN(tst_Memory)
#include "tst_memory.moc"
