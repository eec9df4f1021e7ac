// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "classes/rtsfile.h"
#include "dialogs/rtformdialog.h"
#include "formdriver.h"
#include "messageboxrecorder.h"
#include "models/rtssortfilterproxymodel.h"
#include "models/rtstablemodel.h"
#include "testappdir.h"
#include "testfiles.h"
#include "testui.h"
#include "widgets/rtstableeditwidget.h"
#include "widgets/rtstableview.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace {
QString highlighted(const char *text)
{
    return QStringLiteral("<b><span style='background-color: #FFFFCC'>%1</span></b>").arg(QLatin1String(text));
}
const QString rxRange = highlighted("The Level must be between 1.00 and 10.0");
const QString txRange = highlighted("The Level must be between 0.1 and 1.0");
const QString badCharacter = highlighted("Invalid character entered; use 0-9 and . only");

QVariant userFileValue(const QString &key)
{
    return TestFiles::iniValue(TestAppDir::filePath(QStringLiteral("nevradat/radiosuser.dat")), "Rts/" + key);
}

template <typename T>
T *field(QWidget *form, const char *name)
{
    return form->findChild<T *>(QLatin1String(name));
}

QModelIndex viewIndexOf(RtsTableView *view, int id, int column)
{
    const QModelIndexList found =
        view->model()->match(view->model()->index(0, 0), Qt::EditRole, id, 1, Qt::MatchExactly);
    return found.isEmpty() ? QModelIndex() : found.first().siblingAtColumn(column);
}

// A user's transceiver of the maker Acme.
void addUserRadio(int id, const QString &model)
{
    RtsFile::instance()->appendNew(id, QStringLiteral("Acme"), model, Rt::Transceiver, QStringLiteral("5.00"),
                                   QString(), QStringLiteral("0.100"), QString(), 0);
}
}

class tst_RadioEditor : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { TestAppDir::prepare(); }
    void cleanupTestCase() { TestAppDir::cleanup(); }
    void cleanup()
    {
        // A save confirmation closes itself; it must not reach the next test's recorder.
        QTRY_VERIFY_WITH_TIMEOUT(!TestUi::messageBoxShown(), 10000);
        RtsFile::destroyInstance();
        TestAppDir::clearData();
    }

    void validation_data()
    {
        QTest::addColumn<QString>("manufacturer");
        QTest::addColumn<QString>("model");
        QTest::addColumn<QString>("rx");
        QTest::addColumn<QString>("tx");
        QTest::addColumn<bool>("valid");
        QTest::addColumn<QString>("rxMessage");
        QTest::addColumn<QString>("txMessage");
        QTest::addColumn<bool>("duplicate");

        QTest::newRow("itself is no duplicate") << "Acme" << "R1" << "5.00" << "0.100" << true << "" << "" << false;
        QTest::newRow("bounds are inclusive") << "Acme" << "R1" << "10.0" << "0.01" << true << "" << "" << false;
        QTest::newRow("tx below 0.01") << "Acme" << "R1" << "5" << "0.009" << false << "" << txRange << false;
        QTest::newRow("rx below 1") << "Acme" << "R1" << "0.99" << "0.1" << false << rxRange << "" << false;
        QTest::newRow("rx decimal comma") << "Acme" << "R1" << "7,5" << "0.1" << false << badCharacter << "" << false;
        QTest::newRow("empty rx") << "Acme" << "R1" << "" << "0.1" << false << "" << "" << false;
        // An empty tx clears the rx message and leaves the old tx message: kept as users know it.
        QTest::newRow("empty tx clears rx message") << "Acme" << "R1" << "0.5" << "" << false << "" << txRange << false;
        QTest::newRow("no manufacturer") << "" << "R1" << "5" << "0.1" << false << "" << "" << false;
        QTest::newRow("library radio") << "Garmin" << "GNS430W" << "5" << "0.1" << false << "" << "" << true;
        QTest::newRow("other user radio") << "Acme" << "R2" << "5" << "0.1" << false << "" << "" << true;
        QTest::newRow("model of another maker") << "Acmex" << "R2" << "5" << "0.1" << true << "" << "" << false;
    }

    void validation()
    {
        QFETCH(QString, manufacturer);
        QFETCH(QString, model);
        QFETCH(QString, rx);
        QFETCH(QString, tx);
        QFETCH(bool, valid);
        QFETCH(QString, rxMessage);
        QFETCH(QString, txMessage);
        QFETCH(bool, duplicate);

        addUserRadio(200, "R1");
        addUserRadio(201, "R2");
        RtsTableModel *rts = RtsTableModel::instance();
        RtsSortFilterProxyModel proxy;
        proxy.setSourceModel(rts);
        proxy.sort(RtsTableModel::ManufacturerColumn);

        RtFormDialog form;
        // Bound through a proxy whose rows differ from the model's: the form must still know its record.
        form.setModelIndex(proxy.mapFromSource(rts->locateRtId(200)), KvCore::EditRecord);
        QCOMPARE(field<QLineEdit>(&form, "manufacturerEdit")->text(), QStringLiteral("Acme"));
        form.show();
        QVERIFY(QTest::qWaitForWindowExposed(&form));
        TestUi::retype(field<QLineEdit>(&form, "rxLevelEdit"), QStringLiteral("0.5"));
        TestUi::retype(field<QLineEdit>(&form, "txLevelEdit"), QStringLiteral("5"));
        QCOMPARE(field<QLabel>(&form, "rxMessageLabel")->text(), rxRange);
        QCOMPARE(field<QLabel>(&form, "txMessageLabel")->text(), txRange);

        TestUi::retype(field<QLineEdit>(&form, "manufacturerEdit"), manufacturer);
        TestUi::retype(field<QLineEdit>(&form, "modelEdit"), model);
        TestUi::retype(field<QLineEdit>(&form, "rxLevelEdit"), rx);
        TestUi::retype(field<QLineEdit>(&form, "txLevelEdit"), tx);
        QCOMPARE(form.isValid(), valid);
        QCOMPARE(form.okButton()->isEnabled(), valid);
        QCOMPARE(field<QLabel>(&form, "rxMessageLabel")->text(), rxMessage);
        QCOMPARE(field<QLabel>(&form, "txMessageLabel")->text(), txMessage);
        QCOMPARE(field<QLabel>(&form, "duplicateLabel")->isVisible(), duplicate);
    }

    void newRecordEndToEnd()
    {
        MessageBoxRecorder boxes;
        QElapsedTimer sinceSave;
        {
            RtsTableEditWidget editor;
            RtsTableView *view = editor.rtsTableView();
            editor.resize(1000, 500);
            editor.show();
            QVERIFY(QTest::qWaitForWindowExposed(&editor));
            auto *newButton = editor.findChild<QPushButton *>(QStringLiteral("newButton"));
            QCOMPARE(view->model()->rowCount(), 74);

            FormDriver<RtFormDialog> driver([&](RtFormDialog *form) {
                QCOMPARE(form->editType(), KvCore::NewRecord);
                auto *model = field<QLineEdit>(form, "modelEdit");
                QVERIFY(form->okButton()->isEnabled());

                TestUi::retype(field<QLineEdit>(form, "manufacturerEdit"), QStringLiteral("Garmin"));
                TestUi::retype(model, QStringLiteral("GNS430W"));
                QVERIFY(field<QLabel>(form, "duplicateLabel")->isVisible());
                QVERIFY(!form->okButton()->isEnabled());
                TestUi::retype(model, QStringLiteral("GTR 225"));
                TestUi::retype(field<QLineEdit>(form, "rxLevelEdit"), QStringLiteral("7.07"));
                TestUi::retype(field<QLineEdit>(form, "txLevelEdit"), QStringLiteral("0.05"));
                QTest::keyClicks(field<QLineEdit>(form, "rxDescriptionEdit"), QStringLiteral("100mW, 500 Ohms"));
                QVERIFY(form->okButton()->isEnabled());
                QTest::mouseClick(form->okButton(), Qt::LeftButton);
                sinceSave.start();
            });
            QTest::mouseClick(newButton, Qt::LeftButton);
            QVERIFY(driver.ran());

            // Both files are written and the confirmation passes by on its own.
            QCOMPARE(userFileValue(QStringLiteral("count")).toInt(), 1);
            QCOMPARE(userFileValue(QStringLiteral("autoincid")).toInt(), 201);
            QCOMPARE(userFileValue(QStringLiteral("0")).toStringList(),
                     QStringList({"200", "Garmin", "GTR 225", "1", "7.07", "100mW, 500 Ohms", "0.05", "", "0"}));
            QVERIFY(QFileInfo(RtsFile::instance()->baseFileName()).exists());
            QVERIFY(!RtsFile::instance()->isModified());
            QVERIFY(boxes.waitForBox());
            QVERIFY(!boxes.last().modal);
            QTRY_VERIFY_WITH_TIMEOUT(!TestUi::messageBoxShown(), 10000);
            QVERIFY2(sinceSave.elapsed() >= 1450, qPrintable(QString::number(sinceSave.elapsed())));
            QCOMPARE(boxes.count(), 1);

            const QModelIndex current = view->currentIndex();
            QCOMPARE(current.siblingAtColumn(RtsTableModel::ModelColumn).data().toString(), QStringLiteral("GTR 225"));
            QVERIFY(!editor.findChild<QPushButton *>(QStringLiteral("submitButton"))->isEnabled());
        }

        // A second start of the application reads the record back.
        RtsFile::destroyInstance();
        RtsFile::instance();
        RtsTableModel *model = RtsTableModel::instance();
        QCOMPARE(model->rowCount(), 75);
        const QModelIndex found = model->locateRt(QStringLiteral("Garmin"), QStringLiteral("GTR 225"));
        QCOMPARE(model->rtId(found), 200);
        QCOMPARE(model->txLevel(found), 0.05);
        QCOMPARE(model->nextUserRtId(), 201);
    }

    void cancelledNewRecordLeavesNothing()
    {
        MessageBoxRecorder boxes;
        RtsTableEditWidget editor;
        editor.show();
        QVERIFY(QTest::qWaitForWindowExposed(&editor));
        RtsTableModel *model = RtsTableModel::instance();
        auto *newButton = editor.findChild<QPushButton *>(QStringLiteral("newButton"));

        {
            FormDriver<RtFormDialog> driver([](RtFormDialog *form) {
                QTest::mouseClick(form->buttonBox()->button(QDialogButtonBox::Cancel), Qt::LeftButton);
            });
            QTest::mouseClick(newButton, Qt::LeftButton);
            QVERIFY(driver.ran());
        }
        QCOMPARE(model->rowCount(), 74);
        QCOMPARE(model->nextUserRtId(), 200);

        // The type is written at once, so the model's rules show in the open form.
        FormDriver<RtFormDialog> driver([model](RtFormDialog *form) {
            auto *include = field<QCheckBox>(form, "includeInRxListCheckBox");
            QVERIFY(include->isEnabled() && !include->isChecked());
            QTest::keyClick(field<QComboBox>(form, "typeComboBox"), Qt::Key_Down);
            QCOMPARE(model->rtType(model->index(74, 0)), Rt::Receiver);
            QCOMPARE(model->index(74, RtsTableModel::IncludeInRxListColumn).data(Qt::EditRole).toInt(), 1);
            QVERIFY(include->isChecked());
            QVERIFY(!include->isEnabled());
            QVERIFY(field<QLineEdit>(form, "txLevelEdit")->isReadOnly());
            QVERIFY(!field<QLineEdit>(form, "rxLevelEdit")->isReadOnly());
            QTest::mouseClick(form->buttonBox()->button(QDialogButtonBox::Cancel), Qt::LeftButton);
        });
        QTest::mouseClick(newButton, Qt::LeftButton);
        QVERIFY(driver.ran());
        QCOMPARE(model->rowCount(), 74);
        QVERIFY(!model->hasPendingEdits());
        QCOMPARE(userFileValue(QStringLiteral("count")).toInt(), 0);
        QCOMPARE(boxes.count(), 0);
    }

    void editExistingRecords()
    {
        MessageBoxRecorder boxes;
        addUserRadio(200, "R1");
        RtsTableEditWidget editor;
        editor.resize(1000, 500);
        editor.show();
        QVERIFY(QTest::qWaitForWindowExposed(&editor));
        RtsTableView *view = editor.rtsTableView();
        auto *editButton = editor.findChild<QPushButton *>(QStringLiteral("editButton"));

        TestUi::clickCell(view, viewIndexOf(view, 62, RtsTableModel::ManufacturerColumn));
        QVERIFY(!editButton->isEnabled());
        TestUi::clickCell(view, viewIndexOf(view, 200, RtsTableModel::ModelColumn));
        QVERIFY(editButton->isEnabled());
        FormDriver<RtFormDialog> driver([](RtFormDialog *form) {
            QCOMPARE(form->editType(), KvCore::EditRecord);
            QCOMPARE(field<QLineEdit>(form, "modelEdit")->text(), QStringLiteral("R1"));
            QVERIFY(field<QLabel>(form, "duplicateLabel")->isHidden());
            QTest::keyClicks(field<QLineEdit>(form, "txDescriptionEdit"), QStringLiteral("into 150 Ohms"));
            QTest::mouseClick(form->okButton(), Qt::LeftButton);
        });
        QTest::mouseClick(editButton, Qt::LeftButton);
        QVERIFY(driver.ran());
        QCOMPARE(userFileValue(QStringLiteral("0")).toStringList().at(7), QStringLiteral("into 150 Ohms"));
        QCOMPARE(view->currentIndex().siblingAtColumn(RtsTableModel::IdColumn).data().toInt(), 200);

        // A library transceiver opens with only its include flag editable.
        TestUi::clickCell(view, viewIndexOf(view, 14, RtsTableModel::IncludeInRxListColumn));
        QVERIFY(editButton->isEnabled());
        FormDriver<RtFormDialog> baseDriver([](RtFormDialog *form) {
            QVERIFY(field<QLineEdit>(form, "manufacturerEdit")->isReadOnly());
            QVERIFY(field<QLineEdit>(form, "rxLevelEdit")->isReadOnly());
            QVERIFY(!field<QComboBox>(form, "typeComboBox")->isEnabled());
            QVERIFY(field<QCheckBox>(form, "includeInRxListCheckBox")->isEnabled());
            form->reject();
        });
        QTest::mouseClick(editButton, Qt::LeftButton);
        QVERIFY(baseDriver.ran());
    }

    void fullListRefusesNewRecord()
    {
        MessageBoxRecorder boxes;
        for (int id = 200; id < 200 + 255 - 74; ++id)
            addUserRadio(id, QString::number(id));
        RtsTableEditWidget editor;
        RtsTableView *view = editor.rtsTableView();
        const QModelIndex current = viewIndexOf(view, 200, RtsTableModel::ModelColumn);
        view->setCurrentIndex(current);
        FormDriver<RtFormDialog> driver([](RtFormDialog *form) { form->reject(); });
        QTest::mouseClick(editor.findChild<QPushButton *>(QStringLiteral("newButton")), Qt::LeftButton);
        QCOMPARE(boxes.count(), 1);
        QCOMPARE(boxes.last().text, QStringLiteral("The list is full!"));
        QTest::qWait(50);
        QVERIFY(!driver.ran()); // no form for a row that was not added
        QCOMPARE(RtsTableModel::instance()->rowCount(), 255);
        QCOMPARE(view->currentIndex(), current);
    }
};

QTEST_MAIN(tst_RadioEditor)
#include "tst_radioeditor.moc"
