// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "optionspage.h"

#include "classes/nvroptions.h"
#include "widgets/scrollablegroupbox.h"

#include <QFormLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace {
QString yesNo(bool on)
{
    return on ? OptionsPage::tr("Yes") : OptionsPage::tr("No");
}

QString port(int number)
{
    return number > 0 ? QStringLiteral("COM%1").arg(number) : OptionsPage::tr("none");
}
}

OptionsPage::OptionsPage(NvrOptions *options, QWidget *parent) : QWidget(parent), m_options(options)
{
    setObjectName(QStringLiteral("OptionsPage"));
    auto *form = new QFormLayout;
    form->setLabelAlignment(Qt::AlignRight);
    const NvrOptions *o = m_options;
    addRow(form, tr("Product configuration port"), QStringLiteral("comPort"), [o] { return port(o->comPortNumber()); });
    addRow(form, tr("Product control port"), QStringLiteral("comPort2"), [o] { return port(o->comPort2Number()); });
    addRow(form, tr("Control port transmit delay"), QStringLiteral("txDelay2"),
           [o] { return QString::number(o->txDelay2()); });
    addRow(form, tr("Connect on start"), QStringLiteral("connect"), [o] { return yesNo(o->connect()); });
    addRow(form, tr("Read the product after connecting"), QStringLiteral("readAfterConnect"),
           [o] { return yesNo(o->readAfterConnect()); });
    addRow(form, tr("Show messages"), QStringLiteral("showMessages"), [o] { return yesNo(o->showMessages()); });
    addRow(form, tr("Convert audio with SoX"), QStringLiteral("soxLibraryEnabled"),
           [o] { return yesNo(o->soxLibraryEnabled()); });
    addRow(form, tr("Logging"), QStringLiteral("logEnabled"), [o] { return yesNo(o->logEnabled()); });
    addRow(form, tr("Log file"), QStringLiteral("logFileName"), [o] { return o->logFileName(); });
    addRow(form, tr("Without window"), QStringLiteral("hideGui"), [o] { return yesNo(o->hideGui()); });
    addRow(form, tr("Command server"), QStringLiteral("serverEnabled"), [o] { return yesNo(o->serverEnabled()); });
    addRow(form, tr("Command server port"), QStringLiteral("serverPort"), [o] { return QString::number(o->serverPort()); });
    addRow(form, tr("Edit factory records"), QStringLiteral("superUser"), [o] { return yesNo(o->superUser()); });
    addRow(form, tr("Start with the default data"), QStringLiteral("initializeWithDefaultData"),
           [o] { return yesNo(o->initializeWithDefaultData()); });
    addRow(form, tr("Window style"), QStringLiteral("style"), [o] { return o->style(); });
    addRow(form, tr("Manual"), QStringLiteral("manualUrl"), [o] { return o->manualUrl().toString(); });
    refresh();

    auto *box = new ScrollableGroupBox(this, tr("Application options"), form, QStringLiteral("optionsBox"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(box);

    connect(m_options, &NvrOptions::comPortNumberChanged, this, &OptionsPage::refresh);
    connect(m_options, &NvrOptions::comPort2NumberChanged, this, &OptionsPage::refresh);
}

OptionsPage::~OptionsPage() = default;

void OptionsPage::refresh()
{
    for (const Row &row : std::as_const(m_rows))
        row.value->setText(row.text());
}

void OptionsPage::addRow(QFormLayout *form, const QString &title, const QString &name,
                         std::function<QString()> text)
{
    auto *value = new QLabel;
    value->setObjectName(name);
    value->setTextInteractionFlags(Qt::TextSelectableByMouse);
    form->addRow(title + QLatin1Char(':'), value);
    m_rows.append({value, std::move(text)});
}
