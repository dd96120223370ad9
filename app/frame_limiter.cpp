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
    if (m_nextFrame.isActive()) {
        return true;
    }
    if (m_sinceDrawn.isValid() && m_sinceDrawn.elapsed() < frameMilliseconds) {
        m_nextFrame.start(frameMilliseconds - static_cast<int>(m_sinceDrawn.elapsed()), Qt::PreciseTimer, this);
        return true;
    }
    m_sinceDrawn.start();
    return false;
}

// The toolkit keeps what has to be drawn, and asks once only: the request held back is made up for here.
void FrameLimiter::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_nextFrame.timerId()) {
        QObject::timerEvent(event);
        return;
    }
    m_nextFrame.stop();
    m_sinceDrawn.invalidate();
    QEvent request(QEvent::UpdateRequest);
    QCoreApplication::sendEvent(m_window, &request);
}
