// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "popupmenuchooser.h"
#include "widgets/pixmapwidget.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QImage>
#include <QLabel>
#include <QScrollArea>
#include <QTemporaryDir>
#include <QTest>
#include <QVBoxLayout>

namespace {
// Keys as a short text: + zooms in, - zooms out, ^ is Ctrl+Plus.
void press(QWidget *widget, const QString &keys)
{
    for (const QChar key : keys) {
        if (key == QLatin1Char('^'))
            QTest::keyClick(widget, Qt::Key_Plus, Qt::ControlModifier);
        else
            QTest::keyClick(widget, key == QLatin1Char('+') ? Qt::Key_Plus : Qt::Key_Minus);
    }
}

QSize labelSize(const PixMapWidget *panel)
{
    return panel->findChild<QLabel *>(QStringLiteral("imageLabel"))->size();
}

// Sizes the window so that the panel's scroll area has contents of the given size.
void showWithContents(QWidget *window, PixMapWidget *panel, const QSize &contents)
{
    const int frame = panel->findChild<QScrollArea *>(QStringLiteral("imageScrollArea"))->frameWidth();
    window->resize(contents + QSize(2 * frame, 2 * frame));
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window));
}

// A parent that records the keys its child passes on.
class KeySink : public QWidget
{
public:
    QList<int> keys;

protected:
    void keyPressEvent(QKeyEvent *event) override { keys.append(event->key()); }
};
}

class tst_PixMapWidget : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        m_picture = m_dir.filePath(QStringLiteral("panel.png"));
        QImage image(200, 100, QImage::Format_RGB32);
        image.fill(Qt::darkCyan);
        QVERIFY(image.save(m_picture));
    }

    void zoom_data()
    {
        QTest::addColumn<QSize>("contents");
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QSize>("size");
        // The picture is 200 x 100.
        QTest::newRow("fit by width") << QSize(400, 400) << "" << QSize(400, 200);
        QTest::newRow("fit by height") << QSize(600, 150) << "" << QSize(300, 150);
        QTest::newRow("zoom in") << QSize(400, 400) << "+" << QSize(444, 222);
        QTest::newRow("zoom out") << QSize(400, 400) << "-" << QSize(360, 180);
        QTest::newRow("ctrl plus fits again") << QSize(400, 400) << "++-^" << QSize(400, 200);
        // 2.005 x 100 = 200.5: halves round up, and 0.99999 of that rounds down again.
        QTest::newRow("half a pixel rounds up") << QSize(401, 400) << "" << QSize(401, 201);
        QTest::newRow("in and out loses a pixel") << QSize(401, 400) << "+-" << QSize(401, 200);
    }

    void zoom()
    {
        QFETCH(QSize, contents);
        QFETCH(QString, keys);
        QFETCH(QSize, size);
        PixMapWidget panel;
        panel.setPixMapName(m_picture);
        showWithContents(&panel, &panel, contents);
        press(&panel, keys);
        QCOMPARE(labelSize(&panel), size);
    }

    void refitAndKeysGoOn()
    {
        KeySink parent;
        auto *panel = new PixMapWidget(&parent);
        (new QVBoxLayout(&parent))->setContentsMargins(0, 0, 0, 0);
        parent.layout()->addWidget(panel);
        panel->setPixMapName(m_picture);
        showWithContents(&parent, panel, QSize(400, 400));

        // Keys reach the panel from its scroll area; others go on to the parent.
        press(panel->findChild<QScrollArea *>(), QStringLiteral("++"));
        QCOMPARE(labelSize(panel), QSize(494, 247));
        QTest::keyClick(panel, Qt::Key_A);
        QCOMPARE(parent.keys, QList<int>{Qt::Key_A});

        // The context menu zooms as well; a resize drops any zoom.
        auto *label = panel->findChild<QLabel *>(QStringLiteral("imageLabel"));
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), label->mapToGlobal(QPoint(5, 5)));
        PopupMenuChooser chooser(QStringLiteral("Zoom Out (-)"));
        QApplication::sendEvent(label, &event);
        QCOMPARE(chooser.entries(), (QStringList{QStringLiteral("Zoom In (+)"), QStringLiteral("Zoom Out (-)"),
                                                 QStringLiteral("Zoom All (Ctrl +)")}));
        QCOMPARE(labelSize(panel), QSize(444, 222));
        showWithContents(&parent, panel, QSize(200, 400));
        QTRY_COMPARE(labelSize(panel), QSize(200, 100));

        for (const QAction *action : panel->findChildren<QAction *>())
            QVERIFY2(!action->icon().pixmap(16).isNull(), qPrintable(action->text()));
    }

    void emptyPicture()
    {
        // Shown before any picture, and then with one that does not load: nothing to fit, nothing shown.
        PixMapWidget panel;
        showWithContents(&panel, &panel, QSize(400, 400));
        press(&panel, QStringLiteral("+-^"));
        QCOMPARE(labelSize(&panel), QSize(0, 0));
        QVERIFY(qIsFinite(panel.scaleFactor()));

        panel.setPixMapName(m_picture);
        press(&panel, QStringLiteral("^"));
        QCOMPARE(labelSize(&panel), QSize(400, 200));
        panel.setPixMapName(m_dir.filePath(QStringLiteral("missing.png")));
        press(&panel, QStringLiteral("^+"));
        QCOMPARE(labelSize(&panel), QSize(0, 0));
        QVERIFY(qIsFinite(panel.scaleFactor()));
    }

private:
    QTemporaryDir m_dir;
    QString m_picture;
};

QTEST_MAIN(tst_PixMapWidget)
#include "tst_pixmapwidget.moc"
