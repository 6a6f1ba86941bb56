// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QTimer>
#include <QtTest/QtTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include <functional>

/// Ends a modal run that nobody ends, and fails the row that it belongs to.
class KxWatchdog
{
public:
    KxWatchdog()
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] {
            m_fired = true;
            for (QWidget *widget : QApplication::topLevelWidgets())
                widget->hide();
        });
        m_timer.start(10000);
    }
    ~KxWatchdog()
    {
        if (m_fired)
            QTest::qFail("nobody ended the modal run", __FILE__, __LINE__);
    }

private:
    QTimer m_timer;
    bool m_fired = false;
};

/// Runs `run` with `step` as the first thing that its event loop does. A failure in the step ends the run.
template<class Run>
auto kxRunModal(const Run &run, const std::function<void()> &step)
{
    const KxWatchdog watchdog;
    QTimer timer;
    timer.setSingleShot(true);
    QObject::connect(&timer, &QTimer::timeout, &timer, [&step] {
        step();
        if (QTest::currentTestFailed() && QApplication::activeModalWidget())
            QApplication::activeModalWidget()->hide();
    });
    timer.start(0);
    return run();
}
