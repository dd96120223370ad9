// SPDX-License-Identifier: GPL-3.0-or-later
// The fake engine of the front-end's tests: small, quick to start, and controlled by a plan.
//
// It works in the folder that holds its own file (taken from argv[0]):
//   engine.count  number of runs so far
//   engine.log    records of runs, appended; the layout is in engine_log.h
//   engine.plan   one line per run, the last line serves all later runs; a line is a list of the words below, done in
//                 order, and the run then ends with status 0. Without a plan every run does "write".
//
//   write      write the output file (the last argument)
//   wait       wait until the file engine.release-N (N: number of this run, from 0) or engine.release-all exists
//   hang       never end by itself, deaf to SIGTERM
//   crash      die of a segmentation fault
//   flood:N    print N bytes on standard output and N on standard error
//   vanish     delete the engine's own file
//   exit:N     end with status N
//   quiet      leave no record of this run (must come first)
//
// A waiting or hanging run ends when its folder is gone, so that no test leaves a process behind.
#include "engine_log.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

std::uint32_t thisRun = 0;

/// The folder of the engine's executable; set by main().
std::string &ownFolder()
{
    static std::string folder;
    return folder;
}

std::string inFolder(const char *name)
{
    return ownFolder() + "/" + name;
}

void writeAll(int fd, const char *bytes, std::size_t count)
{
    while (count > 0) {
        const ssize_t written = write(fd, bytes, count);
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written <= 0) {
            return;
        }
        bytes += written;
        count -= static_cast<std::size_t>(written);
    }
}

std::string readAll(const std::string &path)
{
    std::string text;
    const int fd = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        return text;
    }
    char block[4096];
    ssize_t got = 0;
    while ((got = read(fd, block, sizeof block)) > 0) {
        text.append(block, static_cast<std::size_t>(got));
    }
    close(fd);
    return text;
}

/// Returns the number of this run; the lock is for engines that start at the same time.
std::uint32_t takeRunNumber()
{
    const int fd = open(inFolder("engine.count").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    if (fd < 0) {
        return 0;
    }
    flock(fd, LOCK_EX);
    std::uint32_t count = 0;
    if (pread(fd, &count, sizeof count, 0) != static_cast<ssize_t>(sizeof count)) {
        count = 0;
    }
    const std::uint32_t next = count + 1;
    if (pwrite(fd, &next, sizeof next, 0) != static_cast<ssize_t>(sizeof next)) {
        _exit(99);
    }
    close(fd);
    return count;
}

/// One write per record, because appending is atomic.
void record(char kind, const std::string &payload)
{
    const EngineLogHeader header{
        kind, thisRun, static_cast<std::uint32_t>(getpid()), static_cast<std::uint32_t>(payload.size())};
    std::string bytes(reinterpret_cast<const char *>(&header), sizeof header);
    bytes += payload;
    const int fd = open(inFolder("engine.log").c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
    if (fd < 0) {
        return;
    }
    writeAll(fd, bytes.data(), bytes.size());
    close(fd);
}

std::vector<std::string> wordsOfRun(const std::string &plan)
{
    std::string line = "write";
    std::size_t start = 0;
    for (std::uint32_t number = 0; start < plan.size() && number <= thisRun; ++number) {
        const std::size_t end = std::min(plan.find('\n', start), plan.size());
        line = plan.substr(start, end - start);
        start = end + 1;
    }
    std::vector<std::string> words;
    std::size_t from = 0;
    while (from < line.size()) {
        const std::size_t to = std::min(line.find(' ', from), line.size());
        if (to > from) {
            words.push_back(line.substr(from, to - from));
        }
        from = to + 1;
    }
    return words;
}

bool exists(const std::string &path)
{
    struct stat info
    {
    };
    return stat(path.c_str(), &info) == 0;
}

void shortPause()
{
    const timespec pause{0, 1000000};
    nanosleep(&pause, nullptr);
}

void waitForRelease()
{
    const std::string mine = inFolder("engine.release-") + std::to_string(thisRun);
    const std::string all = inFolder("engine.release-all");
    while (!exists(mine) && !exists(all)) {
        if (!exists(ownFolder())) {
            _exit(98);
        }
        shortPause();
    }
}

void hang()
{
    signal(SIGTERM, SIG_IGN);
    while (exists(ownFolder())) {
        shortPause();
    }
    _exit(98);
}

void crash()
{
    const rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);
    signal(SIGSEGV, SIG_DFL);
    raise(SIGSEGV);
}

void flood(unsigned long long bytes)
{
    const std::string block(65536, 'x');
    while (bytes > 0) {
        const std::size_t part = static_cast<std::size_t>(std::min<unsigned long long>(bytes, block.size()));
        writeAll(STDOUT_FILENO, block.data(), part);
        writeAll(STDERR_FILENO, block.data(), part);
        bytes -= part;
    }
}

void writeOutput(int argc, char **argv)
{
    if (argc < 2) {
        return;
    }
    const int fd = open(argv[argc - 1], O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (fd < 0) {
        return;
    }
    const std::string text = std::string("converted ") + (argc > 2 ? argv[argc - 2] : "") + "\n";
    writeAll(fd, text.data(), text.size());
    close(fd);
}

void finish(int status, bool quiet)
{
    if (!quiet) {
        record(engineLogEnd, std::string());
    }
    _exit(status);
}

} // namespace

int main(int argc, char **argv)
{
    const std::string path = argv[0];
    const std::size_t slash = path.find_last_of('/');
    ownFolder() = slash == std::string::npos ? "." : path.substr(0, slash);

    const std::string plan = readAll(inFolder("engine.plan"));
    const bool quiet = plan.compare(0, 5, "quiet") == 0;
    if (!quiet) {
        thisRun = takeRunNumber();
        std::string arguments;
        for (int i = 1; i < argc; ++i) {
            arguments.append(argv[i]).push_back('\0');
        }
        record(engineLogStart, arguments);
    }

    for (const std::string &word : wordsOfRun(plan)) {
        if (word == "write") {
            writeOutput(argc, argv);
        } else if (word == "wait") {
            waitForRelease();
        } else if (word == "hang") {
            hang();
        } else if (word == "crash") {
            crash();
        } else if (word.compare(0, 6, "flood:") == 0) {
            flood(std::strtoull(word.c_str() + 6, nullptr, 10));
        } else if (word == "vanish") {
            unlink(argv[0]);
        } else if (word.compare(0, 5, "exit:") == 0) {
            finish(std::atoi(word.c_str() + 5), quiet);
        }
    }
    finish(0, quiet);
}
