// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "nvrcore.h"

#include "kvwaitcursor.h"

#include <QFile>
#include <QMessageBox>

QString NvrCore::readFromTextFile(const QString &fileName, const QString &caption)
{
    QFile file(fileName);
    if (!file.open(QFile::ReadOnly | QFile::Text)) {
        QMessageBox::warning(nullptr, caption,
                             QObject::tr("Cannot read file '%1'.\n%2.").arg(fileName, file.errorString()));
        return QString();
    }
    QString text;
    {
        KvWaitCursor wait;
        const QByteArray bytes = file.readAll();
        if (!bytes.isEmpty()) {
            const int nul = bytes.indexOf('\0');
            text = QString::fromUtf8(bytes.constData(), nul < 0 ? bytes.size() : nul);
        }
    }
    file.close();
    return text;
}

bool NvrCore::saveToTextFile(const QString &fileName, const QString &text)
{
    QFile file(fileName);
    if (file.exists() && !file.remove()) {
        QMessageBox::warning(nullptr, QObject::tr("Error Saving File"),
                             QObject::tr("Cannot remove previous version of file %1:\n%2.")
                                 .arg(fileName, file.errorString()));
        return false;
    }
    if (!file.open(QFile::WriteOnly | QFile::Text)) {
        QMessageBox::warning(nullptr, QObject::tr("Error Saving File"),
                             QObject::tr("Unable to save '%1'.\n\n Is the file currently open?").arg(fileName));
        return false;
    }
    KvWaitCursor wait;
    file.write(text.toUtf8());
    file.close();
    return true;
}
