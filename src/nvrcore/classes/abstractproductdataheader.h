// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_ABSTRACTPRODUCTDATAHEADER_H
#define NVR_ABSTRACTPRODUCTDATAHEADER_H

#include "nvrcore_export.h"

#include <QByteArray>
#include <QObject>

class QTextStream;

/**
 * The header record at the start of a product's stored configuration, as
 * bytes read from the product and as decoded fields. This base keeps the
 * raw bytes last given to setData() and whether they decoded; subclasses
 * define the layout. Comparison and assignment go through isEqual() and
 * copy(), so they cover the decoded fields only.
 */
class NVRCORE_EXPORT AbstractProductDataHeader : public QObject
{
    Q_OBJECT
public:
    explicit AbstractProductDataHeader(QObject *parent = nullptr);
    ~AbstractProductDataHeader() override;

    bool operator==(const AbstractProductDataHeader &other) const;
    bool operator!=(const AbstractProductDataHeader &other) const;
    AbstractProductDataHeader &operator=(const AbstractProductDataHeader &other);

    /// The bytes last given to setData(), whether or not they decoded.
    QByteArray rawData() const;

Q_SIGNALS:
    void changed();
    void cleared();

public Q_SLOTS:
    /// Forgets the raw bytes and the validity; emits cleared().
    virtual void clear();
    /// The header encoded for writing to the product.
    virtual QByteArray data() = 0;
    /// True after a successful setData(), until clear().
    virtual bool isValid() const;
    virtual bool setData(const QByteArray &bytes) = 0;
    virtual int headerSize() const = 0;
    virtual bool isEqual(const AbstractProductDataHeader &other) const = 0;
    virtual void copy(const AbstractProductDataHeader &other) = 0;
    /// Writes the header for a person to read, as HTML.
    virtual void output(QTextStream &stream) const = 0;

protected:
    QByteArray m_rawData;
    bool m_valid = false;
};

#endif
