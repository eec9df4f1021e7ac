// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "headsetsmodel.h"

#include "kvcore.h"
#include "kvfileutils.h"
#include "kvinifile.h"
#include "kvwaitcursor.h"
#include "savequestion_p.h"

#include <QBrush>
#include <QColor>
#include <QMessageBox>
#include <QSettings>

#include <algorithm>

namespace {
constexpr int FirstUserId = 200;
constexpr int MaxRows = 256;
// A damaged count must not make the loader look up millions of keys.
constexpr int MaximumCount = 65535;

const QString countKey = QStringLiteral("count");
const QString autoIncIdKey = QStringLiteral("autoincid");

struct FactoryHeadSet
{
    int id;
    const char *name;
    const char *model;
    const char *phonesLevel;
    const char *phonesImpedance;
    const char *phonesDescription;
    const char *micLevel;
    const char *micDescription;
};

// The headsets the application ships with. The X11 description names 3.87 Vrms while its level is
// 4.75, and the default headset has no MIC level: both are the data as published, kept as they are.
const FactoryHeadSet factoryHeadSets[] = {
    {1, "Default Headset", "", "5.50", "600", "", "", ""},
    {10, "Bose", "A20", "4.00", "160", "100mW (4.00 Vrms) into 160 Ohms - Mono", "0.600",
     "600 mVrms @ 114 dB/SPL into 150 Ohms"},
    {11, "David Clark", "H10-13.4", "3.87", "150", "100mW (3.87 Vrms) into 150 Ohms - Mono", "0.400",
     "400 mVrms @ 114 dB/SPL into 150 Ohms"},
    {12, "David Clark", "H10-20", "3.87", "150", "100mW (3.87 Vrms) into 150 Ohms - Mono", "0.400",
     "400 mVrms @ 114 dB/SPL into 150 Ohms"},
    {13, "David Clark", "H10-60", "3.87", "150", "100mW (3.87 Vrms) into 150 Ohms - Mono", "0.400",
     "400 mVrms @ 114 dB/SPL into 150 Ohms"},
    {14, "David Clark", "X11", "4.75", "225", "100mW (3.87 Vrms) into 225 Ohms - Mono", "0.400",
     "400 mVrms @ 114 dB/SPL into 150 Ohms"},
    {15, "Pilot", "PA-1179T", "5.47", "300", "100mW (5.47 Vrms) into 300 Ohms - Mono", "0.400",
     "400 mVrms @ 114 dB/SPL into 150 Ohms"},
    {16, "Telex", "Airman 750", "3.87", "150", "100mW (3.87 Vrms) into 150 Ohms - Mono", "0.280",
     "280 mVrms @ 114 dB/SPL into 150 Ohms"},
    {17, "Telex", "Airman 850", "3.87", "150", "100mW (3.87 Vrms) into 150 Ohms - Mono", "0.280",
     "280 mVrms @ 114 dB/SPL into 150 Ohms"},
    {18, "Sennheiser", "HMEC-26-BV-K", "7.75", "600", "100mW (7.75 Vrms) into 600 Ohms - Mono", "0.800",
     "800 mVrms @ 114 dB/SPL into 150 Ohms"},
    {19, "Sennheiser", "HMEC-46-BV-K", "7.75", "600", "100mW (7.75 Vrms) into 600 Ohms - Mono", "0.400",
     "400 mVrms @ 114 dB/SPL into 150 Ohms"},
    {20, "Sennheiser", "HMEC-461", "5.47", "300", "100mW (5.47 Vrms) into 300 Ohms - Mono", "0.400",
     "400 mVrms @ 114 dB/SPL into 150 Ohms"},
    {21, "Sennheiser", "S1", "3.60", "130", "100mW (3.60 Vrms) into 130 Ohms - Mono", "0.350",
     "350 mVrms @ 114 dB/SPL into 150 Ohms"},
    {22, "Generic", "150 Ohm Headset", "3.87", "150", "100mW (3.87 Vrms) into 150 Ohms - Mono", "0.250",
     "250 mVrms into 150 Ohms"},
};

// NaN fails both comparisons and is refused with the out-of-range values.
bool inRange(double value, double low, double high)
{
    return value >= low && value <= high;
}
}

HeadSetsModel::HeadSetsModel(QObject *parent)
    : QAbstractTableModel(parent),
      m_baseFileName(KvCore::applicationDirPath() + QStringLiteral("/nevradat/headsetsbase.dat")),
      m_userFileName(KvCore::applicationDirPath() + QStringLiteral("/nevradat/headsetsuser.dat")),
      m_group(QStringLiteral("HeadSets")),
      m_newName(QStringLiteral("New Headset")),
      m_newModel(QStringLiteral("Model")),
      m_newPhonesLevel(QStringLiteral("5.50")),
      m_newPhonesImpedance(QStringLiteral("600")),
      m_newMicLevel(QStringLiteral("0.250"))
{
    setObjectName(QStringLiteral("HeadSetsModel"));
}

HeadSetsModel::~HeadSetsModel() = default;

int HeadSetsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_headSets.size();
}

int HeadSetsModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

int HeadSetsModel::id(const QModelIndex &index) const
{
    return index.isValid() ? m_headSets.at(index.row()).id : 0;
}

bool HeadSetsModel::isBase(const QModelIndex &index) const
{
    return id(index) < FirstUserId;
}

int HeadSetsModel::baseCount() const
{
    return std::count_if(m_headSets.cbegin(), m_headSets.cend(),
                         [](const HeadSet &headSet) { return headSet.id < FirstUserId; });
}

int HeadSetsModel::userCount() const
{
    return m_headSets.size() - baseCount();
}

QString HeadSetsModel::name(const QModelIndex &index) const
{
    return index.isValid() ? m_headSets.at(index.row()).name : QString();
}

QString HeadSetsModel::model(const QModelIndex &index) const
{
    return index.isValid() ? m_headSets.at(index.row()).model : QString();
}

double HeadSetsModel::phonesLevel(const QModelIndex &index) const
{
    return index.isValid() ? m_headSets.at(index.row()).phonesLevel.toDouble() : 0.0;
}

int HeadSetsModel::phonesImpedance(const QModelIndex &index) const
{
    return index.isValid() ? m_headSets.at(index.row()).phonesImpedance.toInt() : 0;
}

double HeadSetsModel::micLevel(const QModelIndex &index) const
{
    return index.isValid() ? m_headSets.at(index.row()).micLevel.toDouble() : 0.0;
}

QModelIndex HeadSetsModel::locate(const unsigned int &id) const
{
    for (int row = 0; row < m_headSets.size(); ++row) {
        if (m_headSets.at(row).id >= 0 && static_cast<unsigned int>(m_headSets.at(row).id) == id)
            return index(row, IdColumn);
    }
    return QModelIndex();
}

QModelIndex HeadSetsModel::locate(const QString &name, const QString &model) const
{
    for (int row = 0; row < m_headSets.size(); ++row) {
        if (m_headSets.at(row).name == name && m_headSets.at(row).model == model)
            return index(row, ManufacturerColumn);
    }
    return QModelIndex();
}

void HeadSetsModel::appendNew(const int &id, const QString &name, const QString &model, const QString &phonesLevel,
                              const QString &phonesImpedance, const QString &phonesDescription,
                              const QString &micLevel, const QString &micDescription)
{
    const int row = m_headSets.size();
    beginInsertRows(QModelIndex(), row, row);
    m_headSets.append({id, name, model, phonesLevel, phonesImpedance, phonesDescription, micLevel, micDescription});
    endInsertRows();
}

QVariant HeadSetsModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return QVariant();
    const HeadSet &headSet = m_headSets.at(index.row());
    const bool editable = flags(index) & Qt::ItemIsEditable;
    switch (role) {
    case Qt::ToolTipRole:
        return editable ? QVariant(tr("Double click to edit.")) : QVariant();
    case Qt::BackgroundRole:
        // Read-only cells get a faint blue so that they stand out.
        return QBrush(editable ? QColor(Qt::white) : QColor(50, 102, 255, 40));
    case Qt::DisplayRole:
        switch (index.column()) {
        case PhonesLevelColumn:
        case MicLevelColumn:
            return tr("%1 Vrms").arg(headSet.*textField(index.column()));
        case PhonesImpedanceColumn:
            return tr("%1 Ohms").arg(headSet.phonesImpedance);
        default:
            break;
        }
        Q_FALLTHROUGH();
    case Qt::EditRole:
        if (index.column() == IdColumn)
            return headSet.id;
        if (index.column() == SelectStringColumn)
            return selectString(headSet);
        return headSet.*textField(index.column());
    default:
        return QVariant();
    }
}

QVariant HeadSetsModel::headerData(int section, Qt::Orientation, int role) const
{
    if (role != Qt::DisplayRole)
        return QVariant();
    switch (section) {
    case IdColumn:
        return tr("Id");
    case ManufacturerColumn:
        return tr("Manufacturer");
    case ModelColumn:
        return tr("Model");
    case PhonesLevelColumn:
        return tr("Phones Input");
    case PhonesImpedanceColumn:
        return tr("Phones Impedance");
    case PhonesDescriptionColumn:
        return tr("Phones Input Description");
    case MicLevelColumn:
        return tr("MIC Output");
    case MicDescriptionColumn:
        return tr("MIC Output Description");
    case SelectStringColumn:
        return tr("Select String");
    default:
        return QVariant();
    }
}

bool HeadSetsModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid) || role != Qt::EditRole || isBase(index)
        || index.column() == SelectStringColumn)
        return false;
    HeadSet &headSet = m_headSets[index.row()];
    const QString text = value.toString();
    if (index.column() == IdColumn) {
        if (headSet.id == value.toInt())
            return false;
        headSet.id = value.toInt();
    } else {
        // Committing an unchanged cell must not find the record itself a duplicate.
        QString &field = headSet.*textField(index.column());
        if (field == text)
            return false;
        if (!check(index, text))
            return false;
        field = text;
    }
    m_modified = true;
    const bool inSummary = index.column() != PhonesDescriptionColumn && index.column() != MicDescriptionColumn;
    Q_EMIT dataChanged(index, inSummary ? index.siblingAtColumn(SelectStringColumn) : index);
    return true;
}

Qt::ItemFlags HeadSetsModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::ItemIsEnabled;
    Qt::ItemFlags result = QAbstractTableModel::flags(index);
    if (!isBase(index) && index.column() != IdColumn)
        result |= Qt::ItemIsEditable;
    return result;
}

bool HeadSetsModel::insertRows(int, int count, const QModelIndex &parent)
{
    if (parent.isValid() || count != 1)
        return false;
    if (locate(m_newName, m_newModel).isValid()) {
        return refuse(tr("Unable to add New Record"),
                      tr("'%1' already exists in the file.\nChange its name or model to something unique.")
                          .arg(m_newName));
    }
    if (rowCount() >= MaxRows)
        return refuse(tr("Unable to add New Record"), tr("The list is full!"));
    appendNew(m_autoIncId++, m_newName, m_newModel, m_newPhonesLevel, m_newPhonesImpedance, QString(), m_newMicLevel,
              QString());
    m_modified = true;
    return true;
}

bool HeadSetsModel::removeRows(int row, int count, const QModelIndex &parent)
{
    if (parent.isValid() || row < 0 || count < 1 || row + count > rowCount())
        return false;
    beginRemoveRows(parent, row, row + count - 1);
    m_headSets.remove(row, count);
    endRemoveRows();
    m_modified = true;
    return true;
}

void HeadSetsModel::clear()
{
    beginResetModel();
    m_headSets.clear();
    endResetModel();
}

void HeadSetsModel::readData()
{
    if (!m_rebuilding && !KvFileUtils::fileExists(m_baseFileName))
        createNew();
    KvWaitCursor wait;
    beginResetModel();
    {
        KvIniFile base(m_baseFileName);
        base.beginGroup(m_group);
        m_headSets = readRecords(base);
    }
    KvIniFile user(m_userFileName);
    user.beginGroup(m_group);
    const QVector<HeadSet> userHeadSets = readRecords(user);
    m_headSets += userHeadSets;
    // Without a stored next id (or with one a damaged file made too small) new ids still must not
    // collide with the user's records.
    m_autoIncId = qMax(user.value(autoIncIdKey, FirstUserId).toInt(), FirstUserId);
    for (const HeadSet &headSet : userHeadSets)
        m_autoIncId = qMax(m_autoIncId, headSet.id + 1);
    m_modified = false;
    endResetModel();
    if (!m_headSets.isEmpty())
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
}

void HeadSetsModel::createNew()
{
    m_rebuilding = true;
    QVector<HeadSet> userHeadSets;
    {
        KvIniFile user(m_userFileName);
        user.beginGroup(m_group);
        userHeadSets = readRecords(user);
        m_autoIncId = qMax(user.value(autoIncIdKey, m_autoIncId).toInt(), FirstUserId);
    }
    clear();
    for (const FactoryHeadSet &headSet : factoryHeadSets) {
        appendNew(headSet.id, QString::fromLatin1(headSet.name), QString::fromLatin1(headSet.model),
                  QString::fromLatin1(headSet.phonesLevel), QString::fromLatin1(headSet.phonesImpedance),
                  QString::fromLatin1(headSet.phonesDescription), QString::fromLatin1(headSet.micLevel),
                  QString::fromLatin1(headSet.micDescription));
    }
    // Rebuilding the factory records must not cost the user theirs: they are written back unchanged.
    for (const HeadSet &headSet : qAsConst(userHeadSets)) {
        appendNew(headSet.id, headSet.name, headSet.model, headSet.phonesLevel, headSet.phonesImpedance,
                  headSet.phonesDescription, headSet.micLevel, headSet.micDescription);
    }
    submitAll();
    readData();
    m_rebuilding = false;
}

bool HeadSetsModel::submitAll()
{
    {
        KvWaitCursor wait;
        KvIniFile file(m_baseFileName, KvIniFile::Write);
        QSettings &base = file.settings();
        file.removeGroup(m_group);
        base.beginGroup(m_group);
        base.setValue(countKey, baseCount());
        // Keys are row positions: user rows leave gaps, which reading never meets since base rows come first.
        for (int row = 0; row < m_headSets.size(); ++row) {
            if (m_headSets.at(row).id < FirstUserId)
                base.setValue(QString::number(row), toList(m_headSets.at(row)));
        }
        base.endGroup();
    }
    return submit();
}

bool HeadSetsModel::submit()
{
    KvWaitCursor wait;
    KvIniFile file(m_userFileName, KvIniFile::Write);
    QSettings &user = file.settings();
    file.removeGroup(m_group);
    user.beginGroup(m_group);
    user.setValue(countKey, userCount());
    user.setValue(autoIncIdKey, m_autoIncId);
    int key = 0;
    for (const HeadSet &headSet : qAsConst(m_headSets)) {
        if (headSet.id >= FirstUserId)
            user.setValue(QString::number(key++), toList(headSet));
    }
    user.endGroup();
    m_modified = false;
    return true;
}

void HeadSetsModel::revert()
{
    readData();
}

bool HeadSetsModel::askToSave(const bool &canCancel)
{
    if (!m_modified)
        return true;
    return askToSaveChanges(this, tr("The %1 file has been modified.").arg(objectName()), canCancel,
                            [this] { submit(); });
}

HeadSetsModel::HeadSet HeadSetsModel::fromList(const QStringList &list)
{
    HeadSet headSet;
    headSet.id = list.value(0).toInt();
    for (int column = ManufacturerColumn; column <= MicDescriptionColumn; ++column)
        headSet.*textField(column) = list.value(column);
    return headSet;
}

QStringList HeadSetsModel::toList(const HeadSet &headSet)
{
    QStringList list{QString::number(headSet.id)};
    for (int column = ManufacturerColumn; column <= MicDescriptionColumn; ++column)
        list.append(headSet.*textField(column));
    return list;
}

QString HeadSetsModel::HeadSet::*HeadSetsModel::textField(int column)
{
    switch (column) {
    case ManufacturerColumn:
        return &HeadSet::name;
    case ModelColumn:
        return &HeadSet::model;
    case PhonesLevelColumn:
        return &HeadSet::phonesLevel;
    case PhonesImpedanceColumn:
        return &HeadSet::phonesImpedance;
    case PhonesDescriptionColumn:
        return &HeadSet::phonesDescription;
    case MicLevelColumn:
        return &HeadSet::micLevel;
    case MicDescriptionColumn:
        return &HeadSet::micDescription;
    default:
        return nullptr;
    }
}

QVector<HeadSetsModel::HeadSet> HeadSetsModel::readRecords(const KvIniFile &settings)
{
    QVector<HeadSet> records;
    const int count = qMin(settings.value(countKey, 0).toInt(), MaximumCount);
    for (int key = 0; key < count; ++key) {
        const QString name = QString::number(key);
        if (settings.contains(name))
            records.append(fromList(settings.value(name).toStringList()));
    }
    return records;
}

bool HeadSetsModel::refuse(const QString &title, const QString &text)
{
    QMessageBox::warning(nullptr, title, text, QMessageBox::Ok);
    return false;
}

bool HeadSetsModel::check(const QModelIndex &index, const QString &text) const
{
    bool ok = false;
    switch (index.column()) {
    case ManufacturerColumn:
    case ModelColumn: {
        const QString newName = index.column() == ManufacturerColumn ? text : name(index);
        const QString newModel = index.column() == ModelColumn ? text : model(index);
        if (locate(newName, newModel).isValid()) {
            return refuse(tr("Duplicate Record"),
                          tr("The name %1 %2 already exists in the file.").arg(newName, newModel));
        }
        return true;
    }
    case PhonesLevelColumn: {
        const double level = text.toDouble(&ok);
        if (!ok)
            return refuse(tr("Invalid Entry"), tr("Invalid character entered; use 0-9 and . only!"));
        if (!inRange(level, 1.0, 10.0))
            return refuse(tr("Out of Range"), tr("The Receive Level must be between 1.00 and 10.0"));
        return true;
    }
    case PhonesImpedanceColumn:
        text.toInt(&ok);
        return ok || refuse(tr("Invalid Entry"), tr("Invalid character entered; use 0-9 only!"));
    case MicLevelColumn: {
        const double level = text.toDouble(&ok);
        if (!ok)
            return refuse(tr("Invalid Entry"), tr("Invalid character entered; use 0-9 and . only!"));
        if (!inRange(level, 0.01, 1.0))
            return refuse(tr("Out of Range"), tr("The Mic Level must be between 0.01 and 1.00"));
        return true;
    }
    default:
        return true;
    }
}

QString HeadSetsModel::selectString(const HeadSet &headSet) const
{
    return tr("%1 %2 [Impedance = %3, MIC Input = %4, Phones Output = %5]")
        .arg(headSet.name, headSet.model, headSet.phonesImpedance, headSet.micLevel, headSet.phonesLevel);
}
