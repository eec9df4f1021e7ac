// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "audiopage.h"

#include "classes/nvroptions.h"
#include "classes/nvrwav.h"
#include "hostmessage.h"
#include "kvwaitcursor.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
const QString nothing = QStringLiteral("\u2014");

QLabel *valueLabel(const QString &name, QWidget *parent)
{
    auto *label = new QLabel(nothing, parent);
    label->setObjectName(name);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}
}

AudioPage::AudioPage(QWidget *parent)
    : QWidget(parent),
      m_wav(new NvrWav(this)),
      m_fileName(valueLabel(QStringLiteral("fileName"), this)),
      m_length(valueLabel(QStringLiteral("length"), this)),
      m_format(valueLabel(QStringLiteral("format"), this)),
      m_dataSize(valueLabel(QStringLiteral("dataSize"), this)),
      m_savedAs(valueLabel(QStringLiteral("savedAs"), this)),
      m_status(new QLabel(this)),
      m_open(new QPushButton(tr("&Open Sound File..."), this)),
      m_save(new QPushButton(tr("&Save for the Product..."), this))
{
    setObjectName(QStringLiteral("AudioPage"));

    QString about = tr("<p>Brings a sound file into the form the product plays: mono, %1 bits, %2 Hz, "
                       "at most %3 seconds. Nothing is played here.</p>")
                        .arg(m_wav->bitsPerSample())
                        .arg(m_wav->sampleRate())
                        .arg(m_wav->trimSeconds());
    if (g_nvrOptions && !g_nvrOptions->soxLibraryEnabled())
        about += tr("<p><b>SoX is switched off</b> (-nosox): only WAV files can be read, and they are kept "
                    "as they are.</p>");
    auto *intro = new QLabel(about, this);
    intro->setWordWrap(true);

    auto *form = new QFormLayout;
    form->addRow(tr("File:"), m_fileName);
    form->addRow(tr("Length:"), m_length);
    form->addRow(tr("Format:"), m_format);
    form->addRow(tr("Sample data:"), m_dataSize);
    form->addRow(tr("Saved as:"), m_savedAs);
    m_fileName->setWordWrap(true);
    m_savedAs->setWordWrap(true);

    m_open->setObjectName(QStringLiteral("openButton"));
    m_save->setObjectName(QStringLiteral("saveButton"));
    m_save->setEnabled(false);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_open);
    buttons->addWidget(m_save);
    buttons->addStretch();

    m_status->setObjectName(QStringLiteral("status"));
    m_status->setWordWrap(true);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(intro);
    layout->addLayout(form);
    layout->addLayout(buttons);
    layout->addWidget(m_status);
    layout->addStretch();

    connect(m_open, &QPushButton::clicked, this, &AudioPage::chooseFile);
    connect(m_save, &QPushButton::clicked, this, &AudioPage::chooseSaveFile);
}

AudioPage::~AudioPage()
{
    for (const QString &workFile : std::as_const(m_workFiles))
        QFile::remove(workFile);
}

bool AudioPage::importFile(const QString &fileName)
{
    const QString name = QFileInfo(fileName).fileName();
    showStatus(tr("Converting %1...").arg(name), false);
    // The window cannot paint while the conversion runs; show the status line before it starts.
    m_status->repaint();
    bool imported = false;
    const QString workFile = QFileInfo(NvrWav::workFileName(fileName)).absoluteFilePath();
    const bool existed = QFileInfo::exists(workFile);
    {
        KvWaitCursor wait;
        m_open->setEnabled(false);
        Q_EMIT busyChanged(true);
        imported = m_wav->importFile(fileName);
        m_open->setEnabled(true);
        Q_EMIT busyChanged(false);
    }
    // A file that was there before is still this run's leftover once the conversion has replaced it.
    if (QFileInfo::exists(workFile) && (imported || !existed))
        m_workFiles.insert(workFile);
    m_source = imported ? fileName : QString();
    m_unsaved = imported;
    m_savedAs->setText(nothing);
    showSound();
    if (imported && m_wav->cutNotice().isEmpty())
        showStatus(tr("%1 is ready to be saved for the product.").arg(name), false);
    else if (imported)
        showStatus(tr("%1 is ready to be saved for the product; it was %2.").arg(name, m_wav->cutNotice()), false);
    else
        showStatus(tr("Could not import %1: %2.").arg(name, m_wav->errorString()), true);
    return imported;
}

bool AudioPage::saveFile(const QString &fileName)
{
    const QString target = m_wav->saveFileName(fileName);
    bool saved = false;
    {
        KvWaitCursor wait;
        saved = m_wav->saveFile(fileName);
    }
    m_savedAs->setText(saved ? QDir::toNativeSeparators(target) : nothing);
    if (saved) {
        m_unsaved = false;
        // Saved into the work folder under a work file's name: the user's file now, not a leftover.
        m_workFiles.remove(QFileInfo(target).absoluteFilePath());
        showStatus(tr("Saved as %1.").arg(QFileInfo(target).fileName()), false);
    } else {
        showStatus(tr("Could not save %1.").arg(QDir::toNativeSeparators(target)), true);
    }
    return saved;
}

bool AudioPage::maybeSave()
{
    return !m_unsaved
           || HostMessage::askToSave(this, tr("Audio"),
                                     tr("The converted sound %1 has not been saved for the product.")
                                         .arg(QFileInfo(m_source).fileName()),
                                     [this] { return chooseSaveFile(); });
}

void AudioPage::chooseFile()
{
    if (!maybeSave())
        return;
    const QString fileName = QFileDialog::getOpenFileName(
        this, tr("Open Sound File"), m_source.isEmpty() ? QDir::homePath() : QFileInfo(m_source).path(),
        tr("Sound files (*.wav *.mp3 *.flac *.ogg *.aif *.aiff *.au);;All files (*)"));
    if (!fileName.isEmpty())
        importFile(fileName);
}

bool AudioPage::chooseSaveFile()
{
    // Offer the product's name beside the source; the page does not move the file elsewhere by itself.
    const QFileInfo source(m_source);
    const QString suggestion =
        source.dir().filePath(source.baseName() + QLatin1Char('.') + m_wav->fileSuffix());
    const QString fileName = QFileDialog::getSaveFileName(
        this, tr("Save for the Product"), suggestion,
        tr("Product sound files (*.%1);;All files (*)").arg(m_wav->fileSuffix()));
    return !fileName.isEmpty() && saveFile(fileName);
}

void AudioPage::showSound()
{
    m_save->setEnabled(!m_wav->isEmpty());
    if (m_wav->isEmpty()) {
        for (QLabel *label : {m_fileName, m_length, m_format, m_dataSize})
            label->setText(nothing);
        return;
    }
    const WavFormat format = m_wav->format();
    const QLocale locale;
    m_fileName->setText(QDir::toNativeSeparators(m_source));
    m_length->setText(tr("%1 s").arg(locale.toString(m_wav->durationMs() / 1000.0, 'f', 2)));
    const QString channels = format.channels == 1 ? tr("Mono")
                             : format.channels == 2 ? tr("Stereo")
                                                    : tr("%n channels", nullptr, format.channels);
    m_format->setText(tr("%1, %2 bits, %3 Hz").arg(channels).arg(format.bitsPerSample).arg(format.sampleRate));
    m_dataSize->setText(tr("%1 bytes").arg(locale.toString(m_wav->dataSize())));
}

void AudioPage::showStatus(const QString &text, bool failure)
{
    m_status->setStyleSheet(failure ? QStringLiteral("color: #b3261e;") : QString());
    m_status->setText(text);
}
