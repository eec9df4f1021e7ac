// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "messageboxrecorder.h"
#include "models/audiosystemsmodel.h"
#include "models/bluetoothdevices.h"
#include "models/headsetsmodel.h"
#include "models/legendsconverttablemodel.h"
#include "models/lowimpedanceintercomsmodel.h"
#include "models/musicsystemsmodel.h"
#include "models/nonaircraftradios.h"
#include "models/nvrlibraries.h"
#include "models/serialdatadevices.h"
#include "shippedlibraries.h"
#include "testappdir.h"
#include "testui.h"
#include "widgets/audiosystemstableeditwidget.h"
#include "widgets/bluetoothdevicestableeditwidget.h"
#include "widgets/comboboxdelegate.h"
#include "widgets/headsetstableeditwidget.h"
#include "widgets/legendsconverttableeditwidget.h"
#include "widgets/librarytableview.h"
#include "widgets/lowimpedanceintercomstableeditwidget.h"
#include "widgets/musicsystemstableeditwidget.h"
#include "widgets/nonaircraftradiostableeditwidget.h"
#include "widgets/serialdatadevicestableeditwidget.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <functional>
#include <memory>

namespace {
struct Library
{
    std::function<LibraryTableEditWidget *()> editor;
    /// A new object of the library, read from its files.
    std::function<std::unique_ptr<QAbstractItemModel>()> fresh;
    /// The process-wide object the editor must show.
    std::function<QAbstractItemModel *()> shared;
};

template<typename Model>
std::unique_ptr<QAbstractItemModel> readFresh()
{
    auto model = std::make_unique<Model>();
    model->readData();
    return model;
}

const QMap<QString, Library> &libraries()
{
    static const QMap<QString, Library> map = {
        {QStringLiteral("AudioSystemsTableEditWidget"),
         {[] { return new AudioSystemsTableEditWidget; }, [] { return std::make_unique<AudioSystemsModel>(); },
          [] { return AudioSystemsModel::instance(); }}},
        {QStringLiteral("LowImpedanceIntercomsTableEditWidget"),
         {[] { return new LowImpedanceIntercomsTableEditWidget; },
          [] { return std::make_unique<LowImpedanceIntercomsModel>(); },
          [] { return LowImpedanceIntercomsModel::instance(); }}},
        {QStringLiteral("MusicSystemsTableEditWidget"),
         {[] { return new MusicSystemsTableEditWidget; }, [] { return std::make_unique<MusicSystemsModel>(); },
          [] { return MusicSystemsModel::instance(); }}},
        {QStringLiteral("BluetoothDevicesTableEditWidget"),
         {[] { return new BluetoothDevicesTableEditWidget; }, [] { return std::make_unique<BluetoothDevices>(); },
          [] { return NvrLibraries::bluetoothDevices(); }}},
        {QStringLiteral("NonAircraftRadiosTableEditWidget"),
         {[] { return new NonAircraftRadiosTableEditWidget; }, [] { return std::make_unique<NonAircraftRadios>(); },
          [] { return NvrLibraries::nonAircraftRadios(); }}},
        {QStringLiteral("SerialDataDevicesTableEditWidget"),
         {[] { return new SerialDataDevicesTableEditWidget; }, [] { return std::make_unique<SerialDataDevices>(); },
          [] { return NvrLibraries::serialDataDevices(); }}},
        {QStringLiteral("HeadSetsTableEditWidget"),
         {[] { return new HeadSetsTableEditWidget; }, readFresh<HeadSetsModel>,
          [] { return NvrLibraries::headSets(); }}},
        {QStringLiteral("LegendsConvertTableEditWidget"),
         {[] { return new LegendsConvertTableEditWidget; }, readFresh<LegendsConvertTableModel>,
          [] { return NvrLibraries::legends(); }}},
    };
    return map;
}

/// An editor of the named library, shown.
std::unique_ptr<LibraryTableEditWidget> showEditor(const QString &name)
{
    std::unique_ptr<LibraryTableEditWidget> editor(libraries().value(name).editor());
    editor->resize(1400, 500);
    editor->show();
    if (!QTest::qWaitForWindowExposed(editor.get()))
        return nullptr;
    return editor;
}

QPushButton *button(QWidget *editor, const char *name)
{
    return editor->findChild<QPushButton *>(QLatin1String(name));
}

/// Waits for the cell's editor to close: Enter commits and closes it from the event loop.
bool closed(QAbstractItemView *view, const QModelIndex &index)
{
    return QTest::qWaitFor([&] { return !view->indexWidget(index); });
}

/// Replaces the text of the cell by typing it, then ends the edit with key.
bool typeInto(QAbstractItemView *view, const QModelIndex &index, const QString &text, Qt::Key key = Qt::Key_Return)
{
    auto *edit = qobject_cast<QLineEdit *>(TestUi::openCellEditor(view, index));
    if (!edit)
        return false;
    TestUi::retype(edit, text);
    QTest::keyClick(edit, key);
    return closed(view, index);
}

QString cell(const QAbstractItemModel *model, int row, int column)
{
    return model->index(row, column).data(Qt::EditRole).toString();
}

/// The row of the record whose column holds text, or -1.
int findRow(const QAbstractItemModel *model, int column, const QString &text)
{
    for (int row = 0; row < model->rowCount(); ++row) {
        if (cell(model, row, column) == text)
            return row;
    }

    return -1;
}
}

class tst_EquipmentEditors : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { TestAppDir::prepare(); }
    void cleanupTestCase() { TestAppDir::cleanup(); }
    // Every editor starts from the data the host ships.
    void init() { QVERIFY(ShippedLibraries::install(QStringLiteral(NEVRADAT_SOURCE))); }
    void cleanup() { ShippedLibraries::forget(); }

    void editorsAndViews_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QList<int>>("hidden");
        QTest::addColumn<QList<int>>("listColumns");

        const QList<int> none;
        QTest::newRow("audio systems") << "AudioSystemsTableEditWidget" << QList<int>{1, 13} << QList<int>{12};
        QTest::newRow("intercoms") << "LowImpedanceIntercomsTableEditWidget" << QList<int>{1, 13} << QList<int>{12};
        QTest::newRow("music systems") << "MusicSystemsTableEditWidget" << QList<int>{1, 13} << QList<int>{12};
        QTest::newRow("bluetooth devices") << "BluetoothDevicesTableEditWidget" << QList<int>{1} << none;
        QTest::newRow("non-aircraft radios") << "NonAircraftRadiosTableEditWidget" << QList<int>{1, 11}
                                             << QList<int>{4, 9, 10};
        QTest::newRow("serial data devices") << "SerialDataDevicesTableEditWidget" << QList<int>{1} << none;
        QTest::newRow("headsets") << "HeadSetsTableEditWidget" << QList<int>{0, 8} << none;
        QTest::newRow("legends") << "LegendsConvertTableEditWidget" << none << none;
    }

    void editorsAndViews()
    {
        QFETCH(QString, name);
        QFETCH(QList<int>, hidden);
        QFETCH(QList<int>, listColumns);

        const auto hiddenColumns = [](QTableView *view) {
            QList<int> columns;
            for (int column = 0; column < view->model()->columnCount(); ++column) {
                if (view->isColumnHidden(column))
                    columns << column;
            }
            return columns;
        };
        {
            const auto editor = showEditor(name);
            QVERIFY(editor);
            LibraryTableView *view = editor->libraryView();
            QCOMPARE(editor->libraryModel(), libraries().value(name).shared());
            QCOMPARE(hiddenColumns(view), hidden);
            // The shipped data gives a new user a working table: every column titled, factory records only.
            QAbstractItemModel *model = view->model();
            QVERIFY(model->rowCount() > 0);
            for (int column = 0; column < model->columnCount(); ++column)
                QVERIFY(!model->headerData(column, Qt::Horizontal).toString().isEmpty());
            for (int row = 0; row < model->rowCount() && !name.startsWith(QLatin1String("Legends")); ++row)
                QVERIFY(model->index(row, 0).data(Qt::EditRole).toInt() < 200);

            auto *delegate = qobject_cast<ComboBoxDelegate *>(view->itemDelegate());
            QCOMPARE(delegate != nullptr, !listColumns.isEmpty());
            for (int column = 0; delegate && column < view->model()->columnCount(); ++column)
                QCOMPARE(!delegate->comboItems(column).isEmpty(), listColumns.contains(column));

            // Neither a saved layout that shows every column nor a reset brings the computed ones back.
            for (int column : hidden)
                view->showColumn(column);
            editor->saveSettings();
            view->model()->revert();
            QCOMPARE(hiddenColumns(view), hidden);
        }
        const auto editor = showEditor(name);
        editor->libraryView()->setColumnHidden(2, true);
        editor->readSettings();
        QCOMPARE(hiddenColumns(editor->libraryView()), hidden);
    }

    void editInPlace_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("column"); // a text column of a new record
        QTest::addColumn<int>("other");  // another one

        for (const QString &name : libraries().keys()) {
            if (name.startsWith(QLatin1String("HeadSets")))
                QTest::newRow(qPrintable(name)) << name << 2 << 5;
            else if (name.startsWith(QLatin1String("Legends")))
                QTest::newRow(qPrintable(name)) << name << 1 << 0;
            else
                QTest::newRow(qPrintable(name)) << name << 3 << 2;
        }
    }

    void editInPlace()
    {
        QFETCH(QString, name);
        QFETCH(int, column);
        QFETCH(int, other);

        MessageBoxRecorder boxes;
        const auto editor = showEditor(name);
        QVERIFY(editor);
        LibraryTableView *view = editor->libraryView();
        QAbstractItemModel *model = view->model();
        QPushButton *remove = button(editor.get(), "deleteButton");
        const int rows = model->rowCount();

        QTest::mouseClick(button(editor.get(), "newButton"), Qt::LeftButton);
        QCOMPARE(model->rowCount(), rows + 1);
        QCOMPARE(view->currentIndex().row(), rows);

        // Enter stores the cell without saving the library; Escape drops only the edit under way.
        QVERIFY(typeInto(view, model->index(rows, column), QStringLiteral("Typed")));
        QCOMPARE(cell(model, rows, column), QStringLiteral("Typed"));
        const QString otherBefore = cell(model, rows, other);
        QVERIFY(typeInto(view, model->index(rows, other), QStringLiteral("Dropped"), Qt::Key_Escape));
        QCOMPARE(cell(model, rows, other), otherBefore);
        QCOMPARE(cell(model, rows, column), QStringLiteral("Typed"));
        QCOMPARE(model->rowCount(), rows + 1);
        QCOMPARE(findRow(libraries().value(name).fresh().get(), column, QStringLiteral("Typed")), -1);

        // The buttons' states are the generic editor's, tested with it; here what they do to the library counts.
        QTest::mouseClick(button(editor.get(), "submitButton"), Qt::LeftButton);
        const auto saved = libraries().value(name).fresh();
        QCOMPARE(saved->rowCount(), rows + 1);
        const int savedRow = findRow(saved.get(), column, QStringLiteral("Typed"));
        QVERIFY(savedRow >= 0);
        for (int c = 0; c < model->columnCount(); ++c)
            QCOMPARE(cell(saved.get(), savedRow, c), cell(model, rows, c));

        // Delete is offered for the user's record, then cancel brings the saved table back.
        TestUi::clickCell(view, model->index(rows, column));
        QVERIFY(remove->isEnabled());
        QTest::mouseClick(remove, Qt::LeftButton);
        QCOMPARE(model->rowCount(), rows);
        QTest::mouseClick(button(editor.get(), "revertButton"), Qt::LeftButton);
        QCOMPARE(model->rowCount(), rows + 1);
        QCOMPARE(findRow(model, column, QStringLiteral("Typed")), savedRow);
        QCOMPARE(boxes.count(), 0);

        // Factory records are neither edited in place nor offered for deletion (the legends have none).
        if (model->rowCount() > 1 && !(model->flags(model->index(0, column)) & Qt::ItemIsEditable)) {
            QVERIFY(!TestUi::openCellEditor(view, model->index(0, column)));
            TestUi::clickCell(view, model->index(0, column));
            QVERIFY(!remove->isEnabled());
        }
    }

    void listColumns()
    {
        const auto music = showEditor(QStringLiteral("MusicSystemsTableEditWidget"));
        QTest::mouseClick(button(music.get(), "newButton"), Qt::LeftButton);
        QAbstractItemModel *musicModel = music->libraryView()->model();
        const QModelIndex flag = musicModel->index(musicModel->rowCount() - 1, 12);
        auto *combo = qobject_cast<QComboBox *>(TestUi::openCellEditor(music->libraryView(), flag));
        QVERIFY(combo);
        QTest::keyClick(combo, Qt::Key_Down);
        QTest::keyClick(combo, Qt::Key_Return);
        QVERIFY(closed(music->libraryView(), flag));
        QCOMPARE(flag.data(Qt::EditRole).toString(), QStringLiteral("1"));
        QCOMPARE(flag.data().toString(), QStringLiteral("Yes"));

        const auto radios = showEditor(QStringLiteral("NonAircraftRadiosTableEditWidget"));
        LibraryTableView *view = radios->libraryView();
        QAbstractItemModel *model = view->model();
        QTest::mouseClick(button(radios.get(), "newButton"), Qt::LeftButton);
        const QModelIndex type = model->index(model->rowCount() - 1, 4);
        QVERIFY(model->flags(type.siblingAtColumn(7)) & Qt::ItemIsEditable); // a new record is a receiver

        // "Not Installed" chosen from the drop-down list with the mouse.
        combo = qobject_cast<QComboBox *>(TestUi::openCellEditor(view, type));
        QVERIFY(combo);
        QCOMPARE(combo->currentText(), QStringLiteral("Receiver"));
        combo->showPopup();
        QAbstractItemView *list = combo->view();
        QTRY_VERIFY(list->isVisible());
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(list->model()->index(3, 0)).center());
        QTRY_VERIFY(!list->isVisible());
        QTest::keyClick(combo, Qt::Key_Return);
        QVERIFY(closed(view, type));
        QCOMPARE(type.data(Qt::EditRole).toString(), QStringLiteral("3"));
        // The MIC input applies to receivers only: no editor opens for it now.
        for (int column : {7, 8}) {
            QVERIFY(!(model->flags(type.siblingAtColumn(column)) & Qt::ItemIsEditable));
            QVERIFY(!TestUi::openCellEditor(view, type.siblingAtColumn(column)));
        }

        // A value off the list selects nothing, and closing the editor does not rewrite it (a yes/no
        // flag of 2 reads "No" and must not become 1).
        QVERIFY(model->setData(type, 7));
        const QModelIndex radioFlag = type.siblingAtColumn(9);
        QVERIFY(model->setData(radioFlag, 2));
        for (const QModelIndex &cell : {type, radioFlag}) {
            combo = qobject_cast<QComboBox *>(TestUi::openCellEditor(view, cell));
            QVERIFY(combo);
            QCOMPARE(combo->currentIndex(), -1);
            QTest::keyClick(combo, Qt::Key_Return);
            QVERIFY(closed(view, cell));
        }
        QCOMPARE(type.data(Qt::EditRole).toInt(), 7);
        QCOMPARE(radioFlag.data(Qt::EditRole).toInt(), 2);
        QCOMPARE(radioFlag.data().toString(), QStringLiteral("No"));
    }
};

QTEST_MAIN(tst_EquipmentEditors)
#include "tst_equipmenteditors.moc"
