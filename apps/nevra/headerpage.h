// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NEVRA_HEADERPAGE_H
#define NEVRA_HEADERPAGE_H

#include "classes/productdataheader.h"

#include <QWidget>

class ModStatusWidget;
class QLabel;
class QLineEdit;
class QPushButton;
class QTextBrowser;

/**
 * The product header page: opens a header from a file (the raw record or
 * hex text), shows its fields, lets the user change the model, serial
 * number, build configuration and mod status, makes a new header from
 * those fields, stamps the programming time, and saves the encoded bytes
 * (hex text for a ".txt" name, the raw record otherwise).
 *
 * A header as opened is shown as it is, a wrong CRC in red; any change
 * encodes it again, so what is shown is what Save writes. The version of
 * the program that wrote the header is shown beside the fields, with a
 * warning when that version did not store the build configuration.
 *
 * A changed header is not dropped without a question: opening another
 * one or making a new one asks first (see maybeSave()).
 */
class HeaderPage : public QWidget
{
    Q_OBJECT
public:
    explicit HeaderPage(QWidget *parent = nullptr);
    ~HeaderPage() override;

    /// What the Open button does once a file is chosen; false, with a box saying why, when it fails.
    bool openFile(const QString &fileName);
    /// What the Save button does once a name is chosen.
    bool saveFile(const QString &fileName);
    const ProductDataHeader &header() const { return m_header; }
    bool hasHeader() const { return m_hasHeader; }
    /**
     * Offers to save a changed header (Save, Discard, Cancel). Save asks for
     * a file name; false when the user cancels or the save fails.
     */
    bool maybeSave();

private:
    void chooseFile();
    bool chooseSaveFile();
    void newHeader();
    void punchProgramTime();
    void fieldEdited();
    void modStatusEdited(uint status);
    /// Encodes the header again after a change, then shows it.
    void headerChanged();
    void showHeader();
    void showFields();
    void showWriter();
    void updateButtons();

    ProductDataHeader m_header;
    bool m_hasHeader = false;
    bool m_modified = false;
    QString m_lastDirectory;
    QLabel *m_source;
    QLineEdit *m_model;
    QLineEdit *m_serial;
    QLineEdit *m_buildConfiguration;
    ModStatusWidget *m_modStatus;
    QLabel *m_writer;
    QTextBrowser *m_view;
    QPushButton *m_open;
    QPushButton *m_new;
    QPushButton *m_punch;
    QPushButton *m_save;
};

#endif
