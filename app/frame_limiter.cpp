// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/frame_limiter.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTimerEvent>
#include <QWidget>

namespace {

constexpr int frameMilliseconds = 16;

} // namespace

FrameLimiter::FrameLimiter(QWidget *window) : QObject(window), m_window(window)
{
    window->installEventFilter(this);
}

bool FrameLimiter::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_window || event->type() != QEvent::UpdateRequest) {
        return false;
    }
    m_hasHeldBack = m_frame.isActive();
    if (!m_hasHeldBack) {
        m_frame.start(frameMilliseconds, Qt::PreciseTimer, this);
    }
    return m_hasHeldBack;
}

/// The toolkit keeps what has to be drawn, and asks once only: the request held back is made up for here.
void FrameLimiter::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_frame.timerId()) {
        QObject::timerEvent(event);
        return;
    }
    m_frame.stop();
    if (m_hasHeldBack) {
        QEvent request(QEvent::UpdateRequest);
        QCoreApplication::sendEvent(m_window, &request); // comes back through the filter above
    }
}
