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
    void addresses_data()
    {
        // What the address gives, as "type bus device location size active pull-up".
        QTest::addColumn<QString>("address");
        QTest::addColumn<QString>("parts");
        const QString none = QStringLiteral("0 -1 -1 -1 1 -1 -1");

        QTest::newRow("dcp level, lower-case digits") << "D:f.ab.cd" << "2 15 171 205 1 -1 -1";
        QTest::newRow("memory byte") << "B:0.50.10" << "1 0 80 16 1 -1 -1";
        QTest::newRow("eeprom block") << "E:0.50.10.20" << "1 0 80 16 32 -1 -1";
        QTest::newRow("pin, options absent") << "I:2.21.07" << "3 2 33 7 1 1 1";
        QTest::newRow("pin, low and disabled") << "I:2.21.07.LD" << "3 2 33 7 1 0 0";
        QTest::newRow("pin, high and disabled") << "I:2.21.07.HD" << "3 2 33 7 1 1 0";
        QTest::newRow("pin, low and enabled") << "I:2.21.07.LE" << "3 2 33 7 1 0 1";
        QTest::newRow("port, mask absent") << "P:0.20.01" << "4 0 32 1 1 -1 255";
        QTest::newRow("port, lower-case mask") << "P:0.20.01.fe" << "4 0 32 1 1 -1 254";
        // The mask's class also admits a backslash; such a mask is no number.
        QTest::newRow("port, backslash in mask") << "P:0.20.01.\\A" << "4 0 32 1 1 -1 0";
        // PCRE's "$" also matches before one final line feed.
        QTest::newRow("trailing line feed") << "D:1.2A.05\n" << "2 1 42 5 1 -1 -1";

        QTest::newRow("port, mask with a digit") << "P:0.20.01.0F" << none;
        QTest::newRow("pin, active level only") << "I:2.21.07.L" << none;
        QTest::newRow("pin, lower-case options") << "I:2.21.07.ld" << none;
        QTest::newRow("pin, options swapped") << "I:2.21.07.EL" << none;
        QTest::newRow("lower-case letter") << "d:1.2A.05" << none;
        QTest::newRow("unknown letter") << "X:1.2A.05" << none;
        QTest::newRow("non-hex digit") << "D:1.2G.05" << none;
        QTest::newRow("one-digit group") << "D:1.2A.5" << none;
        QTest::newRow("two-digit bus") << "D:12.2A.05" << none;
        QTest::newRow("non-ASCII digit") << QString::fromUtf8("D:1.2A.0\xd9\xa5") << none;
        QTest::newRow("leading blank") << " D:1.2A.05" << none;
        QTest::newRow("trailing blank") << "D:1.2A.05 " << none;
        QTest::newRow("dcp level with pin options") << "D:1.2A.05.HE" << none;
        QTest::newRow("memory byte with a size") << "B:0.50.10.20" << none;
        QTest::newRow("eeprom block without size") << "E:0.50.10" << none;
        QTest::newRow("empty") << QString() << none;
    }

    void addresses()
    {
        QFETCH(QString, address);
        QFETCH(QString, parts);
        const QList<int> found = {int(MemoryAddress::fieldType(address)),    MemoryAddress::busNumber(address),
                                  MemoryAddress::deviceAddress(address),     MemoryAddress::memoryAddress(address),
                                  MemoryAddress::memorySize(address),        MemoryAddress::pinActiveConfig(address),
                                  MemoryAddress::pullUpConfig(address)};
        QStringList texts;
        for (const int value : found)
            texts << QString::number(value);
        QCOMPARE(texts.join(QLatin1Char(' ')), parts);
    }

    void hexTexts()
    {
        QCOMPARE(Memory::ByteToHexString(10), QStringLiteral("A"));
        QCOMPARE(Memory::ByteToHexString(255), QStringLiteral("FF"));
        // Values up to 15 get a leading zero, also in front of a minus sign.
        const QList<QPair<int, QString>> ints = {{10, "0A"}, {16, "10"}, {300, "12C"}, {INT_MAX, "7FFFFFFF"},
                                                 {-16, "0-10"}, {INT_MIN, "0-80000000"}};
        for (const auto &pair : ints)
            QCOMPARE(Memory::IntToHexString(pair.first), pair.second);

        const QList<QPair<QString, int>> texts = {{"ff", 255}, {"-1", -1}, {"7FFFFFFF", INT_MAX}, {"80000000", 0},
                                                  {"1G", 0},   {"1 2", 0}, {QString(), 0}};
        for (const auto &pair : texts)
            QCOMPARE(Memory::HexStringToInt(pair.first), pair.second);

        QCOMPARE(Memory::ByteArrayToHexString(QByteArray("\x00\x0a\x7f\xff", 4)), QStringLiteral("000A7FFF"));
        QCOMPARE(Memory::ByteArrayToHexString(QByteArray()), QStringLiteral(""));
        // Decoding skips whatever is no hex digit, and an odd count gets a leading zero.
        QCOMPARE(Memory::HexStringToByteArray(QStringLiteral("de:ad be-ef")), QByteArray("\xde\xad\xbe\xef"));
        QCOMPARE(Memory::HexStringToByteArray(QStringLiteral("abc")), QByteArray("\x0a\xbc"));
        QCOMPARE(Memory::HexStringToByteArray(QString::fromUtf8("12\xe2\x82\xac" "34")), QByteArray("\x12\x34"));
        QCOMPARE(Memory::HexStringToByteArray(QString()), QByteArray());
    }
};

QTEST_GUILESS_MAIN(tst_Memory)
#include "tst_memory.moc"
