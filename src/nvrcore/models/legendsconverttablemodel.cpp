// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "legendsconverttablemodel.h"

#include "kvcore.h"
#include "kvinifile.h"
#include "savequestion_p.h"

#include <QMessageBox>
#include <QSettings>

namespace {
constexpr int LegendLength = 4;
// A damaged count must not make the loader look up millions of keys.
constexpr int MaximumCount = 65535;

const QString group = QStringLiteral("LegendsConvert");
const QString countKey = QStringLiteral("count");

QString padded(const QString &legend)
{
    return legend.leftJustified(LegendLength, QLatin1Char(' '));
}
}

LegendsConvertTableModel::LegendsConvertTableModel(QObject *parent)
    : QAbstractTableModel(parent),
      m_fileName(QStringLiteral("%1/nevradat/legendsconvert.dat").arg(KvCore::applicationDirPath()))
{
    setObjectName(QStringLiteral("LegendsConvertTableModel"));
}

LegendsConvertTableModel::~LegendsConvertTableModel() = default;

QString LegendsConvertTableModel::embeddedLegend(const QModelIndex &index) const
{
    return index.isValid() ? m_pairs.at(index.row()).embedded : QString(LegendLength, QLatin1Char(' '));
}

QString LegendsConvertTableModel::convertedLegend(const QModelIndex &index) const
{
    return index.isValid() ? m_pairs.at(index.row()).converted : QString();
}

QModelIndex LegendsConvertTableModel::locateEmbeddedLegend(const QString &legend) const
{
    const QString wanted = padded(legend);
    for (int row = 0; row < m_pairs.size(); ++row) {
        if (m_pairs.at(row).embedded == wanted)
            return index(row, EmbeddedColumn);
    }
    return QModelIndex();
}

QModelIndex LegendsConvertTableModel::locateConvertedLegend(const QString &legend) const
{
    for (int row = 0; row < m_pairs.size(); ++row) {
        if (m_pairs.at(row).converted == legend)
            return index(row, ConvertedColumn);
    }
    return QModelIndex();
}

QString LegendsConvertTableModel::convertFromEmbedded(const QString &legend) const
{
    const QModelIndex found = locateEmbeddedLegend(legend);
    return found.isValid() ? convertedLegend(found) : legend.trimmed();
}

QString LegendsConvertTableModel::convertToEmbedded(const QString &legend) const
{
    const QModelIndex found = locateConvertedLegend(legend);
    return found.isValid() ? embeddedLegend(found) : padded(legend);
}

int LegendsConvertTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_pairs.size();
}

int LegendsConvertTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant LegendsConvertTableModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return QVariant();
    switch (role) {
    case Qt::ToolTipRole:
        return tr("Double click to edit.");
    case Qt::DisplayRole:
    case Qt::EditRole:
        return index.column() == EmbeddedColumn ? m_pairs.at(index.row()).embedded : m_pairs.at(index.row()).converted;
    default:
        return QVariant();
    }
}

QVariant LegendsConvertTableModel::headerData(int section, Qt::Orientation, int role) const
{
    if (role != Qt::DisplayRole)
        return QVariant();
    switch (section) {
    case EmbeddedColumn:
        return tr("Embedded Legend");
    case ConvertedColumn:
        return tr("Converted Legend");
    default:
        return QVariant();
    }
}

Qt::ItemFlags LegendsConvertTableModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::ItemIsEnabled;
    return QAbstractTableModel::flags(index) | Qt::ItemIsEditable;
}

bool LegendsConvertTableModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid) || role != Qt::EditRole)
        return false;
    LegendPair &pair = m_pairs[index.row()];
    if (index.column() == EmbeddedColumn) {
        // Compared padded, so that committing "AB" over "AB  " is no change and no duplicate of itself.
        const QString legend = padded(value.toString());
        if (legend == pair.embedded)
            return false;
        if (locateEmbeddedLegend(legend).isValid()) {
            QMessageBox::warning(nullptr, tr("Legend Already Exists"),
                                 tr("The legend '%1' already exists in the file.").arg(value.toString()),
                                 QMessageBox::Ok);
            return false;
        }
        pair.embedded = legend;
    } else {
        if (value.toString() == pair.converted)
            return false;
        pair.converted = value.toString();
    }
    m_modified = true;
    Q_EMIT dataChanged(index, index);
    return true;
}

bool LegendsConvertTableModel::insertRows(int row, int count, const QModelIndex &parent)
{
    if (parent.isValid() || row < 0 || row > rowCount() || count < 1)
        return false;
    beginInsertRows(parent, row, row + count - 1);
    m_pairs.insert(row, count, LegendPair{QString(LegendLength, QLatin1Char(' ')), QString()});
    endInsertRows();
    m_modified = true;
    return true;
}

bool LegendsConvertTableModel::removeRows(int row, int count, const QModelIndex &parent)
{
    if (parent.isValid() || row < 0 || count < 1 || row + count > rowCount())
        return false;
    beginRemoveRows(parent, row, row + count - 1);
    m_pairs.remove(row, count);
    endRemoveRows();
    m_modified = true;
    return true;
}

void LegendsConvertTableModel::readData()
{
    beginResetModel();
    m_pairs.clear();
    KvIniFile settings(m_fileName);
    settings.beginGroup(group);
    const int count = qMin(settings.value(countKey, 0).toInt(), MaximumCount);
    for (int key = 0; key < count; ++key) {
        const QString name = QString::number(key);
        if (!settings.contains(name))
            continue;
        const QStringList pair = settings.value(name).toStringList();
        m_pairs.append({pair.value(0), pair.value(1)});
    }
    m_modified = false;
    endResetModel();
    if (!m_pairs.isEmpty())
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
}

bool LegendsConvertTableModel::askToSave(const bool &canCancel)
{
    if (!m_modified)
        return true;
    return askToSaveChanges(this, tr("The file '%1' has been modified.").arg(objectName()), canCancel,
                            [this] { submit(); });
}

bool LegendsConvertTableModel::submit()
{
    KvIniFile file(m_fileName, KvIniFile::Write);
    QSettings &settings = file.settings();
    // Keys past the count stay (nothing reads them); the group keeps the file's spelling.
    file.beginGroup(group);
    settings.setValue(countKey, m_pairs.size());
    for (int row = 0; row < m_pairs.size(); ++row)
        settings.setValue(QString::number(row), QStringList{m_pairs.at(row).embedded, m_pairs.at(row).converted});
    settings.endGroup();
    m_modified = false;
    return true;
}

void LegendsConvertTableModel::revert()
{
    readData();
}
