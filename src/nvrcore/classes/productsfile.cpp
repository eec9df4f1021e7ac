// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "productsfile.h"

#include "logger.h"
#include "models/productsmodel.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonObject>

namespace {
ProductsFile *s_instance = nullptr;
const QString documentKey = QStringLiteral("kvlproducts");
const QString productsKey = QStringLiteral("products");
}

ProductsFile::ProductsFile(QObject *parent) : KvJsonDocumentFile(parent)
{
    setObjectName(QStringLiteral("ProductsFile"));
    // The products file follows the working directory, unlike the other libraries.
    setFileName(QDir::currentPath() + QLatin1String("/nevradat/products.dat"));
    setDescription(tr("Product Definitions"));
    setSuffix(QStringLiteral("dat"));
}

ProductsFile::~ProductsFile()
{
    LOG_INFO(QStringLiteral("Products file closed."));
}

ProductsFile *ProductsFile::instance()
{
    if (!s_instance) {
        s_instance = new ProductsFile;
        s_instance->openFile(s_instance->fileName());
    }
    return s_instance;
}

void ProductsFile::destroyInstance()
{
    LOG_INFO(QStringLiteral("Destroying the products file."));
    delete s_instance;
    s_instance = nullptr;
}

QJsonDocument ProductsFile::toJsonDocument() const
{
    QJsonObject document;
    document.insert(productsKey, ProductsModel::instance()->toJsonArray());
    QJsonObject top;
    top.insert(documentKey, document);
    return QJsonDocument(top);
}

bool ProductsFile::fromJsonDocument(const QJsonDocument &document)
{
    if (document.isEmpty())
        return false;
    newJsonDocument();
    ProductsModel::instance()->insertFromJsonArray(
        document.object().value(documentKey).toObject().value(productsKey).toArray());
    return true;
}

void ProductsFile::newJsonDocument()
{
    ProductsModel *model = ProductsModel::instance();
    model->removeRows(0, model->rowCount());
}
