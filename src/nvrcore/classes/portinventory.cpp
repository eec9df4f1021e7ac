// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "portinventory.h"

#include "portlinks.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QSerialPortInfo>
#include <QVector>

namespace {
const QString byIdFolder = QStringLiteral("/dev/serial/by-id");

QString canonical(const QString &path)
{
    const QString resolved = QFileInfo(path).canonicalFilePath();
    return resolved.isEmpty() ? path : resolved;
}

QString tr(const char *text)
{
    return QCoreApplication::translate("PortInventory", text);
}
}

QList<PortInventory::Device> PortInventory::systemDevices()
{
    QHash<QString, QString> byId;
    const QFileInfoList names = QDir(byIdFolder).entryInfoList(QDir::System | QDir::Files | QDir::NoDotAndDotDot);
    for (const QFileInfo &name : names)
        byId.insert(name.canonicalFilePath(), name.absoluteFilePath());
    QList<Device> devices;
    const QList<QSerialPortInfo> infos = QSerialPortInfo::availablePorts();
    for (const QSerialPortInfo &info : infos) {
        Device device;
        device.location = info.systemLocation();
        device.byId = byId.value(canonical(device.location));
        device.manufacturer = info.manufacturer();
        if (info.hasVendorIdentifier() && info.hasProductIdentifier())
            device.vidPid = QStringLiteral("%1:%2")
                                .arg(info.vendorIdentifier(), 4, 16, QLatin1Char('0'))
                                .arg(info.productIdentifier(), 4, 16, QLatin1Char('0'));
        device.serialNumber = info.serialNumber();
        devices.append(device);
    }
    return devices;
}

QList<PortInventory::Entry> PortInventory::entries(const QList<Device> &devices,
                                                   const QList<QPair<QString, QString>> &links)
{
    QList<Entry> list;
    QVector<bool> linked(devices.size(), false);
    for (const auto &link : links) {
        Entry entry;
        entry.number = link.first.mid(3).toInt();
        entry.device = link.second;
        const QString target = canonical(link.second);
        for (int i = 0; i < devices.size(); ++i) {
            const Device &device = devices.at(i);
            if (link.second != device.location && link.second != device.byId && target != canonical(device.location))
                continue;
            linked[i] = true;
            if (!device.byId.isEmpty())
                entry.device = device.byId;
            entry.manufacturer = device.manufacturer;
            entry.vidPid = device.vidPid;
            entry.serialNumber = device.serialNumber;
            break;
        }
        list.append(entry);
    }
    for (int i = 0; i < devices.size(); ++i) {
        if (linked.at(i))
            continue;
        const Device &device = devices.at(i);
        list.append({0, device.byId.isEmpty() ? device.location : device.byId, device.manufacturer, device.vidPid,
                     device.serialNumber});
    }
    return list;
}

QList<PortInventory::Entry> PortInventory::current()
{
    return entries(systemDevices(), PortLinks::links());
}

int PortInventory::firstFreeNumber()
{
    int number = 1;
    while (QFileInfo(PortLinks::linkPath(QStringLiteral("COM%1").arg(number))).isSymLink()
           || QFileInfo::exists(PortLinks::linkPath(QStringLiteral("COM%1").arg(number))))
        ++number;
    return number;
}

bool PortInventory::assign(int number, const Device &device, QString *error)
{
    const QString name = QStringLiteral("COM%1").arg(number);
    const QString link = PortLinks::linkPath(name);
    const QFileInfo existing(link);
    if (existing.isSymLink() || existing.exists()) {
        *error = tr("%1 already names %2.").arg(name, existing.symLinkTarget());
        return false;
    }
    if (!QDir().mkpath(PortLinks::linkDirectory())) {
        *error = tr("Cannot make the folder %1.").arg(QDir::toNativeSeparators(PortLinks::linkDirectory()));
        return false;
    }
    // The by-id name follows the adapter whatever ttyUSB number it gets after being pulled.
    const QString target = device.byId.isEmpty() ? device.location : device.byId;
    if (!QFile::link(target, link)) {
        *error = tr("Cannot make %1 point at %2.").arg(QDir::toNativeSeparators(link), target);
        return false;
    }
    return true;
}
