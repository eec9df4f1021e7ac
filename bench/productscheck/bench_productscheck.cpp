// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
//
// Fills the product configurations with 25,600 rows (6,400 products of four
// ranges each) and asks the validity of every cell, as a view painting the
// whole table would; prints the figure beside one plain pass reading every
// cell, and the time of the first check after one product number changed.
#include "bestseconds.h"
#include "models/productsmodel.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <cstdio>

namespace {
constexpr int Products = 6400;
constexpr int RangesPerProduct = 4;
constexpr int Repeats = 5;
}

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    ProductsModel *model = ProductsModel::instance();
    const int rows = Products * RangesPerProduct;
    model->insertRows(0, rows);
    for (int row = 0; row < rows; ++row) {
        const int range = row / Products;
        const QChar start(QLatin1Char('A' + 3 * range));
        model->setData(model->index(row, ProductsModel::ProductNumber), QStringLiteral("PN%1").arg(row % Products));
        model->setData(model->index(row, ProductsModel::StartRev), QString(start));
        model->setData(model->index(row, ProductsModel::EndRev), QString(QChar(start.unicode() + 2)));
        model->setData(model->index(row, ProductsModel::HardwareConfiguration), QString::number(range + 1));
    }
    model->submit();

    int sink = 0;
    const double plain = bestSeconds(Repeats, [&] {
        for (int row = 0; row < rows; ++row) {
            for (int column = 0; column < 4; ++column)
                sink += model->index(row, column).data(Qt::EditRole).toString().size();
        }
    });
    const double check = bestSeconds(Repeats, [&] {
        for (int row = 0; row < rows; ++row) {
            for (int column = 0; column < 4; ++column)
                sink += model->itemIsValid(model->index(row, column)) ? 1 : 0;
        }
    });
    const double afterEdit = bestSeconds(Repeats, [&] {
        model->setData(model->index(0, ProductsModel::ProductNumber), QStringLiteral("PN%1").arg(sink % Products));
        sink += model->itemIsValid(model->index(1, ProductsModel::StartRev)) ? 1 : 0;
    });
    std::printf("products validity check, %d rows (%d products), best of %d\n", rows, Products, Repeats);
    std::printf("  anchor: one plain pass reading every cell   %9.1f ms\n", plain * 1000);
    std::printf("  every cell's validity                         %9.1f ms  (%.1f x anchor)\n", check * 1000,
                check / plain);
    std::printf("  one edit, then one cell's validity            %9.2f ms\n", afterEdit * 1000);
    std::printf("(checksum %d)\n", sink);
    ProductsModel::destroyInstance();
    return 0;
}
