// SPDX-License-Identifier: GPL-3.0-or-later
#include "window_figures.h"

#include <array>
#include <filesystem>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace benchmark {

namespace {

/// The report of the probe in a started program; a time of 0 was not reported.
struct Start
{
    double firstPaint = 0;
    double dialog = 0;
};

std::vector<std::string> probedEnvironment(const std::string &probe, bool openDialog)
{
    std::vector<std::string> variables = {"QT_QPA_PLATFORM=offscreen", "LD_PRELOAD=" + probe};
    if (openDialog) {
        variables.emplace_back("QUORRA_PROBE_SETTING=1");
    }
    for (char **variable = environ; *variable; ++variable) {
        variables.emplace_back(*variable);
    }
    return variables;
}

/// Starts a program with the pipe for reports as descriptor 3. Returns -1 if it cannot be started.
pid_t spawn(const std::string &program, std::vector<std::string> environment, int reportEnd)
{
    std::vector<char *> variables;
    variables.reserve(environment.size() + 1);
    for (std::string &variable : environment) {
        variables.push_back(variable.data());
    }
    variables.push_back(nullptr);
    std::string name = program;
    std::array<char *, 2> arguments = {name.data(), nullptr};
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, reportEnd, 3);
    pid_t child = -1;
    if (::posix_spawn(&child, program.c_str(), &actions, nullptr, arguments.data(), variables.data()) != 0) {
        child = -1;
    }
    ::posix_spawn_file_actions_destroy(&actions);
    return child;
}

Start measureStart(const std::string &program, const std::string &probe, bool openDialog)
{
    Start start;
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
        return start;
    }
    const std::vector<std::string> environment = probedEnvironment(probe, openDialog);
    pid_t child = -1;
    char painted = 0;
    const double untilPaint = milliseconds([&] {
        child = spawn(program, environment, ends[1]);
        ::close(ends[1]);
        if (child < 0 || ::read(ends[0], &painted, 1) != 1) {
            painted = 0;
        }
    });
    const std::string dialog = readAll(ends[0]);
    ::close(ends[0]);
    if (child > 0) {
        ::waitpid(child, nullptr, 0);
    }
    start.firstPaint = painted == 'P' ? untilPaint : 0;
    start.dialog = dialog.empty() ? 0 : std::stod(dialog);
    return start;
}

} // namespace

std::vector<Row> startFigures(const Programs &programs, const std::string &folder)
{
    constexpr int rounds = 31;
    // The program writes its settings to the folder of its executable, so copy it to the memory file system.
    const std::string converter = folder + "/quorra-converter";
    std::filesystem::copy_file(programs.converter, converter);
    std::vector<double> dialogs;
    const auto ours = [&] {
        const Start start = measureStart(converter, programs.firstPaintProbe, true);
        dialogs.push_back(start.dialog);
        return start.firstPaint;
    };
    const auto floor = [&] { return measureStart(programs.plainWindow, programs.firstPaintProbe, false).firstPaint; };
    interleaved(2, ours, floor); // the first start reads the libraries and writes the settings file
    dialogs.clear();
    const Sides sides = interleaved(rounds, ours, floor);
    return {
        ratioRow("Program start to first paint (offscreen)", "ms", sides, 1.25),
        ratioRow("Opening the settings dialog, against program start", "ms", {median(dialogs), sides.ours}, 0.5)};
}

} // namespace benchmark
