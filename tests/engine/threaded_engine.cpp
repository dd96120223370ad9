// SPDX-License-Identifier: GPL-3.0-or-later

// The engine with a simulated number of processors, given as the first argument. The other arguments, the limits and
// the exit status are those of the engine.
#include "base/failure.h"
#include "convert/convert.h"
#include "platform/limits.h"
#include "platform/worker_pool.h"

#include <QHashSeed>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

int main(int argc, char **argv)
{
    using namespace quorra;
    if (argc < 2) {
        return static_cast<int>(ExitStatus::Usage);
    }
    QHashSeed::setDeterministicGlobalSeed();
    assumeProcessors(std::atoi(argv[1]));
    limits::apply();
    try {
        convert(parseOptions(std::vector<std::string>(argv + 2, argv + argc)));
    } catch (const Failure &failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return static_cast<int>(failure.status());
    } catch (const std::bad_alloc &) {
        std::fprintf(stderr, "the file needs more memory than allowed\n");
        return static_cast<int>(ExitStatus::Limit);
    }
    return static_cast<int>(ExitStatus::Done);
}
