// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/guards.h"
#include "system_call_filter.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace quorra::guards {

namespace {

// The interface of the kernel. <linux/landlock.h> of the oldest supported system lacks what was added later, so that
// all of it is here; the version of the running kernel says which rights can be named.

constexpr std::uint64_t execute = 1U << 0;
constexpr std::uint64_t writeFile = 1U << 1;
constexpr std::uint64_t readFile = 1U << 2;
constexpr std::uint64_t readFolder = 1U << 3;
constexpr std::uint64_t removeFolder = 1U << 4;
constexpr std::uint64_t removeFile = 1U << 5;
constexpr std::uint64_t makeFolder = 1U << 7;
constexpr std::uint64_t makeFile = 1U << 8;
constexpr std::uint64_t makeSocket = 1U << 9;
constexpr std::uint64_t refer = 1U << 13;
constexpr std::uint64_t truncate = 1U << 14;

struct RulesetAttributes
{
    std::uint64_t files = 0;
    std::uint64_t network = 0;
    std::uint64_t scopes = 0;
};

struct [[gnu::packed]] PathAttributes
{
    std::uint64_t allowed = 0;
    std::int32_t path = -1;
};

constexpr unsigned versionFlag = 1;
constexpr int pathRule = 1;

/// What a version of the kernel can refuse, and how much of RulesetAttributes it knows.
struct Version
{
    int number;
    std::size_t attributesSize;
    RulesetAttributes handled;
};

constexpr std::uint64_t fileBits = 0x1fff;       // from executing to making links
constexpr std::uint64_t deviceControl = 1 << 15; // ioctl() on devices
constexpr std::uint64_t tcp = 0x3;               // bind and connect
constexpr std::uint64_t scopeBits = 0x3;         // abstract sockets and signals outside

constexpr std::uint64_t laterFileBits = fileBits | refer | truncate;

constexpr std::array<Version, 6> versions = {{
    {1, offsetof(RulesetAttributes, network), {fileBits, 0, 0}},
    {2, offsetof(RulesetAttributes, network), {fileBits | refer, 0, 0}},
    {3, offsetof(RulesetAttributes, network), {laterFileBits, 0, 0}},
    {4, offsetof(RulesetAttributes, scopes), {laterFileBits, tcp, 0}},
    {5, offsetof(RulesetAttributes, scopes), {laterFileBits | deviceControl, tcp, 0}},
    {6, sizeof(RulesetAttributes), {laterFileBits | deviceControl, tcp, scopeBits}},
}};

constexpr std::uint64_t onlyForFolders =
    readFolder | removeFolder | removeFile | makeFolder | makeFile | makeSocket | refer;

constexpr std::uint64_t rightsOf(Access access)
{
    constexpr std::uint64_t read = readFile | readFolder;
    constexpr std::uint64_t changeFiles = read | writeFile | truncate | makeFile | removeFile | refer;
    switch (access) {
    case Access::Read:
        return read;
    case Access::ReadWrite:
        return read | writeFile | truncate;
    case Access::Execute:
        return read | execute;
    case Access::ChangeFiles:
        return changeFiles;
    case Access::ChangeAll:
        return changeFiles | makeFolder | removeFolder;
    case Access::RemoveFolders:
        return removeFolder;
    case Access::Sockets:
        return makeSocket | removeFile;
    }
    return 0;
}

/// The version of the running kernel; 0 if it has none, or has it switched off.
int kernelVersion()
{
    return static_cast<int>(std::max(0L, syscall(SYS_landlock_create_ruleset, nullptr, 0, versionFlag)));
}

void addRule(int ruleset, const FileRule &rule, std::uint64_t known)
{
    PathAttributes attributes;
    attributes.path = open(rule.path.c_str(), O_PATH | O_CLOEXEC);
    if (attributes.path < 0) {
        return;
    }
    attributes.allowed = rightsOf(rule.access) & known;
    struct stat status
    {
    };
    if (fstat(attributes.path, &status) == 0 && !S_ISDIR(status.st_mode)) {
        attributes.allowed &= ~onlyForFolders;
    }
    // Fails for a file if none of its rights are left.
    syscall(SYS_landlock_add_rule, ruleset, pathRule, &attributes, 0);
    close(attributes.path);
}

/// Returns a descriptor, or -1.
int rulesetOf(const FileRules &rules)
{
    const int number = kernelVersion();
    if (number <= 0) {
        return -1;
    }
    // Later versions accept what the last one listed here does.
    const Version &version = versions.at(std::min(static_cast<std::size_t>(number), versions.size()) - 1);
    const long made = syscall(SYS_landlock_create_ruleset, &version.handled, version.attributesSize, 0);
    const int ruleset = static_cast<int>(made);
    if (ruleset >= 0) {
        for (const FileRule &rule : rules) {
            addRule(ruleset, rule, version.handled.files);
        }
    }
    return ruleset;
}

bool enterRuleset(int ruleset)
{
    // Required of processes without privileges, and right for all: no program can then gain rights when it is started.
    return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && syscall(SYS_landlock_restrict_self, ruleset, 0) == 0;
}

} // namespace

Active lockIn(const FileRules &files, Programs programs)
{
    Active active;
    const int ruleset = rulesetOf(files);
    if (ruleset >= 0) {
        active.landlock = enterRuleset(ruleset) ? kernelVersion() : 0;
        close(ruleset);
    }
    active.seccomp = filterSystemCalls(programs);
    return active;
}

PreparedRules::PreparedRules(const FileRules &files) : m_descriptor(files.empty() ? -1 : rulesetOf(files)) {}

PreparedRules::~PreparedRules()
{
    if (m_descriptor >= 0) {
        close(m_descriptor);
    }
}

void PreparedRules::enter() const
{
    if (m_descriptor >= 0) {
        enterRuleset(m_descriptor);
    }
}

} // namespace quorra::guards
