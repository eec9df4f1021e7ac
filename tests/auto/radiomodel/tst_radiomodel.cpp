// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "messageboxrecorder.h"
#include "kvabstractdataobject.h"
#include "models/rtssortfilterproxymodel.h"
#include "models/rtstablemodel.h"

#include <QAbstractItemModelTester>
#include <QBrush>
#include <QSet>
#include <QSignalSpy>
#include <QTest>

namespace {
QStringList record(int id, const QString &manufacturer, const QString &model, int type, int include = 0,
                   const QString &rx = QStringLiteral("7.75"), const QString &tx = QStringLiteral("0.250"))
{
    return {QString::number(id), manufacturer, model, QString::number(type), rx, QStringLiteral("rx desc"),
            tx, QStringLiteral("tx desc"), QString::number(include)};
}

// Defaults, library records and user records of every type, out of order on purpose.
QList<QStringList> sampleRecords()
{
    return {record(200, QStringLiteral("Acme"), QStringLiteral("Z"), Rt::Transceiver),
            record(0, QStringLiteral("Radio Not Installed"), QString(), Rt::NotInstalled, 1),
            record(3, QStringLiteral("Default PA"), QString(), Rt::Pa),
            record(14, QStringLiteral("Bendix/King"), QStringLiteral("KY 96A"), Rt::Transceiver),
            record(2, QStringLiteral("Default Receiver"), QString(), Rt::Receiver, 1),
            record(23, QStringLiteral("Garmin"), QStringLiteral("GNS430W"), Rt::Transceiver, 1),
            record(24, QStringLiteral("Garmin"), QStringLiteral("GNS530W"), Rt::Transceiver, 1),
            record(54, QStringLiteral("Bendix/King"), QStringLiteral("KX155A"), Rt::Receiver, 1),
            record(62, QStringLiteral("NAT"), QStringLiteral("AA20-030"), Rt::Pa),
            record(76, QStringLiteral("Honeywell"), QStringLiteral("AR COMBI"), Rt::Cvr),
            record(1, QStringLiteral("Default Transceiver"), QString(), Rt::Transceiver),
            record(201, QStringLiteral("Acme"), QStringLiteral("A"), Rt::Receiver, 1)};
}

QList<int> idsInProxyOrder(const QSortFilterProxyModel &proxy)
{
    QList<int> ids;
    for (int row = 0; row < proxy.rowCount(); ++row)
        ids.append(proxy.index(row, RtsTableModel::IdColumn).data(Qt::EditRole).toInt());
    return ids;
}
}

class tst_RadioModel : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void records_data()
    {
        QTest::addColumn<int>("id");
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("include");
        QTest::addColumn<QStringList>("texts"); // columns 3 to 9
        QTest::addColumn<QList<int>>("editable");

        const QStringList transceiver = {"Transceiver", "7.75 Vrms", "rx desc", "0.250 Vrms", "tx desc", "No",
                                         "Acme X1 [Rx Level = 7.75,  Tx Level = 0.250]"};
        const QStringList receiver = {"Receiver", "7.75 Vrms", "rx desc", "", "", "Yes", "Acme X1 [Rx Level = 7.75]"};
        const QStringList pa = {"PA", "", "", "0.250 Vrms", "tx desc", "Yes", "Acme X1 [Tx Level = 0.250]"};
        const QStringList none = {"Not Installed", "", "", "", "", "No", "Acme"};
        QTest::newRow("user transceiver") << 200 << 1 << 0 << transceiver << QList<int>{0, 1, 2, 3, 4, 5, 6, 7, 8};
        QStringList listed = transceiver;
        listed[5] = QStringLiteral("Yes");
        QTest::newRow("transceiver in receivers list") << 200 << 1 << 1 << listed
                                                       << QList<int>{0, 1, 2, 3, 4, 5, 6, 7, 8};
        QTest::newRow("user receiver, listed without its flag") << 200 << 2 << 0 << receiver
                                                                << QList<int>{0, 1, 2, 3, 4, 5};
        QTest::newRow("user pa") << 201 << 3 << 1 << pa << QList<int>{0, 1, 2, 3, 6, 7};
        QTest::newRow("user not installed") << 203 << 0 << 0 << none << QList<int>{0, 1, 2, 3, 4, 5, 6, 7};
        QTest::newRow("unknown type") << 200 << 9 << 0 << none << QList<int>{0, 1, 2, 3, 4, 5, 6, 7};
        // A library radio's only editable cell is a transceiver's receivers-list flag.
        QTest::newRow("base transceiver") << 14 << 1 << 0 << transceiver << QList<int>{8};
        QTest::newRow("last base id") << 199 << 1 << 0 << transceiver << QList<int>{8};
        QTest::newRow("base receiver") << 54 << 2 << 0 << receiver << QList<int>{};
    }

    void records()
    {
        QFETCH(int, id);
        QFETCH(int, type);
        QFETCH(int, include);
        QFETCH(QStringList, texts);
        QFETCH(QList<int>, editable);
        RtsTableModel model;
        model.insertFromStrings(record(id, QStringLiteral("Acme"), QStringLiteral("X1"), type, include));
        QStringList shown;
        for (int column = RtsTableModel::TypeColumn; column < RtsTableModel::ColumnCount; ++column)
            shown.append(model.index(0, column).data().toString());
        QCOMPARE(shown, texts);
        QCOMPARE(model.index(0, RtsTableModel::RxLevelColumn).data(Qt::EditRole).toString(), QStringLiteral("7.75"));
        QList<int> editableColumns;
        for (int column = 0; column < model.columnCount(); ++column) {
            const Qt::ItemFlags flags = model.flags(model.index(0, column));
            QVERIFY(flags & Qt::ItemIsEnabled);
            if (flags & Qt::ItemIsEditable)
                editableColumns.append(column);
        }
        QCOMPARE(editableColumns, editable);
    }

    void backgroundsMarkDefaultsLibraryAndUser()
    {
        RtsTableModel model;
        model.insertFromStringsList({record(9, {}, {}, 1), record(10, {}, {}, 1), record(199, {}, {}, 1),
                                     record(200, {}, {}, 1)});
        QList<QColor> colours;
        for (int row = 0; row < 4; ++row)
            colours.append(model.index(row, 5).data(Qt::BackgroundRole).value<QBrush>().color());
        // The defaults end at id 9 and the library at 199.
        QVERIFY(colours.at(0) != colours.at(1) && colours.at(1) == colours.at(2) && colours.at(2) != colours.at(3));
    }

    void typeChangeSetsIncludeFlag_data()
    {
        QTest::addColumn<int>("include");
        QTest::addColumn<int>("newType");
        QTest::addColumn<int>("expected");
        QTest::newRow("to receiver sets") << 0 << 2 << 1;
        QTest::newRow("to transceiver keeps set") << 1 << 1 << 1;
        QTest::newRow("to transceiver keeps clear") << 0 << 1 << 0;
        QTest::newRow("to pa clears") << 1 << 3 << 0;
    }

    void typeChangeSetsIncludeFlag()
    {
        QFETCH(int, include);
        QFETCH(int, newType);
        QFETCH(int, expected);
        RtsTableModel model;
        model.insertFromStrings(record(200, QStringLiteral("M"), QStringLiteral("X"), Rt::Transceiver, include));
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        QVERIFY(model.setData(model.index(0, RtsTableModel::TypeColumn), newType));
        QCOMPARE(model.index(0, RtsTableModel::IncludeInRxListColumn).data(Qt::EditRole).toInt(), expected);
        QCOMPARE(model.rtType(model.index(0, 0)), static_cast<Rt::RtType>(newType));
        // Views must repaint the dependent texts too: levels, descriptions and the select string.
        QSet<int> columns;
        for (const QList<QVariant> &signal : qAsConst(changed)) {
            const int last = signal.at(1).toModelIndex().column();
            for (int column = signal.at(0).toModelIndex().column(); column <= last; ++column)
                columns.insert(column);
        }
        if (newType != Rt::Transceiver)
            QCOMPARE(columns, QSet<int>({3, 4, 5, 6, 7, 8, 9}));
        else
            QVERIFY(columns.isEmpty());
    }

    void userIdsEditsAndRevert()
    {
        RtsTableModel model;
        QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        model.insertFromStringsList(sampleRecords().mid(1, 3));
        model.clear();
        QCOMPARE(model.rowCount(), 0);
        QCOMPARE(model.nextUserRtId(), 200);
        // Loading takes ids from the counter too; the radio files set it afterwards.
        model.insertFromStrings(record(14, QStringLiteral("Bendix/King"), QStringLiteral("KY 96A"), 1));
        QCOMPARE(model.nextUserRtId(), 201);
        model.setNextUserRtId(200);

        QVERIFY(model.insertRows(1, 1));
        QVERIFY(model.insertRows(2, 1));
        QCOMPARE(model.dataObjectAtRow(1)->toStringList(),
                 QStringList({"200", "New Rt", "Model", "1", "1.00", "", "0.100", "", "0"}));
        QCOMPARE(model.rtId(model.index(2, 0)), 201);
        model.revert();
        QCOMPARE(model.rowCount(), 1);
        QCOMPARE(model.nextUserRtId(), 200);

        QVERIFY(model.insertRows(1, 1));
        QVERIFY(model.submit());
        QVERIFY(model.insertRows(2, 1));
        QVERIFY(model.setData(model.index(0, RtsTableModel::IncludeInRxListColumn), 1));
        QVERIFY(model.removeRows(1, 1));
        model.revert();
        QCOMPARE(model.rowCount(), 2);
        QCOMPARE(model.rtId(model.index(1, 0)), 200);
        QCOMPARE(model.nextUserRtId(), 201);
        QVERIFY(!model.includeInRxList(model.index(0, 0)));

        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        QVERIFY(model.setData(model.index(1, RtsTableModel::ManufacturerColumn), QStringLiteral("Acme")));
        QVERIFY(model.setData(model.index(1, RtsTableModel::ManufacturerColumn), QStringLiteral("Acme")));
        // The cell itself, then the select string that shows it; nothing for the same value again.
        QCOMPARE(changed.count(), 2);
        QCOMPARE(changed.at(0).at(0).toModelIndex(), changed.at(0).at(1).toModelIndex());
        QCOMPARE(changed.at(1).at(0).toModelIndex().column(), int(RtsTableModel::SelectStringColumn));
        QVERIFY(!model.setData(model.index(1, RtsTableModel::SelectStringColumn), QStringLiteral("x")));
        QVERIFY(model.submit());
        model.revert();
        QCOMPARE(model.rtName(model.index(1, 0)), QStringLiteral("Acme"));
    }

    void listIsFullAtExactly255()
    {
        MessageBoxRecorder boxes;
        RtsTableModel model;
        model.clear();
        QList<QStringList> records;
        for (int id = 0; id < 254; ++id)
            records.append(record(id, QStringLiteral("M"), QString::number(id), 1));
        model.insertFromStringsList(records);

        QVERIFY(model.insertRows(model.rowCount(), 1));
        QCOMPARE(model.rowCount(), 255);
        QCOMPARE(boxes.count(), 0);
        const int nextId = model.nextUserRtId();
        QVERIFY(!model.insertRows(model.rowCount(), 1));
        QCOMPARE(model.rowCount(), 255);
        QCOMPARE(model.nextUserRtId(), nextId);
        QCOMPARE(boxes.count(), 1);

        // Only exactly 255 stops: a list pushed past it by a multi-row insert grows on.
        QVERIFY(model.removeRows(254, 1));
        QVERIFY(model.insertRows(254, 2));
        QVERIFY(model.insertRows(model.rowCount(), 1));
        QCOMPARE(model.rowCount(), 257);
        QCOMPARE(boxes.count(), 1);
    }

    void lookups()
    {
        RtsTableModel model;
        model.insertFromStringsList(sampleRecords());
        QCOMPARE(model.rtId(model.locateRtId(56)), 23);
        QCOMPARE(model.rtId(model.locateRtId(57)), 24);
        QCOMPARE(model.rtId(model.locateRtId(201)), 201);
        QVERIFY(!model.locateRtId(99).isValid());

        const QModelIndex found = model.locateRt(QStringLiteral("Bendix/King"), QStringLiteral("KX155A"));
        QCOMPARE(found.column(), int(RtsTableModel::ManufacturerColumn));
        QCOMPARE(model.rtId(found), 54);
        QVERIFY(!model.locateRt(QStringLiteral("bendix/king"), QStringLiteral("KX155A")).isValid());
        QVERIFY(!model.locateRt(QStringLiteral("Bendix/King"), QStringLiteral("KX155")).isValid());

        QCOMPARE(model.baseRtsCount(), 10);
        QCOMPARE(model.userRtsCount(), 2);
        QCOMPARE(model.txLevel(found), 0.25);
    }

    void filter_data()
    {
        QTest::addColumn<int>("types");
        QTest::addColumn<QList<int>>("ids");
        QTest::newRow("all types") << 5 << QList<int>{200, 0, 3, 14, 2, 23, 24, 54, 62, 76, 1, 201};
        QTest::newRow("transceiver: PA shares its bit") << 1 << QList<int>{200, 0, 3, 14, 23, 24, 62, 1};
        QTest::newRow("receiver: included radios and PA") << 2 << QList<int>{0, 3, 2, 23, 24, 54, 62, 201};
        QTest::newRow("pa: receiver bit brings receivers") << 3 << QList<int>{200, 0, 3, 14, 2, 23, 24, 54, 62, 1, 201};
        QTest::newRow("cvr") << 4 << QList<int>{0, 76};
        QTest::newRow("not installed") << 0 << QList<int>{0};
    }

    void filter()
    {
        QFETCH(int, types);
        QFETCH(QList<int>, ids);
        RtsTableModel model;
        model.insertFromStringsList(sampleRecords());
        RtsSortFilterProxyModel proxy;
        QAbstractItemModelTester tester(&proxy, QAbstractItemModelTester::FailureReportingMode::QtTest);
        proxy.setSourceModel(&model);
        proxy.setRtTypesFilter(Rt::RtTypes(types));
        QCOMPARE(idsInProxyOrder(proxy), ids);

        // The filter follows edits: a transceiver turned receiver joins a receiver filter.
        if (types == Rt::Receiver) {
            QVERIFY(model.setData(model.index(0, RtsTableModel::TypeColumn), Rt::Receiver));
            QVERIFY(idsInProxyOrder(proxy).contains(200));
            QVERIFY(model.insertRows(model.rowCount(), 1));
            QVERIFY(model.removeRows(1, 1));
        }
    }

    void sort()
    {
        RtsTableModel model;
        model.insertFromStringsList(sampleRecords());
        RtsSortFilterProxyModel proxy;
        proxy.setSourceModel(&model);
        // The defaults lead in their own order, whichever way the rest is sorted.
        proxy.sort(RtsTableModel::ManufacturerColumn, Qt::AscendingOrder);
        QCOMPARE(idsInProxyOrder(proxy), (QList<int>{0, 1, 2, 3, 201, 200, 54, 14, 23, 24, 76, 62}));
        proxy.sort(RtsTableModel::IdColumn, Qt::DescendingOrder);
        QCOMPARE(idsInProxyOrder(proxy), (QList<int>{0, 1, 2, 3, 201, 200, 76, 62, 54, 24, 23, 14}));

        // The order follows every kind of edit, as a proxy set up afresh would sort.
        proxy.sort(RtsTableModel::ManufacturerColumn, Qt::AscendingOrder);
        const auto sortedAfresh = [](QAbstractItemModel *source) {
            RtsSortFilterProxyModel fresh;
            fresh.setSourceModel(source);
            fresh.sort(RtsTableModel::ManufacturerColumn, Qt::AscendingOrder);
            return idsInProxyOrder(fresh);
        };
        const QModelIndex cvr = model.locateRtId(76);
        QVERIFY(model.setData(cvr.sibling(cvr.row(), RtsTableModel::ManufacturerColumn), QStringLiteral("AAA")));
        QCOMPARE(idsInProxyOrder(proxy), sortedAfresh(&model));
        QCOMPARE(idsInProxyOrder(proxy).at(4), 76); // from near the end to the first after the defaults
        QVERIFY(model.insertRows(model.rowCount(), 1)); // "New Rt"
        QCOMPARE(idsInProxyOrder(proxy), sortedAfresh(&model));
        QVERIFY(model.removeRows(5, 2));
        QCOMPARE(idsInProxyOrder(proxy), sortedAfresh(&model));
        proxy.setRtTypesFilter(Rt::Cvr);
        proxy.setRtTypesFilter(Rt::AllTypes); // every row sorted back in
        QCOMPARE(idsInProxyOrder(proxy), sortedAfresh(&model));
        proxy.applyRtTypesFilter(Rt::Cvr); // the one-pass form leaves the same rows in the same order
        const QList<int> cvrs = idsInProxyOrder(proxy);
        QVERIFY(!cvrs.isEmpty());
        proxy.setRtTypesFilter(Rt::AllTypes);
        proxy.setRtTypesFilter(Rt::Cvr);
        QCOMPARE(idsInProxyOrder(proxy), cvrs);
        proxy.applyRtTypesFilter(Rt::AllTypes);
        QCOMPARE(idsInProxyOrder(proxy), sortedAfresh(&model));
        RtsTableModel other;
        other.insertFromStringsList(sampleRecords());
        proxy.setSourceModel(&other);
        proxy.sort(RtsTableModel::ManufacturerColumn, Qt::AscendingOrder);
        QCOMPARE(idsInProxyOrder(proxy), sortedAfresh(&other));
    }
};

QTEST_MAIN(tst_RadioModel)
#include "tst_radiomodel.moc"
