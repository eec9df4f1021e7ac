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
    return console.textCursor().positionInBlock();
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
    void promptCannotBeEntered()
    {
        ConsoleWidget console;
        QTest::keyClick(&console, Qt::Key_Backspace);
        QTest::keyClick(&console, Qt::Key_Left);
        QCOMPARE(console.toPlainText(), QStringLiteral("> "));
        QCOMPARE(column(console), 2);

        QTest::keyClicks(&console, QStringLiteral("ab"));
        QTest::keyClick(&console, Qt::Key_Backspace);
        QTest::keyClick(&console, Qt::Key_Left);
        QTest::keyClick(&console, Qt::Key_Left);
        QCOMPARE(console.toPlainText(), QStringLiteral("> a"));
        QCOMPARE(column(console), 2);
        QTest::keyClick(&console, Qt::Key_End);
        QTest::keyClick(&console, Qt::Key_Home);
        QCOMPARE(column(console), 2);
        QTest::keyClick(&console, Qt::Key_Home, Qt::ControlModifier);
        QCOMPARE(console.textCursor().position(), 0);
        QTest::keyClick(&console, Qt::Key_End, Qt::ControlModifier);
        QVERIFY(console.textCursor().atEnd());

        // A new prompt rewrites the line and drops what was typed on it.
        console.setPrompt(QStringLiteral("cmd$ "));
        QTest::keyClicks(&console, QStringLiteral("x"));
        for (int i = 0; i < 3; ++i)
            QTest::keyClick(&console, Qt::Key_Backspace);
        QCOMPARE(console.toPlainText(), QStringLiteral("cmd$ "));
    }

    void commandLocksUntilResult()
    {
        ConsoleWidget console;
        QSignalSpy commands(&console, &ConsoleWidget::command);
        QTest::keyClick(&console, Qt::Key_Return);
        QCOMPARE(commands.count(), 0);

        // Return runs the whole line wherever the cursor is; then keys are lost until the result.
        QTest::keyClicks(&console, QStringLiteral("ver"));
        QTest::keyClick(&console, Qt::Key_Home);
        QTest::keyClick(&console, Qt::Key_Return);
        QTest::keyClicks(&console, QStringLiteral("lost"));
        QTest::keyClick(&console, Qt::Key_Return);
        console.append(QStringLiteral("boot message"));
        QCOMPARE(commands.count(), 1);
        QCOMPARE(commands.at(0).at(0).toString(), QStringLiteral("ver"));
        console.result(QStringLiteral("1.0"));
        QTest::keyClicks(&console, QStringLiteral("id"));
        QCOMPARE(console.toPlainText(), QStringLiteral("> \n> ver\nboot message\n1.0\n> id"));

        // The keypad's Enter is an ordinary key: it breaks the line and runs nothing.
        QTest::keyClick(&console, Qt::Key_Enter, Qt::KeypadModifier);
        QCOMPARE(commands.count(), 1);
        QVERIFY(console.toPlainText().endsWith(QStringLiteral("> id\n")));
    }

    void history_data()
    {
        // After the commands a, b, c: U is Up, D is Down, R runs the line shown.
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QString>("line");
        QTest::newRow("up shows the newest") << "U" << "c";
        QTest::newRow("up up down down clears") << "UUDD" << "";
        QTest::newRow("up stops at the oldest") << "UUUU" << "a";
        QTest::newRow("down without up clears") << "D" << "";
        QTest::newRow("down walks back to the newest") << "UUUDD" << "c";
        QTest::newRow("run again puts the rest back in order") << "UURUU" << "c";
    }

    void history()
    {
        QFETCH(QString, keys);
        QFETCH(QString, line);
        ConsoleWidget console;
        for (const QString &command : {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")})
            run(console, command);
        QTest::keyClicks(&console, QStringLiteral("typed"));
        for (const QChar key : keys) {
            if (key == QLatin1Char('R'))
                run(console, QString());
            else
                QTest::keyClick(&console, key == QLatin1Char('U') ? Qt::Key_Up : Qt::Key_Down);
        }
        QCOMPARE(console.textCursor().block().text(), QStringLiteral("> ") + line);
    }

    void contextMenu()
    {
        ConsoleWidget console;
        console.show();
        QVERIFY(QTest::qWaitForWindowExposed(&console));
        run(console, QStringLiteral("status"));
        const auto choose = [&console](const QString &entry) {
            PopupMenuChooser chooser(entry);
            QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(20, 20), console.mapToGlobal(QPoint(20, 20)));
            QApplication::sendEvent(console.viewport(), &event);
            return chooser.entries();
        };

        QApplication::clipboard()->clear();
        QCOMPARE(choose(QStringLiteral("Copy All")),
                 (QStringList{QStringLiteral("Copy All"), QStringLiteral("-"), QStringLiteral("Clear")}));
        QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("> status\nok\n> "));
        QVERIFY(!console.textCursor().hasSelection());
        QVERIFY(console.textCursor().atEnd());

        // Cleared means cleared: the prompt comes back only with the next Return or result.
        choose(QStringLiteral("Clear"));
        QCOMPARE(console.toPlainText(), QString());
        QTest::keyClick(&console, Qt::Key_Return);
        QCOMPARE(console.toPlainText(), QStringLiteral("\n> "));
    }
};

QTEST_MAIN(tst_ConsoleWidget)
#include "tst_consolewidget.moc"
