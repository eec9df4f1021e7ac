// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "rtsfile.h"

#include "kvcore.h"
#include "kvfileutils.h"
#include "kvinifile.h"
#include "kvwaitcursor.h"
#include "logger.h"
#include "models/rtdataobject.h"
#include "models/rtstablemodel.h"

#include <QMessageBox>

namespace {
RtsFile *s_instance = nullptr;

const QString group = QStringLiteral("Rts");
const QString countKey = QStringLiteral("count");
const QString autoIncIdKey = QStringLiteral("autoincid");
// A damaged count must not make the loader build millions of empty records.
constexpr int maximumCount = 65535;

struct DefaultRt
{
    int id;
    const char *manufacturer;
    const char *model;
    Rt::RtType type;
    const char *rxLevel;
    const char *rxDescription;
    const char *txLevel;
    const char *txDescription;
    int includeInRxList;
};

// The records the application ships with. Ids 7 to 9 are unused; 56 and 57 were
// retired (RtsTableModel::locateRtId sends them to 23 and 24).
const DefaultRt defaultRts[] = {
    {0, "Radio Not Installed", "", Rt::NotInstalled, "0.00", "", "0.00", "", 1},
    {1, "Default Transceiver", "", Rt::Transceiver, "7.75", "", "0.250", "", 0},
    {2, "Default Receiver", "", Rt::Receiver, "7.75", "", "", "", 1},
    {3, "Default PA", "", Rt::Pa, "", "", "0.250", "", 0},
    {4, "Default CVR", "", Rt::Cvr, "7.75", "", "0.500", "", 0},
    {5, "Default 043 Transceiver", "", Rt::Transceiver, "2.50", "", "0.250", "", 0},
    {6, "Default 043 Receiver", "", Rt::Receiver, "2.50", "", "0.100", "", 1},
    {10, "ARC (Cessna)", "RT328T", Rt::Transceiver, "4.50", "40 mw (4.5Vrms) into 500 Ohms", "0.120",
     "120mVrms into 500 Ohms", 0},
    {11, "Becker", "AR 6201", Rt::Transceiver, "7.75", "100mW (7.75Vrms) into 600 Ohms", "0.110",
     "110mVrms into 150 Ohms", 0},
    {12, "Becker", "AR 3209", Rt::Transceiver, "7.75", "100mW (7.75Vrms) into 600 Ohms", "0.120",
     "120mVrms into 150 Ohms", 0},
    {13, "Becker", "AR 4201", Rt::Transceiver, "7.75", "100mW (7.75Vrms) into 600 Ohms", "0.100",
     "100mVrms into 150 Ohms", 0},
    {14, "Bendix/King", "KY 96A", Rt::Transceiver, "7.07", "100mW (7.07Vrms) into 500 Ohms", "0.100",
     "100mVrms into 100 Ohms", 0},
    {15, "Bendix/King", "KY 97A", Rt::Transceiver, "7.07", "100mW (7.07Vrms) into 500 Ohms", "0.100",
     "100mVrms into 100 Ohms", 0},
    {16, "Bendix/King", "KX155/A", Rt::Transceiver, "7.07", "100mW (7.07Vrms) into 500 Ohms", "0.100",
     "100mVrms into 100 Ohms", 0},
    {17, "Bendix/King", "KX170B", Rt::Transceiver, "4.50", "40mW (4.50Vrms) into 500 Ohms", "0.120",
     "120mVrms into 150 Ohms", 0},
    {18, "Bendix/King", "KX175", Rt::Transceiver, "4.50", "40mW (4.50Vrms) into 500 Ohms", "0.120",
     "120mVrms into 150 Ohms", 0},
    {19, "Bendix/King", "KX196A/B", Rt::Transceiver, "7.07", "100mW (7.07Vrms) into 500 Ohms", "0.100",
     "100mVrms into 100 Ohms", 0},
    {20, "Bendix/King", "KX1967A", Rt::Transceiver, "7.07", "100mW (7.07Vrms) into 500 Ohms", "0.100",
     "100mVrms into 100 Ohms", 0},
    {21, "Bendix/King", "KLX135A", Rt::Transceiver, "7.07", "100mW (7.07Vrms) into 500 Ohms", "0.100",
     "100mVrms into 100 Ohms", 0},
    {22, "Garmin", "GNS420W", Rt::Transceiver, "7.07", "100mW (7.07Vrms) into 500 Ohms", "", "", 0},
    {23, "Garmin", "GNS430W", Rt::Transceiver, "7.07", "100mW (7.07Vrms) into 500 Ohms", "", "", 1},
    {24, "Garmin", "GNS530W", Rt::Transceiver, "7.07", "100mW (7.07Vrms) into 500 Ohms", "", "", 1},
    {25, "Garmin", "SL-40", Rt::Transceiver, "6.75", "91mW (6.75Vrms) into 500 Ohms", "0.940",
     "940mVrms into 150 Ohms", 0},
    {26, "ICOM", "IC-A210", Rt::Transceiver, "5.48", "60mW (5.48Vrms) into 500 Ohms", "0.100",
     "100mVrms into 600 Ohms", 0},
    {27, "NARCO", "COM11B", Rt::Transceiver, "4.50", "40mW (4.50Vrms) into 500 Ohms", "0.120",
     "120mVrms into 500 Ohms", 0},
    {28, "NARCO", "COM111B", Rt::Transceiver, "4.50", "40mW (4.50Vrms) into 500 Ohms", "0.120",
     "120mVrms into 500 Ohms", 0},
    {29, "NARCO", "COM120", Rt::Transceiver, "4.50", "40mW (4.50Vrms) into 500 Ohms", "0.120",
     "120mVrms into 500 Ohms", 0},
    {30, "NARCO", "MK12A", Rt::Transceiver, "4.50", "40mW (4.50Vrms) into 500 Ohms", "0.120",
     "120mVrms into 500 Ohms", 0},
    {31, "NAT", "NPX138", Rt::Transceiver, "7.75", "100mW (7.75Vrms) into 600 Ohms", "0.100",
     "100mVrms into 150 Ohms", 0},
    {32, "NAT", "NPX136D", Rt::Transceiver, "7.75", "100mW (7.75Vrms) into 600 Ohms", "0.100",
     "100mVrms into 150 Ohms", 0},
    {33, "NAT", "NTX403", Rt::Transceiver, "7.75", "100mW (7.75Vrms) into 600 Ohms", "0.100",
     "100mVrms into 150 Ohms", 0},
    {34, "Skytrac", "ISAT-200", Rt::Transceiver, "9.50", "150mW (9.50Vrms) into 600 Ohms", "0.100",
     "1.40Vrms into 1000 Ohms", 0},
    {35, "Technisonic", "TFM-30", Rt::Transceiver, "10.00", "500mW (17.3Vrms) into 600 Ohms", "0.050",
     "50mVrms into 200 Ohms", 0},
    {36, "Technisonic", "TFM-66", Rt::Transceiver, "10.00", "500mW (17.3Vrms) into 600 Ohms", "0.050",
     "50mVrms into 200 Ohms", 0},
    {37, "Technisonic", "TFM-138 & D", Rt::Transceiver, "10.00", "500mW (17.3Vrms) into 600 Ohms", "0.050",
     "50mVrms into 200 Ohms", 0},
    {38, "Technisonic", "TFM-403", Rt::Transceiver, "10.00", "500mW (17.3Vrms) into 600 Ohms", "0.050",
     "50mVrms into 200 Ohms", 0},
    {39, "Technisonic", "TFM-500", Rt::Transceiver, "10.00", "500mW (17.3Vrms) into 600 Ohms", "0.050",
     "50mVrms into 200 Ohms", 0},
    {40, "Technisonic", "TDFM-136", Rt::Transceiver, "10.00", "500mW (17.3Vrms) into 600 Ohms", "0.050",
     "50mVrms into 200 Ohms", 0},
    {41, "Technisonic", "TDFM-7300", Rt::Transceiver, "10.00", "600mW (19Vrms) into 600 Ohms", "0.050",
     "50mVrms into 200 Ohms", 0},
    {42, "Technisonic", "TDFM-7000", Rt::Transceiver, "10.00", "600mW (19Vrms) into 600 Ohms", "0.050",
     "50mVrms into 200 Ohms", 0},
    {43, "TKM Inc.", "MX11", Rt::Transceiver, "4.50", "40mW (4.5Vrms) into 500 Ohms", "0.120",
     "120mVrms into 500 Ohms", 0},
    {44, "TKM Inc.", "MX12", Rt::Transceiver, "4.50", "40mW (4.5Vrms) into 500 Ohms", "0.120",
     "120mVrms into 500 Ohms", 0},
    {45, "TKM Inc.", "MX170(C)", Rt::Transceiver, "4.50", "40mW (4.5Vrms) into 500 Ohms", "0.120",
     "120mVrms into 500 Ohms", 0},
    {46, "TKM Inc.", "MX300", Rt::Transceiver, "4.50", "40mW (4.5Vrms) into 500 Ohms", "0.120",
     "120mVrms into 500 Ohms", 0},
    {47, "TKM Inc.", "MX385", Rt::Transceiver, "4.50", "40mW (4.5Vrms) into 500 Ohms", "0.120",
     "120mVrms into 500 Ohms", 0},
    {48, "Wulfsberg", "C-2000", Rt::Transceiver, "7.75", "100mW (7.75Vrms) into 600 Ohms", "0.250",
     "250mVrms into 150 Ohms", 0},
    {49, "Wulfsberg", "C-5000", Rt::Transceiver, "7.75", "100mW (7.75Vrms) into 600 Ohms", "0.250",
     "250mVrms into 150 Ohms", 0},
    {50, "Wulfsberg", "P-2000", Rt::Transceiver, "7.75", "100mW (7.75Vrms) into 600 Ohms", "0.250",
     "250mVrms into 150 Ohms", 0},
    {51, "Wulfsberg", "RT-30", Rt::Transceiver, "7.75", "100mW (7.75Vrms) into 600 Ohms", "0.250",
     "250mVrms into 200 Ohms", 0},
    {52, "Wulfsberg", "RT-138F", Rt::Transceiver, "7.75", "100mW (7.75Vrms) into 600 Ohms", "0.250",
     "250mVrms into 200 Ohms", 0},
    {53, "Wulfsberg", "RT-2000", Rt::Transceiver, "7.75", "100mW (7.75Vrms) into 600 Ohms", "0.250",
     "250mVrms into 150 Ohms", 0},
    {54, "Bendix/King", "KX155A", Rt::Receiver, "7.07", "100mW (7.07Vrms) into 500 Ohms", "0.000", "", 1},
    {55, "Bendix/King", "KX170", Rt::Receiver, "0.50", "0.5Vrms into 500 Ohms", "0.000", "", 1},
    {58, "TKM Inc.", "MX12", Rt::Receiver, "4.50", "40mW (4.50Vrms) into 500 Ohms", "", "", 1},
    {59, "TKM Inc.", "MX170(C)", Rt::Receiver, "4.50", "40mW (4.50Vrms) into 500 Ohms", "", "", 1},
    {60, "TKM Inc.", "MX300", Rt::Receiver, "5.00", "50mW (5.00Vrms) into 500 Ohms", "", "", 1},
    {61, "TKM Inc.", "MK12A", Rt::Receiver, "4.50", "40mW (4.50Vrms) into 500 Ohms", "", "", 1},
    {62, "NAT", "AA20-030", Rt::Pa, "0.00", "", "0.200", "200mVrms into 150 Ohms", 0},
    {63, "NAT", "AA20-430", Rt::Pa, "0.00", "", "0.200", "200mVrms into 150 Ohms", 0},
    {64, "NAT", "AA20-050", Rt::Pa, "0.00", "", "0.200", "200mVrms into 150 Ohms", 0},
    {65, "NAT", "AA22-110", Rt::Pa, "0.00", "", "0.200", "200mVrms into 150 Ohms", 0},
    {66, "NAT", "AA22-160", Rt::Pa, "0.00", "", "0.200", "200mVrms into 150 Ohms", 0},
    {67, "NAT", "AA21-400", Rt::Pa, "0.00", "", "0.200", "250mVrms into 150 Ohms", 0},
    {68, "NAT", "PA250", Rt::Pa, "0.00", "", "0.005", "5mVrms into 150 Ohms", 0},
    {69, "NAT", "PA700", Rt::Pa, "0.00", "", "0.005", "5mVrms into 150 Ohms", 0},
    {70, "PowerSonix", "PSAIR22", Rt::Pa, "0.00", "", "1.000", "1Vrms into 150 Ohms", 0},
    {71, "PowerSonix", "PSAIR42", Rt::Pa, "0.00", "", "1.000", "1Vrms into 150 Ohms", 0},
    {72, "PowerSonix", "PSAIRq2", Rt::Pa, "0.00", "", "1.000", "1Vrms into 150 Ohms", 0},
    {73, "PowerSonix", "PSAMP600", Rt::Pa, "0.00", "", "1.000", "1Vrms into 150 Ohms", 0},
    {74, "PowerSonix", "PSAMP1200", Rt::Pa, "0.00", "", "1.000", "1Vrms into 150 Ohms", 0},
    {75, "Technisonic", "A790", Rt::Pa, "0.00", "", "0.145", "", 0},
    {76, "Honeywell", "AR COMBI", Rt::Cvr, "0.00", "", "0.500", "500mV into 5 KOhms", 0},
    {77, "Universal Avionics", "CVFDR", Rt::Cvr, "0.00", "", "0.500", "500mV into 5 KOhms", 0},
    {78, "L3", "FA2100", Rt::Cvr, "0.00", "", "0.500", "500mV into 5 KOhms", 0},
};
}

RtsFile::RtsFile(QObject *parent)
    : QObject(parent),
      m_baseFileName(KvCore::applicationDirPath() + QStringLiteral("/nevradat/radiosbase.dat")),
      m_userFileName(KvCore::applicationDirPath() + QStringLiteral("/nevradat/radiosuser.dat"))
{
}

RtsFile::~RtsFile()
{
    RtsTableModel::destroyInstance();
}

RtsFile *RtsFile::instance()
{
    if (!s_instance) {
        s_instance = new RtsFile;
        s_instance->openFiles();
    }
    return s_instance;
}

void RtsFile::destroyInstance()
{
    LOG_INFO(QStringLiteral("RtsFile::destroyInstance()"));
    delete s_instance;
    s_instance = nullptr;
}

QString RtsFile::baseFileName() const
{
    return m_baseFileName;
}

QString RtsFile::userFileName() const
{
    return m_userFileName;
}

bool RtsFile::isModified() const
{
    return m_modified;
}

void RtsFile::setModified(const bool &modified)
{
    if (m_modified == modified)
        return;
    m_modified = modified;
    Q_EMIT modifiedChanged(m_modified);
}

void RtsFile::appendNew(const int &id, const QString &manufacturer, const QString &model, const Rt::RtType &type,
                        const QString &rxLevel, const QString &rxDescription, const QString &txLevel,
                        const QString &txDescription, const int &includeInRxList)
{
    RtsTableModel::instance()->insertFromStrings({QStringLiteral("%1").arg(id), manufacturer, model,
                                                  QStringLiteral("%1").arg(static_cast<int>(type)), rxLevel,
                                                  rxDescription, txLevel, txDescription,
                                                  QStringLiteral("%1").arg(includeInRxList)});
}

bool RtsFile::saveBaseFile()
{
    KvWaitCursor wait;
    RtsTableModel *model = RtsTableModel::instance();
    KvIniFile file(m_baseFileName, KvIniFile::Write);
    QSettings &settings = file.settings();
    file.removeGroup(group);
    settings.beginGroup(group);
    // Keyed by row, as base records are loaded first and so run 0 to count - 1. Empty records that a
    // damaged file made are left out, and then the keys run on without a gap, or every later record
    // would sit beyond the count and never be read again.
    QList<QPair<int, QStringList>> records;
    int skipped = 0;
    for (int row = 0; row < model->rowCount(); ++row) {
        if (!model->isBaseRt(model->index(row, RtsTableModel::IdColumn)))
            continue;
        const QStringList record = model->dataObjectAtRow(row)->toStringList();
        if (isEmptyRecord(record))
            ++skipped;
        else
            records.append({row, record});
    }
    for (int i = 0; i < records.size(); ++i)
        settings.setValue(QStringLiteral("%1").arg(skipped == 0 ? records.at(i).first : i), records.at(i).second);
    settings.setValue(countKey, model->baseRtsCount() - skipped);
    settings.endGroup();
    settings.sync();
    return true;
}

bool RtsFile::saveUserFile()
{
    KvWaitCursor wait;
    RtsTableModel *model = RtsTableModel::instance();
    KvIniFile file(m_userFileName, KvIniFile::Write);
    QSettings &settings = file.settings();
    file.removeGroup(group);
    settings.beginGroup(group);
    settings.setValue(autoIncIdKey, model->nextUserRtId());
    int key = 0;
    for (int row = 0; row < model->rowCount(); ++row) {
        if (model->isBaseRt(model->index(row, RtsTableModel::IdColumn)))
            continue;
        const QStringList record = model->dataObjectAtRow(row)->toStringList();
        if (!isEmptyRecord(record))
            settings.setValue(QStringLiteral("%1").arg(key++), record);
    }
    settings.setValue(countKey, key);
    settings.endGroup();
    settings.sync();
    setModified(false);
    return true;
}

bool RtsFile::saveFiles()
{
    bool saved = saveBaseFile();
    if (saved)
        saved = saveUserFile();
    return saved;
}

bool RtsFile::askToSave()
{
    if (!m_modified)
        return true;
    const QMessageBox::StandardButton answer = QMessageBox::warning(
        nullptr, tr("File Changed"), tr("The Radios file has been modified.\nDo you want to save your changes?"),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
    switch (answer) {
    case QMessageBox::Save:
        return saveFiles();
    case QMessageBox::Cancel:
        return false;
    default:
        return true;
    }
}

void RtsFile::openFiles()
{
    if (!m_rebuilding && (!KvFileUtils::fileExists(m_baseFileName) || !KvFileUtils::fileExists(m_userFileName))) {
        newFile();
        return;
    }
    KvWaitCursor wait;
    RtsTableModel *model = RtsTableModel::instance();
    model->clear();

    KvIniFile base(m_baseFileName);
    base.beginGroup(group);
    const int baseCount = base.value(countKey, 0).toInt();
    LOG_INFO(QStringLiteral("Base Count=%1").arg(baseCount));
    if (baseCount != 0)
        model->insertFromStringsList(readRecords(base, baseCount));
    base.endGroup();

    KvIniFile user(m_userFileName);
    user.beginGroup(group);
    const int userCount = user.value(countKey, 0).toInt();
    LOG_INFO(QStringLiteral("User Count=%1").arg(userCount));
    if (userCount != 0)
        model->insertFromStringsList(readRecords(user, userCount));
    // No lower bound of 200 here: a user file without the key restarts the ids at 0.
    model->setNextUserRtId(user.value(autoIncIdKey, 0).toInt());
    user.endGroup();

    setModified(false);
}

void RtsFile::newFile()
{
    m_rebuilding = true;
    RtsTableModel *model = RtsTableModel::instance();
    model->clear();
    appendDefaultTable();
    saveBaseFile();
    if (KvFileUtils::fileExists(m_userFileName)) {
        openFiles();
    } else {
        model->clear();
        saveUserFile();
        openFiles();
    }
    m_rebuilding = false;
}

QList<QStringList> RtsFile::readRecords(const KvIniFile &file, int count)
{
    QList<QStringList> records;
    const int bounded = qMin(count, maximumCount);
    for (int key = 0; key < bounded; ++key)
        records.append(file.value(QStringLiteral("%1").arg(key)).toStringList());
    return records;
}

bool RtsFile::isEmptyRecord(const QStringList &record)
{
    // Id, type and flag read as 0 whatever the file holds; every text field is empty.
    for (int field = 0; field < record.size(); ++field) {
        if (field != RtDataObject::Id && field != RtDataObject::Type && field != RtDataObject::IncludeInRxList
            && !record.at(field).isEmpty())
            return false;
    }
    return true;
}

void RtsFile::appendDefaultTable()
{
    for (const DefaultRt &rt : defaultRts) {
        appendNew(rt.id, QString::fromLatin1(rt.manufacturer), QString::fromLatin1(rt.model), rt.type,
                  QString::fromLatin1(rt.rxLevel), QString::fromLatin1(rt.rxDescription),
                  QString::fromLatin1(rt.txLevel), QString::fromLatin1(rt.txDescription), rt.includeInRxList);
    }
}
