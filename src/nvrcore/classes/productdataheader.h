// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_PRODUCTDATAHEADER_H
#define NVR_PRODUCTDATAHEADER_H

#include "abstractproductdataheader.h"

#include <QDateTime>
#include <QString>

/**
 * The 56-byte product data header: model (16 bytes), serial number (8),
 * mod status, header CRC over bytes 0 to 27, creation time, build
 * configuration (4), writer's version (8), programming time and the CRC of
 * the product data. Texts are Latin-1 padded with NUL bytes; integers are
 * 32-bit little-endian; times are seconds since 1970 UTC, 0 meaning none.
 *
 * Texts longer than their field are written whole, which lengthens the
 * record and shifts the later fields: callers keep them within width.
 * Headers written by versions up to x.69 carry no build configuration; it
 * is then "A", or for serial numbers above 4499 the one ProductsModel
 * gives for hardware configuration 2.
 *
 * fileDataCrc is the host's own CRC of the product data; it is never
 * encoded, only shown beside productDataCrc.
 */
class NVRCORE_EXPORT ProductDataHeader : public AbstractProductDataHeader
{
    Q_OBJECT
public:
    explicit ProductDataHeader(QObject *parent = nullptr);
    ~ProductDataHeader() override;

    using AbstractProductDataHeader::operator=;
    ProductDataHeader &operator=(const ProductDataHeader &other);

    /// Prepares a new header: the four values, created now, by this application's version.
    void setProductInfo(const QString &productModel, const QString &serialNumber, const uint &modStatus,
                        const QString &buildConfiguration);
    /// Marks the header as programmed now by this application's version.
    void punchProgramTime();
    void clearCreatedTime();
    void clearProgramTime();
    QDateTime createdDateTime() const;
    QDateTime lastProgrammedDateTime() const;
    /// Whether a header written by this version holds its build configuration (versions after x.69).
    static bool carriesBuildConfiguration(const QString &softwareVersion);

public Q_SLOTS:
    void clear() override;
    /// Also stores the header CRC it computes in headerCrc and calculatedHeaderCrc.
    QByteArray data() override;
    /// False for fewer than headerSize() bytes, which change nothing but the raw bytes.
    bool setData(const QByteArray &bytes) override;
    int headerSize() const override;
    /// Compares the decoded fields, not fileDataCrc nor the raw bytes.
    bool isEqual(const AbstractProductDataHeader &other) const override;
    /// Copies what isEqual() compares; emits nothing.
    void copy(const AbstractProductDataHeader &other) override;
    /**
     * An HTML table of the fields, with CRC mismatches in red. The label
     * column is 15% wide: in a QTextBrowser, use the word wrap mode
     * QTextOption::WordWrap, or the default mode breaks labels such as
     * "Configuration:" inside the word in a narrow browser.
     */
    void output(QTextStream &stream) const override;
    virtual int size() const;

public:
    quint32 productDataCrc = 0;
    quint32 fileDataCrc = 0;
    quint32 headerCrc = 0;
    quint32 calculatedHeaderCrc = 0;
    quint32 createdTime = 0;
    quint32 programTime = 0;
    quint32 modStatus = 0;
    QString buildConfiguration;
    QString productModel;
    QString serialNumber;
    QString softwareVersion;
};

#endif
