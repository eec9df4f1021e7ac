// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "classes/productdataheader.h"
#include "kvcrc.h"
#include "kvhex.h"
#include "models/productsmodel.h"
#include "productrows.h"
#include "testappdir.h"

#include <QCoreApplication>
#include <QSignalSpy>
#include <QTest>
#include <QTextStream>

namespace {
void sample(ProductDataHeader &header)
{
    header.setProductInfo(QStringLiteral("PMA7000"), QStringLiteral("4711"), 0x5, QStringLiteral("C"));
    header.createdTime = 1700000000;
    header.programTime = 1710000000;
    header.productDataCrc = 0xDEADBEEF;
    header.fileDataCrc = 0xDEADBEEF;
}

QString html(const ProductDataHeader &header)
{
    QString text;
    QTextStream stream(&text);
    header.output(stream);
    stream.flush();
    return text;
}

QByteArray field(const char *text, int width)
{
    return QByteArray(text).leftJustified(width, '\0');
}
}

class tst_ProductHeader : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        TestAppDir::prepare();
        QCoreApplication::setApplicationVersion(QStringLiteral("1.72"));
        // PMA7000 units were built in hardware configuration 2 from revision D on.
        fillProducts({"PMA7000 A C 1", "PMA7000 D F 2"});
    }

    void cleanupTestCase()
    {
        ProductsModel::destroyInstance();
        TestAppDir::cleanup();
    }

    void encodeDecodeRoundTrip()
    {
        ProductDataHeader written;
        sample(written);
        QCOMPARE(written.softwareVersion, QStringLiteral("1.72"));
        const QByteArray bytes = written.data();
        QCOMPARE(bytes.size(), 56);
        QCOMPARE(written.headerCrc, KvCrc::crc32(bytes, 28)); // encoding keeps the CRC it wrote
        QCOMPARE(written.calculatedHeaderCrc, written.headerCrc);

        ProductDataHeader read;
        QSignalSpy changed(&read, &ProductDataHeader::changed);
        QVERIFY(read.setData(bytes + QByteArray(8, '\x55'))); // bytes past the header are ignored
        QVERIFY(read.isValid());
        QCOMPARE(changed.count(), 1);
        QVERIFY(read == written);
        QCOMPARE(read.lastProgrammedDateTime(), QDateTime::fromSecsSinceEpoch(1710000000));

        // Short input keeps only its raw bytes: the fields stay, and nothing is announced.
        changed.clear();
        QVERIFY(!read.setData(bytes.left(55)));
        QVERIFY(!read.isValid() && read == written);
        QCOMPARE(read.rawData(), bytes.left(55));
        QVERIFY(!read.setData(QByteArray()));
        QCOMPARE(changed.count(), 0);

        QSignalSpy cleared(&read, &ProductDataHeader::cleared);
        read.clear();
        QCOMPARE(cleared.count(), 1);
        QVERIFY(!read.isValid() && read.rawData().isEmpty() && read.productModel.isEmpty());
    }

    void encodedLayout()
    {
        ProductDataHeader header;
        QByteArray zeros(56, '\0');
        QCOMPARE(header.data(), zeros.replace(28, 4, KvHex::UintToBuffer(KvCrc::crc32(QByteArray(28, '\0'), 28))));

        header.productModel = QStringLiteral("AB");
        header.serialNumber = QStringLiteral("12");
        header.modStatus = 0x0201;
        header.createdTime = 0x01020304;
        header.buildConfiguration = QStringLiteral("D");
        header.softwareVersion = QStringLiteral("1.70");
        header.programTime = 0x0A0B0C0D;
        header.productDataCrc = 0x11223344;
        const QByteArray identity = field("AB", 16) + field("12", 8) + QByteArray::fromHex("01020000");
        QCOMPARE(header.data(), identity + KvHex::UintToBuffer(KvCrc::crc32(identity, 28))
                                    + QByteArray::fromHex("04030201") + field("D", 4) + field("1.70", 8)
                                    + QByteArray::fromHex("0D0C0B0A44332211"));

        // Texts are never cut: a 17-character model lengthens the record and shifts the rest.
        header.productModel = QStringLiteral("ABCDEFGHIJKLMNOPQ");
        const QByteArray longer = header.data();
        QCOMPARE(longer.size(), 57);
        QCOMPARE(longer.mid(17, 8), field("12", 8));
    }

    void buildConfigurationByVersion_data()
    {
        QTest::addColumn<QString>("version");
        QTest::addColumn<QString>("model");
        QTest::addColumn<QString>("serial");
        QTest::addColumn<QString>("buildConfiguration");

        QTest::newRow("1.70 carries it") << "1.70" << "PMA7000" << "4500" << "Q";
        QTest::newRow("0.100 carries it") << "0.100" << "X" << "1" << "Q";
        QTest::newRow("1.69") << "1.69" << "X" << "1" << "A";
        QTest::newRow("not a version") << "v1.80" << "X" << "1" << "A";
        QTest::newRow("serial 4499") << "1.69" << "PMA7000" << "4499" << "A";
        QTest::newRow("serial 4500 asks the products") << "1.69" << "PMA7000" << "4500" << "D";
    }

    void buildConfigurationByVersion()
    {
        QFETCH(QString, version);
        QFETCH(QString, model);
        QFETCH(QString, serial);
        QFETCH(QString, buildConfiguration);

        ProductDataHeader header;
        header.setProductInfo(model, serial, 0, QStringLiteral("Q"));
        header.softwareVersion = version;
        ProductDataHeader read;
        QVERIFY(read.setData(header.data()));
        QCOMPARE(read.buildConfiguration, buildConfiguration);
    }

    void output()
    {
        ProductDataHeader header;
        sample(header);
        header.setData(header.data());
        header.fileDataCrc = 0x0BADF00D;
        // The mods as a list, the version, and data CRCs that differ, both in red.
        const QString full = html(header);
        QVERIFY(full.contains(QStringLiteral("<td><b>1</b>,<b>3</b></td>")));
        QVERIFY(full.contains(QStringLiteral("<td>1.72</td>")));
        QVERIFY(full.contains(QStringLiteral("<span style='color:red'>0xDEADBEEF</span>")));
        QVERIFY(full.contains(QStringLiteral("<span style='color:red'>0x0BADF00D</span>")));

        // Zero words show empty cells; with no model only texts and data CRCs show, never in red.
        header.modStatus = 0;
        header.headerCrc = 0;
        header.createdTime = 0;
        const QString zeros = html(header);
        QVERIFY(zeros.contains(QStringLiteral("Mod Status:</b></td><td></td>")));
        QVERIFY(zeros.contains(QStringLiteral("Product Header Crc:</b></td><td></td>")));
        QVERIFY(zeros.contains(QStringLiteral("Initialized Date:</b></td><td></td>")));
        header.productModel.clear();
        header.modStatus = 1;
        const QString empty = html(header);
        QVERIFY(empty.contains(QStringLiteral("Serial #:</b></td><td>4711</td>")));
        QVERIFY(empty.contains(QStringLiteral("Mod Status:</b></td><td></td>")));
        QVERIFY(empty.contains(QStringLiteral("Data Last Modified:</b></td><td></td>")));
        QVERIFY(empty.contains(QStringLiteral("File Data Crc:</b></td><td>0x0BADF00D</td>")));
    }

    void changedIdentityByteShowsCalculatedCrc()
    {
        ProductDataHeader header;
        sample(header);
        const QByteArray bytes = header.data();
        for (int at = 0; at < 56; ++at) {
            QByteArray damaged = bytes;
            damaged[at] = char(damaged.at(at) ^ 0x40);
            ProductDataHeader read;
            QVERIFY(read.setData(damaged)); // a CRC mismatch is shown, not refused
            const QString red = QStringLiteral("<span style='color:red'> [Calculated = %1]</span>")
                                    .arg(KvHex::IntToString(int(read.calculatedHeaderCrc)));
            // The identity bytes 0 to 27 and the stored CRC itself are covered; nothing after them.
            QCOMPARE(html(read).contains(red), at < 32);
        }
    }

    void copyAndCompare()
    {
        ProductDataHeader source;
        sample(source);
        source.setData(source.data());
        ProductDataHeader target;
        target.fileDataCrc = 3;
        QSignalSpy changed(&target, &ProductDataHeader::changed);
        target = source;
        QVERIFY(target == source);
        QCOMPARE(target.fileDataCrc, 3u); // the host's own CRC stays, and is not compared
        QVERIFY(target.rawData().isEmpty() && !target.isValid());
        QCOMPARE(changed.count(), 0);

        ProductDataHeader other;
        other = target;
        other.calculatedHeaderCrc ^= 1;
        QVERIFY(other != target);
        other = target;
        other.softwareVersion = QStringLiteral("9.99");
        QVERIFY(other != target);
    }
};

QTEST_GUILESS_MAIN(tst_ProductHeader)
#include "tst_productheader.moc"
