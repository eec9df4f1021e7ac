// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NEVRA_PICTUREPAGE_H
#define NEVRA_PICTUREPAGE_H

#include <QWidget>

class PixMapWidget;

/**
 * The picture of the product, fitted to the page and zoomable with the keys
 * and the context menu of the viewer.
 */
class PicturePage : public QWidget
{
    Q_OBJECT
public:
    explicit PicturePage(QWidget *parent = nullptr);
    ~PicturePage() override;

    PixMapWidget *viewer() const { return m_viewer; }

private:
    PixMapWidget *m_viewer;
};

#endif
