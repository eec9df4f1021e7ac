// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "filedialogchooser.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QTest>

FileDialogChooser::FileDialogChooser(const QString &path, QObject *parent) : QObject(parent), m_path(path)
{
    connect(&m_timer, &QTimer::timeout, this, &FileDialogChooser::poll);
    m_timer.start(20);
}

FileDialogChooser::~FileDialogChooser() = default;

void FileDialogChooser::poll()
{
    auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
    if (!dialog || !dialog->isVisible())
        return;
    auto *name = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
    if (!name)
        return;
    m_timer.stop();
    m_title = dialog->windowTitle();
    name->setText(m_path);
    QTest::keyClick(name, Qt::Key_Return);
}
