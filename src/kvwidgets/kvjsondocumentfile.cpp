// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "kvjsondocumentfile.h"

#include "kvwaitcursor.h"
#include "logger.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QJsonParseError>
#include <QLockFile>
#include <QMessageBox>
#include <QSaveFile>

class KvJsonDocumentFilePrivate
{
public:
    QString fileName;
    QString description;
    QString suffix;
    bool modified = false;
    std::unique_ptr<QLockFile> lock;
    QString lockedFileName;

    QString title(const QString &caption) const { return caption.isEmpty() ? description : caption; }
    QString filter() const
    {
        const QString all = KvJsonDocumentFile::tr("All files (*)");
        if (suffix.isEmpty())
            return all;
        return KvJsonDocumentFile::tr("%1 (*.%2)").arg(description, suffix) + QLatin1String(";;") + all;
    }
    QString startFolder() const
    {
        return fileName.isEmpty() ? QDir::currentPath() : QFileInfo(fileName).absolutePath();
    }
    bool holds(const QString &path) const;
    /// One attempt; on success the document holds this lock and lets go of any other.
    QLockFile::LockError tryLock(const QString &path, QString *owner);
};

namespace {
QString lockPath(const QString &fileName)
{
    return fileName + QLatin1String(".lock");
}

QString canonical(const QString &fileName)
{
    return QFileInfo(fileName).absoluteFilePath();
}

/// Who holds the lock, as far as the lock file tells.
QString lockOwner(const QLockFile &lockFile)
{
    qint64 pid = 0;
    QString host;
    QString application;
    if (!lockFile.getLockInfo(&pid, &host, &application))
        return KvJsonDocumentFile::tr("The other application is unknown.");
    return KvJsonDocumentFile::tr("It is held by %1 (process %2 on %3).")
        .arg(application.isEmpty() ? KvJsonDocumentFile::tr("an application") : application)
        .arg(pid)
        .arg(host);
}

QString inUseText(const QString &fileName)
{
    return KvJsonDocumentFile::tr("The file '%1' is in use by another application.").arg(fileName);
}
}

bool KvJsonDocumentFilePrivate::holds(const QString &path) const
{
    return lock && lock->isLocked() && lockedFileName == canonical(path);
}

QLockFile::LockError KvJsonDocumentFilePrivate::tryLock(const QString &path, QString *owner)
{
    if (holds(path))
        return QLockFile::NoError;
    auto lockFile = std::make_unique<QLockFile>(lockPath(path));
    // Only a dead owner makes a lock stale: a long editing session is not one.
    lockFile->setStaleLockTime(0);
    if (lockFile->tryLock(0)) {
        lock = std::move(lockFile);
        lockedFileName = canonical(path);
        return QLockFile::NoError;
    }
    const QLockFile::LockError error = lockFile->error();
    if (error == QLockFile::LockFailedError) {
        *owner = lockOwner(*lockFile);
        LOG_INFO(QStringLiteral("%1 %2").arg(inUseText(path), *owner));
    } else {
        LOG_ERROR(QStringLiteral("Cannot create the lock file %1.").arg(lockPath(path)));
    }
    return error;
}

KvJsonDocumentFile::KvJsonDocumentFile(QObject *parent) : QObject(parent), d(new KvJsonDocumentFilePrivate)
{
}

KvJsonDocumentFile::~KvJsonDocumentFile() = default;

QString KvJsonDocumentFile::fileName() const
{
    return d->fileName;
}

void KvJsonDocumentFile::setFileName(const QString &fileName)
{
    d->fileName = fileName;
}

QString KvJsonDocumentFile::description() const
{
    return d->description;
}

void KvJsonDocumentFile::setDescription(const QString &description)
{
    d->description = description;
}

QString KvJsonDocumentFile::suffix() const
{
    return d->suffix;
}

void KvJsonDocumentFile::setSuffix(const QString &suffix)
{
    d->suffix = suffix;
}

bool KvJsonDocumentFile::isModified() const
{
    return d->modified;
}

void KvJsonDocumentFile::setModified(bool modified)
{
    d->modified = modified;
}

bool KvJsonDocumentFile::isLocked(const QString &fileName) const
{
    return d->holds(fileName);
}

bool KvJsonDocumentFile::openFile(const QString &fileName)
{
    const QString name = fileName.isEmpty() ? getOpenFileName() : fileName;
    if (name.isEmpty() || !maybeSave())
        return false;
    const bool loaded = loadFromJsonFile(name, false);
    if (loaded || !QFileInfo::exists(name)) {
        d->fileName = name;
        if (!lock(name, false))
            LOG_INFO(QStringLiteral("%1 is not locked for this application; saving will ask for it.").arg(name));
        d->modified = false;
    }
    return loaded;
}

bool KvJsonDocumentFile::saveFile(const QString &fileName)
{
    const QString name = fileName.isEmpty() ? d->fileName : fileName;
    if (name.isEmpty())
        return saveFileAs();
    if (!isLocked(name) && !lockRetry(name, d->description, true))
        return false;
    if (!saveToJsonFile(name, true))
        return false;
    d->fileName = name;
    d->modified = false;
    return true;
}

bool KvJsonDocumentFile::saveFileAs()
{
    const QString name = getSaveFileName();
    return !name.isEmpty() && saveFile(name);
}

bool KvJsonDocumentFile::newFile()
{
    if (!maybeSave())
        return false;
    forgetFile();
    return true;
}

bool KvJsonDocumentFile::closeFile()
{
    return newFile();
}

void KvJsonDocumentFile::forgetFile()
{
    newJsonDocument();
    unlock();
    d->fileName.clear();
    d->modified = false;
}

bool KvJsonDocumentFile::maybeSave()
{
    if (!d->modified)
        return true;
    const QMessageBox::StandardButton answer = QMessageBox::warning(
        nullptr, d->description,
        tr("The document '%1' has been modified.\nDo you want to save your changes?").arg(d->description),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    if (answer == QMessageBox::Save)
        return saveFile(QString());
    return answer == QMessageBox::Discard;
}

bool KvJsonDocumentFile::revert()
{
    if (d->fileName.isEmpty() || !loadFromJsonFile(d->fileName, true))
        return false;
    d->modified = false;
    return true;
}

bool KvJsonDocumentFile::loadFromJsonFile(const QString &fileName, bool showErrors, const QString &caption)
{
    QJsonDocument document;
    QString error;
    {
        KvWaitCursor wait;
        QFile file(fileName);
        if (!file.open(QFile::ReadOnly)) {
            error = file.errorString();
        } else {
            const QByteArray bytes = file.readAll();
            if (bytes.trimmed().isEmpty()) {
                error = tr("The file is empty");
            } else {
                QJsonParseError parseError;
                document = QJsonDocument::fromJson(bytes, &parseError);
                if (parseError.error != QJsonParseError::NoError)
                    error = tr("%1 at offset %2").arg(parseError.errorString()).arg(parseError.offset);
            }
        }
    }
    if (!error.isEmpty()) {
        LOG_ERROR(QStringLiteral("Cannot read %1: %2.").arg(fileName, error));
        if (showErrors)
            QMessageBox::warning(nullptr, d->title(caption), tr("Cannot read file '%1'.\n%2.").arg(fileName, error));
    }
    KvWaitCursor wait;
    return fromJsonDocument(document);
}

bool KvJsonDocumentFile::saveToJsonFile(const QString &fileName, bool showErrors)
{
    QString error;
    {
        KvWaitCursor wait;
        const QByteArray bytes = toJsonDocument().toJson(QJsonDocument::Indented);
        QSaveFile file(fileName);
        // commit() does not see a flush that wrote only part of the buffer
        // (a full disk), and would replace the file with that part.
        if (!file.open(QFile::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush() || !file.commit())
            error = file.errorString();
    }
    if (error.isEmpty())
        return true;
    LOG_ERROR(QStringLiteral("Cannot write %1: %2.").arg(fileName, error));
    if (showErrors)
        QMessageBox::warning(nullptr, tr("Error Saving File"), tr("Unable to save '%1'.\n%2.").arg(fileName, error));
    return false;
}

QString KvJsonDocumentFile::getOpenFileName() const
{
    return QFileDialog::getOpenFileName(nullptr, tr("Open %1").arg(d->description), d->startFolder(), d->filter());
}

QString KvJsonDocumentFile::getSaveFileName() const
{
    const QString start = d->fileName.isEmpty() ? d->startFolder() : d->fileName;
    QString name = QFileDialog::getSaveFileName(nullptr, tr("Save %1 As").arg(d->description), start, d->filter());
    if (!name.isEmpty() && !d->suffix.isEmpty() && QFileInfo(name).suffix().isEmpty())
        name += QLatin1Char('.') + d->suffix;
    return name;
}

bool KvJsonDocumentFile::lock(const QString &fileName, bool showMessage)
{
    QString owner;
    const QLockFile::LockError error = d->tryLock(fileName, &owner);
    if (error == QLockFile::LockFailedError && showMessage) {
        QMessageBox box(QMessageBox::Warning, d->description, inUseText(fileName), QMessageBox::Ok);
        box.setInformativeText(owner);
        box.exec();
    }
    return error == QLockFile::NoError;
}

bool KvJsonDocumentFile::lockRetry(const QString &fileName, const QString &caption, bool askUser)
{
    for (;;) {
        QString owner;
        const QLockFile::LockError error = d->tryLock(fileName, &owner);
        if (error != QLockFile::LockFailedError)
            return true;
        if (!askUser)
            return false;
        QMessageBox box(QMessageBox::Warning, d->title(caption), inUseText(fileName),
                        QMessageBox::Retry | QMessageBox::Cancel);
        box.setDefaultButton(QMessageBox::Retry);
        box.setInformativeText(owner + QLatin1Char('\n')
                               + tr("Retry when the other application has closed the file, or cancel."));
        if (box.exec() != QMessageBox::Retry)
            return false;
    }
}

void KvJsonDocumentFile::unlock()
{
    d->lock.reset();
    d->lockedFileName.clear();
}
