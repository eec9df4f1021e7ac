// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "libraryimport.h"

#include "classes/rtsfile.h"
#include "kvinifile.h"
#include "models/headsetsmodel.h"
#include "models/nvrcsvmodel.h"
#include "models/rtstablemodel.h"

#include <QFile>
#include <QFileInfo>
#include <QSet>

namespace {

constexpr int FirstUserId = 200;
constexpr int LastCsvUserId = 255;
constexpr int MaximumCsvRows = 256;
constexpr int MaximumHeadSetRows = 256;
// A damaged count must not make the reader build millions of empty records.
constexpr int MaximumCount = 65535;

QString fold(const QString &text)
{
    return text.trimmed().toCaseFolded();
}

// Column titles compared as the key is: a file saved elsewhere may differ in letter case or blanks.
QStringList foldedTitles(const QAbstractItemModel &model)
{
    QStringList titles;
    for (int column = 0; column < model.columnCount(); ++column)
        titles << fold(model.headerData(column, Qt::Horizontal).toString());
    return titles;
}

}

LibraryImport::LibraryImport(QAbstractItemModel *target)
    : m_target(target)
{
    if (qobject_cast<NvrCsvModel *>(target))
        m_kind = Csv;
    else if (qobject_cast<RtsTableModel *>(target))
        m_kind = Radios;
    else if (qobject_cast<HeadSetsModel *>(target))
        m_kind = HeadSets;
}

bool LibraryImport::isSupported() const
{
    return m_kind != Unsupported;
}

QString LibraryImport::summary() const
{
    QString text = tr("imported %1, skipped %2 already present").arg(m_imported).arg(m_skipped);
    if (m_notFitting > 0)
        text += tr(", %1 left out: the library is full").arg(m_notFitting);
    return text;
}

QString LibraryImport::key(const QString &company, const QString &model)
{
    // A separator no name holds keeps "AB"+"C" apart from "A"+"BC".
    return fold(company) + QLatin1Char('\n') + fold(model);
}

bool LibraryImport::importFile(const QString &fileName)
{
    m_imported = m_skipped = m_notFitting = 0;
    m_error.clear();
    if (m_kind == Unsupported) {
        m_error = tr("This library has no user records to import into.");
        return false;
    }
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        m_error = tr("Cannot read %1: %2").arg(fileName, file.errorString());
        return false;
    }
    file.close();

    QList<QStringList> records;
    bool read = false;
    switch (m_kind) {
    case Csv:
        read = readCsv(fileName, records);
        break;
    case Radios:
        read = readIni(fileName, QStringLiteral("Rts"), records);
        break;
    case HeadSets:
        read = readIni(fileName, QStringLiteral("HeadSets"), records);
        break;
    case Unsupported:
        break;
    }
    if (!read)
        return false;

    const int companyColumn = m_kind == Csv ? 2 : 1;
    QSet<QString> present;
    const QStringList keys = existingKeys();
    for (const QString &k : keys)
        present.insert(k);
    for (const QStringList &record : qAsConst(records)) {
        bool isNumber = false;
        const int id = record.value(0).trimmed().toInt(&isNumber);
        if (!isNumber || id < FirstUserId)
            continue;
        const QString recordKey = key(record.value(companyColumn), record.value(companyColumn + 1));
        if (present.contains(recordKey)) {
            ++m_skipped;
            continue;
        }
        if (!append(record)) {
            ++m_notFitting;
            continue;
        }
        present.insert(recordKey);
        ++m_imported;
    }
    if (m_imported == 0)
        return true;
    return save();
}

bool LibraryImport::readCsv(const QString &fileName, QList<QStringList> &records)
{
    auto *target = static_cast<NvrCsvModel *>(m_target);
    CsvModel other(fileName, nullptr, true, QLatin1Char(','));
    const QStringList titles = foldedTitles(other);
    // An empty library (its file missing) takes the other file's columns, if it has the fixed ones at least.
    const bool columnsMatch = target->columnCount() == 0 ? titles.size() >= 4 : titles == foldedTitles(*target);
    if (!columnsMatch) {
        m_error = tr("%1 is not a file of this library: its columns are not this library's.")
                      .arg(QFileInfo(fileName).fileName());
        return false;
    }
    if (target->columnCount() == 0) {
        QStringList header;
        for (int column = 0; column < other.columnCount(); ++column)
            header << other.headerData(column, Qt::Horizontal).toString();
        target->setHeaderData(header);
    }
    for (int row = 0; row < other.rowCount(); ++row) {
        QStringList record;
        for (int column = 0; column < other.columnCount(); ++column)
            record << other.data(other.index(row, column), Qt::EditRole).toString();
        records << record;
    }
    return true;
}

bool LibraryImport::readIni(const QString &fileName, const QString &group, QList<QStringList> &records)
{
    KvIniFile file(fileName);
    file.beginGroup(group);
    bool hasCount = false;
    const int count = file.value(QStringLiteral("count")).toInt(&hasCount);
    if (file.status() != QSettings::NoError || !hasCount) {
        m_error = tr("%1 is not a file of this library: it has no [%2] records.")
                      .arg(QFileInfo(fileName).fileName(), group);
        return false;
    }
    for (int key = 0; key < qMin(count, MaximumCount); ++key) {
        const QString name = QString::number(key);
        if (file.contains(name))
            records << file.value(name).toStringList();
    }
    return true;
}

QStringList LibraryImport::existingKeys() const
{
    const int companyColumn = m_kind == Csv ? 2 : 1;
    QStringList keys;
    for (int row = 0; row < m_target->rowCount(); ++row) {
        keys << key(m_target->data(m_target->index(row, companyColumn), Qt::EditRole).toString(),
                    m_target->data(m_target->index(row, companyColumn + 1), Qt::EditRole).toString());
    }
    return keys;
}

bool LibraryImport::append(QStringList record)
{
    switch (m_kind) {
    case Csv: {
        auto *model = static_cast<NvrCsvModel *>(m_target);
        if (model->rowCount() >= MaximumCsvRows)
            return false;
        QSet<int> used;
        for (int row = 0; row < model->rowCount(); ++row)
            used.insert(model->id(model->index(row, 0)));
        int id = FirstUserId;
        while (id <= LastCsvUserId && used.contains(id))
            ++id;
        if (id > LastCsvUserId)
            return false;
        // The base class's row operations: the library's own ones open message boxes and set defaults.
        const int row = model->rowCount();
        if (!model->CsvModel::insertRows(row, 1))
            return false;
        record[0] = QString::number(id);
        for (int column = 0; column < model->columnCount(); ++column)
            model->CsvModel::setData(model->index(row, column), record.value(column), Qt::EditRole);
        return true;
    }
    case Radios: {
        RtsTableModel *model = RtsTableModel::instance();
        if (model->rowCount() >= RtsTableModel::MaximumRowCount)
            return false;
        const int id = qMax(model->nextUserRtId(), FirstUserId);
        record[0] = QString::number(id);
        while (record.size() < RtsTableModel::SelectStringColumn)
            record << QString();
        model->insertFromStrings(record.mid(0, RtsTableModel::SelectStringColumn));
        model->setNextUserRtId(id + 1);
        return true;
    }
    case HeadSets: {
        auto *model = static_cast<HeadSetsModel *>(m_target);
        if (model->rowCount() >= MaximumHeadSetRows)
            return false;
        const int id = qMax(model->nextId(), FirstUserId);
        model->appendNew(id, record.value(1), record.value(2), record.value(3), record.value(4), record.value(5),
                         record.value(6), record.value(7));
        model->setNextId(id + 1);
        return true;
    }
    case Unsupported:
        break;
    }
    return false;
}

bool LibraryImport::save()
{
    bool saved = false;
    QString fileName;
    switch (m_kind) {
    case Csv: {
        auto *model = static_cast<NvrCsvModel *>(m_target);
        fileName = model->fileName();
        saved = model->submit();
        break;
    }
    case Radios:
        fileName = RtsFile::instance()->userFileName();
        saved = RtsFile::instance()->saveFiles() && RtsTableModel::instance()->submit();
        break;
    case HeadSets: {
        auto *model = static_cast<HeadSetsModel *>(m_target);
        fileName = model->userFileName();
        saved = model->submit();
        break;
    }
    case Unsupported:
        break;
    }
    if (!saved)
        m_error = tr("The merged records could not be saved to %1.").arg(fileName);
    return saved;
}
