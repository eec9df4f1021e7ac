// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "kvabstractdataobject.h"

namespace {
// Converts value to the kind of like; kinds other than numbers, flags and text are kept as given.
QVariant convertedLike(const QVariant &like, const QVariant &value)
{
    switch (like.userType()) {
    case QMetaType::Int:
        return value.toInt();
    case QMetaType::UInt:
        return value.toUInt();
    case QMetaType::LongLong:
        return value.toLongLong();
    case QMetaType::Double:
        return value.toDouble();
    case QMetaType::Bool:
        return value.toBool();
    case QMetaType::QString:
        return value.toString();
    default:
        return value;
    }
}
}

KvAbstractDataObject::KvAbstractDataObject(QObject *parent) : QObject(parent)
{
}

KvAbstractDataObject::~KvAbstractDataObject() = default;

int KvAbstractDataObject::fieldCount() const
{
    return m_fields.size();
}

QString KvAbstractDataObject::fieldName(int index) const
{
    if (index >= 0 && index < m_fields.size())
        return m_fields.at(index).name;
    return QStringLiteral("Field%1").arg(index);
}

QVariant KvAbstractDataObject::data(int index) const
{
    if (index < 0 || index >= m_fields.size())
        return QVariant();
    return m_fields.at(index).value;
}

bool KvAbstractDataObject::setData(int index, const QVariant &value)
{
    if (index < 0 || index >= m_fields.size())
        return false;
    Field &field = m_fields[index];
    field.value = convertedLike(field.value, value);
    return true;
}

void KvAbstractDataObject::fromStringList(const QStringList &strings)
{
    for (int i = 0; i < m_fields.size(); ++i)
        setData(i, strings.value(i));
}

QStringList KvAbstractDataObject::toStringList() const
{
    QStringList strings;
    strings.reserve(m_fields.size());
    for (const Field &field : m_fields)
        strings.append(field.value.toString());
    return strings;
}

void KvAbstractDataObject::copy(const KvAbstractDataObject *other)
{
    if (!other || other == this)
        return;
    const int count = qMin(fieldCount(), other->fieldCount());
    for (int i = 0; i < count; ++i)
        setData(i, other->data(i));
}

void KvAbstractDataObject::defineFields(const QVector<QPair<QString, QVariant>> &fields)
{
    m_fields.clear();
    m_fields.reserve(fields.size());
    for (const auto &field : fields)
        m_fields.append(Field{field.first, field.second});
}
