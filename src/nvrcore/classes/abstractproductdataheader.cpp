// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "abstractproductdataheader.h"

AbstractProductDataHeader::AbstractProductDataHeader(QObject *parent) : QObject(parent)
{
    Q_EMIT cleared();
}

AbstractProductDataHeader::~AbstractProductDataHeader() = default;

bool AbstractProductDataHeader::operator==(const AbstractProductDataHeader &other) const
{
    return isEqual(other);
}

bool AbstractProductDataHeader::operator!=(const AbstractProductDataHeader &other) const
{
    return !isEqual(other);
}

AbstractProductDataHeader &AbstractProductDataHeader::operator=(const AbstractProductDataHeader &other)
{
    copy(other);
    return *this;
}

QByteArray AbstractProductDataHeader::rawData() const
{
    return m_rawData;
}

void AbstractProductDataHeader::clear()
{
    m_rawData.clear();
    m_valid = false;
    Q_EMIT cleared();
}

bool AbstractProductDataHeader::isValid() const
{
    return m_valid;
}
