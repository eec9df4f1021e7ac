// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_PIXMAPWIDGET_H
#define NVR_PIXMAPWIDGET_H

#include "nvrcore_export.h"

#include <QPixmap>
#include <QWidget>

class QAction;
class QLabel;
class QScrollArea;
class QVBoxLayout;

/**
 * A viewer for one picture (a file or resource name) in a scroll area. The
 * picture is fitted to the panel whenever the panel changes size, which
 * drops any zoom. Plus zooms in by 1.1111, Minus out by 0.9 (deliberately
 * not reciprocal: an in-out pair shrinks the picture a little), Ctrl+Plus
 * fits again; the context menu offers the same. Other keys go on to the
 * parent. A picture that cannot be loaded shows nothing.
 */
class NVRCORE_EXPORT PixMapWidget : public QWidget
{
    Q_OBJECT
public:
    explicit PixMapWidget(QWidget *parent = nullptr);
    ~PixMapWidget() override;

    /// Loads the picture; it keeps its current size until the next fit or zoom.
    void setPixMapName(const QString &name);
    QString pixMapName() const;
    double scaleFactor() const;

    void scaleImage(double factor);
    void zoomIn();
    void zoomOut();
    /// Scales the picture to the largest size that fits the scroll area.
    void zoomAll();

public Q_SLOTS:
    void contextMenu(const QPoint &pos);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QString m_pixMapName;
    QAction *m_zoomAllAct;
    QAction *m_zoomInAct;
    QAction *m_zoomOutAct;
    QLabel *m_imageLabel;
    QScrollArea *m_imageScrollArea;
    double m_scaleFactor = 1.0;
    QVBoxLayout *m_layout;
    // Kept beside the label's copy: its size is the base of every zoom.
    QPixmap m_pixmap;
};

#endif
