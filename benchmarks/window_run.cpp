// SPDX-License-Identifier: GPL-3.0-or-later
#include "shown_window.h"
#include "window_figures.h"

#include <QTableWidget>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace benchmark {

namespace {

/// Starts the engine in the current directory with the window's arguments and waits until it exits, `count` times.
void spawnAndWait(int count)
{
    char engine[] = "./Qtminw";
    char modeName[] = "-wordmode";
    char mode[] = "0";
    char call[] = "-call";
    char input[] = "input/document 1.pdf";
    char output[] = "./document 1.doc";
    char *const arguments[] = {engine, modeName, mode, call, input, output, nullptr};
    for (int index = 0; index < count; ++index) {
        pid_t child = 0;
        if (::posix_spawn(&child, engine, nullptr, nullptr, arguments, environ) == 0) {
            ::waitpid(child, nullptr, 0);
        }
    }
}

} // namespace

Row runFigure(const Programs &programs, const std::string &folder)
{
    constexpr int count = 1000;
    const char *figure = "Run of 1,000 files, engine exits at once, per file";
    placeEngine(programs.noopEngine, folder);
    const std::vector<double> medians = inOwnProcess([&folder] {
        ShownWindow window(folder);
        window.drop(makeFiles(folder, count));
        if (window.table()->rowCount() != count) {
            return std::vector<double>();
        }
        const QString output = QString::fromStdString(folder);
        const auto ours = [&] { return milliseconds([&] { window.run(output); }) / count; };
        const auto floor = [] { return milliseconds([] { spawnAndWait(count); }) / count; };
        const Sides sides = interleaved(7, ours, floor);
        return std::vector<double>{sides.ours, sides.floor};
    });
    return medians.size() == 2 ? ratioRow(figure, "ms", {medians[0], medians[1]}, 1.5) : failedRow(figure);
}

} // namespace benchmark
