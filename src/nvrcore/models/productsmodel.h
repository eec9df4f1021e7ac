// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_PRODUCTSMODEL_H
#define NVR_PRODUCTSMODEL_H

#include "nvrcore_export.h"

#include "kvabstracttablemodel.h"

#include <QHash>

/**
 * The product configurations: for each product number, the ranges of build
 * configuration revisions (capital letters, compared as strings) and the
 * hardware configuration (1 to 9) that each range was built in. A product
 * may have several rows; its ranges must not overlap, which itemIsValid()
 * shows but setData() never refuses.
 *
 * One process-wide instance, created on first instance() without a parent
 * and freed by destroyInstance(). ProductsFile loads and saves it.
 */
class NVRCORE_EXPORT ProductsModel : public KvAbstractTableModel
{
    Q_OBJECT
public:
    enum Columns { ProductNumber = 0, StartRev = 1, EndRev = 2, HardwareConfiguration = 3 };

    static ProductsModel *instance();
    static void destroyInstance();

    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    /// New rows start as an empty product number, revisions "A" to "A" and hardware configuration "1".
    bool insertRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;
    bool itemIsValid(const QModelIndex &index) const override;

    /// Whether startRev..endRev for row collides with another range of the row's product.
    bool revsOverlap(int row, const QString &startRev, const QString &endRev) const;
    /// Whether the range startRev..endRev shares a revision with otherStart..otherEnd.
    static bool rangesOverlap(const QString &startRev, const QString &endRev, const QString &otherStart,
                              const QString &otherEnd);
    /// Every revision letter of the product's ranges, sorted; only "A" for an unknown product.
    QStringList buildConfigurations(const QString &productNumber) const;
    QStringList buildConfigurations(const QModelIndex &index) const;
    /// The first revision built in the hardware configuration; "A" when there is none.
    QString buildConfiguration(const QString &productNumber, int hardwareConfiguration) const;
    /**
     * The hardware configuration of the range holding buildRev; outside every
     * range the newest configuration of the product, and 1 for an unknown one.
     */
    int hardwareConfiguration(const QString &productNumber, const QString &buildRev) const;

private:
    explicit ProductsModel(QObject *parent = nullptr);
    ~ProductsModel() override;

    QString text(int row, int column) const;
    /// The rows whose product number equals that of row, in row order (row itself included).
    QList<int> rowsOfProduct(const QVariant &productNumber) const;
    void dropProductIndex();

    /**
     * Rows by the text of their product number, built on first use and
     * dropped on every change that can move a product: the validity check
     * runs for every painted cell, and a scan of the whole table per cell
     * made large tables unusable.
     */
    mutable QHash<QString, QList<int>> m_productRows;
    mutable bool m_productIndexValid = false;
};

#endif
