// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_PORTLISTWIDGET_H
#define NVR_PORTLISTWIDGET_H

#include "classes/portinventory.h"
#include "nvrcore_export.h"

#include <QWidget>

class QFileSystemWatcher;
class QLabel;
class QPushButton;
class QSpinBox;
class QTableWidget;
class QTimer;

/**
 * The serial ports and devices in a table (COM number, device, manufacturer,
 * VID:PID, serial number), following devices plugged in or pulled and links
 * made or removed. A device without a COM number can be given one: the link
 * ports/COM<n> is made to point at it.
 */
class NVRCORE_EXPORT PortListWidget : public QWidget
{
    Q_OBJECT
public:
    /// How long after a change in /dev the list is read again: the by-id names come a little after the device.
    static constexpr int settleMs = 300;

    explicit PortListWidget(QWidget *parent = nullptr);
    ~PortListWidget() override;

    QTableWidget *table() const { return m_table; }

public Q_SLOTS:
    void refresh();
    /// Gives the selected device without a COM number the number in the spin box.
    void assignSelected();

Q_SIGNALS:
    void portAssigned(int number);

private:
    void watch();
    void updateButton();

    QTableWidget *m_table;
    QSpinBox *m_number;
    QPushButton *m_assign;
    QLabel *m_message;
    QFileSystemWatcher *m_watcher;
    QTimer *m_settle;
    QList<PortInventory::Device> m_devices;
    QList<PortInventory::Entry> m_entries;
};

#endif
