// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_TEST_MESSAGEBOXRECORDER_H
#define NVR_TEST_MESSAGEBOXRECORDER_H

#include <QList>
#include <QMessageBox>
#include <QObject>
#include <QPointer>
#include <QSet>
#include <QTimer>

/**
 * Answers message boxes while it lives, so that no test hangs on one.
 *
 * Every few milliseconds it looks for visible QMessageBoxes. A modal one is
 * recorded (title, text, informative text, icon, buttons) and answered: with
 * the next queued answer, else with answer(), else with the box's default
 * button. A non-modal one is recorded and left alone (a test may watch it
 * close itself). Any other modal dialog left open longer than the time-out
 * fails the current test and is rejected, instead of hanging it.
 */
class MessageBoxRecorder : public QObject
{
    Q_OBJECT
public:
    struct Box
    {
        QString title;
        QString text;
        QString informativeText;
        QMessageBox::Icon icon = QMessageBox::NoIcon;
        QMessageBox::StandardButtons buttons;
        bool modal = true;
    };

    explicit MessageBoxRecorder(QMessageBox::StandardButton answer = QMessageBox::NoButton,
                                QObject *parent = nullptr);
    ~MessageBoxRecorder() override;

    QMessageBox::StandardButton answer() const { return m_answer; }
    void setAnswer(QMessageBox::StandardButton answer) { m_answer = answer; }
    /// Answers for the next boxes, one each, before answer() applies again.
    void queueAnswers(const QList<QMessageBox::StandardButton> &answers) { m_queued += answers; }

    int count() const { return m_boxes.size(); }
    Box last() const { return m_boxes.isEmpty() ? Box() : m_boxes.last(); }
    /// Runs the event loop until a further box is recorded; false on time-out.
    bool waitForBox(int timeoutMs = 5000);

private:
    void poll();
    void answerBox(QMessageBox *box);

    QTimer m_timer;
    QMessageBox::StandardButton m_answer;
    QList<QMessageBox::StandardButton> m_queued;
    QList<Box> m_boxes;
    QSet<QMessageBox *> m_seenNonModal;
    QPointer<QWidget> m_openDialog;
    qint64 m_openSince = 0;
    const int m_dialogTimeoutMs = 15000;
};

#endif
