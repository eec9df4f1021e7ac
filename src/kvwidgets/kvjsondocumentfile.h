// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef KV_KVJSONDOCUMENTFILE_H
#define KV_KVJSONDOCUMENTFILE_H

#include "kvwidgets_export.h"

#include <QJsonDocument>
#include <QObject>
#include <QString>

#include <memory>

class KvJsonDocumentFilePrivate;

/**
 * A document kept as one JSON file: open, save, save as, new, close and
 * revert, with the usual prompts, around three hooks that a subclass
 * supplies (toJsonDocument(), fromJsonDocument(), newJsonDocument()).
 *
 * Files are written indented, so that people can read and compare them,
 * and replaced atomically: a failed save leaves the old file whole.
 *
 * Two running applications must not both write one file. The document
 * therefore holds a lock file ("<file>.lock", QLockFile) on the file it has
 * open, from openFile() until it closes or moves to another file. A
 * document that could not take the lock (another application has the file)
 * still loads it; saving then asks to retry until the other application
 * lets go, or to cancel. A lock left by a process that no longer runs is
 * taken over.
 *
 * Whoever changes the content marks it with setModified(); saving, opening
 * and emptying the document clear the mark.
 *
 * Reading failures (missing, empty or unparsable files) are logged; they
 * reach the user only where a caller asks for it. The hooks then receive an
 * empty document.
 */
class KVWIDGETS_EXPORT KvJsonDocumentFile : public QObject
{
    Q_OBJECT
public:
    explicit KvJsonDocumentFile(QObject *parent = nullptr);
    ~KvJsonDocumentFile() override;

    /// The document's file; empty for a new document.
    QString fileName() const;
    void setFileName(const QString &fileName);
    /// Names the document in titles and prompts ("Product Definitions").
    QString description() const;
    void setDescription(const QString &description);
    /// The file suffix without its dot, for the file dialogs.
    QString suffix() const;
    void setSuffix(const QString &suffix);

    bool isModified() const;
    void setModified(bool modified);
    /// True while this document holds the lock on fileName.
    bool isLocked(const QString &fileName) const;

public Q_SLOTS:
    /// The document as JSON, to be written.
    virtual QJsonDocument toJsonDocument() const = 0;
    /// Takes the content of document; false leaves the document as it was.
    virtual bool fromJsonDocument(const QJsonDocument &document) = 0;
    /// Empties the document.
    virtual void newJsonDocument() = 0;

    /**
     * Loads fileName (asking for a name when it is empty) silently. On
     * success, or when the file does not exist yet, the document takes the
     * name and tries to lock it; an existing file that cannot be read leaves
     * name and content as they were. Returns whether the file was loaded.
     */
    virtual bool openFile(const QString &fileName);
    /// Writes the document to fileName, or to its own file when fileName is empty.
    virtual bool saveFile(const QString &fileName);
    /// Asks for a name, then saves there.
    virtual bool saveFileAs();
    /// After maybeSave(), an empty document without a file.
    virtual bool newFile();
    /// After maybeSave(), lets the file (and its lock) go and empties the document.
    virtual bool closeFile();
    /// Offers to save a modified document: false when the user cancels or saving fails.
    virtual bool maybeSave();
    /// Reloads the document's file, dropping the changes; reading errors are shown.
    virtual bool revert();

public:
    /**
     * Reads fileName and hands the document to fromJsonDocument() (an empty
     * one when the file is missing, empty or not JSON). With showErrors, a
     * reading failure is also shown in a warning titled caption (the
     * description when caption is empty).
     */
    bool loadFromJsonFile(const QString &fileName, bool showErrors, const QString &caption = QString());
    /// Writes toJsonDocument() to fileName, indented; with showErrors, a failure is shown.
    bool saveToJsonFile(const QString &fileName, bool showErrors);

    /// A file to open, from a dialog; empty when cancelled.
    QString getOpenFileName() const;
    /// A file to save to, from a dialog, with the suffix added when it has none; empty when cancelled.
    QString getSaveFileName() const;

    /**
     * Tries once to lock fileName for this document, which then lets go of
     * any other lock it held. With showMessage, a file held by another
     * application is reported in a warning.
     */
    bool lock(const QString &fileName, bool showMessage);
    /**
     * Locks fileName, asking (Retry, Cancel; titled caption) while another
     * application holds it when askUser is set. Returns whether writing may
     * go on: also true when the lock file itself cannot be made (a missing
     * or read-only folder), so that the write reports its own error.
     */
    bool lockRetry(const QString &fileName, const QString &caption, bool askUser);
    void unlock();

private:
    void forgetFile();

    std::unique_ptr<KvJsonDocumentFilePrivate> const d;
};

#endif
