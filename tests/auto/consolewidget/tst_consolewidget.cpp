// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "popupmenuchooser.h"
#include "widgets/consolewidget.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>

namespace {
int column(const ConsoleWidget &console)
{
    const QTextCursor cursor = console.textCursor();
    return cursor.position() - cursor.block().position();
}

QString currentLine(const ConsoleWidget &console)
{
    return console.textCursor().block().text();
}

// Enters a command and answers it, as the console's owner would.
void run(ConsoleWidget &console, const QString &command)
{
    QTest::keyClicks(&console, command);
    QTest::keyClick(&console, Qt::Key_Return);
    console.result(QStringLiteral("ok"));
}
}

class tst_ConsoleWidget : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void promptCannotBeEntered();
    void commandLocksUntilResult();
    void history_data();
    void history();
    void historyAfterANewCommand();
    void contextMenu();
};

void tst_ConsoleWidget::promptCannotBeEntered()
{
    ConsoleWidget console;
    QCOMPARE(console.toPlainText(), QStringLiteral("> "));
    QCOMPARE(column(console), 2);

    QTest::keyClick(&console, Qt::Key_Backspace);
    QTest::keyClick(&console, Qt::Key_Left);
    QCOMPARE(console.toPlainText(), QStringLiteral("> "));
    QCOMPARE(column(console), 2);

    QTest::keyClicks(&console, QStringLiteral("ab"));
    QTest::keyClick(&console, Qt::Key_Backspace);
    QCOMPARE(currentLine(console), QStringLiteral("> a"));
    QTest::keyClick(&console, Qt::Key_Left);
    QTest::keyClick(&console, Qt::Key_Left);
    QCOMPARE(column(console), 2);
    QTest::keyClick(&console, Qt::Key_End);
    QTest::keyClick(&console, Qt::Key_Home);
    QCOMPARE(column(console), 2);
    QCOMPARE(console.getCommand(), QStringLiteral("a"));

    QTest::keyClick(&console, Qt::Key_Home, Qt::ControlModifier);
    QCOMPARE(console.textCursor().position(), 0);
    QTest::keyClick(&console, Qt::Key_End, Qt::ControlModifier);
    QVERIFY(console.textCursor().atEnd());

    // A new prompt rewrites the line and drops what was typed on it.
    console.setPrompt(QStringLiteral("cmd$ "));
    QCOMPARE(console.prompt(), QStringLiteral("cmd$ "));
    QCOMPARE(console.toPlainText(), QStringLiteral("cmd$ "));
    QTest::keyClicks(&console, QStringLiteral("x"));
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(&console, Qt::Key_Backspace);
    QCOMPARE(console.toPlainText(), QStringLiteral("cmd$ "));
}

void tst_ConsoleWidget::commandLocksUntilResult()
{
    ConsoleWidget console;
    QSignalSpy commands(&console, &ConsoleWidget::command);

    // An empty line gives a new prompt and nothing to run.
    QTest::keyClick(&console, Qt::Key_Return);
    QCOMPARE(console.toPlainText(), QStringLiteral("> \n> "));
    QCOMPARE(commands.count(), 0);

    // The cursor may be anywhere on the line when Return is pressed.
    QTest::keyClicks(&console, QStringLiteral("ver"));
    QTest::keyClick(&console, Qt::Key_Home);
    QTest::keyClick(&console, Qt::Key_Return);
    QCOMPARE(commands.count(), 1);
    QCOMPARE(commands.takeFirst().at(0).toString(), QStringLiteral("ver"));

    QTest::keyClicks(&console, QStringLiteral("lost"));
    QTest::keyClick(&console, Qt::Key_Backspace);
    QTest::keyClick(&console, Qt::Key_Return);
    QTest::keyClick(&console, Qt::Key_Up);
    console.append(QStringLiteral("boot message"));
    QCOMPARE(commands.count(), 0);
    QCOMPARE(console.toPlainText(), QStringLiteral("> \n> ver\nboot message\n"));

    console.result(QStringLiteral("1.0"));
    QCOMPARE(console.toPlainText(), QStringLiteral("> \n> ver\nboot message\n1.0\n> "));
    QTest::keyClicks(&console, QStringLiteral("id"));
    QCOMPARE(currentLine(console), QStringLiteral("> id"));

    // The keypad's Enter is an ordinary key: it breaks the line and runs nothing.
    QTest::keyClick(&console, Qt::Key_Enter, Qt::KeypadModifier);
    QCOMPARE(commands.count(), 0);
    QVERIFY(console.toPlainText().endsWith(QStringLiteral("> id\n")));
}

void tst_ConsoleWidget::history_data()
{
    // After the commands a, b, c: U is Up, D is Down.
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("line");
    QTest::newRow("up shows the newest") << "U" << "c";
    QTest::newRow("up twice") << "UU" << "b";
    QTest::newRow("up up down") << "UUD" << "c";
    QTest::newRow("up up down down clears") << "UUDD" << "";
    QTest::newRow("up stops at the oldest") << "UUUU" << "a";
    QTest::newRow("down without up clears") << "D" << "";
    QTest::newRow("up down clears") << "UD" << "";
    QTest::newRow("up after down shows the entry again") << "UUDU" << "c";
    QTest::newRow("down walks back up to the newest") << "UUUDD" << "c";
}

void tst_ConsoleWidget::history()
{
    QFETCH(QString, keys);
    QFETCH(QString, line);
    ConsoleWidget console;
    for (const QString &command : {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")})
        run(console, command);
    QTest::keyClicks(&console, QStringLiteral("typed"));
    for (const QChar key : keys)
        QTest::keyClick(&console, key == QLatin1Char('U') ? Qt::Key_Up : Qt::Key_Down);
    QCOMPARE(currentLine(console), QStringLiteral("> ") + line);
    QCOMPARE(console.getCommand(), line);
}

void tst_ConsoleWidget::historyAfterANewCommand()
{
    ConsoleWidget console;
    for (const QString &command : {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")})
        run(console, command);
    // Run b again from the history: what Up stepped over is put back in order, b goes on top.
    QTest::keyClick(&console, Qt::Key_Up);
    QTest::keyClick(&console, Qt::Key_Up);
    QSignalSpy commands(&console, &ConsoleWidget::command);
    QTest::keyClick(&console, Qt::Key_Return);
    QCOMPARE(commands.takeFirst().at(0).toString(), QStringLiteral("b"));
    console.result(QString());

    QStringList seen;
    for (int i = 0; i < 4; ++i) {
        QTest::keyClick(&console, Qt::Key_Up);
        seen << console.getCommand();
    }
    QCOMPARE(seen, (QStringList{QStringLiteral("b"), QStringLiteral("c"), QStringLiteral("b"), QStringLiteral("a")}));
}

void tst_ConsoleWidget::contextMenu()
{
    ConsoleWidget console;
    console.resize(300, 200);
    console.show();
    QVERIFY(QTest::qWaitForWindowExposed(&console));
    run(console, QStringLiteral("status"));
    const QString text = console.toPlainText();
    const auto openMenu = [&console] {
        const QPoint pos(20, 20);
        QContextMenuEvent event(QContextMenuEvent::Mouse, pos, console.viewport()->mapToGlobal(pos));
        QApplication::sendEvent(console.viewport(), &event);
    };

    QApplication::clipboard()->clear();
    {
        PopupMenuChooser chooser(QStringLiteral("Copy All"));
        openMenu();
        QVERIFY(chooser.chosen());
        QCOMPARE(chooser.entries(), (QStringList{QStringLiteral("Copy All"), QStringLiteral("-"), QStringLiteral("Clear")}));
    }
    QCOMPARE(QApplication::clipboard()->text(), text);
    QVERIFY(!console.textCursor().hasSelection());
    QVERIFY(console.textCursor().atEnd());

    {
        PopupMenuChooser chooser(QStringLiteral("Clear"));
        openMenu();
        QVERIFY(chooser.chosen());
    }
    // Cleared means cleared: the prompt comes back only with the next Return or result.
    QCOMPARE(console.toPlainText(), QString());
    QTest::keyClick(&console, Qt::Key_Return);
    QCOMPARE(console.toPlainText(), QStringLiteral("\n> "));
}

QTEST_MAIN(tst_ConsoleWidget)
#include "tst_consolewidget.moc"
