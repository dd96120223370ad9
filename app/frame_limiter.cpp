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

/// Qt keeps the region to be painted but requests an update only once: this replaces the request that was held back.
void FrameLimiter::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_frame.timerId()) {
        QObject::timerEvent(event);
        return;
    }
    m_frame.stop();
    if (m_hasHeldBack) {
        QEvent request(QEvent::UpdateRequest);
        QCoreApplication::sendEvent(m_window, &request); // passes through the event filter above
    }
}
