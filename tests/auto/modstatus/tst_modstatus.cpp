// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "testappdir.h"
#include "widgets/modstatuswidget.h"

#include <QCheckBox>
#include <QSignalSpy>
#include <QTest>

class tst_ModStatus : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { TestAppDir::prepare(); }
    void cleanupTestCase() { TestAppDir::cleanup(); }

    void modStatusString_data()
    {
        QTest::addColumn<uint>("status");
        QTest::addColumn<QString>("text");
        QTest::newRow("none") << 0u << QStringLiteral("None");
        QTest::newRow("mod 10") << 0x200u << QStringLiteral("<b>10</b>");
        QTest::newRow("no blank after the comma") << 5u << QStringLiteral("<b>1</b>,<b>3</b>");
        QTest::newRow("only bits above 9: empty, not None") << 0x400u << QString();
        QTest::newRow("high bits ignored") << 0xFFFFFC02u << QStringLiteral("<b>2</b>");
    }

    void modStatusString()
    {
        QFETCH(uint, status);
        QFETCH(QString, text);
        QCOMPARE(ModStatusWidget::modStatusString(status), text);
    }

    void boxesAndClicks()
    {
        ModStatusWidget widget;
        widget.show();
        QVERIFY(QTest::qWaitForWindowExposed(&widget));
        const QList<QCheckBox *> boxes = widget.findChildren<QCheckBox *>();
        QCOMPARE(boxes.size(), 10);

        // Bits above the ten boxes are neither shown nor kept; setting the word is no user change.
        QSignalSpy spy(&widget, &ModStatusWidget::modStatusChanged);
        widget.setModStatus(0x401);
        for (int k = 0; k < 10; ++k)
            QCOMPARE(boxes.at(k)->isChecked(), k == 0);
        QCOMPARE(widget.modStatus(), 1u);
        QCOMPARE(spy.count(), 0);

        auto *box3 = widget.findChild<QCheckBox *>(QStringLiteral("mod3"));
        QVERIFY(box3);
        QCOMPARE(box3->text(), QStringLiteral("3")); // the label names the mod a click sets
        QTest::mouseClick(box3, Qt::LeftButton);
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.last().at(0).toUInt(), 5u);
        auto *box10 = widget.findChild<QCheckBox *>(QStringLiteral("mod10"));
        box10->setFocus();
        QTest::keyClick(box10, Qt::Key_Space);
        QCOMPARE(spy.count(), 2);
        QCOMPARE(spy.last().at(0).toUInt(), 0x205u);
        QTest::mouseClick(box3, Qt::LeftButton);
        QCOMPARE(spy.last().at(0).toUInt(), 0x201u);
    }
};

QTEST_MAIN(tst_ModStatus)
#include "tst_modstatus.moc"
