// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "rtstablemodel.h"

#include "models/rtdataobject.h"

#include <QBrush>
#include <QColor>
#include <QMessageBox>

namespace {
RtsTableModel *s_instance = nullptr;

// Which levels a type of radio has: receivers only listen, PA and CVR only take audio in.
bool hasRxLevel(int type)
{
    return type == Rt::Transceiver || type == Rt::Receiver;
}

bool hasTxLevel(int type)
{
    return type == Rt::Transceiver || type == Rt::Pa || type == Rt::Cvr;
}
}

RtsTableModel::RtsTableModel(QObject *parent) : OldKvAbstractTableModel(parent)
{
    setObjectName(QStringLiteral("RtsTableModel"));
    setColumnCount(ColumnCount);
}

RtsTableModel::~RtsTableModel()
{
    if (s_instance == this)
        s_instance = nullptr;
}

RtsTableModel *RtsTableModel::instance()
{
    if (!s_instance)
        s_instance = new RtsTableModel;
    return s_instance;
}

void RtsTableModel::destroyInstance()
{
    delete s_instance;
    s_instance = nullptr;
}

int RtsTableModel::rtId(const QModelIndex &index) const
{
    if (!index.isValid())
        return 0;
    return field(index.row(), IdColumn).toInt();
}

bool RtsTableModel::isBaseRt(const QModelIndex &index) const
{
    return rtId(index) < FirstUserRtId;
}

int RtsTableModel::baseRtsCount() const
{
    int count = 0;
    for (int row = 0; row < rowCount(); ++row) {
        if (rtId(index(row, IdColumn)) < FirstUserRtId)
            ++count;
    }
    return count;
}

int RtsTableModel::userRtsCount() const
{
    return rowCount() - baseRtsCount();
}

Rt::RtType RtsTableModel::rtType(const QModelIndex &index) const
{
    if (!index.isValid())
        return Rt::NotInstalled;
    return static_cast<Rt::RtType>(field(index.row(), TypeColumn).toInt());
}

bool RtsTableModel::includeInRxList(const QModelIndex &index) const
{
    if (!index.isValid())
        return false;
    if (rtType(index) == Rt::Receiver)
        return true;
    return field(index.row(), IncludeInRxListColumn).toInt() != 0;
}

QString RtsTableModel::rtName(const QModelIndex &index) const
{
    return index.isValid() ? field(index.row(), ManufacturerColumn) : QString();
}

QString RtsTableModel::rtModel(const QModelIndex &index) const
{
    return index.isValid() ? field(index.row(), ModelColumn) : QString();
}

double RtsTableModel::rxLevel(const QModelIndex &index) const
{
    return index.isValid() ? field(index.row(), RxLevelColumn).toDouble() : 0.0;
}

double RtsTableModel::txLevel(const QModelIndex &index) const
{
    return index.isValid() ? field(index.row(), TxLevelColumn).toDouble() : 0.0;
}

int RtsTableModel::nextUserRtId() const
{
    return m_nextUserRtId;
}

void RtsTableModel::setNextUserRtId(const int &id)
{
    m_nextUserRtId = id;
    m_savedNextUserRtId = id;
}

QModelIndex RtsTableModel::locateRtId(const unsigned &id) const
{
    unsigned wanted = id;
    // 56 and 57 were retired; records that still name them mean these Garmin transceivers.
    if (wanted == 56)
        wanted = 23;
    else if (wanted == 57)
        wanted = 24;
    const QString text = QString::number(wanted);
    for (int row = 0; row < rowCount(); ++row) {
        if (field(row, IdColumn) == text)
            return index(row, IdColumn);
    }
    return QModelIndex();
}

QModelIndex RtsTableModel::locateRt(const QString &manufacturer, const QString &model) const
{
    for (int row = 0; row < rowCount(); ++row) {
        if (field(row, ManufacturerColumn) == manufacturer && field(row, ModelColumn) == model)
            return index(row, ManufacturerColumn);
    }
    return QModelIndex();
}

KvAbstractDataObject *RtsTableModel::newDataObject()
{
    auto *object = new RtDataObject;
    object->fromStringList({QStringLiteral("%1").arg(m_nextUserRtId++), QStringLiteral("New Rt"),
                            QStringLiteral("Model"), QStringLiteral("1"), QStringLiteral("1.00"), QString(),
                            QStringLiteral("0.100"), QString(), QString()});
    return object;
}

KvAbstractDataObject *RtsTableModel::newDataObject(const KvAbstractDataObject *other)
{
    auto *object = new RtDataObject;
    object->copy(other);
    return object;
}

QVariant RtsTableModel::data(const QModelIndex &index, int role) const
{
    const QVariant value = OldKvAbstractTableModel::data(index, role);
    if (!index.isValid())
        return value;
    switch (role) {
    case Qt::BackgroundRole: {
        const int id = rtId(index);
        if (id >= 0 && id <= 9)
            return QBrush(QColor(80, 202, 155, 40));
        if (id >= 10 && id < FirstUserRtId)
            return QBrush(QColor(50, 102, 255, 40));
        return QBrush(Qt::white);
    }
    case TypeNamesRole:
        return Rt::typeNames();
    case Qt::DisplayRole:
        return index.column() >= TypeColumn ? displayData(index) : value;
    default:
        return value;
    }
}

bool RtsTableModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (index.isValid() && index.column() == TypeColumn) {
        const int type = value.toInt();
        const QModelIndex include = index.siblingAtColumn(IncludeInRxListColumn);
        if (type == Rt::Receiver)
            OldKvAbstractTableModel::setData(include, 1, Qt::EditRole);
        else if (type != Rt::Transceiver)
            OldKvAbstractTableModel::setData(include, 0, Qt::EditRole);
        const int before = rtType(index);
        if (!OldKvAbstractTableModel::setData(index, value, role))
            return false;
        // Which levels and descriptions are shown depends on the type.
        if (rtType(index) != before)
            Q_EMIT dataChanged(index.siblingAtColumn(RxLevelColumn), index.siblingAtColumn(TxDescriptionColumn),
                               {Qt::DisplayRole});
        return true;
    }
    return OldKvAbstractTableModel::setData(index, value, role);
}

QVariant RtsTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole)
        return QVariant();
    if (orientation == Qt::Vertical)
        return OldKvAbstractTableModel::headerData(section, orientation, role);
    switch (section) {
    case IdColumn:
        return tr("Id");
    case ManufacturerColumn:
        return tr("Manufacturer");
    case ModelColumn:
        return tr("Model");
    case TypeColumn:
        return tr("Type");
    case RxLevelColumn:
        return tr("Receive Level");
    case RxDescriptionColumn:
        return tr("Receive Description");
    case TxLevelColumn:
        return tr("Transmit Level");
    case TxDescriptionColumn:
        return tr("Transmit Description");
    case IncludeInRxListColumn:
        return tr("Include In Receivers List");
    case SelectStringColumn:
        return tr("Select String");
    default:
        return QVariant();
    }
}

Qt::ItemFlags RtsTableModel::flags(const QModelIndex &index) const
{
    Qt::ItemFlags result = OldKvAbstractTableModel::flags(index);
    if (!index.isValid())
        return result;
    const int type = rtType(index);
    const int column = index.column();
    bool readOnly = false;
    if (isBaseRt(index))
        readOnly = column != IncludeInRxListColumn || type != Rt::Transceiver;
    else if (column == RxLevelColumn || column == RxDescriptionColumn)
        readOnly = type == Rt::Pa || type == Rt::Cvr;
    else if (column == TxLevelColumn || column == TxDescriptionColumn)
        readOnly = type == Rt::Receiver;
    else if (column == IncludeInRxListColumn)
        readOnly = type != Rt::Transceiver;
    if (readOnly)
        result &= ~Qt::ItemIsEditable;
    return result;
}

bool RtsTableModel::insertRows(int row, int count, const QModelIndex &parent)
{
    // Equality only: a list that grew past the limit by a multi-row insert is not stopped again.
    if (rowCount() == MaximumRowCount) {
        QMessageBox::warning(nullptr, tr("Unable to add New Rt"), tr("The list is full!"), QMessageBox::Ok);
        return false;
    }
    return OldKvAbstractTableModel::insertRows(row, count, parent);
}

void RtsTableModel::clear()
{
    OldKvAbstractTableModel::clear();
    setNextUserRtId(FirstUserRtId);
}

bool RtsTableModel::submit()
{
    const bool submitted = OldKvAbstractTableModel::submit();
    if (submitted)
        m_savedNextUserRtId = m_nextUserRtId;
    return submitted;
}

void RtsTableModel::revert()
{
    OldKvAbstractTableModel::revert();
    m_nextUserRtId = m_savedNextUserRtId;
}

QVariant RtsTableModel::displayData(const QModelIndex &index) const
{
    const int row = index.row();
    const int type = rtType(index);
    const QString rx = field(row, RxLevelColumn);
    const QString tx = field(row, TxLevelColumn);
    switch (index.column()) {
    case TypeColumn:
        return Rt::typeName(type);
    case RxLevelColumn:
        return hasRxLevel(type) ? tr("%1 Vrms").arg(rx) : QString();
    case RxDescriptionColumn:
        return hasRxLevel(type) ? field(row, RxDescriptionColumn) : QString();
    case TxLevelColumn:
        return hasTxLevel(type) ? tr("%1 Vrms").arg(tx) : QString();
    case TxDescriptionColumn:
        return hasTxLevel(type) ? field(row, TxDescriptionColumn) : QString();
    case IncludeInRxListColumn:
        return includeInRxList(index) ? tr("Yes") : tr("No");
    case SelectStringColumn: {
        const QString manufacturer = field(row, ManufacturerColumn);
        const QString model = field(row, ModelColumn);
        switch (type) {
        case Rt::Transceiver:
            // Two blanks after the comma: lists of radios have always shown it so.
            return tr("%1 %2 [Rx Level = %3,  Tx Level = %4]").arg(manufacturer, model, rx, tx);
        case Rt::Receiver:
            return tr("%1 %2 [Rx Level = %3]").arg(manufacturer, model, rx);
        case Rt::Pa:
        case Rt::Cvr:
            return tr("%1 %2 [Tx Level = %3]").arg(manufacturer, model, tx);
        default:
            return manufacturer;
        }
    }
    default:
        return QVariant();
    }
}

QString RtsTableModel::field(int row, int column) const
{
    const KvAbstractDataObject *object = dataObjectAtRow(row);
    return object ? object->data(column).toString() : QString();
}
