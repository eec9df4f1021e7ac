// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "classes/nvroptions.h"
#include "mainwindow.h"
#include "messageboxrecorder.h"
#include "optionspage.h"
#include "picturepage.h"
#include "ptypair.h"
#include "terminalpage.h"
#include "testappdir.h"
#include "widgets/consolewidget.h"
#include "widgets/headsetstableeditwidget.h"
#include "widgets/pixmapwidget.h"
#include "widgets/productstableeditwidget.h"

#include <QAction>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <climits>

namespace {
/**
 * The device end of a pseudo-terminal, answering each command line ended by
 * a carriage return: "ID" with the device's name, "RAW" with bytes that do
 * not print, "SILENT" not at all, anything else with an error.
 */
class Responder : public QObject
{
public:
    Responder(PtyPair &pair, const QByteArray &name) : m_pair(pair), m_name(name)
    {
        connect(&m_timer, &QTimer::timeout, this, &Responder::poll);
        m_timer.start(5);
    }

    QList<QByteArray> commands;

private:
    void poll()
    {
        for (const char byte : m_pair.peerRead(INT_MAX, 1)) {
            if (byte != '\r') {
                m_line.append(byte);
                continue;
            }
            commands.append(m_line);
            if (m_line == "ID")
                m_pair.peerWrite(m_name + " 2.1\r\n");
            else if (m_line == "RAW")
                m_pair.peerWrite("\x02OK\x1b\x7f\xe9\r\n");
            else if (m_line != "SILENT")
                m_pair.peerWrite("ERR " + m_line + "\r\n");
            m_line.clear();
        }
    }

    PtyPair &m_pair;
    QByteArray m_name;
    QByteArray m_line;
    QTimer m_timer;
};

void enter(ConsoleWidget *console, const QString &command)
{
    QTest::keyClicks(console, command);
    QTest::keyClick(console, Qt::Key_Return);
}

// Text of the console with a line put in above its input line.
QString withLineAbove(const QString &text, const QString &line)
{
    return QString(text).insert(text.lastIndexOf(QLatin1Char('\n')) + 1, line + QLatin1Char('\n'));
}

const QStringList noConnect{QStringLiteral("nevra"), QStringLiteral("-noconnect")};
}

// Starts a pseudo-terminal pair and links its first end as <application directory>/ports/COM<number>.
#define START_DEVICE(pair, number)                                                                                  \
    START_PAIR(pair);                                                                                               \
    QVERIFY(QFile::link((pair).portA(), TestAppDir::filePath(QStringLiteral("ports/COM%1").arg(number))))

class tst_HostPages : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { TestAppDir::prepare(); }
    void cleanupTestCase() { TestAppDir::cleanup(); }

    void init()
    {
        QDir(TestAppDir::filePath(QStringLiteral("ports"))).removeRecursively();
        QDir(TestAppDir::path()).mkpath(QStringLiteral("ports"));
    }

    void terminalTalksToADevice()
    {
        PtyPair pair;
        START_DEVICE(pair, 5);
        Responder device(pair, "PANEL-A");
        NvrOptions options(noConnect);
        options.setComPortNumber(5);
        TerminalPage page(&options);
        ConsoleWidget *console = page.console();
        QVERIFY(!page.disconnectAction()->isEnabled());
        page.connectAction()->trigger();
        QVERIFY(page.isConnected());
        QVERIFY(!page.connectAction()->isEnabled());

        QString text = QStringLiteral("Connected to COM5.\n> ");
        enter(console, QStringLiteral("ID"));
        text += QStringLiteral("ID\nPANEL-A 2.1\n> ");
        QTRY_COMPARE(console->toPlainText(), text);
        enter(console, QStringLiteral("RAW"));
        text += QStringLiteral("RAW\n<02>OK<1B><7F><E9>\n> ");
        QTRY_COMPARE(console->toPlainText(), text);

        page.setResponseTimeout(300);
        QElapsedTimer clock;
        clock.start();
        enter(console, QStringLiteral("SILENT"));
        text += QStringLiteral("SILENT\nNo answer within 300 ms.\n> ");
        QTRY_COMPARE(console->toPlainText(), text);
        QVERIFY2(clock.elapsed() >= 300, qPrintable(QString::number(clock.elapsed())));

        // Output nobody asked for goes above the line being typed, which stays as it was.
        QTest::keyClicks(console, QStringLiteral("ve"));
        QVERIFY(pair.peerWrite("ALARM 3\r\n"));
        text = withLineAbove(text, QStringLiteral("ALARM 3"));
        QTRY_COMPARE(console->toPlainText(), text + QStringLiteral("ve"));
        enter(console, QStringLiteral("r"));
        text += QStringLiteral("ver\nERR ver\n> ");
        QTRY_COMPARE(console->toPlainText(), text);
        QCOMPARE(device.commands, (QList<QByteArray>{"ID", "RAW", "SILENT", "ver"}));

        page.disconnectAction()->trigger();
        QVERIFY(!page.isConnected());
        QVERIFY(page.connectAction()->isEnabled());
        enter(console, QStringLiteral("ID"));
        text = withLineAbove(text, QStringLiteral("Disconnected from COM5."));
        QCOMPARE(console->toPlainText(), text + QStringLiteral("ID\nNot connected.\n> "));
    }

    void terminalFollowsThePort()
    {
        PtyPair first, second;
        START_DEVICE(first, 5);
        START_DEVICE(second, 6);
        Responder deviceA(first, "PANEL-A");
        Responder deviceB(second, "PANEL-B");
        NvrOptions options({QStringLiteral("nevra")});
        options.setComPortNumber(5);
        TerminalPage page(&options);
        ConsoleWidget *console = page.console();
        QTRY_VERIFY(page.isConnected());

        options.setComPortNumber(6);
        enter(console, QStringLiteral("ID"));
        QString text = QStringLiteral("Connected to COM5.\nDisconnected from COM5.\nConnected to COM6.\n"
                                      "> ID\nPANEL-B 2.1\n> ");
        QTRY_COMPARE(console->toPlainText(), text);
        QVERIFY(deviceA.commands.isEmpty());

        // Disconnecting ends a command still waiting instead of leaving the console locked.
        page.setResponseTimeout(30000);
        enter(console, QStringLiteral("SILENT"));
        QTRY_COMPARE(deviceB.commands.size(), 2);
        page.disconnectAction()->trigger();
        QTest::keyClicks(console, QStringLiteral("x"));
        text += QStringLiteral("SILENT\nDisconnected from COM6.\n> x");
        QCOMPARE(console->toPlainText(), text);

        // A closed terminal only takes note of the new port; a port without a device fails to open.
        options.setComPortNumber(9);
        QVERIFY(!page.isConnected());
        page.connectAction()->trigger();
        QVERIFY(!page.isConnected());
        text = withLineAbove(text, QStringLiteral("[COM9] Failed to open port."));
        const QString reason = QStringLiteral("COM9 has no device: %1 is not a link to one.")
                                   .arg(TestAppDir::filePath("ports/COM9"));
        QCOMPARE(console->toPlainText(), withLineAbove(text, reason));
    }

    void terminalWaitsForALostDevice()
    {
        PtyPair pair;
        START_DEVICE(pair, 4);
        Responder device(pair, "PANEL-C");
        NvrOptions options(noConnect);
        options.setComPortNumber(4);
        TerminalPage page(&options);
        page.connectAction()->trigger();
        QVERIFY(page.isConnected());

        pair.closePeer();
        pair.stop();
        QTRY_VERIFY(!page.isConnected());
        // Disconnecting stays possible: it ends the wait.
        QVERIFY(page.disconnectAction()->isEnabled());
        START_PAIR(pair);
        QTRY_VERIFY(page.isConnected());
        enter(page.console(), QStringLiteral("ID"));
        QTRY_COMPARE(page.console()->toPlainText(),
                     QStringLiteral("Connected to COM4.\nDisconnected from COM4.\nCOM4 is gone; it reconnects when "
                                    "the device is back.\nConnected to COM4.\n> ID\nPANEL-C 2.1\n> "));
    }

    void windowPagesAndMenu()
    {
        PtyPair pair;
        START_DEVICE(pair, 2);
        NvrOptions options(noConnect);
        options.setComPortNumber(2);
        MainWindow window(&options);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));

        // The Link menu connects whether or not the terminal page was built yet.
        QTest::keyClick(&window, Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
        auto *terminal = window.findChild<TerminalPage *>();
        QVERIFY(terminal->isConnected());
        QTest::keyClick(&window, Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
        QVERIFY(!terminal->isConnected());

        // The picture is fitted to its page when the page shows.
        window.showPage(window.pageIndex(QStringLiteral("Picture")));
        auto *picture = qobject_cast<PicturePage *>(window.pages()->currentWidget());
        QTRY_VERIFY(picture->viewer()->findChild<QLabel *>(QStringLiteral("imageLabel"))->width() > 100);

        // The Edit menu holds the tools of the library page shown, and nothing elsewhere.
        auto *edit = window.findChild<QMenu *>(QStringLiteral("editMenu"));
        QVERIFY(!edit->isEnabled());
        QVERIFY(!window.findChild<HeadSetsTableEditWidget *>()); // built when first shown
        window.showPage(window.pageIndex(QStringLiteral("Headsets")));
        auto *headsets = qobject_cast<HeadSetsTableEditWidget *>(window.pages()->currentWidget());
        const auto menuActions = [edit] {
            QList<QAction *> actions = edit->actions();
            actions.erase(std::remove_if(actions.begin(), actions.end(), [](QAction *a) { return a->isSeparator(); }),
                          actions.end());
            return actions;
        };
        QVERIFY(edit->isEnabled());
        QCOMPARE(menuActions(), headsets->editActions());
        window.showPage(window.pageIndex(QStringLiteral("Product Configurations")));
        QCOMPARE(menuActions(), window.findChild<ProductConfigsWidget *>()->editActions());

        window.showPage(window.pageIndex(QStringLiteral("Options")));
        auto *portRow = window.findChild<OptionsPage *>()->findChild<QLabel *>(QStringLiteral("comPort2"));
        QCOMPARE(portRow->text(), QStringLiteral("none"));
        options.setComPort2Number(8);
        QCOMPARE(portRow->text(), QStringLiteral("COM8"));
    }

    void connectAtStartSaysWhenItFails()
    {
        PtyPair pair;
        START_DEVICE(pair, 3);
        MessageBoxRecorder boxes;
        for (const char *quiet : {"", "-nomessages"}) {
            NvrOptions options({QStringLiteral("nevra"), QLatin1String(quiet)});
            g_nvrOptions = &options;
            options.setComPortNumber(3);
            {
                MainWindow window(&options);
                QTRY_VERIFY(window.findChild<TerminalPage *>() && window.findChild<TerminalPage *>()->isConnected());
            }
            options.setComPortNumber(9);
            MainWindow window(&options);
            const QString text = QStringLiteral("COM9 has no device: %1 is not a link to one. Choose the "
                                                "configuration port in Tools > Options; -noconnect starts without "
                                                "connecting.")
                                     .arg(TestAppDir::filePath("ports/COM9"));
            QTRY_COMPARE(window.statusBar()->currentMessage(), text);
            g_nvrOptions = nullptr;
            if (options.showMessages()) {
                QTRY_COMPARE(boxes.count(), 1);
                QCOMPARE(boxes.last().title, QStringLiteral("Connect"));
                QCOMPARE(boxes.last().text, text);
            } else {
                QTest::qWait(200);
                QCOMPARE(boxes.count(), 1); // none more
            }
        }
    }
};

QTEST_MAIN(tst_HostPages)
#include "tst_hostpages.moc"
