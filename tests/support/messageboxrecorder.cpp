// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#include "messageboxrecorder.h"

#include <QAbstractButton>
#include <QApplication>
#include <QPushButton>
#include <QDateTime>
#include <QDialog>
#include <QElapsedTimer>
#include <QTest>

namespace {
MessageBoxRecorder::Box describe(QMessageBox *box)
{
    MessageBoxRecorder::Box b;
    b.title = box->windowTitle();
    b.text = box->text();
    b.informativeText = box->informativeText();
    b.icon = box->icon();
    b.buttons = box->standardButtons();
    b.modal = box->isModal();
    return b;
}
}

MessageBoxRecorder::MessageBoxRecorder(QMessageBox::StandardButton answer, QObject *parent)
    : QObject(parent), m_answer(answer)
{
    m_timer.setInterval(10);
    connect(&m_timer, &QTimer::timeout, this, &MessageBoxRecorder::poll);
    m_timer.start();
}

MessageBoxRecorder::~MessageBoxRecorder() = default;

bool MessageBoxRecorder::waitForBox(int timeoutMs)
{
    const int before = m_boxes.size();
    QElapsedTimer clock;
    clock.start();
    while (m_boxes.size() == before && clock.elapsed() < timeoutMs)
        QTest::qWait(10);
    return m_boxes.size() > before;
}

void MessageBoxRecorder::poll()
{
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        auto *box = qobject_cast<QMessageBox *>(widget);
        if (!box || !box->isVisible())
            continue;
        if (box->isModal() || box == QApplication::activeModalWidget()) {
            answerBox(box);
            return;
        }
        if (!m_seenNonModal.contains(box)) {
            m_seenNonModal.insert(box);
            Box b = describe(box);
            b.modal = false;
            m_boxes.append(b);
            connect(box, &QObject::destroyed, this, [this, box] { m_seenNonModal.remove(box); });
        }
    }

    QWidget *modal = QApplication::activeModalWidget();
    if (!modal) {
        m_openDialog.clear();
        return;
    }
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    if (modal != m_openDialog) {
        m_openDialog = modal;
        m_openSince = now;
        return;
    }
    if (now - m_openSince > m_dialogTimeoutMs) {
        const QByteArray what = modal->metaObject()->className() + QByteArray(" '")
                                + modal->windowTitle().toUtf8() + "' was left open";
        m_openDialog.clear();
        if (auto *dialog = qobject_cast<QDialog *>(modal))
            dialog->reject();
        else
            modal->close();
        QTest::qFail(what.constData(), __FILE__, __LINE__);
    }
}

void MessageBoxRecorder::answerBox(QMessageBox *box)
{
    Box b = describe(box);
    QMessageBox::StandardButton choice = m_queued.isEmpty() ? m_answer : m_queued.takeFirst();
    QAbstractButton *button = choice != QMessageBox::NoButton ? box->button(choice) : nullptr;
    if (!button)
        button = box->defaultButton();
    if (!button)
        button = box->escapeButton();
    if (!button && !box->buttons().isEmpty())
        button = box->buttons().constFirst();
    m_boxes.append(b);
    if (button)
        button->click();
    else
        box->done(0);
}
