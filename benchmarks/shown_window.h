// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>
#include <QList>
#include <QString>
#include <QUrl>

#include <string>

class QTableWidget;
class QToolButton;
class tovrane;

namespace benchmark {

/// An application that shows the main window. `folder` becomes the current directory, in which the window finds its
/// settings and its engine. One per process.
class ShownWindow
{
public:
    explicit ShownWindow(const std::string &folder);

    QTableWidget *table() const { return m_table; }

    /// Drops the files on the window like a drag from another program.
    void drop(const QList<QUrl> &urls);

    /// Presses a toolbar button, given by its object name.
    void press(const char *buttonName);

    /// Enters `outputFolder`, presses Start and processes events until the run has ended.
    void run(const QString &outputFolder);

    /// Processes pending events, including paint events.
    static void handleEvents();

    /// Processes events until the window is idle and fully painted, so that the next change is painted at once.
    static void settle();

private:
    QToolButton *button(const char *name) const;

    int m_argumentCount = 1;
    char m_argument[10] = "benchmark";
    char *m_arguments[2] = {m_argument, nullptr};
    QApplication m_application;
    tovrane *m_window;
    QTableWidget *m_table;
};

/// Creates `count` small files with PDF names in `folder` and returns their URLs.
QList<QUrl> makeFiles(const std::string &folder, int count);

/// Copies an engine to `folder` under the name that the window expects.
void placeEngine(const std::string &engine, const std::string &folder);

} // namespace benchmark
