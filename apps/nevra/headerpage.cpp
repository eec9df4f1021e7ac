// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "headerpage.h"

#include "headerfile.h"
#include "hostmessage.h"
#include "widgets/modstatuswidget.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSaveFile>
#include <QTextBrowser>
#include <QTextStream>
#include <QVBoxLayout>

namespace {
// Bits the mod status widget does not show; a click there must not clear them.
constexpr uint shownModBits = 0x3FF;

QLineEdit *fieldEdit(const QString &name, int width, QWidget *parent)
{
    auto *edit = new QLineEdit(parent);
    edit->setObjectName(name);
    edit->setMaxLength(width);
    return edit;
}

QPushButton *button(const QString &text, const QString &name, QWidget *parent)
{
    auto *result = new QPushButton(text, parent);
    result->setObjectName(name);
    return result;
}
}

HeaderPage::HeaderPage(QWidget *parent)
    : QWidget(parent),
      m_source(new QLabel(tr("No header open. Open a header file, or fill in the fields and make a new header."),
                          this)),
      m_model(fieldEdit(QStringLiteral("model"), HeaderFile::modelWidth, this)),
      m_serial(fieldEdit(QStringLiteral("serialNumber"), HeaderFile::serialWidth, this)),
      m_buildConfiguration(fieldEdit(QStringLiteral("buildConfiguration"), HeaderFile::buildConfigurationWidth, this)),
      m_modStatus(new ModStatusWidget(this)),
      m_writer(new QLabel(this)),
      m_view(new QTextBrowser(this)),
      m_open(button(tr("&Open Header..."), QStringLiteral("openButton"), this)),
      m_new(button(tr("&New Header"), QStringLiteral("newButton"), this)),
      m_punch(button(tr("Stamp &Programming Time"), QStringLiteral("punchButton"), this)),
      m_save(button(tr("&Save Header As..."), QStringLiteral("saveButton"), this))
{
    setObjectName(QStringLiteral("HeaderPage"));
    m_source->setObjectName(QStringLiteral("source"));
    m_source->setWordWrap(true);
    m_buildConfiguration->setText(QStringLiteral("A"));
    m_modStatus->setObjectName(QStringLiteral("modStatus"));
    m_writer->setObjectName(QStringLiteral("writer"));
    m_writer->setWordWrap(true);
    m_view->setObjectName(QStringLiteral("view"));
    // The label column is narrow; the default wrap mode would break labels inside words.
    m_view->setWordWrapMode(QTextOption::WordWrap);

    auto *fields = new QGroupBox(tr("Header"), this);
    auto *form = new QFormLayout(fields);
    form->addRow(tr("&Model:"), m_model);
    form->addRow(tr("S&erial number:"), m_serial);
    form->addRow(tr("&Build configuration:"), m_buildConfiguration);
    form->addRow(tr("Mods:"), m_modStatus);
    form->addRow(tr("Written by:"), m_writer);
    auto *fieldButtons = new QHBoxLayout;
    fieldButtons->addWidget(m_new);
    fieldButtons->addWidget(m_punch);
    fieldButtons->addStretch();
    form->addRow(fieldButtons);

    auto *fileButtons = new QHBoxLayout;
    fileButtons->addWidget(m_open);
    fileButtons->addWidget(m_save);
    fileButtons->addStretch();

    fields->setMaximumWidth(fields->sizeHint().width() + 120);
    m_view->setPlaceholderText(tr("Open a header or make a new one to see its fields here."));

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(fileButtons);
    layout->addWidget(m_source);
    layout->addWidget(fields);
    layout->addWidget(m_view, 1);

    connect(m_open, &QPushButton::clicked, this, &HeaderPage::chooseFile);
    connect(m_save, &QPushButton::clicked, this, &HeaderPage::chooseSaveFile);
    connect(m_new, &QPushButton::clicked, this, &HeaderPage::newHeader);
    connect(m_punch, &QPushButton::clicked, this, &HeaderPage::punchProgramTime);
    for (QLineEdit *edit : {m_model, m_serial, m_buildConfiguration}) {
        connect(edit, &QLineEdit::textEdited, this, &HeaderPage::fieldEdited);
        connect(edit, &QLineEdit::textChanged, this, &HeaderPage::updateButtons);
    }
    connect(m_modStatus, &ModStatusWidget::modStatusChanged, this, &HeaderPage::modStatusEdited);
    showWriter();
    updateButtons();
}

HeaderPage::~HeaderPage() = default;

bool HeaderPage::openFile(const QString &fileName)
{
    const QString title = tr("Open Product Header");
    const QString shownName = QDir::toNativeSeparators(fileName);
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        QMessageBox::warning(this, title, tr("Could not read %1: %2").arg(shownName, file.errorString()));
        return false;
    }
    const QByteArray bytes = HeaderFile::decode(file.readAll());
    // Checked first, so that a short file leaves the header on show as it was.
    if (bytes.size() < m_header.headerSize()) {
        QMessageBox::warning(this, title,
                             tr("%1 holds %2 bytes; a product header needs at least %3.")
                                 .arg(shownName)
                                 .arg(bytes.size())
                                 .arg(m_header.headerSize()));
        return false;
    }
    m_header.setData(bytes);
    m_hasHeader = true;
    m_lastDirectory = QFileInfo(fileName).absolutePath();
    m_source->setText(tr("Opened from %1.").arg(shownName));
    showFields();
    m_modified = false;
    showHeader();
    return true;
}

bool HeaderPage::saveFile(const QString &fileName)
{
    const bool hexText = QFileInfo(fileName).suffix().compare(QLatin1String("txt"), Qt::CaseInsensitive) == 0;
    const QByteArray bytes = HeaderFile::encode(m_header.data(), hexText);
    const QString shownName = QDir::toNativeSeparators(fileName);
    QSaveFile file(fileName);
    // A partial flush must not replace a good file with a cut one.
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush() || !file.commit()) {
        QMessageBox::warning(this, tr("Save Product Header"),
                             tr("Could not save the header to %1: %2").arg(shownName, file.errorString()));
        return false;
    }
    m_lastDirectory = QFileInfo(fileName).absolutePath();
    m_source->setText(tr("Saved to %1.").arg(shownName));
    m_modified = false;
    showHeader();
    HostMessage::inform(this, tr("Save Product Header"), tr("The header was saved to %1.").arg(shownName));
    return true;
}

bool HeaderPage::maybeSave()
{
    return !m_modified
           || HostMessage::askToSave(this, tr("Product Header"), tr("The product header has been changed."),
                                     [this] { return chooseSaveFile(); });
}

void HeaderPage::chooseFile()
{
    if (!maybeSave())
        return;
    const QString fileName = QFileDialog::getOpenFileName(this, tr("Open Product Header"), m_lastDirectory,
                                                          tr("Product headers (*.bin *.txt);;All files (*)"));
    if (!fileName.isEmpty())
        openFile(fileName);
}

bool HeaderPage::chooseSaveFile()
{
    const QString fileName = QFileDialog::getSaveFileName(this, tr("Save Product Header"), m_lastDirectory,
                                                          tr("Raw header (*.bin);;Hex text (*.txt)"));
    return !fileName.isEmpty() && saveFile(fileName);
}

void HeaderPage::newHeader()
{
    if (!maybeSave())
        return;
    m_header.setProductInfo(m_model->text(), m_serial->text(), m_modStatus->modStatus(),
                            m_buildConfiguration->text());
    m_hasHeader = true;
    m_source->setText(tr("New header, not saved yet."));
    headerChanged();
}

void HeaderPage::punchProgramTime()
{
    m_header.punchProgramTime();
    headerChanged();
}

void HeaderPage::fieldEdited()
{
    if (!m_hasHeader)
        return;
    m_header.productModel = m_model->text();
    m_header.serialNumber = m_serial->text();
    m_header.buildConfiguration = m_buildConfiguration->text();
    headerChanged();
}

void HeaderPage::modStatusEdited(uint status)
{
    if (!m_hasHeader)
        return;
    m_header.modStatus = (m_header.modStatus & ~shownModBits) | status;
    headerChanged();
}

void HeaderPage::headerChanged()
{
    m_modified = true;
    m_header.data();
    showHeader();
}

void HeaderPage::showHeader()
{
    QString html;
    QTextStream stream(&html);
    m_header.output(stream);
    stream.flush();
    m_view->setHtml(html);
    showWriter();
    updateButtons();
}

void HeaderPage::showFields()
{
    m_model->setText(m_header.productModel);
    m_serial->setText(m_header.serialNumber);
    m_buildConfiguration->setText(m_header.buildConfiguration);
    m_modStatus->setModStatus(m_header.modStatus);
}

void HeaderPage::showWriter()
{
    m_writer->setStyleSheet(QString());
    if (!m_hasHeader) {
        m_writer->setText(QStringLiteral("\u2014"));
        return;
    }
    const QString version = m_header.softwareVersion.isEmpty() ? tr("an unknown version")
                                                               : tr("version %1").arg(m_header.softwareVersion);
    if (ProductDataHeader::carriesBuildConfiguration(m_header.softwareVersion)) {
        m_writer->setText(version);
        return;
    }
    // Such a header reads back with an assumed build configuration, whatever was typed here.
    m_writer->setStyleSheet(QStringLiteral("color: #b3261e;"));
    m_writer->setText(tr("%1, which did not store the build configuration, so it was assumed. Stamp the "
                         "programming time to store it with this version.")
                          .arg(version));
}

void HeaderPage::updateButtons()
{
    m_new->setEnabled(!m_model->text().isEmpty() && !m_serial->text().isEmpty());
    m_punch->setEnabled(m_hasHeader);
    m_save->setEnabled(m_hasHeader);
}
