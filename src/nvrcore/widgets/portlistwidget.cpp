// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "portlistwidget.h"

#include "classes/portlinks.h"

#include <QDir>
#include <QFileSystemWatcher>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>
#include <QTimer>
#include <QVBoxLayout>

PortListWidget::PortListWidget(QWidget *parent)
    : QWidget(parent), m_table(new QTableWidget(0, 5, this)), m_number(new QSpinBox(this)),
      m_assign(new QPushButton(tr("&Give COM Number"), this)), m_message(new QLabel(this)),
      m_watcher(new QFileSystemWatcher(this)), m_settle(new QTimer(this))
{
    m_table->setObjectName(QStringLiteral("portTable"));
    m_table->setHorizontalHeaderLabels({tr("COM"), tr("Device"), tr("Manufacturer"), tr("VID:PID"), tr("Serial")});
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->verticalHeader()->hide();
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_number->setObjectName(QStringLiteral("assignNumber"));
    m_number->setRange(1, 255);
    m_number->setPrefix(QStringLiteral("COM"));
    m_assign->setObjectName(QStringLiteral("assignPort"));
    // Return in the dialog stays with its OK button.
    m_assign->setAutoDefault(false);
    m_message->setObjectName(QStringLiteral("portMessage"));
    m_message->setWordWrap(true);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_table, 1);
    auto *row = new QHBoxLayout;
    row->addWidget(new QLabel(tr("Device without a number:"), this));
    row->addWidget(m_number);
    row->addWidget(m_assign);
    row->addStretch();
    layout->addLayout(row);
    layout->addWidget(m_message);

    m_settle->setSingleShot(true);
    m_settle->setInterval(settleMs);
    connect(m_settle, &QTimer::timeout, this, &PortListWidget::refresh);
    connect(m_watcher, &QFileSystemWatcher::directoryChanged, m_settle, qOverload<>(&QTimer::start));
    connect(m_assign, &QPushButton::clicked, this, &PortListWidget::assignSelected);
    connect(m_table, &QTableWidget::itemSelectionChanged, this, &PortListWidget::updateButton);
    refresh();
}

PortListWidget::~PortListWidget() = default;

void PortListWidget::watch()
{
    // Folders come and go with the devices (by-id) or the user (ports): watch those there now.
    const QStringList folders{QStringLiteral("/dev"), QStringLiteral("/dev/serial/by-id"), PortLinks::linkDirectory()};
    for (const QString &folder : folders) {
        if (!m_watcher->directories().contains(folder) && QDir(folder).exists())
            m_watcher->addPath(folder);
    }
}

void PortListWidget::refresh()
{
    watch();
    m_devices = PortInventory::systemDevices();
    m_entries = PortInventory::entries(m_devices, PortLinks::links());
    const QString selected = m_table->currentRow() >= 0 && m_table->item(m_table->currentRow(), 1)
                                 ? m_table->item(m_table->currentRow(), 1)->text()
                                 : QString();
    m_table->setRowCount(int(m_entries.size()));
    for (int row = 0; row < m_entries.size(); ++row) {
        const PortInventory::Entry &entry = m_entries.at(row);
        const QStringList cells{entry.number ? QStringLiteral("COM%1").arg(entry.number) : tr("none"), entry.device,
                                entry.manufacturer, entry.vidPid, entry.serialNumber};
        for (int column = 0; column < cells.size(); ++column)
            m_table->setItem(row, column, new QTableWidgetItem(cells.at(column)));
        if (entry.device == selected)
            m_table->selectRow(row);
    }
    m_table->resizeColumnsToContents();
    m_number->setValue(PortInventory::firstFreeNumber());
    updateButton();
}

void PortListWidget::updateButton()
{
    const int row = m_table->currentRow();
    m_assign->setEnabled(row >= 0 && row < m_entries.size() && m_entries.at(row).number == 0
                         && !m_table->selectedItems().isEmpty());
}

void PortListWidget::assignSelected()
{
    const int row = m_table->currentRow();
    if (row < 0 || row >= m_entries.size() || m_entries.at(row).number != 0)
        return;
    const QString name = m_entries.at(row).device;
    for (const PortInventory::Device &device : std::as_const(m_devices)) {
        if (device.location != name && device.byId != name)
            continue;
        QString error;
        const int number = m_number->value();
        if (!PortInventory::assign(number, device, &error)) {
            m_message->setText(error);
            return;
        }
        m_message->setText(tr("COM%1 now names %2.").arg(number).arg(name));
        refresh();
        Q_EMIT portAssigned(number);
        return;
    }
}
