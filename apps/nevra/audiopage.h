// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NEVRA_AUDIOPAGE_H
#define NEVRA_AUDIOPAGE_H

#include <QWidget>

class NvrWav;
class QLabel;
class QPushButton;

/**
 * The host's audio page: picks a sound file, converts it into the product's
 * WAV form under the wait cursor, shows the result's length and format, and
 * saves it under the product's suffix. It plays nothing.
 *
 * The conversion blocks the window for as long as SoX runs (a few seconds
 * for a long file); busyChanged() brackets it.
 */
class AudioPage : public QWidget
{
    Q_OBJECT
public:
    explicit AudioPage(QWidget *parent = nullptr);
    ~AudioPage() override;

    /// What the Open button does once a file is chosen.
    bool importFile(const QString &fileName);
    /// What the Save button does once a name is chosen; the suffix becomes the product's.
    bool saveFile(const QString &fileName);
    const NvrWav *wav() const { return m_wav; }

Q_SIGNALS:
    void busyChanged(bool busy);

private:
    void chooseFile();
    void chooseSaveFile();
    void showSound();
    void showStatus(const QString &text, bool failure);

    NvrWav *m_wav;
    QString m_source;
    QLabel *m_fileName;
    QLabel *m_length;
    QLabel *m_format;
    QLabel *m_dataSize;
    QLabel *m_savedAs;
    QLabel *m_status;
    QPushButton *m_open;
    QPushButton *m_save;
};

#endif
