// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef KV_KVABSTRACTDATAOBJECT_H
#define KV_KVABSTRACTDATAOBJECT_H

#include "kvcore_export.h"

#include <QObject>
#include <QPair>
#include <QStringList>
#include <QVariant>
#include <QVector>

/**
 * One record of a table: a fixed list of named, indexed fields.
 *
 * Each field keeps the kind of its initial value (integer, number, flag or
 * text): setData() converts what it is given to that kind, so a record read
 * from text ("200") holds the same values as one set from numbers (200), and
 * text that is not a number reads as 0.
 *
 * Subclasses declare their fields in initFields() with defineFields() and
 * call initFields() from their own constructor (the base constructor cannot
 * reach the override). Names beyond the declared fields are "Field<n>".
 */
class KVCORE_EXPORT KvAbstractDataObject : public QObject
{
    Q_OBJECT
public:
    explicit KvAbstractDataObject(QObject *parent = nullptr);
    ~KvAbstractDataObject() override;

    int fieldCount() const;
    virtual QString fieldName(int index) const;
    /// The field's value; an invalid variant beyond the fields.
    QVariant data(int index) const;
    /// Stores value converted to the field's kind; false beyond the fields.
    bool setData(int index, const QVariant &value);

    /// Sets every field from the text at its index; missing entries count as empty text.
    virtual void fromStringList(const QStringList &strings);
    /// Every field as text, in index order.
    virtual QStringList toStringList() const;
    /// Takes the values of the fields both records have.
    virtual void copy(const KvAbstractDataObject *other);

protected:
    /// Declares the fields with their initial values, or resets them to those.
    virtual void initFields() = 0;
    /// Replaces all fields by these (name, initial value) pairs, in index order.
    void defineFields(const QVector<QPair<QString, QVariant>> &fields);

private:
    struct Field
    {
        QString name;
        QVariant value;
    };
    QVector<Field> m_fields;
};

#endif
