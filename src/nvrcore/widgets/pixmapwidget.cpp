// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "pixmapwidget.h"

#include <QAction>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QScrollArea>
#include <QVBoxLayout>

#include <algorithm>

namespace {
constexpr double zoomInFactor = 1.1111;
constexpr double zoomOutFactor = 0.9;
}

PixMapWidget::PixMapWidget(QWidget *parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("PixMapWidget"));
    setContextMenuPolicy(Qt::CustomContextMenu);

    m_zoomInAct = new QAction(QIcon(QStringLiteral(":/icons/zoomin")), tr("Zoom In (+)"), this);
    m_zoomOutAct = new QAction(QIcon(QStringLiteral(":/icons/zoomout")), tr("Zoom Out (-)"), this);
    m_zoomAllAct = new QAction(QIcon(QStringLiteral(":/icons/zoomfit")), tr("Zoom All (Ctrl +)"), this);

    m_imageLabel = new QLabel;
    m_imageLabel->setObjectName(QStringLiteral("imageLabel"));
    m_imageLabel->setAlignment(Qt::AlignCenter);
    m_imageLabel->setBackgroundRole(QPalette::Base);
    m_imageLabel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    m_imageLabel->setScaledContents(true);

    m_imageScrollArea = new QScrollArea;
    m_imageScrollArea->setObjectName(QStringLiteral("imageScrollArea"));
    m_imageScrollArea->setBackgroundRole(QPalette::Dark);
    m_imageScrollArea->setWidget(m_imageLabel);

    m_layout = new QVBoxLayout;
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(0);
    m_layout->addWidget(m_imageScrollArea, 1);
    setLayout(m_layout);

    connect(this, &QWidget::customContextMenuRequested, this, &PixMapWidget::contextMenu);
    connect(m_zoomInAct, &QAction::triggered, this, &PixMapWidget::zoomIn);
    connect(m_zoomOutAct, &QAction::triggered, this, &PixMapWidget::zoomOut);
    connect(m_zoomAllAct, &QAction::triggered, this, &PixMapWidget::zoomAll);
}

PixMapWidget::~PixMapWidget() = default;

void PixMapWidget::setPixMapName(const QString &name)
{
    m_pixMapName = name;
    m_pixmap = QPixmap(name);
    m_imageLabel->setPixmap(m_pixmap);
}

QString PixMapWidget::pixMapName() const
{
    return m_pixMapName;
}

double PixMapWidget::scaleFactor() const
{
    return m_scaleFactor;
}

void PixMapWidget::scaleImage(double factor)
{
    m_scaleFactor *= factor;
    // qRound takes halves away from zero, and sizes are never negative.
    m_imageLabel->resize(qRound(m_pixmap.width() * m_scaleFactor), qRound(m_pixmap.height() * m_scaleFactor));
}

void PixMapWidget::zoomIn()
{
    scaleImage(zoomInFactor);
}

void PixMapWidget::zoomOut()
{
    scaleImage(zoomOutFactor);
}

void PixMapWidget::zoomAll()
{
    m_imageLabel->adjustSize();
    // Without a picture there is nothing to fit to; the label shrinks to nothing instead.
    if (m_pixmap.isNull()) {
        m_imageLabel->resize(0, 0);
        return;
    }
    const QRect area = m_imageScrollArea->contentsRect();
    const double width = area.right() - area.left() + 1;
    const double height = area.bottom() - area.top() + 1;
    m_scaleFactor = std::min(width / m_pixmap.width(), height / m_pixmap.height());
    scaleImage(1.0);
}

void PixMapWidget::contextMenu(const QPoint &pos)
{
    QMenu menu(this);
    menu.addAction(m_zoomInAct);
    menu.addAction(m_zoomOutAct);
    menu.addAction(m_zoomAllAct);
    menu.exec(mapToGlobal(pos));
}

void PixMapWidget::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Plus) {
        if (event->modifiers() & Qt::ControlModifier)
            zoomAll();
        else
            scaleImage(zoomInFactor);
    } else if (event->key() == Qt::Key_Minus) {
        scaleImage(zoomOutFactor);
    } else {
        event->ignore();
    }
}

void PixMapWidget::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    zoomAll();
}
