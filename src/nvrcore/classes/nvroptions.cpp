// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "nvroptions.h"

#include "dialogs/nvroptionsdialog.h"
#include "kvcore.h"
#include "kvinifile.h"
#include "nvroptionsettings.h"

#include <QDir>
#include <QSpinBox>

NvrOptions *g_nvrOptions = nullptr;

namespace {
const NvrOptions::OptionFlags defaultFlags = NvrOptions::ShowMessages | NvrOptions::SoxLibraryEnabled
                                             | NvrOptions::ReadAfterConnect | NvrOptions::Connect;
const QString group = QStringLiteral("options");
const QString comPortKey = QStringLiteral("comport");
const QString comPort2Key = QStringLiteral("comport2");
const QString txDelayKey = QStringLiteral("txdelay");
const QString txDelay2Key = QStringLiteral("txdelay2");
const QString manualUrlKey = QStringLiteral("manualurl");
const QString serverPortKey = QStringLiteral("serverport");
const QString styleKey = QStringLiteral("style");
const QString initializeKey = QStringLiteral("initializeWithDefaultData");
const QString defaultManualUrl = QStringLiteral("http://intranet/nevra/lab/nevramanual.htm");
const quint16 defaultServerPort = 6178;

// QVariant calls any text but "", "0" and "false" true; an unreadable value must read as false.
bool toBool(const QVariant &value)
{
    if (value.userType() == QMetaType::Bool)
        return value.toBool();
    const QString text = value.toString().trimmed();
    if (text.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0)
        return true;
    bool ok = false;
    const qlonglong number = text.toLongLong(&ok);
    return ok && number != 0;
}

// The argument after the first occurrence of a switch, or a null text when there is none.
QString switchValue(const QStringList &arguments, const QString &name)
{
    const int index = arguments.indexOf(name);
    return index >= 0 && index + 1 < arguments.size() ? arguments.at(index + 1) : QString();
}
}

NvrOptions::NvrOptions(const QStringList &arguments, QObject *parent) : QObject(parent)
{
    m_logFileName = QDir(KvCore::applicationDirPath()).filePath(QStringLiteral("nevra.log"));
    m_flags = defaultFlags;
    readSettings();
    applySwitches(arguments);
}

NvrOptions::~NvrOptions() = default;

void NvrOptions::applySwitches(const QStringList &arguments)
{
    if (arguments.contains(QLatin1String("-log")))
        setLogEnabled(true);
    if (arguments.contains(QLatin1String("-logfile"))) {
        setLogEnabled(true);
        const QString fileName = switchValue(arguments, QStringLiteral("-logfile"));
        if (!fileName.isNull())
            m_logFileName = fileName;
    }
    if (arguments.contains(QLatin1String("-noconnect")))
        setConnect(false);
    if (arguments.contains(QLatin1String("-nogui")))
        setHideGui(true);
    if (arguments.contains(QLatin1String("-nomessages")))
        setShowMessages(false);
    if (arguments.contains(QLatin1String("-noread")))
        setReadAfterConnect(false);
    if (arguments.contains(QLatin1String("-nosox")))
        setSoxLibraryEnabled(false);
    if (arguments.contains(QLatin1String("-qz")))
        setSuperUser(true);
    if (arguments.contains(QLatin1String("-s")))
        setServerEnabled(true);
    const QString port = switchValue(arguments, QStringLiteral("-port"));
    if (!port.isNull())
        m_serverPort = static_cast<quint16>(port.toLongLong()); // keeps the low 16 bits; not a number gives 0
}

void NvrOptions::setFlag(OptionFlag flag, bool on)
{
    m_flags.setFlag(flag, on);
}

NvrOptions::OptionFlags NvrOptions::flags() const
{
    return m_flags;
}

bool NvrOptions::superUser() const
{
    return m_flags.testFlag(SuperUser);
}

bool NvrOptions::showMessages() const
{
    return m_flags.testFlag(ShowMessages);
}

bool NvrOptions::soxLibraryEnabled() const
{
    return m_flags.testFlag(SoxLibraryEnabled);
}

bool NvrOptions::readAfterConnect() const
{
    return m_flags.testFlag(ReadAfterConnect);
}

bool NvrOptions::logEnabled() const
{
    return m_flags.testFlag(LogEnabled);
}

bool NvrOptions::hideGui() const
{
    return m_flags.testFlag(HideGui);
}

bool NvrOptions::serverEnabled() const
{
    return m_flags.testFlag(ServerEnabled);
}

bool NvrOptions::connect() const
{
    return m_flags.testFlag(Connect);
}

void NvrOptions::setSuperUser(const bool &on)
{
    setFlag(SuperUser, on);
}

void NvrOptions::setShowMessages(const bool &on)
{
    setFlag(ShowMessages, on);
}

void NvrOptions::setSoxLibraryEnabled(const bool &on)
{
    setFlag(SoxLibraryEnabled, on);
}

void NvrOptions::setReadAfterConnect(const bool &on)
{
    setFlag(ReadAfterConnect, on);
}

void NvrOptions::setLogEnabled(const bool &on)
{
    setFlag(LogEnabled, on);
}

void NvrOptions::setHideGui(const bool &on)
{
    setFlag(HideGui, on);
}

void NvrOptions::setServerEnabled(const bool &on)
{
    setFlag(ServerEnabled, on);
}

void NvrOptions::setConnect(const bool &on)
{
    setFlag(Connect, on);
}

int NvrOptions::comPortNumber() const
{
    return m_comPortNumber;
}

void NvrOptions::setComPortNumber(const int &number)
{
    if (number == m_comPortNumber)
        return;
    m_comPortNumber = number;
    Q_EMIT comPortNumberChanged(m_comPortNumber);
}

int NvrOptions::comPort2Number() const
{
    return m_comPort2Number;
}

void NvrOptions::setComPort2Number(const int &number)
{
    if (number == m_comPort2Number)
        return;
    m_comPort2Number = number;
    Q_EMIT comPort2NumberChanged(m_comPort2Number);
}

int NvrOptions::txDelay2() const
{
    return m_txDelay2;
}

QString NvrOptions::logFileName() const
{
    return m_logFileName;
}

void NvrOptions::setLogFileName(const QString &fileName)
{
    m_logFileName = fileName;
}

QString NvrOptions::style() const
{
    return m_style;
}

QUrl NvrOptions::manualUrl() const
{
    return m_manualUrl;
}

bool NvrOptions::initializeWithDefaultData() const
{
    return m_initializeWithDefaultData;
}

quint16 NvrOptions::serverPort() const
{
    return m_serverPort;
}

QString NvrOptions::hostText() const
{
    return m_hostText;
}

void NvrOptions::setHostText(const QString &text)
{
    m_hostText = text;
}

void NvrOptions::readSettings()
{
    // Read like every INI file a user may bring from Windows (its encoding, names in any case);
    // writing goes through NvrOptionSettings.
    KvIniFile settings(NvrOptionSettings::filePath());
    settings.beginGroup(group);
    // A file that cannot be read or parsed whole (a folder, garbage) is not half trusted: all defaults.
    const bool readable = settings.status() == QSettings::NoError;
    const auto value = [&](const QString &key, const QVariant &defaultValue) {
        return readable ? settings.value(key, defaultValue) : defaultValue;
    };
    m_comPortNumber = value(comPortKey, 1).toInt();
    m_comPort2Number = value(comPort2Key, 0).toInt();
    // The control port can never be the configuration port.
    if (m_comPort2Number == m_comPortNumber)
        m_comPort2Number = 0;
    m_txDelay2 = value(txDelay2Key, 50).toInt();
    m_manualUrl = value(manualUrlKey, QUrl(defaultManualUrl)).toUrl();
    m_serverPort = static_cast<quint16>(value(serverPortKey, defaultServerPort).toLongLong());
    m_style = value(styleKey, QStringLiteral("WindowsVista")).toString();
    m_initializeWithDefaultData = toBool(value(initializeKey, false));
    settings.endGroup();
}

void NvrOptions::saveSettings() const
{
    NvrOptionSettings settings;
    // Into the group as the file spells it, so a file from Windows keeps one options group.
    settings.beginGroup(KvIniFile::groupSpelling(settings, group));
    // Left over from versions that had a delay on the first port as well.
    settings.remove(txDelayKey);
    settings.setValue(comPortKey, m_comPortNumber);
    settings.setValue(comPort2Key, m_comPort2Number);
    settings.setValue(txDelay2Key, m_txDelay2);
    // As text: a QUrl would be stored as an unreadable @Variant blob.
    settings.setValue(manualUrlKey, m_manualUrl.toString());
    settings.setValue(serverPortKey, m_serverPort);
    settings.setValue(styleKey, m_style);
    settings.setValue(initializeKey, m_initializeWithDefaultData);
    settings.endGroup();
}

bool NvrOptions::editOptions()
{
    NvrOptionsDialog dialog;
    dialog.comPortSpinBox()->setValue(m_comPortNumber);
    dialog.comPort2SpinBox()->setValue(m_comPort2Number);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    setComPortNumber(dialog.comPortSpinBox()->value());
    setComPort2Number(dialog.comPort2SpinBox()->value());
    saveSettings();
    return true;
}
