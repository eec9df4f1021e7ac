// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "nvroptionsdialog.h"

#include "classes/serialport.h"
#include "widgets/portlistwidget.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QSpinBox>
#include <QTextEdit>
#include <QVBoxLayout>

NvrOptionsDialog::NvrOptionsDialog(QWidget *parent) : KvBaseFormDialog(parent)
{
    setObjectName(QStringLiteral("NvrOptionsDialog"));
    setWindowTitle(tr("Application Options"));

    m_comPortSpinBox = new QSpinBox(this);
    m_comPortSpinBox->setObjectName(QStringLiteral("comPortSpinBox"));
    m_comPortSpinBox->setRange(1, 255);
    m_comPortSpinBox->setWrapping(true);
    m_comPort2SpinBox = new QSpinBox(this);
    m_comPort2SpinBox->setObjectName(QStringLiteral("comPort2SpinBox"));
    m_comPort2SpinBox->setRange(0, 255);
    m_comPort2SpinBox->setWrapping(true);

    auto *ports = new QTextEdit(this);
    ports->setObjectName(QStringLiteral("portsTextEdit"));
    ports->setReadOnly(true);
    ports->setHtml(tr("The following COM ports are currently available:<br>"));
    const QMap<int, QString> available = SerialPort::availablePorts();
    for (const QString &port : available)
        ports->append(port);

    auto *form = new QFormLayout;
    form->addRow(tr("Product Configuration COM Port:"), m_comPortSpinBox);
    form->addRow(tr("Product Control COM Port (KVX/KVR-110/KVR2-110 Only):"), m_comPort2SpinBox);
    auto *grid = new QGridLayout;
    grid->addLayout(form, 0, 0);
    grid->addWidget(ports, 1, 0);
    // Devices as the system knows them, and a COM number for those that have none yet.
    grid->addWidget(new PortListWidget(this), 2, 0);
    mainLayout()->insertLayout(0, grid);

    m_comPortSpinBox->setFocus();
}

NvrOptionsDialog::~NvrOptionsDialog() = default;

QSpinBox *NvrOptionsDialog::comPortSpinBox() const
{
    return m_comPortSpinBox;
}

QSpinBox *NvrOptionsDialog::comPort2SpinBox() const
{
    return m_comPort2SpinBox;
}

bool NvrOptionsDialog::isValid() const
{
    return m_comPortSpinBox->value() != m_comPort2SpinBox->value();
}

void NvrOptionsDialog::connectSignals()
{
    connect(m_comPortSpinBox, qOverload<int>(&QSpinBox::valueChanged), this, &NvrOptionsDialog::onDataChanged);
    connect(m_comPort2SpinBox, qOverload<int>(&QSpinBox::valueChanged), this, &NvrOptionsDialog::onDataChanged);
}
