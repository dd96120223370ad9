// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <vector>

/// What a document that has taken over the engine would try.
namespace attempts {

/// What the attempts are made on; all of it exists.
struct Place
{
    std::string secret;      ///< a file in the user's home
    std::string outside;     ///< a folder beside the output folder
    std::string localSocket; ///< path of a socket at which someone listens
    int port = 0;            ///< TCP port at which someone listens
};

/// The first version of Landlock that refuses an attempt; 0 if seccomp does.
enum Needs { Filter = 0, Files = 1, Scopes = 6 };

struct Attempt
{
    const char *name;
    Needs needs;
    bool works;                            ///< for everybody, on every system, without guards
    std::function<int(const Place &)> run; ///< returns 0 if it succeeded, or else an error number
};

const std::vector<Attempt> &all();

/// Makes the attempt in a process of its own, after `before`. Returns its result, -1 if a signal ended it.
int resultOf(
    const Attempt &attempt, const Place &place, const std::function<void()> &before = [] {});

} // namespace attempts
