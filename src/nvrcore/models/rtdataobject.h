// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_RTDATAOBJECT_H
#define NVR_RTDATAOBJECT_H

#include "nvrcore_export.h"

#include "kvabstractdataobject.h"

/**
 * One radio: id, manufacturer, model, type, receive level and description,
 * transmit level and description, and whether it is also offered as a
 * receiver. Id, type and the flag are integers; levels are kept as the text
 * the user typed (volts RMS, e.g. "7.75"), so that they are written back
 * exactly as read. A fresh record is id 0, type Not Installed, all texts
 * empty, flag 0.
 */
class NVRCORE_EXPORT RtDataObject : public KvAbstractDataObject
{
    Q_OBJECT
public:
    enum Field {
        Id = 0,
        Manufacturer,
        Model,
        Type,
        RxLevel,
        RxDescription,
        TxLevel,
        TxDescription,
        IncludeInRxList,
    };

    explicit RtDataObject(QObject *parent = nullptr);
    RtDataObject(const RtDataObject &other);
    ~RtDataObject() override;

    /// The nine fields as stored in the radio files; id, type and flag as decimal integers.
    QStringList toStringList() const override;

protected:
    void initFields() override;
};

#endif
