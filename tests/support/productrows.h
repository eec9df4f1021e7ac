// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_TEST_PRODUCTROWS_H
#define NVR_TEST_PRODUCTROWS_H

#include "models/productsmodel.h"

#include <QStringList>

/**
 * The products table as text, one row a string: "product start end
 * configuration", with "-" for an empty value, so that a test can set and
 * compare the whole table in one line.
 */
inline ProductsModel *fillProducts(const QStringList &rows)
{
    ProductsModel *model = ProductsModel::instance();
    model->removeRows(0, model->rowCount());
    model->insertRows(0, rows.size());
    for (int row = 0; row < rows.size(); ++row) {
        const QStringList values = rows.at(row).split(QLatin1Char(' '));
        for (int column = 0; column < 4; ++column) {
            const QString value = values.value(column);
            model->setData(model->index(row, column), value == QLatin1String("-") ? QString() : value);
        }
    }
    model->submit();
    return model;
}

inline QStringList productRows()
{
    const ProductsModel *model = ProductsModel::instance();
    QStringList result;
    for (int row = 0; row < model->rowCount(); ++row) {
        QStringList values;
        for (int column = 0; column < 4; ++column) {
            const QString value = model->index(row, column).data(Qt::EditRole).toString();
            values << (value.isEmpty() ? QStringLiteral("-") : value);
        }
        result << values.join(QLatin1Char(' '));
    }
    return result;
}

#endif
