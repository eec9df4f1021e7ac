// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "widgets/scrollablegroupbox.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

class tst_ScrollableGroupBox : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void layout_data();
    void layout();
    void laterLayoutFillsTheArea();
};

void tst_ScrollableGroupBox::layout_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("objectName");
    QTest::newRow("titled and named") << "Options" << "optionsBox";
    QTest::newRow("no title, no name") << "" << "";
}

void tst_ScrollableGroupBox::layout()
{
    QFETCH(QString, title);
    QFETCH(QString, objectName);
    auto *form = new QFormLayout;
    for (int i = 0; i < 40; ++i)
        form->addRow(QStringLiteral("Field %1").arg(i), new QLineEdit);
    ScrollableGroupBox box(nullptr, title, form, objectName);
    box.resize(300, 200);
    box.show();
    QVERIFY(QTest::qWaitForWindowExposed(&box));

    QCOMPARE(box.objectName(), objectName);
    auto *label = box.findChild<QLabel *>(QStringLiteral("titleLabel"));
    auto *area = box.findChild<QScrollArea *>(QStringLiteral("scrollArea"));
    auto *inner = box.findChild<QWidget *>(QStringLiteral("scrollableWidget"));
    QVERIFY(label && area && inner);
    QCOMPARE(label->isVisible(), !title.isEmpty());
    QCOMPARE(label->text(), title);
    // The area takes all the room below the title, or all of it without one.
    const int top = title.isEmpty() ? 0 : label->geometry().bottom() + 1;
    QCOMPARE(area->geometry(), QRect(0, top, 300, 200 - top));

    // The form went into the scrolled part and follows its width, but is too tall to fit.
    QCOMPARE(area->widget(), inner);
    QCOMPARE(inner->layout(), form);
    QVERIFY(box.layout() != form);
    QCOMPARE(inner->width(), area->viewport()->width());
    QVERIFY(area->verticalScrollBar()->maximum() > 0);
}

void tst_ScrollableGroupBox::laterLayoutFillsTheArea()
{
    ScrollableGroupBox box(nullptr, QStringLiteral("Later"));
    box.resize(300, 200);
    box.show();
    QVERIFY(QTest::qWaitForWindowExposed(&box));
    auto *area = box.findChild<QScrollArea *>(QStringLiteral("scrollArea"));
    auto *inner = box.findChild<QWidget *>(QStringLiteral("scrollableWidget"));
    QCOMPARE(area->widget(), nullptr);
    QVERIFY(!inner->isVisible());

    box.setLayout(nullptr);
    QCOMPARE(area->widget(), nullptr);

    auto *form = new QFormLayout;
    QPointer<QLineEdit> field = new QLineEdit;
    form->addRow(QStringLiteral("Name"), field);
    box.setLayout(form);
    QCOMPARE(area->widget(), inner);
    QVERIFY(inner->isVisible());
    QVERIFY(field->isVisible());
    QCOMPARE(field->window(), &box);
}

QTEST_MAIN(tst_ScrollableGroupBox)
#include "tst_scrollablegroupbox.moc"
