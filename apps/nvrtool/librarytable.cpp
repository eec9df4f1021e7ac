// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "librarytable.h"

#include "classes/productsfile.h"
#include "classes/rtsfile.h"
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

QAbstractItemModel *openProducts()
{
    ProductsFile::instance();
    return ProductsModel::instance();
}

void closeProducts()
{
    ProductsFile::destroyInstance();
    ProductsModel::destroyInstance();
}

template<typename Model>
constexpr LibraryTable::Entry singleton(const char *name)
{
    return {name, &Singleton<Model>::open, &Singleton<Model>::close};
}

template<typename Model>
constexpr LibraryTable::Entry owned(const char *name)
{
    return {name, &Owned<Model>::open, &Owned<Model>::close};
}

const LibraryTable::Entry s_libraries[] = {
    singleton<AudioSystemsModel>("audiosystems"),
    owned<BluetoothDevices>("bluetoothdevices"),
    {"headsets", [] { return static_cast<QAbstractItemModel *>(NvrLibraries::headSets()); }, &NvrLibraries::destroyAll},
    {"legendsconvert", [] { return static_cast<QAbstractItemModel *>(NvrLibraries::legends()); },
     &NvrLibraries::destroyAll},
    singleton<LowImpedanceIntercomsModel>("lowimpedance-intercoms"),
    singleton<MusicSystemsModel>("musicsystems"),
    owned<NonAircraftRadios>("non-aircraftradios"),
    {"products", &openProducts, &closeProducts},
    {"radios", &openRadios, &closeRadios},
    owned<SerialDataDevices>("serialdatadevices"),
};

QStringList columnTitles(const QAbstractItemModel &model)
{
    QStringList titles;
    for (int column = 0; column < model.columnCount(); ++column)
        titles << model.headerData(column, Qt::Horizontal).toString();
    return titles;
}

// The stored value, as a script wants it, not the text a view shows.
QString cellText(const QAbstractItemModel &model, int row, int column)
{
    return model.data(model.index(row, column), Qt::EditRole).toString();
}

QByteArray csvLine(const QStringList &cells)
{
    QStringList quoted;
    for (QString cell : cells) {
        if (cell.contains(QLatin1Char(',')) || cell.contains(QLatin1Char('"')) || cell.contains(QLatin1Char('\n'))) {
            cell.replace(QLatin1String("\""), QLatin1String("\"\""));
            cell = QLatin1Char('"') + cell + QLatin1Char('"');
        }
        quoted << cell;
    }
    return quoted.join(QLatin1Char(',')).toUtf8() + '\n';
}

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

QByteArray LibraryTable::toCsv(const QAbstractItemModel &model)
{
    QByteArray text = csvLine(columnTitles(model));
    for (int row = 0; row < model.rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < model.columnCount(); ++column)
            cells << cellText(model, row, column);
        text += csvLine(cells);
    }
    return text;
}

QByteArray LibraryTable::toJson(const QAbstractItemModel &model)
{
    const QStringList titles = columnTitles(model);
    QJsonArray rows;
    for (int row = 0; row < model.rowCount(); ++row) {
        QJsonObject record;
        for (int column = 0; column < titles.size(); ++column)
            record.insert(titles.at(column), cellText(model, row, column));
        rows.append(record);
    }
    return QJsonDocument(rows).toJson(QJsonDocument::Indented);
}
