// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "librarytable.h"

#include "classes/rtsfile.h"
#include "kvcore.h"
#include "models/audiosystemsmodel.h"
#include "models/bluetoothdevices.h"
#include "models/headsetsmodel.h"
#include "models/legendsconverttablemodel.h"
#include "models/lowimpedanceintercomsmodel.h"
#include "models/musicsystemsmodel.h"
#include "models/nonaircraftradios.h"
#include "models/nvrlibraries.h"
#include "models/productsmodel.h"
#include "models/rtstablemodel.h"
#include "models/serialdatadevices.h"

#include <QAbstractItemModel>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <iterator>
#include <memory>

namespace {

// Libraries that live as long as the process, behind instance()/destroyInstance().
template<typename Model>
struct Singleton
{
    static QAbstractItemModel *open() { return Model::instance(); }
    static void close() { Model::destroyInstance(); }
};

// Libraries that load their file anew in every object.
template<typename Model>
struct Owned
{
    static std::unique_ptr<Model> &slot()
    {
        static std::unique_ptr<Model> model;
        return model;
    }
    static QAbstractItemModel *open()
    {
        slot() = std::make_unique<Model>();
        return slot().get();
    }
    static void close() { slot().reset(); }
};

// The radio and product tables are filled by their file objects.
QAbstractItemModel *openRadios()
{
    RtsFile::instance();
    return RtsTableModel::instance();
}

// The radio file frees its table with it.
void closeRadios()
{
    RtsFile::destroyInstance();
}

const QString s_productsFile = QStringLiteral("products.dat");

QJsonDocument readJson(const QString &fileName, QJsonParseError *error)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        *error = {};
        return QJsonDocument();
    }
    return QJsonDocument::fromJson(file.readAll(), error);
}

// Read here rather than through the products file object, which locks the file for writing.
QAbstractItemModel *openProducts()
{
    QJsonParseError error;
    const QJsonDocument document =
        readJson(KvCore::applicationDirPath() + QLatin1String("/nevradat/") + s_productsFile, &error);
    ProductsModel *model = ProductsModel::instance();
    model->insertFromJsonArray(document.object()
                                   .value(QLatin1String("kvlproducts"))
                                   .toObject()
                                   .value(QLatin1String("products"))
                                   .toArray());
    return model;
}

void closeProducts()
{
    ProductsModel::destroyInstance();
}

template<typename Model>
constexpr LibraryTable::Entry singleton(const char *name, const char *file)
{
    return {name, {file, nullptr}, &Singleton<Model>::open, &Singleton<Model>::close};
}

template<typename Model>
constexpr LibraryTable::Entry owned(const char *name, const char *file)
{
    return {name, {file, nullptr}, &Owned<Model>::open, &Owned<Model>::close};
}

// Radios and headsets rebuild a missing base file from their factory tables; the radios also
// rewrite both files when the user file is missing. Headsets read a missing user file as empty.
const LibraryTable::Entry s_libraries[] = {
    singleton<AudioSystemsModel>("audiosystems", "audiosystems.csv"),
    owned<BluetoothDevices>("bluetoothdevices", "bluetoothdevices.csv"),
    {"headsets",
     {"headsetsbase.dat", nullptr},
     [] { return static_cast<QAbstractItemModel *>(NvrLibraries::headSets()); },
     &NvrLibraries::destroyAll},
    {"legendsconvert",
     {"legendsconvert.dat", nullptr},
     [] { return static_cast<QAbstractItemModel *>(NvrLibraries::legends()); },
     &NvrLibraries::destroyAll},
    singleton<LowImpedanceIntercomsModel>("lowimpedance-intercoms", "lowimpedance-intercoms.csv"),
    singleton<MusicSystemsModel>("musicsystems", "musicsystems.csv"),
    owned<NonAircraftRadios>("non-aircraftradios", "non-aircraftradios.csv"),
    {"products", {"products.dat", nullptr}, &openProducts, &closeProducts},
    {"radios", {"radiosbase.dat", "radiosuser.dat"}, &openRadios, &closeRadios},
    owned<SerialDataDevices>("serialdatadevices", "serialdatadevices.csv"),
};

}

QStringList LibraryTable::names()
{
    QStringList result;
    for (const Entry &entry : s_libraries)
        result << QLatin1String(entry.name);
    return result;
}

const LibraryTable::Entry *LibraryTable::find(const QString &name)
{
    for (const Entry &entry : s_libraries) {
        if (name == QLatin1String(entry.name))
            return &entry;
    }
    return nullptr;
}

QString LibraryTable::problem(const Entry &library, const QString &dataDirectory)
{
    const QDir directory(dataDirectory);
    QStringList missing;
    for (const char *name : library.files) {
        if (!name)
            continue;
        const QString fileName = QString::fromLatin1(name);
        QFile file(directory.filePath(fileName));
        if (!file.exists()) {
            missing << fileName;
            continue;
        }
        if (!file.open(QIODevice::ReadOnly))
            return QStringLiteral("cannot read %1: %2").arg(file.fileName(), file.errorString());
        if (fileName != s_productsFile)
            continue;
        QJsonParseError error;
        readJson(file.fileName(), &error);
        if (error.error != QJsonParseError::NoError) {
            return QStringLiteral("%1 is not valid JSON: %2 at offset %3")
                .arg(file.fileName(), error.errorString())
                .arg(error.offset);
        }
    }
    if (missing.isEmpty())
        return QString();
    return QStringLiteral("%1: %2 %3 not in %4")
        .arg(QLatin1String(library.name), missing.join(QLatin1String(" and ")),
             missing.size() == 1 ? QLatin1String("is") : QLatin1String("are"), dataDirectory);
}
