// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_TEST_FILEDIALOGCHOOSER_H
#define NVR_TEST_FILEDIALOGCHOOSER_H

#include <QObject>
#include <QString>
#include <QTimer>

/**
 * Answers the next file dialog, so that a test can open a modal QFileDialog
 * without hanging on it: the path is typed into the dialog's file name field
 * and Return pressed, as a user would. (QFileDialog::selectFile() leaves the
 * field alone once it has the focus, so a test that relies on it hangs or
 * passes by timing.)
 */
class FileDialogChooser : public QObject
{
    Q_OBJECT
public:
    explicit FileDialogChooser(const QString &path, QObject *parent = nullptr);
    ~FileDialogChooser() override;

    /// The dialog's title, once one was answered.
    QString title() const { return m_title; }
    bool answered() const { return !m_title.isNull(); }

private:
    void poll();

    QTimer m_timer;
    QString m_path;
    QString m_title;
};

#endif
