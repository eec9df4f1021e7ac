// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_NVROPTIONS_H
#define NVR_NVROPTIONS_H

#include "nvrcore_export.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QUrl>

/**
 * The application-wide options, built from three layers in a fixed order:
 * built-in defaults, then the options file (NvrOptionSettings), then the
 * command-line switches.
 *
 * Defaults: COM port 1, no second port (0), second-port transmit delay 50,
 * log file "nevra.log" in the application directory, style "WindowsVista",
 * server port 6178, and the flags show messages, SoX, read after connect and
 * connect on (0x8E), everything else off.
 *
 * Only the port numbers, the transmit delay, the manual's address, the
 * server port, the style and initializeWithDefaultData live in the file; the
 * flags come from the defaults and the switches alone. Switches are whole,
 * case-sensitive arguments anywhere in the list; a switch with a value takes
 * the argument after its first occurrence. The change signals are emitted
 * only by the port setters and editOptions(), never while reading the file.
 */
class NVRCORE_EXPORT NvrOptions : public QObject
{
    Q_OBJECT
public:
    enum OptionFlag : quint32 {
        SuperUser = 0x01,
        ShowMessages = 0x02,
        SoxLibraryEnabled = 0x04,
        ReadAfterConnect = 0x08,
        LogEnabled = 0x10,
        HideGui = 0x20,
        ServerEnabled = 0x40,
        Connect = 0x80,
    };
    Q_DECLARE_FLAGS(OptionFlags, OptionFlag)

    /// arguments is the host's full argument list, program name included.
    explicit NvrOptions(const QStringList &arguments, QObject *parent = nullptr);
    ~NvrOptions() override;

    OptionFlags flags() const;
    bool superUser() const;
    bool showMessages() const;
    bool soxLibraryEnabled() const;
    bool readAfterConnect() const;
    bool logEnabled() const;
    bool hideGui() const;
    bool serverEnabled() const;
    bool connect() const;
    void setSuperUser(const bool &on);
    void setShowMessages(const bool &on);
    void setSoxLibraryEnabled(const bool &on);
    void setReadAfterConnect(const bool &on);
    void setLogEnabled(const bool &on);
    void setHideGui(const bool &on);
    void setServerEnabled(const bool &on);
    void setConnect(const bool &on);

    int comPortNumber() const;
    void setComPortNumber(const int &number);
    /// 0 means no second port.
    int comPort2Number() const;
    void setComPort2Number(const int &number);
    int txDelay2() const;
    QString logFileName() const;
    /// Taken as given: a relative name is not made relative to the application directory.
    void setLogFileName(const QString &fileName);
    QString style() const;
    QUrl manualUrl() const;
    bool initializeWithDefaultData() const;
    quint16 serverPort() const;

    /// Free for the host's own use; the library neither reads nor stores it.
    QString hostText() const;
    void setHostText(const QString &text);

    /// Reloads the file-backed values; emits nothing.
    void readSettings();
    void saveSettings() const;
    /**
     * Lets the user choose the two ports in a modal dialog. On acceptance
     * emits the change signal of each port that changed and saves the file;
     * returns whether the dialog was accepted.
     */
    bool editOptions();

Q_SIGNALS:
    void comPortNumberChanged(const int &number);
    void comPort2NumberChanged(const int &number);

private:
    void setFlag(OptionFlag flag, bool on);
    void applySwitches(const QStringList &arguments);

    OptionFlags m_flags;
    int m_comPortNumber = 0;
    int m_comPort2Number = 0;
    int m_txDelay2 = 0;
    QString m_logFileName;
    QString m_style;
    QUrl m_manualUrl;
    bool m_initializeWithDefaultData = false;
    quint16 m_serverPort = 0;
    QString m_hostText;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(NvrOptions::OptionFlags)

/// The host's options; set by the host after it has built them. The library only reads it.
extern NVRCORE_EXPORT NvrOptions *g_nvrOptions;

#endif
