// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NEVRA_AUDIOPAGE_H
#define NEVRA_AUDIOPAGE_H

#include <QSet>
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
 *
 * A converted sound that was not saved is not dropped without a question
 * (maybeSave()), and the work files the page's conversions left in the
 * application's "tmp" folder are removed with the page.
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
    /**
     * Offers to save a converted sound that was not saved (Save, Discard,
     * Cancel). Save asks for a file name; false when the user cancels or the
     * save fails.
     */
    bool maybeSave();

Q_SIGNALS:
    void busyChanged(bool busy);

private:
    void chooseFile();
    bool chooseSaveFile();
    void showSound();
    void showStatus(const QString &text, bool failure);

    NvrWav *m_wav;
    QString m_source;
    bool m_unsaved = false;
    /// Work files this page's conversions wrote; other programs' files in the folder are left alone.
    QSet<QString> m_workFiles;
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
