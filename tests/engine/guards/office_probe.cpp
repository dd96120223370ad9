// SPDX-License-Identifier: GPL-3.0-or-later

// Takes the place of LibreOffice. Instead of a document, it writes a line for each attempt: the version of Landlock
// that it needs, the result, and the name.

#include "attempts.h"

#include <cstdlib>
#include <fstream>
#include <string>

#include <sys/stat.h>

namespace {

std::string setting(const char *name)
{
    const char *const value = std::getenv(name);
    return value ? value : "";
}

} // namespace

int main(int count, char **arguments)
{
    std::string folder;
    for (int i = 1; i + 1 < count; ++i) {
        if (std::string(arguments[i]) == "--outdir") {
            folder = arguments[i + 1];
        }
    }
    mkdir(folder.c_str(), 0700);
    std::ofstream file(folder + "/document.doc");
    const attempts::Place place{
        setting("PROBE_SECRET"), setting("PROBE_OUTSIDE"), setting("PROBE_SOCKET"),
        std::atoi(setting("PROBE_PORT").c_str())};
    for (const attempts::Attempt &attempt : attempts::all()) {
        // The parent of the attempt is this process, which is guarded as well.
        const int result = attempt.run(place);
        file << attempt.needs << ' ' << result << ' ' << attempt.name << '\n';
    }
    // What the user can read and the export need not.
    for (const char *name : {"PROBE_INPUT", "PROBE_OUTPUT"}) {
        std::ifstream readable(setting(name));
        file << attempts::Files << ' ' << (readable.is_open() ? 0 : 1) << " read " << name << '\n';
    }
    return file.good() ? 0 : 1;
}
