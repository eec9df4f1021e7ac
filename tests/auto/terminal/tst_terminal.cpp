// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "classes/hexrows.h"
#include "classes/nvroptions.h"
#include "mainwindow.h"
#include "messageboxrecorder.h"
#include "ptypair.h"
#include "terminalpage.h"
#include "testappdir.h"
#include "testfiles.h"
#include "widgets/terminalview.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

namespace {
using Row = HexRows::Row;
const QDateTime start(QDate(2026, 3, 1), QTime(10, 0, 0, 0));

QString hexOf(const QList<Row> &rows)
{
    QStringList text;
    for (const Row &row : rows)
        text.append(QString::number(start.msecsTo(row.time)) + QLatin1Char(' ')
                    + (row.direction == SerialTraffic::Sent ? QStringLiteral("TX ") : QStringLiteral("RX "))
                    + QString::fromLatin1(SerialTraffic::hexPairs(row.bytes)));
    return text.join(QLatin1Char('|'));
}

template<typename T>
T *child(QWidget *parent, const char *name)
{
    T *widget = parent->findChild<T *>(QLatin1String(name));
    if (!widget)
        qFatal("no %s", name);
    return widget;
}

QToolButton *buttonOf(QWidget *parent, QAction *action)
{
    for (QToolButton *button : parent->findChildren<QToolButton *>())
        if (button->defaultAction() == action)
            return button;
    qFatal("no button for %s", qPrintable(action->text()));
}
}

class tst_Terminal : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { TestAppDir::prepare(); }
    void cleanupTestCase() { TestAppDir::cleanup(); }

    void hexRows()
    {
        HexRows rows;
        QList<Row> done = rows.add(SerialTraffic::Received, QByteArray(20, 'A'), start);
        QCOMPARE(hexOf(done), QStringLiteral("0 RX ") + QStringLiteral("41 ").repeated(15) + QStringLiteral("41"));
        // Within the gap the open row grows; past it, or in the other direction, a new row starts.
        QVERIFY(rows.add(SerialTraffic::Received, "B", start.addMSecs(20)).isEmpty());
        done = rows.add(SerialTraffic::Received, "C", start.addMSecs(41));
        QCOMPARE(hexOf(done), QStringLiteral("0 RX 41 41 41 41 42"));
        done = rows.add(SerialTraffic::Sent, "\r", start.addMSecs(42));
        QCOMPARE(hexOf(done), QStringLiteral("41 RX 43"));
        QCOMPARE(hexOf(rows.flush()), QStringLiteral("42 TX 0D"));
        QVERIFY(rows.flush().isEmpty());

        // The text columns line up whatever a row holds.
        const QString shortRow = HexRows::format({SerialTraffic::Sent, start, "A\x01"});
        const QString fullRow = HexRows::format({SerialTraffic::Received, start, QByteArray(16, 'z')});
        QCOMPARE(shortRow, QStringLiteral("10:00:00.000 \u2192 41 01") + QString(42, QLatin1Char(' '))
                               + QStringLiteral("  A."));
        QCOMPARE(shortRow.indexOf(QStringLiteral("A.")), fullRow.indexOf(QStringLiteral("zzz")));

        // The view: CR LF ends a line once, other bytes show as <HH>, and it keeps only its last rows.
        TerminalView view;
        view.setMaximumRows(3);
        view.add(SerialTraffic::Sent, "ID\r", start);
        view.add(SerialTraffic::Received, "OK\r", start.addMSecs(5));
        view.add(SerialTraffic::Received, "\n\x02x", start.addMSecs(6));
        QTRY_COMPARE(view.hexView()->toPlainText().count(QLatin1Char('\n')), 1);
        QCOMPARE(view.textView()->toPlainText(),
                 QStringLiteral("10:00:00.000 \u2192 ID\n10:00:00.005 \u2190 OK\n10:00:00.006 \u2190 <02>x"));
        for (int i = 0; i < 10; ++i)
            view.add(SerialTraffic::Received, QByteArray::number(i) + '\n', start.addSecs(i + 1));
        view.flush();
        QCOMPARE(view.textView()->document()->blockCount(), 3);
        QVERIFY(view.textView()->toPlainText().endsWith(QStringLiteral("\u2190 9")));
    }

    void hexSend_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("message");
        QTest::newRow("pairs") << "02 41 0d" << QByteArray("\x02\x41\x0d") << QString();
        QTest::newRow("run") << " 0241ff " << QByteArray("\x02\x41\xff") << QString();
        QTest::newRow("odd") << "02 410" << QByteArray()
                             << "Not sent: \"410\" has an odd number of hex digits: every byte needs two.";
        QTest::newRow("split pair") << "4 1" << QByteArray()
                                    << "Not sent: \"4\" has an odd number of hex digits: every byte needs two.";
        QTest::newRow("prefix") << "0x41" << QByteArray() << "Not sent: \"x\" is not a hex digit; use 0-9 and A-F.";
        QTest::newRow("letter") << "4G" << QByteArray() << "Not sent: \"G\" is not a hex digit; use 0-9 and A-F.";
    }

    void hexSend()
    {
        QFETCH(QString, typed);
        QFETCH(QByteArray, bytes);
        QFETCH(QString, message);
        PtyPair pair;
        START_PAIR(pair);
        NvrOptions options({QStringLiteral("nevra"), QStringLiteral("-noconnect")});
        TerminalPage page(&options);
        QVERIFY(page.findChild<QObject *>(QStringLiteral("baudRate")));
        QDir(TestAppDir::path()).mkpath(QStringLiteral("ports"));
        const QString link = TestAppDir::filePath(QStringLiteral("ports/COM7"));
        QFile::remove(link);
        QVERIFY(QFile::link(pair.portA(), link));
        options.setComPortNumber(7);
        page.connectPort();
        QVERIFY(page.isConnected());

        child<QCheckBox>(&page, "hexSend")->setChecked(true);
        auto *line = child<QComboBox>(&page, "sendLine");
        QTest::keyClicks(line->lineEdit(), typed);
        QTest::keyClick(line->lineEdit(), Qt::Key_Return);
        QCOMPARE(child<QLabel>(&page, "sendMessage")->text(), message);
        // A refused line stays for correcting; a sent one goes to the history.
        QCOMPARE(pair.peerRead(qMax(1, int(bytes.size())), bytes.isEmpty() ? 100 : 2000), bytes);
        QCOMPARE(line->currentText(), bytes.isEmpty() ? typed : QString());
        QCOMPARE(page.sendHistory().value(0) == typed, !bytes.isEmpty());
        child<QCheckBox>(&page, "hexSend")->setChecked(false);
    }

    // The state on the page and in the status line as the device goes and comes back; the session log and the
    // send history outlive it.
    void stateAcrossPeerLoss()
    {
        PtyPair pair;
        START_PAIR(pair);
        QDir(TestAppDir::path()).mkpath(QStringLiteral("ports"));
        const QString link = TestAppDir::filePath(QStringLiteral("ports/COM5"));
        QFile::remove(link);
        QVERIFY(QFile::link(pair.portA(), link));
        QDir(TestAppDir::filePath(QStringLiteral("logs"))).removeRecursively();
        NvrOptions options({QStringLiteral("nevra"), QStringLiteral("-noconnect")});
        options.setComPortNumber(5);
        MessageBoxRecorder boxes;
        auto window = std::make_unique<MainWindow>(&options);
        window->show();
        TerminalPage *page = window->terminal();
        QLabel *onPage = child<QLabel>(page, "terminalState");
        QLabel *statusLine = child<QLabel>(window.get(), "linkState");
        const auto states = [&] { return onPage->text() + QLatin1Char('|') + statusLine->text(); };
        QCOMPARE(states(), QStringLiteral("not connected|not connected"));

        QTest::mouseClick(buttonOf(page, page->connectAction()), Qt::LeftButton);
        QCOMPARE(states(), QStringLiteral("COM5 connected|COM5 connected"));
        auto *line = child<QComboBox>(page, "sendLine");
        child<QComboBox>(page, "lineEnding")->setCurrentIndex(SerialTraffic::CRLF);
        QTest::keyClicks(line->lineEdit(), QStringLiteral("VER"));
        QTest::keyClick(line->lineEdit(), Qt::Key_Return);
        QCOMPARE(pair.peerRead(5), QByteArray("VER\r\n"));
        QVERIFY(pair.peerWrite("V 2.1\r\n"));
        QTRY_VERIFY(page->view()->textView()->toPlainText().endsWith(QStringLiteral("\u2190 V 2.1")));

        pair.stop();
        QTRY_COMPARE(states(), QStringLiteral("COM5: waiting for the device|COM5: waiting for the device"));
        START_PAIR(pair);
        QTRY_COMPARE_WITH_TIMEOUT(states(), QStringLiteral("COM5 connected|COM5 connected"), 5000);
        QVERIFY(pair.peerWrite("BACK\n"));
        QTRY_VERIFY(page->view()->textView()->toPlainText().endsWith(QStringLiteral("\u2190 BACK")));
        const QString logName = page->logFileName();
        QTest::mouseClick(buttonOf(page, page->disconnectAction()), Qt::LeftButton);
        QCOMPARE(states(), QStringLiteral("not connected|not connected"));

        QVERIFY2(QFileInfo(logName).fileName().contains(
                     QRegularExpression(QStringLiteral("^COM5-\\d{8}-\\d{6}\\.log$"))),
                 qPrintable(logName));
        QCOMPARE(QFileInfo(logName).dir().dirName(), QStringLiteral("logs"));
        const QStringList log = QString::fromUtf8(TestFiles::read(logName)).split(QLatin1Char('\n'));
        QStringList kinds;
        for (const QString &entry : log)
            kinds.append(entry.section(QLatin1Char(' '), 2));
        QCOMPARE(kinds.mid(0, 9), (QStringList{QStringLiteral("-- COM5 connected"),
                                              QStringLiteral("TX 56 45 52 0D 0A  VER.."),
                                              QStringLiteral("RX 56 20 32 2E 31 0D 0A  V 2.1.."),
                                              QStringLiteral("-- COM5 is gone"),
                                              QStringLiteral("-- COM5: waiting for the device"),
                                              QStringLiteral("-- COM5 connected"), QStringLiteral("-- COM5 is back"),
                                              QStringLiteral("RX 42 41 43 4B 0A  BACK."),
                                              QStringLiteral("-- not connected")}));
        QVERIFY(log.first().contains(QRegularExpression(QStringLiteral("^\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d\\.\\d{3} "))));

        window.reset();
        TerminalPage again(&options);
        QCOMPARE(again.sendHistory().value(0), QStringLiteral("VER"));
    }
};

QTEST_MAIN(tst_Terminal)
#include "tst_terminal.moc"
