// SPDX-License-Identifier: GPL-3.0-or-later
// Prints a table of the window's speed and memory, compared with baselines measured in the same run. Figures can be
// selected by name: run start drop clear delete memory.
#include "window_figures.h"

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iostream>

using namespace benchmark;

namespace {

struct Figure
{
    const char *name;
    std::vector<Row> (*measure)(const Programs &, const std::string &folder);
};

constexpr Figure figures[] = {
    {"run",
     [](const Programs &programs, const std::string &folder) { return std::vector{runFigure(programs, folder)}; }},
    {"start", startFigures},
    {"drop", [](const Programs &, const std::string &folder) { return std::vector{dropFigure(folder)}; }},
    {"clear", [](const Programs &, const std::string &folder) { return std::vector{clearFigure(folder)}; }},
    {"delete", [](const Programs &, const std::string &folder) { return std::vector{deleteFigure(folder)}; }},
    {"memory-run", [](const Programs &programs,
                      const std::string &folder) { return std::vector{longRunMemoryFigure(programs, folder)}; }},
    {"memory-flood", [](const Programs &programs,
                        const std::string &folder) { return std::vector{floodMemoryFigure(programs, folder)}; }},
};

int measureAll(const std::vector<std::string> &wanted)
{
    const Programs programs = {
        QUORRA_BENCHMARK_CONVERTER, QUORRA_BENCHMARK_PLAIN_WINDOW, QUORRA_BENCHMARK_PROBE, QUORRA_BENCHMARK_NOOP_ENGINE,
        QUORRA_BENCHMARK_FLOOD_ENGINE};
    const MemoryFolder memory;
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    ::setenv("XDG_RUNTIME_DIR", memory.path().c_str(), 1); // else the toolkit complains at each start
    // Qt warns about the style sheet of the file table at each start, which is expected.
    ::setenv("QT_LOGGING_RULES", "default.warning=false", 1);
    std::vector<Row> rows;
    for (const Figure &figure : figures) {
        if (!wanted.empty() && std::find(wanted.begin(), wanted.end(), figure.name) == wanted.end()) {
            continue;
        }
        std::cerr << "measuring: " << figure.name << std::endl;
        const std::string folder = memory.path() + "/" + figure.name;
        std::filesystem::create_directory(folder);
        const std::vector<Row> measured = figure.measure(programs, folder);
        rows.insert(rows.end(), measured.begin(), measured.end());
        std::filesystem::remove_all(folder);
    }
    std::cout << machineText() << "\n" << tableText(rows);
    const bool complete = std::none_of(rows.begin(), rows.end(), [](const Row &row) { return row.target.empty(); });
    return complete ? 0 : 1;
}

} // namespace

int main(int argc, char *argv[])
{
    try {
        return measureAll(std::vector<std::string>(argv + 1, argv + argc));
    } catch (const std::exception &problem) {
        std::cerr << "window_benchmark: " << problem.what() << "\n";
        return 1;
    }
}
