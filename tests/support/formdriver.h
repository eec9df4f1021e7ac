// SPDX-FileCopyrightText: 2026 The nvrcore developers
// SPDX-License-Identifier: LicenseRef-Proprietary
#ifndef NVR_TEST_FORMDRIVER_H
#define NVR_TEST_FORMDRIVER_H

#include <QApplication>
#include <QTest>
#include <QTimer>

#include <functional>

/**
 * Plays the user in the next modal form of type Form: once one is open, runs
 * the action on it from the form's own event loop. A form the action leaves
 * open after a failed check is cancelled, so the test cannot hang on it.
 */
template<typename Form>
class FormDriver
{
public:
    explicit FormDriver(std::function<void(Form *)> action) : m_action(std::move(action))
    {
        m_timer.setInterval(10);
        QObject::connect(&m_timer, &QTimer::timeout, [this] {
            auto *form = qobject_cast<Form *>(QApplication::activeModalWidget());
            if (!form || !form->isVisible())
                return;
            m_timer.stop();
            m_ran = true;
            m_action(form);
            if (form->isVisible() && QTest::currentTestFailed())
                form->reject();
        });
        m_timer.start();
    }
    bool ran() const { return m_ran; }

private:
    std::function<void(Form *)> m_action;
    QTimer m_timer;
    bool m_ran = false;
};

#endif
