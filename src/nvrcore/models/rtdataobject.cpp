// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "rtdataobject.h"

RtDataObject::RtDataObject(QObject *parent) : KvAbstractDataObject(parent)
{
    setObjectName(QStringLiteral("Rt"));
    initFields();
}

RtDataObject::RtDataObject(const RtDataObject &other) : RtDataObject()
{
    copy(&other);
}

RtDataObject::~RtDataObject() = default;

QStringList RtDataObject::toStringList() const
{
    QStringList strings = KvAbstractDataObject::toStringList();
    for (const int field : {Id, Type, IncludeInRxList})
        strings[field] = QStringLiteral("%1").arg(data(field).toInt());
    return strings;
}

void RtDataObject::initFields()
{
    defineFields({
        {QStringLiteral("id"), 0},
        {QStringLiteral("manufacturer"), QString()},
        {QStringLiteral("model"), QString()},
        {QStringLiteral("type"), 0},
        {QStringLiteral("rxlevel"), QString()},
        {QStringLiteral("rxdescription"), QString()},
        {QStringLiteral("txlevel"), QString()},
        {QStringLiteral("txdescription"), QString()},
        {QStringLiteral("includeinrxlist"), 0},
    });
}
