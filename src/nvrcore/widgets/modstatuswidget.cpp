// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "modstatuswidget.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace {
constexpr int modCount = 10;

// The ten mod numbers written one after another, as they appear side by side on the widget.
[[maybe_unused]] const char allModNumbers[] = "12345678910";
}

ModStatusWidget::ModStatusWidget(QWidget *parent) : QFrame(parent)
{
    setObjectName(QStringLiteral("ModStatusWidget"));
    auto *firstRow = new QHBoxLayout;
    auto *secondRow = new QHBoxLayout;
    auto *rows = new QVBoxLayout(this);
    for (QLayout *layout : std::initializer_list<QLayout *>{firstRow, secondRow, rows})
        layout->setContentsMargins(2, 2, 2, 2);

    for (int mod = 1; mod <= modCount; ++mod) {
        auto *box = new QCheckBox(QString::number(mod), this);
        box->setObjectName(QStringLiteral("mod%1").arg(mod));
        m_checkBoxes.append(box);
        firstRow->addWidget(box);
        connect(box, &QCheckBox::clicked, this, &ModStatusWidget::cbClicked);
    }
    firstRow->addStretch();
    // The second row stays empty: room for more mods without changing the layout.
    secondRow->addStretch();
    rows->addLayout(firstRow);
    rows->addLayout(secondRow);
    rows->addStretch();
    setLineWidth(1);
}

ModStatusWidget::~ModStatusWidget() = default;

void ModStatusWidget::setModStatus(const uint &status)
{
    for (int k = 0; k < m_checkBoxes.size(); ++k)
        m_checkBoxes.at(k)->setChecked(status & (1u << k));
}

uint ModStatusWidget::modStatus() const
{
    uint status = 0;
    for (int k = 0; k < m_checkBoxes.size(); ++k) {
        if (m_checkBoxes.at(k)->isChecked())
            status |= 1u << k;
    }
    return status;
}

QString ModStatusWidget::modStatusString(const uint &status)
{
    if (status == 0)
        return QStringLiteral("None");
    QString text;
    for (int k = 0; k < modCount; ++k) {
        if (!(status & (1u << k)))
            continue;
        if (!text.isEmpty())
            text += QLatin1Char(',');
        text += QStringLiteral("<b>%1</b>").arg(k + 1);
    }
    return text;
}

void ModStatusWidget::cbClicked()
{
    Q_EMIT modStatusChanged(modStatus());
}
