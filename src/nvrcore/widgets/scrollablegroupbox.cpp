// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "scrollablegroupbox.h"

#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

ScrollableGroupBox::ScrollableGroupBox(QWidget *parent, const QString &title, QLayout *layout,
                                       const QString &objectName)
    : QWidget(parent), m_scrollableWidget(new QWidget(this)), m_scrollArea(new QScrollArea(this)),
      m_titleLabel(new QLabel(this))
{
    m_scrollableWidget->setObjectName(QStringLiteral("scrollableWidget"));
    m_scrollArea->setObjectName(QStringLiteral("scrollArea"));
    m_scrollArea->setWidgetResizable(true);
    m_titleLabel->setObjectName(QStringLiteral("titleLabel"));
    // Until it gets content it must not lie, unmanaged, over the title.
    m_scrollableWidget->hide();

    if (title.isEmpty())
        m_titleLabel->hide();
    else
        m_titleLabel->setText(title);

    auto *panelLayout = new QVBoxLayout;
    panelLayout->setContentsMargins(0, 0, 0, 0);
    panelLayout->setSpacing(0);
    if (!m_titleLabel->text().isEmpty())
        panelLayout->addWidget(m_titleLabel, 0);
    panelLayout->addWidget(m_scrollArea, 1);
    QWidget::setLayout(panelLayout);

    setLayout(layout);

    if (!objectName.isEmpty())
        setObjectName(objectName);
}

ScrollableGroupBox::~ScrollableGroupBox() = default;

void ScrollableGroupBox::setLayout(QLayout *layout)
{
    if (!layout)
        return;
    m_scrollableWidget->setLayout(layout);
    m_scrollArea->setWidget(m_scrollableWidget);
}
