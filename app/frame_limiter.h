// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QBasicTimer>
#include <QObject>

class QWidget;

/// Draws a window no more often than a screen shows it. A quick engine moves the list on a thousand times a second, and
/// drawing each step would take longer than the step. What is not drawn at once is drawn when the frame ends.
class FrameLimiter : public QObject
{
    Q_OBJECT

public:
    /// Watches `window`, a top-level one, which also owns the limiter.
    explicit FrameLimiter(QWidget *window);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    QWidget *m_window;
    QBasicTimer m_frame;        ///< runs from one drawing to the earliest time of the next
    bool m_hasHeldBack = false; ///< something was to be drawn while the timer ran
};
