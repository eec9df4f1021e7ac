// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "classes/rtsfile.h"
#include "classes/tabseparatedtext.h"
#include "dialogs/rtformdialog.h"
#include "formdriver.h"
#include "kvsortfilterproxymodel.h"
#include "messageboxrecorder.h"
#include "models/audiosystemsmodel.h"
#include "models/headsetsmodel.h"
#include "models/legendsconverttablemodel.h"
#include "models/lowimpedanceintercomsmodel.h"
#include "models/musicsystemsmodel.h"
#include "models/nvrcsvmodel.h"
#include "models/nvrlibraries.h"
#include "models/rtstablemodel.h"
#include "shippedlibraries.h"
#include "testappdir.h"
#include "testui.h"
#include "widgets/audiosystemstableeditwidget.h"
#include "widgets/bluetoothdevicestableeditwidget.h"
#include "widgets/headsetstableeditwidget.h"
#include "widgets/legendsconverttableeditwidget.h"
#include "widgets/librarytableview.h"
#include "widgets/lowimpedanceintercomstableeditwidget.h"
#include "widgets/musicsystemstableeditwidget.h"
#include "widgets/nonaircraftradiostableeditwidget.h"
#include "widgets/rtstableeditwidget.h"
#include "widgets/rtstableview.h"
#include "widgets/serialdatadevicestableeditwidget.h"

#include <QAbstractItemModelTester>
#include <QAction>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTest>
#include <QUndoStack>

#include <functional>
#include <memory>

namespace {
/// A new editor of the library page with the given object name.
LibraryTableEditWidget *makeEditor(const QString &name)
{
    static const QMap<QString, std::function<LibraryTableEditWidget *()>> factories = {
        {QStringLiteral("AudioSystems"), [] { return new AudioSystemsTableEditWidget; }},
        {QStringLiteral("Intercoms"), [] { return new LowImpedanceIntercomsTableEditWidget; }},
        {QStringLiteral("MusicSystems"), [] { return new MusicSystemsTableEditWidget; }},
        {QStringLiteral("Bluetooth"), [] { return new BluetoothDevicesTableEditWidget; }},
        {QStringLiteral("NonAircraftRadios"), [] { return new NonAircraftRadiosTableEditWidget; }},
        {QStringLiteral("SerialData"), [] { return new SerialDataDevicesTableEditWidget; }},
        {QStringLiteral("HeadSets"), [] { return new HeadSetsTableEditWidget; }},
        {QStringLiteral("Legends"), [] { return new LegendsConvertTableEditWidget; }},
    };
    return factories.value(name)();
}

/// Double-clicks the cell; the line edit that opens on it, or null.
QLineEdit *openCellEditor(QAbstractItemView *view, const QModelIndex &index)
{
    return qobject_cast<QLineEdit *>(TestUi::openCellEditor(view, index));
}

/// Types text into the cell's editor and ends the edit with Enter.
bool typeInto(QAbstractItemView *view, const QModelIndex &index, const QString &text)
{
    QLineEdit *edit = openCellEditor(view, index);
    if (!edit)
        return false;
    TestUi::retype(edit, text);
    QTest::keyClick(edit, Qt::Key_Return);
    return QTest::qWaitFor([&] { return !view->indexWidget(index); });
}

QAction *action(QWidget *editor, const char *name)
{
    return editor->findChild<QAction *>(QLatin1String(name));
}

/// The rows the view shows whose column holds text, as view indexes.
QModelIndexList shown(QAbstractItemView *view, int column, const QString &text)
{
    QAbstractItemModel *model = view->model();
    return model->match(model->index(0, column), Qt::EditRole, text, -1, Qt::MatchExactly);
}

/// Gives the keyboard back to the view once a modal box or form has closed.
bool refocus(QWidget *window, QWidget *view)
{
    window->activateWindow();
    if (!QTest::qWaitForWindowActive(window))
        return false;
    view->setFocus();
    return true;
}

void selectRows(QAbstractItemView *view, const QModelIndexList &rows)
{
    TestUi::clickCell(view, rows.first());
    for (int i = 1; i < rows.size(); ++i)
        TestUi::clickCell(view, rows.at(i), Qt::ControlModifier);
}
}

class tst_LibraryEditing : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { TestAppDir::prepare(); }
    void cleanupTestCase() { TestAppDir::cleanup(); }
    void init() { QVERIFY(ShippedLibraries::install(QStringLiteral(NEVRADAT_SOURCE))); }
    void cleanup() { ShippedLibraries::forget(); }

    void everyLibraryPage_data()
    {
        QTest::addColumn<QString>("page");
        QTest::addColumn<int>("nameColumn"); // a text column unique per record together with the others
        QTest::addColumn<int>("keyColumn");  // another, made to differ between pasted records
        QTest::addColumn<bool>("duplicateRefused");

        QTest::newRow("audio systems") << QStringLiteral("AudioSystems") << 3 << 2
                                       << true;
        QTest::newRow("intercoms") << QStringLiteral("Intercoms") << 3
                                   << 2 << true;
        QTest::newRow("music systems") << QStringLiteral("MusicSystems") << 3 << 2
                                       << true;
        QTest::newRow("bluetooth") << QStringLiteral("Bluetooth") << 3 << 2
                                   << true;
        QTest::newRow("non-aircraft radios") << QStringLiteral("NonAircraftRadios")
                                             << 3 << 2 << true;
        QTest::newRow("serial data") << QStringLiteral("SerialData") << 3 << 2
                                     << true;
        QTest::newRow("headsets") << QStringLiteral("HeadSets") << 2 << 1 << true;
        // New legends start blank and may repeat until one is typed in.
        QTest::newRow("legends") << QStringLiteral("Legends") << 1 << 0
                                 << false;
    }

    void everyLibraryPage()
    {
        QFETCH(QString, page);
        QFETCH(int, nameColumn);
        QFETCH(int, keyColumn);
        QFETCH(bool, duplicateRefused);

        MessageBoxRecorder boxes(QMessageBox::Yes);
        std::unique_ptr<LibraryTableEditWidget> editor(makeEditor(page));
        editor->resize(1400, 600);
        editor->show();
        QVERIFY(QTest::qWaitForWindowActive(editor.get()));
        LibraryTableView *view = editor->libraryView();
        QAbstractItemModel *library = editor->libraryModel();
        QAbstractItemModel *shownModel = view->model();
        QAction *undo = action(editor.get(), "undoAction");
        const int rows = library->rowCount();
        QVERIFY(rows > 1);

        // New, then a typed cell: two steps, undone and redone from the keyboard.
        QTest::mouseClick(editor->findChild<QPushButton *>(QStringLiteral("newButton")), Qt::LeftButton);
        QCOMPARE(library->rowCount(), rows + 1);
        const QModelIndex typed = view->currentIndex().siblingAtColumn(nameColumn);
        const QVariant id = typed.siblingAtColumn(0).data(Qt::EditRole);
        const QString before = typed.data(Qt::EditRole).toString();
        QVERIFY(typeInto(view, typed, QStringLiteral("Typed")));
        QCOMPARE(undo->text(), QStringLiteral("Undo Edit %1").arg(library->headerData(nameColumn, Qt::Horizontal).toString()));
        QTest::keyClick(view, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(shown(view, nameColumn, QStringLiteral("Typed")).size(), 0);
        QCOMPARE(shownModel->index(rows, nameColumn).data(Qt::EditRole).toString(), before);
        QTest::keyClick(view, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(library->rowCount(), rows);
        QVERIFY(!undo->isEnabled());
        QTest::keyClick(view, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QTest::keyClick(view, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(library->rowCount(), rows + 1);
        const QModelIndexList again = shown(view, nameColumn, QStringLiteral("Typed"));
        QCOMPARE(again.size(), 1);
        QCOMPARE(again.first().siblingAtColumn(0).data(Qt::EditRole), id);

        // The filter matches any column whatever the case, "!" turns it round; the count follows.
        auto *filter = editor->filterEdit();
        QTest::keyClick(view, Qt::Key_F, Qt::ControlModifier);
        QVERIFY(filter->hasFocus());
        QTest::keyClicks(filter, QStringLiteral("tYPED"));
        QCOMPARE(shownModel->rowCount(), 1);
        QCOMPARE(editor->countLabel()->text(), QStringLiteral("1 of %1 records").arg(rows + 1));
        QTest::keyClick(filter, Qt::Key_Home);
        QTest::keyClicks(filter, QStringLiteral("!"));
        QCOMPARE(shownModel->rowCount(), rows);
        QCOMPARE(editor->countLabel()->text(), QStringLiteral("%1 of %2 records").arg(rows).arg(rows + 1));
        filter->clear();
        QCOMPARE(shownModel->rowCount(), rows + 1);

        // Copied rows carry a header; pasting the same record back is refused for the library's reason.
        selectRows(view, shown(view, nameColumn, QStringLiteral("Typed")));
        QTest::keyClick(view, Qt::Key_C, Qt::ControlModifier);
        QList<QStringList> copied = TabSeparatedText::read(QGuiApplication::clipboard()->text());
        QCOMPARE(copied.size(), 2);
        const int keyCell = copied.first().indexOf(library->headerData(keyColumn, Qt::Horizontal).toString());
        const int nameCell = copied.first().indexOf(library->headerData(nameColumn, Qt::Horizontal).toString());
        QVERIFY(keyCell >= 0 && nameCell >= 0);
        QStringList second = copied.at(1);
        second[keyCell] = QStringLiteral("P1");
        second[nameCell] = QStringLiteral("Pasted");
        copied.append(second);
        QGuiApplication::clipboard()->setText(TabSeparatedText::write(copied));
        const int boxesBefore = boxes.count();
        QTest::keyClick(view, Qt::Key_V, Qt::ControlModifier);
        if (duplicateRefused) {
            QCOMPARE(library->rowCount(), rows + 2);
            QCOMPARE(boxes.count(), boxesBefore + 1);
            QVERIFY2(boxes.last().text.startsWith(QLatin1String("1 of 2 records")), qPrintable(boxes.last().text));
            QVERIFY2(boxes.last().informativeText.startsWith(QLatin1String("Row 1: ")),
                     qPrintable(boxes.last().informativeText));
            QVERIFY(boxes.last().informativeText.contains(QLatin1String("already exists")));
            QCOMPARE(editor->countLabel()->text(), QStringLiteral("%1 of %1 records").arg(rows + 2));
            QCOMPARE(undo->text(), QStringLiteral("Undo Paste record")); // the step names what was kept
        } else {
            QCOMPARE(library->rowCount(), rows + 3);
            QCOMPARE(boxes.count(), boxesBefore);
            QTest::keyClick(view, Qt::Key_Z, Qt::ControlModifier);
            QCOMPARE(library->rowCount(), rows + 1);
            copied.removeAt(1);
            QGuiApplication::clipboard()->setText(TabSeparatedText::write(copied));
            QTest::keyClick(view, Qt::Key_V, Qt::ControlModifier);
            QCOMPARE(library->rowCount(), rows + 2);
        }

        QVERIFY(refocus(editor.get(), view));

        // Two records pasted at once are one step.
        copied = {copied.constFirst(), second, second};
        copied[1][keyCell] = QStringLiteral("P2");
        copied[2][keyCell] = QStringLiteral("P3");
        QGuiApplication::clipboard()->setText(TabSeparatedText::write(copied));
        QTest::keyClick(view, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(library->rowCount(), rows + 4);
        QCOMPARE(undo->text(), QStringLiteral("Undo Paste 2 records"));
        undo->trigger();
        QCOMPARE(library->rowCount(), rows + 2);
        action(editor.get(), "redoAction")->trigger();
        QCOMPARE(library->rowCount(), rows + 4);

        // Several records deleted with one question, and brought back in one step.
        const QModelIndexList pasted = shown(view, nameColumn, QStringLiteral("Pasted"));
        QCOMPARE(pasted.size(), 3);
        selectRows(view, pasted);
        const int questions = boxes.count();
        QTest::keyClick(view, Qt::Key_Delete);
        QCOMPARE(boxes.count(), questions + 1);
        QVERIFY(boxes.last().text.contains(editor->libraryName()));
        QCOMPARE(library->rowCount(), rows + 1);
        QVERIFY(refocus(editor.get(), view));
        QTest::keyClick(view, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(library->rowCount(), rows + 4);
        QCOMPARE(shown(view, nameColumn, QStringLiteral("Pasted")).size(), 3);

        // The question before closing names the library in words.
        boxes.queueAnswers({QMessageBox::Discard});
        if (auto *csv = qobject_cast<NvrCsvModel *>(library))
            csv->askToSave(false);
        else if (auto *headsets = qobject_cast<HeadSetsModel *>(library))
            headsets->askToSave(false);
        else
            qobject_cast<LegendsConvertTableModel *>(library)->askToSave(false);
        QCOMPARE(boxes.last().informativeText,
                 editor->libraryName() + QStringLiteral(": Do you want to save your changes?"));
        QVERIFY(refocus(editor.get(), view));

        // Saving ends the history.
        QTest::keyClick(view, Qt::Key_S, Qt::ControlModifier);
        QVERIFY(!undo->isEnabled());
        QCOMPARE(editor->undoStack()->count(), 0);
    }

    void numbersRefusedAsTyped_data()
    {
        QTest::addColumn<QString>("page");
        QTest::addColumn<int>("column");
        QTest::addColumn<QString>("refused");
        QTest::addColumn<QString>("range");
        QTest::addColumn<QString>("accepted");

        const QString audio = QStringLiteral("AudioSystems");
        QTest::newRow("letters") << audio << 4 << "abc" << "a number from 0.001 to 100" << "0.5";
        QTest::newRow("negative") << audio << 6 << "-3" << "a number from 0.001 to 100" << "2";
        QTest::newRow("millivolts") << QStringLiteral("Intercoms") << 6
                                    << "0.5" << "a number from 1 to 100000" << "30";
        QTest::newRow("fraction of ohms") << QStringLiteral("NonAircraftRadios") << 8
                                          << "1.5" << "a whole number from 1 to 100000" << "600";
        QTest::newRow("headset level") << QStringLiteral("HeadSets") << 3 << "10.01"
                                       << "a number from 1 to 10" << "10";
    }

    void numbersRefusedAsTyped()
    {
        QFETCH(QString, page);
        QFETCH(int, column);
        QFETCH(QString, refused);
        QFETCH(QString, range);
        QFETCH(QString, accepted);

        MessageBoxRecorder boxes;
        std::unique_ptr<LibraryTableEditWidget> editor(makeEditor(page));
        editor->resize(1400, 600);
        editor->show();
        QVERIFY(QTest::qWaitForWindowActive(editor.get()));
        LibraryTableView *view = editor->libraryView();
        QTest::mouseClick(editor->findChild<QPushButton *>(QStringLiteral("newButton")), Qt::LeftButton);
        const QPersistentModelIndex cell = view->currentIndex().siblingAtColumn(column);
        const QString before = cell.data(Qt::EditRole).toString();

        // Enter keeps the editor open and says what the column takes.
        QLineEdit *edit = openCellEditor(view, cell);
        QVERIFY(edit);
        TestUi::retype(edit, refused);
        QTest::keyClick(edit, Qt::Key_Return);
        QCOMPARE(view->indexWidget(cell), edit);
        const QString field = view->model()->headerData(column, Qt::Horizontal).toString();
        QCOMPARE(edit->toolTip(), QStringLiteral("%1: \"%2\" is not %3").arg(field, refused, range));
        QCOMPARE(cell.data(Qt::EditRole).toString(), before);
        TestUi::retype(edit, accepted);
        QTest::keyClick(edit, Qt::Key_Return);
        QTRY_VERIFY(!view->indexWidget(cell));
        QCOMPARE(cell.data(Qt::EditRole).toString(), accepted);
        QCOMPARE(boxes.count(), 0);

        // Pasted, the same text is refused with the same note (the new record is taken back first).
        view->setFocus();
        QTest::keyClick(view, Qt::Key_C, Qt::ControlModifier);
        QList<QStringList> copied = TabSeparatedText::read(QGuiApplication::clipboard()->text());
        copied[1][copied.at(0).indexOf(field)] = refused;
        QGuiApplication::clipboard()->setText(TabSeparatedText::write(copied));
        QTest::keyClick(view, Qt::Key_Z, Qt::ControlModifier);
        QTest::keyClick(view, Qt::Key_Z, Qt::ControlModifier);
        const int rows = view->model()->rowCount();
        QTest::keyClick(view, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(view->model()->rowCount(), rows);
        QVERIFY(boxes.last().text.startsWith(QLatin1String("0 of 1 records")));
        // The headsets refuse such a level themselves, in their own words.
        if (page != QLatin1String("HeadSets"))
            QCOMPARE(boxes.last().informativeText,
                     QStringLiteral("Row 1: %1: \"%2\" is not %3").arg(field, refused, range));
    }

    void radios()
    {
        MessageBoxRecorder boxes(QMessageBox::Yes);
        RtsFile::instance()->appendNew(200, QStringLiteral("Acme"), QStringLiteral("A1"), Rt::Transceiver,
                                       QStringLiteral("5.00"), QString(), QStringLiteral("0.100"), QString(), 0);
        RtsFile::instance()->appendNew(201, QStringLiteral("acme"), QStringLiteral("B2"), Rt::Transceiver,
                                       QStringLiteral("5.00"), QString(), QStringLiteral("0.100"), QString(), 0);
        RtsTableModel::instance()->setNextUserRtId(202);
        RtsTableEditWidget editor;
        editor.resize(1200, 600);
        editor.show();
        QVERIFY(QTest::qWaitForWindowActive(&editor));
        RtsTableView *view = editor.rtsTableView();
        RtsTableModel *model = RtsTableModel::instance();
        const int rows = model->rowCount();
        const auto find = [view](const QString &radioModel) {
            const QModelIndexList found = shown(view, RtsTableModel::ModelColumn, radioModel);
            return found.isEmpty() ? QModelIndex() : found.first();
        };

        // Copy opens the form on a copy with an id of its own; the copy is saved at once.
        TestUi::clickCell(view, find(QStringLiteral("A1")));
        {
            FormDriver<RtFormDialog> driver([](RtFormDialog *form) {
                TestUi::retype(form->findChild<QLineEdit *>(QStringLiteral("modelEdit")), QStringLiteral("C3"));
                QTest::mouseClick(form->okButton(), Qt::LeftButton);
            });
            QTest::mouseClick(editor.findChild<QPushButton *>(QStringLiteral("copyButton")), Qt::LeftButton);
            QVERIFY(driver.ran());
        }
        QCOMPARE(model->rowCount(), rows + 1);
        QCOMPARE(find(QStringLiteral("C3")).siblingAtColumn(RtsTableModel::IdColumn).data(Qt::EditRole).toInt(), 202);
        QVERIFY(!RtsFile::instance()->isModified());
        QVERIFY(refocus(&editor, view));

        // A factory radio is not the user's to delete.
        const QModelIndexList factory =
            view->model()->match(view->model()->index(0, 0), Qt::EditRole, 10, 1, Qt::MatchExactly);
        QCOMPARE(factory.size(), 1);
        TestUi::clickCell(view, factory.first().siblingAtColumn(RtsTableModel::ModelColumn));
        QTest::keyClick(view, Qt::Key_Delete);
        QCOMPARE(model->rowCount(), rows + 1);

        selectRows(view, {find(QStringLiteral("A1")), find(QStringLiteral("B2"))});
        QTest::keyClick(view, Qt::Key_Delete);
        QCOMPARE(model->rowCount(), rows - 1);
        QVERIFY(!RtsFile::instance()->isModified());
        QVERIFY(!find(QStringLiteral("A1")).isValid());
        QVERIFY(refocus(&editor, view));

        // Undo brings both back, saved again; names sort ignoring case.
        QTest::keyClick(view, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(model->rowCount(), rows + 1);
        QVERIFY(!RtsFile::instance()->isModified());
        // A change made in the form is one step as well.
        QVERIFY(refocus(&editor, view));
        TestUi::clickCell(view, find(QStringLiteral("C3")));
        {
            FormDriver<RtFormDialog> driver([](RtFormDialog *form) {
                TestUi::retype(form->findChild<QLineEdit *>(QStringLiteral("modelEdit")), QStringLiteral("D4"));
                QTest::mouseClick(form->okButton(), Qt::LeftButton);
            });
            QTest::mouseClick(editor.findChild<QPushButton *>(QStringLiteral("editButton")), Qt::LeftButton);
            QVERIFY(driver.ran());
        }
        QVERIFY(find(QStringLiteral("D4")).isValid());
        QCOMPARE(action(&editor, "undoAction")->text(), QStringLiteral("Undo Edit Radio"));
        QVERIFY(refocus(&editor, view));
        QTest::keyClick(view, Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(find(QStringLiteral("C3")).isValid());
        QVERIFY(!find(QStringLiteral("D4")).isValid());
        QVERIFY(!RtsFile::instance()->isModified());

        // A spreadsheet gets the type in words, and gives it back so.
        QVERIFY(refocus(&editor, view));
        TestUi::clickCell(view, find(QStringLiteral("C3")));
        QTest::keyClick(view, Qt::Key_C, Qt::ControlModifier);
        QVERIFY(QGuiApplication::clipboard()->text().contains(QLatin1String("\tTransceiver\t")));
        // Radios pasted from a spreadsheet must pass the form, and are saved at once.
        QGuiApplication::clipboard()->setText(QStringLiteral("Manufacturer\tModel\tType\tReceive Level\tTransmit Level\n"
                                                             "Zed\tZ1\treceiver\t5\t0.5\nZed\tZ2\tTransceiver\t20\t0.5\n"));
        QTest::keyClick(view, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(model->rowCount(), rows + 2);
        QCOMPARE(find(QStringLiteral("Z1")).siblingAtColumn(RtsTableModel::TypeColumn).data().toString(),
                 QStringLiteral("Receiver"));
        QCOMPARE(boxes.last().informativeText, QStringLiteral("Row 2: The Level must be between 1.00 and 10.0"));
        QVERIFY(!RtsFile::instance()->isModified());

        view->sortByColumn(RtsTableModel::IdColumn, Qt::DescendingOrder);
        view->sortByColumn(RtsTableModel::ManufacturerColumn, Qt::AscendingOrder);
        QVERIFY(find(QStringLiteral("A1")).row() < find(QStringLiteral("B2")).row());
        QVERIFY(find(QStringLiteral("B2")).row() < find(QStringLiteral("C3")).row());
    }

    void naturalOrderAndFilter()
    {
        QStandardItemModel source;
        for (const char *text : {"KX1967", "kx155", "ARC 0.5", "Acme 0.25", "arc 10"})
            source.appendRow({new QStandardItem(QLatin1String(text)), new QStandardItem(QStringLiteral("x"))});
        KvSortFilterProxyModel proxy;
        QAbstractItemModelTester tester(&proxy, QAbstractItemModelTester::FailureReportingMode::QtTest);
        proxy.setSourceModel(&source);
        proxy.setNaturalSort(true);
        proxy.sort(0);
        const auto column = [&proxy] {
            QStringList texts;
            for (int row = 0; row < proxy.rowCount(); ++row)
                texts << proxy.index(row, 0).data().toString();
            return texts.join(QLatin1Char('|'));
        };
        QCOMPARE(column(), QStringLiteral("Acme 0.25|ARC 0.5|arc 10|kx155|KX1967"));

        proxy.setFilterText(QStringLiteral("ARC"));
        QCOMPARE(column(), QStringLiteral("ARC 0.5|arc 10"));
        proxy.setFilterText(QStringLiteral("!arc"));
        QCOMPARE(column(), QStringLiteral("Acme 0.25|kx155|KX1967"));
        // Rows still come and go and change under a filter.
        source.appendRow({new QStandardItem(QStringLiteral("KX2")), new QStandardItem(QStringLiteral("y"))});
        source.item(0, 0)->setText(QStringLiteral("ARC 1"));
        source.removeRow(1);
        QCOMPARE(column(), QStringLiteral("Acme 0.25|KX2"));
        proxy.setFilterText(QStringLiteral("!"));
        QCOMPARE(proxy.rowCount(), source.rowCount());
        // The search of the form-edited tables turns round the same way, in its own columns.
        proxy.setSearchColumns({1});
        proxy.setSearchString(QStringLiteral("!Y"));
        QCOMPARE(column(), QStringLiteral("Acme 0.25|ARC 0.5|ARC 1|arc 10"));
    }

    void tabSeparatedText()
    {
        const QList<QStringList> rows = {{QStringLiteral("a"), QString(), QStringLiteral("say \"hi\"")},
                                         {QStringLiteral("two\nlines"), QStringLiteral("tab\there"), QStringLiteral("x")}};
        QCOMPARE(TabSeparatedText::read(TabSeparatedText::write(rows)), rows);
        // As a spreadsheet sends it: CR LF line ends, a blank line, no final line end.
        QCOMPARE(TabSeparatedText::read(QStringLiteral("a\tb\r\n\r\nc\t\"d\"\"e\"")),
                 QList<QStringList>({{QStringLiteral("a"), QStringLiteral("b")}, {QStringLiteral("c"), QStringLiteral("d\"e")}}));
    }
};

QTEST_MAIN(tst_LibraryEditing)
#include "tst_libraryediting.moc"
