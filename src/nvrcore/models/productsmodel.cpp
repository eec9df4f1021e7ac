// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "productsmodel.h"

#include "logger.h"

#include <algorithm>

namespace {
ProductsModel *s_instance = nullptr;
}

ProductsModel::ProductsModel(QObject *parent)
    : KvAbstractTableModel({QStringLiteral("productNumber"), QStringLiteral("startBuildConfigRev"),
                            QStringLiteral("endBuildConfigRev"), QStringLiteral("hardwareConfiguration")},
                           NoOptions, parent)
{
    setObjectName(QStringLiteral("ProductsModel"));
    connect(this, &QAbstractItemModel::rowsInserted, this, &ProductsModel::dropProductIndex);
    connect(this, &QAbstractItemModel::rowsRemoved, this, &ProductsModel::dropProductIndex);
    connect(this, &QAbstractItemModel::rowsMoved, this, &ProductsModel::dropProductIndex);
    connect(this, &QAbstractItemModel::modelReset, this, &ProductsModel::dropProductIndex);
    connect(this, &QAbstractItemModel::layoutChanged, this, &ProductsModel::dropProductIndex);
    connect(this, &QAbstractItemModel::dataChanged, this, [this](const QModelIndex &topLeft, const QModelIndex &) {
        if (topLeft.column() <= ProductNumber)
            dropProductIndex();
    });
}

ProductsModel::~ProductsModel() = default;

ProductsModel *ProductsModel::instance()
{
    if (!s_instance)
        s_instance = new ProductsModel;
    return s_instance;
}

void ProductsModel::destroyInstance()
{
    delete s_instance;
    s_instance = nullptr;
}

QVariant ProductsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    Q_UNUSED(orientation)
    if (role != Qt::DisplayRole)
        return QVariant();
    switch (section) {
    case ProductNumber:
        return tr("Product Number");
    case StartRev:
        return tr("Starting Build Config Rev");
    case EndRev:
        return tr("Ending Build Config Rev");
    case HardwareConfiguration:
        return tr("Hardware Configuration");
    default:
        return QVariant();
    }
}

bool ProductsModel::insertRows(int row, int count, const QModelIndex &parent)
{
    if (!KvAbstractTableModel::insertRows(row, count, parent))
        return false;
    setData(index(row, ProductNumber), QString());
    setData(index(row, StartRev), QStringLiteral("A"));
    setData(index(row, EndRev), QStringLiteral("A"));
    setData(index(row, HardwareConfiguration), QStringLiteral("1"));
    return true;
}

QString ProductsModel::text(int row, int column) const
{
    return index(row, column).data(Qt::EditRole).toString();
}

void ProductsModel::dropProductIndex()
{
    m_productIndexValid = false;
    m_productRows.clear();
}

QList<int> ProductsModel::rowsOfProduct(const QVariant &productNumber) const
{
    if (!m_productIndexValid) {
        m_productRows.clear();
        const int rows = rowCount();
        for (int row = 0; row < rows; ++row)
            m_productRows[index(row, ProductNumber).data(Qt::EditRole).toString()].append(row);
        m_productIndexValid = true;
    }
    // The text groups the candidates; the values themselves decide, as an exact match over the column would.
    QList<int> rows = m_productRows.value(productNumber.toString());
    rows.erase(std::remove_if(rows.begin(), rows.end(),
                              [&](int row) { return !(productNumber == index(row, ProductNumber).data(Qt::EditRole)); }),
               rows.end());
    return rows;
}

bool ProductsModel::itemIsValid(const QModelIndex &index) const
{
    if (!index.isValid())
        return false;
    const int row = index.row();
    switch (index.column()) {
    case ProductNumber:
        return !text(row, ProductNumber).isEmpty();
    case StartRev:
    case EndRev: {
        const QString start = text(row, StartRev);
        const QString end = text(row, EndRev);
        return !(end < start) && !revsOverlap(row, start, end);
    }
    case HardwareConfiguration:
        return index.data(Qt::EditRole).toInt() != 0;
    default:
        return true;
    }
}

bool ProductsModel::revsOverlap(int row, const QString &startRev, const QString &endRev) const
{
    bool overlap = false;
    const QList<int> rows = rowsOfProduct(index(row, ProductNumber).data(Qt::EditRole));
    for (int other : rows) {
        if (other == row)
            continue;
        const QString otherStart = text(other, StartRev);
        const QString otherEnd = text(other, EndRev);
        LOG_TRACE(QStringLiteral("%1 %2 || %3 %4").arg(startRev, endRev, otherStart, otherEnd));
        // Every row is looked at, so that the log shows every comparison.
        if (rangesOverlap(startRev, endRev, otherStart, otherEnd))
            overlap = true;
    }
    return overlap;
}

bool ProductsModel::rangesOverlap(const QString &startRev, const QString &endRev, const QString &otherStart,
                                  const QString &otherEnd)
{
    return otherStart <= startRev ? startRev <= otherEnd : otherStart <= endRev;
}

QStringList ProductsModel::buildConfigurations(const QString &productNumber) const
{
    const QList<int> rows = rowsOfProduct(productNumber);
    if (rows.isEmpty())
        return {QStringLiteral("A")};
    QStringList letters;
    for (int row : rows) {
        const QString end = text(row, EndRev);
        QString letter = text(row, StartRev);
        // An empty start cannot be raised, and the last code point would wrap around.
        while (!letter.isEmpty() && letter <= end) {
            letters.append(letter);
            if (letter.at(0).unicode() == 0xFFFF)
                break;
            letter[0] = QChar(letter.at(0).unicode() + 1);
        }
    }
    letters.sort(Qt::CaseSensitive);
    return letters;
}

QStringList ProductsModel::buildConfigurations(const QModelIndex &index) const
{
    return buildConfigurations(index.sibling(index.row(), ProductNumber).data(Qt::EditRole).toString());
}

QString ProductsModel::buildConfiguration(const QString &productNumber, int hardwareConfiguration) const
{
    const QList<int> rows = rowsOfProduct(productNumber);
    for (int row : rows) {
        if (index(row, HardwareConfiguration).data(Qt::EditRole).toInt() == hardwareConfiguration)
            return text(row, StartRev);
    }
    return QStringLiteral("A");
}

int ProductsModel::hardwareConfiguration(const QString &productNumber, const QString &buildRev) const
{
    int result = 1;
    const QList<int> rows = rowsOfProduct(productNumber);
    for (int row : rows) {
        const int configuration = index(row, HardwareConfiguration).data(Qt::EditRole).toInt();
        if (text(row, StartRev) <= buildRev && buildRev <= text(row, EndRev))
            return configuration;
        result = std::max(result, configuration);
    }
    return result;
}
