// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QBasicTimer>
#include <QObject>

class QWidget;

/// Limits how often a window is painted to the frame rate of a screen. With a fast engine the list changes a thousand
/// times per second, and painting each step would take longer than the step. Updates that are held back are painted at
/// the end of the frame.
class FrameLimiter : public QObject
{
    Q_OBJECT

public:
    /// Watches the top-level window `window`, which also becomes the parent.
    explicit FrameLimiter(QWidget *window);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    QWidget *m_window;
    QBasicTimer m_frame;        ///< runs from one update to the earliest time of the next
    bool m_hasHeldBack = false; ///< an update was requested while the timer was running
};
