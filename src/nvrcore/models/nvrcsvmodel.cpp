// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "nvrcsvmodel.h"

#include "kvcore.h"
#include "savequestion_p.h"

#include <QBrush>
#include <QColor>
#include <QDebug>
#include <QMessageBox>

namespace {
constexpr int IdColumn = 0;
constexpr int NameColumn = 1;
constexpr int CompanyColumn = 2;
constexpr int ModelColumn = 3;
constexpr int FirstUserId = 200;
constexpr int LastUserId = 255;
constexpr int MaxRecords = 256;

const QString newCompany = QStringLiteral("Company");
const QString newModel = QStringLiteral("New Model");

NvrCsvModel::SaveCheck &saveCheck()
{
    static NvrCsvModel::SaveCheck check;
    return check;
}
}

NvrCsvModel::NvrCsvModel(QObject *parent) : CsvModel(parent)
{
    setObjectName(QStringLiteral("NvrCsvModel"));
}

NvrCsvModel::~NvrCsvModel() = default;

int NvrCsvModel::id(const QModelIndex &index) const
{
    if (!index.isValid())
        return 0;
    return data(this->index(index.row(), IdColumn), Qt::EditRole).toInt();
}

QString NvrCsvModel::company(const QModelIndex &index) const
{
    return index.isValid() ? data(this->index(index.row(), CompanyColumn), Qt::DisplayRole).toString() : QString();
}

QString NvrCsvModel::model(const QModelIndex &index) const
{
    return index.isValid() ? data(this->index(index.row(), ModelColumn), Qt::DisplayRole).toString() : QString();
}

QModelIndex NvrCsvModel::locate(const unsigned int &id) const
{
    const QModelIndexList hits =
        match(index(0, IdColumn), Qt::EditRole, QString::number(id), 1, Qt::MatchExactly);
    return hits.isEmpty() ? QModelIndex() : hits.first();
}

QModelIndex NvrCsvModel::locate(const QString &company, const QString &model) const
{
    const QModelIndexList hits = match(index(0, CompanyColumn), Qt::EditRole, company, -1, Qt::MatchExactly);
    for (const QModelIndex &hit : hits) {
        if (this->model(hit) == model)
            return hit;
    }
    return QModelIndex();
}

bool NvrCsvModel::askToSave(const bool &canCancel)
{
    if (!m_modified)
        return true;
    return askToSaveChanges(this, tr("The file '%1' has been modified.").arg(objectName()), canCancel,
                            [this] { submit(); });
}

QVariant NvrCsvModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return QVariant();
    switch (role) {
    case Qt::ToolTipRole:
        if (flags(index) & Qt::ItemIsEditable)
            return tr("Double click to edit.");
        break;
    case Qt::BackgroundRole:
        // Read-only cells get a faint blue so that they stand out.
        return QBrush(flags(index) & Qt::ItemIsEditable ? QColor(Qt::white) : QColor(50, 102, 255, 40));
    case Qt::DisplayRole: {
        if (index.column() == NameColumn)
            return QStringLiteral("%1 %2").arg(company(index), model(index));
        const auto display = m_columns.constFind(index.column());
        if (display != m_columns.constEnd())
            return displayText(index, *display);
        break;
    }
    default:
        break;
    }
    return CsvModel::data(index, role);
}

bool NvrCsvModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || role != Qt::EditRole)
        return false;
    // Cells are text: compare as text, so that 200 and "200" are the same value.
    if (value.toString() == data(index, Qt::EditRole).toString())
        return false;
    qDebug().nospace().noquote() << "NvrCsvModel::setData r,c,v=" << index.row() << ',' << index.column() << ','
                                 << value.toString();

    if (index.column() == CompanyColumn || index.column() == ModelColumn) {
        const QString newCompanyText = index.column() == CompanyColumn ? value.toString() : company(index);
        const QString newModelText = index.column() == ModelColumn ? value.toString() : model(index);
        if (locate(newCompanyText, newModelText).isValid()) {
            QMessageBox::warning(nullptr, tr("Duplicate Record"),
                                 tr("'%1' - '%2' already exists in the file.").arg(newCompanyText, newModelText));
            return false;
        }
    }
    if (!CsvModel::setData(index, value, Qt::EditRole))
        return false;
    m_modified = true;
    return true;
}

Qt::ItemFlags NvrCsvModel::flags(const QModelIndex &index) const
{
    Qt::ItemFlags result = CsvModel::flags(index);
    const bool factory = id(index) < FirstUserId;
    if (!editAll && (factory || index.column() == IdColumn))
        result &= ~Qt::ItemIsEditable;
    if (!applies(index))
        result &= ~Qt::ItemIsEditable;
    return result;
}

bool NvrCsvModel::insertRows(int row, int count, const QModelIndex &parent)
{
    if (count != 1)
        return false;
    if (rowCount() >= MaxRecords) {
        QMessageBox::warning(nullptr, tr("Add New Record"), tr("Unable to add New Record - the list is full!"));
        return false;
    }
    if (locate(newCompany, newModel).isValid()) {
        QMessageBox::warning(nullptr, tr("Add New Record"),
                             tr("Unable to add New Record - 'Company - New Model' already exists in the file.\n"
                                "Change the Company and Model to something unique."));
        return false;
    }

    QVector<bool> used(LastUserId - FirstUserId + 1, false);
    for (int r = 0; r < rowCount(); ++r) {
        const int taken = id(index(r, IdColumn));
        if (taken >= FirstUserId && taken <= LastUserId)
            used[taken - FirstUserId] = true;
    }
    const int unused = used.indexOf(false);
    // With every user id taken the record falls back to 0, a factory id.
    const int newId = unused < 0 ? 0 : FirstUserId + unused;

    const int position = qMin(row, rowCount());
    if (!CsvModel::insertRows(row, 1, parent)) {
        QMessageBox::warning(nullptr, tr("Add New Records"), tr("Error adding new records.!"));
        return false;
    }
    setData(index(position, IdColumn), newId, Qt::EditRole);
    setData(index(position, CompanyColumn), newCompany, Qt::EditRole);
    setData(index(position, ModelColumn), newModel, Qt::EditRole);
    for (const auto &value : qAsConst(m_newRecordValues))
        setData(index(position, value.first), value.second, Qt::EditRole);
    m_modified = true;
    return true;
}

bool NvrCsvModel::removeRows(int row, int count, const QModelIndex &parent)
{
    if (!CsvModel::removeRows(row, count, parent))
        return false;
    m_modified = true;
    return true;
}

void NvrCsvModel::setSaveCheck(const SaveCheck &check)
{
    saveCheck() = check;
}

bool NvrCsvModel::submit()
{
    if (saveCheck() && !saveCheck()(this))
        return false;
    const bool result = CsvModel::submit();
    if (result)
        m_modified = false;
    return result;
}

void NvrCsvModel::revert()
{
    CsvModel::revert();
    m_modified = false;
}

void NvrCsvModel::openLibrary(const QString &name, const QString &fileName)
{
    setObjectName(name);
    setSource(QStringLiteral("%1/nevradat/%2").arg(KvCore::applicationDirPath(), fileName), true, QLatin1Char(','));
}

void NvrCsvModel::setUnitColumn(int column, const QString &pattern)
{
    ColumnDisplay &display = m_columns[column];
    display.kind = ColumnDisplay::Unit;
    display.pattern = pattern;
}

void NvrCsvModel::setYesNoColumn(int column)
{
    m_columns[column].kind = ColumnDisplay::YesNo;
}

void NvrCsvModel::setListColumn(int column, const QStringList &entries)
{
    ColumnDisplay &display = m_columns[column];
    display.kind = ColumnDisplay::List;
    display.entries = entries;
}

void NvrCsvModel::setSummaryColumn(int column, const QString &pattern, int first, int second)
{
    ColumnDisplay &display = m_columns[column];
    display.kind = ColumnDisplay::Summary;
    display.pattern = pattern;
    display.first = first;
    display.second = second;
}

void NvrCsvModel::setColumnCondition(int column, int controlColumn, int value)
{
    ColumnDisplay &display = m_columns[column];
    display.controlColumn = controlColumn;
    display.controlValue = value;
}

void NvrCsvModel::setNewRecordValue(int column, const QVariant &value)
{
    m_newRecordValues.append(qMakePair(column, value));
}

int NvrCsvModel::listValue(const QModelIndex &index, int column, int last) const
{
    if (!index.isValid())
        return 0;
    return qMin(cellText(index, column).toInt(), last);
}

bool NvrCsvModel::applies(const QModelIndex &index) const
{
    const auto display = m_columns.constFind(index.column());
    if (display == m_columns.constEnd() || display->controlColumn < 0)
        return true;
    return cellText(index, display->controlColumn).toInt() == display->controlValue;
}

QString NvrCsvModel::displayText(const QModelIndex &index, const ColumnDisplay &display) const
{
    const QString text = cellText(index, index.column());
    if (!applies(index))
        return text;
    switch (display.kind) {
    case ColumnDisplay::Unit:
        return display.pattern.arg(text);
    case ColumnDisplay::YesNo:
        return text.toInt() == 1 ? tr("Yes") : tr("No");
    case ColumnDisplay::List:
        return display.entries.value(qMin(text.toInt(), display.entries.size() - 1));
    case ColumnDisplay::Summary:
        return display.pattern.arg(company(index), model(index), cellText(index, display.first),
                                   cellText(index, display.second));
    case ColumnDisplay::Plain:
        break;
    }
    return text;
}

QString NvrCsvModel::cellText(const QModelIndex &index, int column) const
{
    return data(this->index(index.row(), column), Qt::EditRole).toString();
}
