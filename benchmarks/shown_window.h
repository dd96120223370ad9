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

/// An application with the converter's main window shown, working in `folder`, which becomes the current directory
/// (the window finds its settings and its engine there). One per process.
class ShownWindow
{
public:
    explicit ShownWindow(const std::string &folder);

    QTableWidget *table() const { return m_table; }

    /// Drops the files on the window as a drag from another program does.
    void drop(const QList<QUrl> &urls);

    /// Presses one of the toolbar's buttons, by object name.
    void press(const char *buttonName);

    /// Presses Start with `outputFolder` in its line and handles events until the run has ended.
    void run(const QString &outputFolder);

    /// Handles the events that wait, paint events among them.
    static void handleEvents();

    /// Handles events until the window is at rest and has drawn all, so that the next change is drawn at once.
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

/// Makes `count` small files named like PDF files in `folder` and returns their addresses.
QList<QUrl> makeFiles(const std::string &folder, int count);

/// Copies an engine into `folder` under the name the window looks for.
void placeEngine(const std::string &engine, const std::string &folder);

} // namespace benchmark
