// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "widgets/scrollablegroupbox.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

class tst_ScrollableGroupBox : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void layout_data()
    {
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("objectName");
        QTest::addColumn<bool>("layoutLater");
        QTest::newRow("titled and named") << "Options" << "optionsBox" << false;
        QTest::newRow("no title, no name") << "" << "" << false;
        QTest::newRow("layout set later") << "Later" << "" << true;
    }

    void layout()
    {
        QFETCH(QString, title);
        QFETCH(QString, objectName);
        QFETCH(bool, layoutLater);
        auto *form = new QFormLayout;
        for (int i = 0; i < 40; ++i)
            form->addRow(QStringLiteral("Field %1").arg(i), new QLineEdit);
        ScrollableGroupBox box(nullptr, title, layoutLater ? nullptr : form, objectName);
        box.resize(300, 200);
        box.show();
        QVERIFY(QTest::qWaitForWindowExposed(&box));
        auto *label = box.findChild<QLabel *>(QStringLiteral("titleLabel"));
        auto *area = box.findChild<QScrollArea *>(QStringLiteral("scrollArea"));
        auto *inner = box.findChild<QWidget *>(QStringLiteral("scrollableWidget"));
        QCOMPARE(box.objectName(), objectName);
        QCOMPARE(label->isVisible(), !title.isEmpty());
        QCOMPARE(label->text(), title);
        // The area takes all the room below the title, or all of it without one.
        const int top = title.isEmpty() ? 0 : label->geometry().bottom() + 1;
        QCOMPARE(area->geometry(), QRect(0, top, 300, 200 - top));

        if (layoutLater) {
            QCOMPARE(area->widget(), nullptr);
            QVERIFY(!inner->isVisible());
            box.setLayout(nullptr);
            QCOMPARE(area->widget(), nullptr);
            box.setLayout(form);
        }
        // The form went into the scrolled part and follows its width, but is too tall to fit.
        QCOMPARE(area->widget(), inner);
        QCOMPARE(inner->layout(), form);
        QVERIFY(inner->isVisible());
        QTRY_COMPARE(inner->width(), area->viewport()->width());
        QTRY_VERIFY(area->verticalScrollBar()->maximum() > 0);
    }
};

QTEST_MAIN(tst_ScrollableGroupBox)
#include "tst_scrollablegroupbox.moc"
