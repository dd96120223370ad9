// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>

/// A small model of the batch run: what the window must show after each event, in any order. Engines are identified by
/// the number of their run. It covers the states idle, running, stalled, and running with an earlier engine alive.
struct RunModel
{
    int rows = 0;
    bool running = false;   ///< the process-wide flag
    bool showsStop = false; ///< the button; with `running` false this is the stalled state
    int counter = 0;        ///< the row being converted
    int bar = 0;
    int started = 0;      ///< engines so far
    QList<int> alive;     ///< engines that have not ended
    QList<int> converted; ///< the row each engine was started for
    int kind = 0;         ///< the stored kind of output

    void drop(int files) { rows += files; }

    void press()
    {
        if (rows < 1) {
            return;
        }
        counter = 0;
        if (running) {
            stop();
        } else {
            running = true;
            start();
            showsStop = true;
        }
    }

    /// Opening the dialog is sufficient, however it is closed.
    void settings() { running = false; }

    void clickKind(int row)
    {
        if (!running) {
            kind = row;
        }
    }

    void clear()
    {
        if (!running) {
            rows = 0;
        }
    }

    void end(int engine)
    {
        alive.removeOne(engine);
        ++counter;
        if (!running) {
            return;
        }
        if (counter < rows) {
            start();
        } else {
            stop();
        }
    }

private:
    void start()
    {
        alive << started++;
        converted << counter;
        bar = counter + 1;
    }

    /// Only the most recent engine is killed, if it has not exited yet.
    void stop()
    {
        running = false;
        showsStop = false;
        alive.removeOne(started - 1);
        counter = 0;
        bar = 0;
    }
};
