// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "kvbasedialog.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QVBoxLayout>

class KvBaseDialogPrivate
{
public:
    QVBoxLayout *mainLayout = nullptr;
    QDialogButtonBox *buttonBox = nullptr;
    bool signalsConnected = false;
};

KvBaseDialog::KvBaseDialog(QWidget *parent) : QDialog(parent), d(new KvBaseDialogPrivate)
{
    d->mainLayout = new QVBoxLayout(this);
    d->buttonBox = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    d->buttonBox->setObjectName(QStringLiteral("buttonBox"));
    d->mainLayout->addWidget(d->buttonBox);
    // Return must never cancel: without this, Cancel becomes the default button while OK is disabled.
    d->buttonBox->button(QDialogButtonBox::Cancel)->setAutoDefault(false);
    connect(d->buttonBox, &QDialogButtonBox::accepted, this, &KvBaseDialog::accept);
    connect(d->buttonBox, &QDialogButtonBox::rejected, this, &KvBaseDialog::reject);
}

KvBaseDialog::~KvBaseDialog() = default;

QVBoxLayout *KvBaseDialog::mainLayout() const
{
    return d->mainLayout;
}

QDialogButtonBox *KvBaseDialog::buttonBox() const
{
    return d->buttonBox;
}

QPushButton *KvBaseDialog::okButton() const
{
    return d->buttonBox->button(QDialogButtonBox::Ok);
}

bool KvBaseDialog::isValid() const
{
    return true;
}

void KvBaseDialog::onDataChanged()
{
    okButton()->setEnabled(isValid());
}

void KvBaseDialog::accept()
{
    if (!isValid()) {
        onDataChanged();
        return;
    }
    QDialog::accept();
}

void KvBaseDialog::connectSignals()
{
}

void KvBaseDialog::showEvent(QShowEvent *event)
{
    if (!d->signalsConnected) {
        d->signalsConnected = true;
        connectSignals();
    }
    onDataChanged();
    QDialog::showEvent(event);
}
