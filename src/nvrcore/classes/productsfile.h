// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_PRODUCTSFILE_H
#define NVR_PRODUCTSFILE_H

#include "nvrcore_export.h"

#include "kvjsondocumentfile.h"

/**
 * The products file "nevradat/products.dat" under the current directory,
 * a JSON document holding the rows of ProductsModel:
 * {"kvlproducts": {"products": [row objects]}}.
 *
 * One process-wide instance, created and loaded on first instance() without
 * a parent and freed by destroyInstance(). Loading replaces the model's
 * rows; a document without those members loads as an empty table.
 */
class NVRCORE_EXPORT ProductsFile : public KvJsonDocumentFile
{
    Q_OBJECT
public:
    static ProductsFile *instance();
    static void destroyInstance();

public Q_SLOTS:
    QJsonDocument toJsonDocument() const override;
    bool fromJsonDocument(const QJsonDocument &document) override;
    void newJsonDocument() override;

private:
    explicit ProductsFile(QObject *parent = nullptr);
    ~ProductsFile() override;
};

#endif
