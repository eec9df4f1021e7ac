// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "picturepage.h"

#include "widgets/pixmapwidget.h"

#include <QLabel>
#include <QVBoxLayout>

PicturePage::PicturePage(QWidget *parent) : QWidget(parent), m_viewer(new PixMapWidget(this))
{
    setObjectName(QStringLiteral("PicturePage"));
    auto *caption = new QLabel(tr("Audio control panel, front view. Plus and Minus zoom, Ctrl+Plus fits."), this);
    caption->setObjectName(QStringLiteral("caption"));
    caption->setMargin(4);
    m_viewer->setPixMapName(QStringLiteral(":/images/panel"));
    // The viewer passes on keys other than its own; it needs the focus to get them first.
    m_viewer->setFocusPolicy(Qt::StrongFocus);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(caption);
    layout->addWidget(m_viewer, 1);
}

PicturePage::~PicturePage() = default;
