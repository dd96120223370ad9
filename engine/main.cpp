// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/failure.h"
#include "convert/convert.h"
#include "platform/guards.h"
#include "platform/limits.h"
#include "platform/progress.h"
#include "platform/streams.h"

#include <QHashSeed>

#include <cstdio>
#include <cstring>
#include <exception>
#include <new>
#include <string>
#include <vector>

namespace {

using quorra::ExitStatus;
using quorra::Failure;

/// Overwrites the passwords, because all users can see the command line.
void hidePasswords(int count, char **arguments)
{
    for (int i = 1; i + 1 < count; ++i) {
        if (std::strcmp(arguments[i], "-upw") == 0 || std::strcmp(arguments[i], "-opw") == 0) {
            ++i;
            std::memset(arguments[i], 0, std::strlen(arguments[i]));
        }
    }
}

/// Returns a line with the guards that a conversion has. It tells what the system has accepted, so this process can
/// hardly do anything afterwards.
std::string activeGuards()
{
    return "guards: " + quorra::guards::describe(quorra::guards::lockIn({}, quorra::guards::Programs::None)) + '\n';
}

/// Answers --help or --version, which must be the only argument, on standard output; returns whether it was one of
/// them.
bool answered(const std::vector<std::string> &arguments)
{
    if (arguments.size() != 1 || (arguments[0] != "--help" && arguments[0] != "--version")) {
        return false;
    }
    const std::string text = arguments[0] == "--help" ? quorra::helpText(quorra::outputExtensions())
                                                      : quorra::versionText() + activeGuards();
    std::fputs(text.c_str(), stdout);
    return true;
}

void run(const std::vector<std::string> &arguments)
{
    quorra::convert(quorra::parseOptions(arguments));
}

} // namespace

int main(int argc, char **argv)
{
    const std::vector<std::string> arguments(argv + 1, argv + (argc > 0 ? argc : 1));
    if (answered(arguments)) {
        return std::fflush(stdout) == 0 ? 0 : static_cast<int>(ExitStatus::CannotWrite);
    }
    hidePasswords(argc, argv);
    // The output must be reproducible, so it must not depend on random hash seeds.
    QHashSeed::setDeterministicGlobalSeed();
    const quorra::ErrorLine errorLine;
    quorra::limits::catchFatalSignals(errorLine.descriptor());
    quorra::limits::apply();
    quorra::progress::enable(errorLine.descriptor());
    ExitStatus status = ExitStatus::Done;
    try {
        run(arguments);
        quorra::progress::clear();
    } catch (const Failure &failure) {
        status = failure.status();
        errorLine.print(failure.what());
    } catch (const std::bad_alloc &) {
        status = ExitStatus::Limit;
        errorLine.print("the file needs more memory than allowed");
    } catch (const std::exception &error) {
        status = ExitStatus::CannotOpen;
        errorLine.print(std::string("the file cannot be converted: ") + error.what());
    }
    return static_cast<int>(status);
}
