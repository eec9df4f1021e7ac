// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_SCROLLABLEGROUPBOX_H
#define NVR_SCROLLABLEGROUPBOX_H

#include "nvrcore_export.h"

#include <QWidget>

class QLabel;
class QLayout;
class QScrollArea;

/**
 * A titled panel whose content scrolls: the title on top (left out, with no
 * gap, when empty) and below it a scroll area whose inner widget carries
 * the caller's layout and follows the area's size. It is not a group box:
 * there is no frame around the title and nothing to check.
 */
class NVRCORE_EXPORT ScrollableGroupBox : public QWidget
{
    Q_OBJECT
public:
    /// An empty objectName leaves the panel's own name unset.
    explicit ScrollableGroupBox(QWidget *parent = nullptr, const QString &title = QString(),
                                QLayout *layout = nullptr, const QString &objectName = QString());
    ~ScrollableGroupBox() override;

    /**
     * Puts layout into the scrolled part (not on the panel itself); a null
     * layout is ignored. The inner widget takes only its first layout.
     */
    void setLayout(QLayout *layout);

private:
    QWidget *m_scrollableWidget;
    QScrollArea *m_scrollArea;
    QLabel *m_titleLabel;
};

#endif
