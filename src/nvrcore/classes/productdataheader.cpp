// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "productdataheader.h"

#include "kvcore.h"
#include "kvcrc.h"
#include "kvhex.h"
#include "logger.h"
#include "models/productsmodel.h"
#include "widgets/modstatuswidget.h"

#include <QCoreApplication>
#include <QTextStream>
#include <QVersionNumber>

namespace {
constexpr int modelOffset = 0;
constexpr int modelWidth = 16;
constexpr int serialOffset = 16;
constexpr int serialWidth = 8;
constexpr int modStatusOffset = 24;
constexpr int headerCrcOffset = 28;
constexpr int createdTimeOffset = 32;
constexpr int buildConfigOffset = 36;
constexpr int buildConfigWidth = 4;
constexpr int versionOffset = 40;
constexpr int versionWidth = 8;
constexpr int programTimeOffset = 48;
constexpr int productDataCrcOffset = 52;
constexpr int encodedSize = 56;

// The header CRC covers the identity fields: model, serial number and mod status.
constexpr int headerCrcLength = headerCrcOffset;

// The last minor version whose headers left the build configuration bytes undefined.
constexpr int lastVersionWithoutBuildConfig = 69;
// Units of older headers above this serial number were built in the second hardware configuration.
constexpr int lastSerialOfFirstHardware = 4499;

QByteArray padded(const QString &text, int width)
{
    QByteArray bytes = text.toLatin1();
    if (bytes.size() < width)
        bytes.append(width - bytes.size(), '\0');
    return bytes;
}

QString field(const QByteArray &bytes, int offset, int width)
{
    const QByteArray raw = bytes.mid(offset, width);
    const int nul = raw.indexOf('\0');
    return QString::fromLatin1(nul < 0 ? raw : raw.left(nul));
}

QString crcText(quint32 crc)
{
    return KvHex::IntToString(static_cast<int>(crc));
}

QString timeText(quint32 seconds)
{
    return KvCore::dateTimeToString(QDateTime::fromSecsSinceEpoch(seconds));
}

void row(QTextStream &stream, const char *label, const QString &value, bool empty)
{
    stream << "<tr class='nohide'>" << label;
    if (empty)
        stream << "<td></td>";
    else
        stream << "<td>" << value << "</td>";
    stream << "</tr>";
}
}

ProductDataHeader::ProductDataHeader(QObject *parent) : AbstractProductDataHeader(parent)
{
    clear();
}

ProductDataHeader::~ProductDataHeader() = default;

ProductDataHeader &ProductDataHeader::operator=(const ProductDataHeader &other)
{
    copy(other);
    return *this;
}

void ProductDataHeader::clear()
{
    productDataCrc = 0;
    fileDataCrc = 0;
    headerCrc = 0;
    calculatedHeaderCrc = 0;
    createdTime = 0;
    programTime = 0;
    modStatus = 0;
    buildConfiguration.clear();
    productModel.clear();
    serialNumber.clear();
    softwareVersion.clear();
    AbstractProductDataHeader::clear();
}

void ProductDataHeader::setProductInfo(const QString &productModel, const QString &serialNumber,
                                       const uint &modStatus, const QString &buildConfiguration)
{
    this->productModel = productModel;
    this->serialNumber = serialNumber;
    this->modStatus = modStatus;
    this->buildConfiguration = buildConfiguration;
    createdTime = static_cast<quint32>(QDateTime::currentSecsSinceEpoch());
    softwareVersion = QCoreApplication::applicationVersion();
}

void ProductDataHeader::punchProgramTime()
{
    programTime = static_cast<quint32>(QDateTime::currentSecsSinceEpoch());
    softwareVersion = QCoreApplication::applicationVersion();
}

void ProductDataHeader::clearCreatedTime()
{
    createdTime = 0;
}

void ProductDataHeader::clearProgramTime()
{
    programTime = 0;
}

QDateTime ProductDataHeader::createdDateTime() const
{
    return QDateTime::fromSecsSinceEpoch(createdTime);
}

QDateTime ProductDataHeader::lastProgrammedDateTime() const
{
    return QDateTime::fromSecsSinceEpoch(programTime);
}

QByteArray ProductDataHeader::data()
{
    QByteArray bytes;
    bytes += padded(productModel, modelWidth);
    bytes += padded(serialNumber, serialWidth);
    bytes += KvHex::UintToBuffer(modStatus);
    headerCrc = KvCrc::crc32(bytes, headerCrcLength);
    calculatedHeaderCrc = headerCrc;
    bytes += KvHex::UintToBuffer(headerCrc);
    bytes += KvHex::UintToBuffer(createdTime);
    bytes += padded(buildConfiguration, buildConfigWidth);
    bytes += padded(softwareVersion, versionWidth);
    bytes += KvHex::UintToBuffer(programTime);
    bytes += KvHex::UintToBuffer(productDataCrc);
    return bytes;
}

bool ProductDataHeader::setData(const QByteArray &bytes)
{
    LOG_TRACE(KvHex::BufferToHexString(bytes));
    m_rawData = bytes;
    m_valid = false;
    if (bytes.size() < headerSize())
        return false;

    productModel = field(bytes, modelOffset, modelWidth);
    serialNumber = field(bytes, serialOffset, serialWidth);
    modStatus = KvHex::BufferToUint(bytes, modStatusOffset);
    headerCrc = KvHex::BufferToUint(bytes, headerCrcOffset);
    calculatedHeaderCrc = KvCrc::crc32(bytes, headerCrcLength);
    createdTime = KvHex::BufferToUint(bytes, createdTimeOffset);
    softwareVersion = field(bytes, versionOffset, versionWidth);
    programTime = KvHex::BufferToUint(bytes, programTimeOffset);
    productDataCrc = KvHex::BufferToUint(bytes, productDataCrcOffset);

    LOG_INFO(QStringLiteral("Read Header Version: %1").arg(QVersionNumber::fromString(softwareVersion).toString()));
    if (carriesBuildConfiguration(softwareVersion)) {
        buildConfiguration = field(bytes, buildConfigOffset, buildConfigWidth);
    } else {
        buildConfiguration = QStringLiteral("A");
        if (serialNumber.toInt() > lastSerialOfFirstHardware)
            buildConfiguration = ProductsModel::instance()->buildConfiguration(productModel, 2);
    }

    m_valid = true;
    Q_EMIT changed();
    return true;
}

bool ProductDataHeader::carriesBuildConfiguration(const QString &softwareVersion)
{
    const QVersionNumber version = QVersionNumber::fromString(softwareVersion);
    return version.segmentCount() >= 2 && version.majorVersion() >= 0
           && version.minorVersion() > lastVersionWithoutBuildConfig;
}

int ProductDataHeader::headerSize() const
{
    return encodedSize;
}

int ProductDataHeader::size() const
{
    return headerSize();
}

bool ProductDataHeader::isEqual(const AbstractProductDataHeader &other) const
{
    const auto *that = qobject_cast<const ProductDataHeader *>(&other);
    return that && headerCrc == that->headerCrc && productDataCrc == that->productDataCrc
        && calculatedHeaderCrc == that->calculatedHeaderCrc && createdTime == that->createdTime
        && programTime == that->programTime && modStatus == that->modStatus
        && buildConfiguration == that->buildConfiguration && productModel == that->productModel
        && serialNumber == that->serialNumber && softwareVersion == that->softwareVersion;
}

void ProductDataHeader::copy(const AbstractProductDataHeader &other)
{
    const auto *that = qobject_cast<const ProductDataHeader *>(&other);
    if (!that || that == this)
        return;
    headerCrc = that->headerCrc;
    productDataCrc = that->productDataCrc;
    calculatedHeaderCrc = that->calculatedHeaderCrc;
    createdTime = that->createdTime;
    programTime = that->programTime;
    modStatus = that->modStatus;
    buildConfiguration = that->buildConfiguration;
    productModel = that->productModel;
    serialNumber = that->serialNumber;
    softwareVersion = that->softwareVersion;
}

void ProductDataHeader::output(QTextStream &stream) const
{
    const bool empty = productModel.isEmpty();
    const bool dataCrcsDiffer = !empty && productDataCrc != fileDataCrc;
    const auto marked = [dataCrcsDiffer](quint32 crc) {
        return dataCrcsDiffer ? QStringLiteral("<span style='color:red'>%1</span>").arg(crcText(crc)) : crcText(crc);
    };
    QString headerCrcValue = crcText(headerCrc);
    if (headerCrc != calculatedHeaderCrc)
        headerCrcValue += QStringLiteral("<span style='color:red'> [Calculated = %1]</span>").arg(crcText(calculatedHeaderCrc));

    stream << "<table style='width:100%' border='0'>" << '\n';
    row(stream, "<td width='15%'><b>Product Model:</b></td>", productModel, false);
    row(stream, "<td><b>Serial #:</b></td>", serialNumber, false);
    row(stream, "<td><b>Mod Status:</b></td>", ModStatusWidget::modStatusString(modStatus), empty || modStatus == 0);
    row(stream, "<td><b>Product Header Crc:</b></td>", headerCrcValue, empty || headerCrc == 0);
    row(stream, "<td><b>Build Configuration:</b></td>", buildConfiguration, false);
    row(stream, "<td><b>Initialized Date:</b></td>", timeText(createdTime), empty || createdTime == 0);
    row(stream, "<td><b>Nevra Ver:</b></td>", softwareVersion, empty);
    row(stream, "<td><b>Data Last Modified:</b></td>", timeText(programTime), empty || programTime == 0);
    row(stream, "<td><b>Product Data Crc:</b></td>", marked(productDataCrc), false);
    row(stream, "<td><b>File Data Crc:</b></td>", marked(fileDataCrc), false);
    stream << "</table>";
}
