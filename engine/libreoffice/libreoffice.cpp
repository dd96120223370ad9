// SPDX-License-Identifier: GPL-3.0-or-later
#include "libreoffice/libreoffice.h"

#include "base/failure.h"
#include "platform/child_process.h"
#include "platform/limits.h"
#include "platform/output_file.h"
#include "platform/progress.h"
#include "platform/system_files.h"
#include "platform/temp_folder.h"

#include <QCryptographicHash>
#include <QString>
#include <QUrl>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>

#include <sys/resource.h>
#include <unistd.h>

namespace quorra::office {

namespace {

namespace fs = std::filesystem;

struct Format
{
    std::string_view extension;
    Component component;
    std::string_view filter;
};

constexpr std::array<Format, 7> formats = {{
    {".doc", Component::Writer, "MS Word 97"},
    {".docx", Component::Writer, "MS Word 2007 XML"},
    {".rtf", Component::Writer, "Rich Text Format"},
    {".ppt", Component::Impress, "MS PowerPoint 97"},
    {".pptx", Component::Impress, "Impress MS PowerPoint 2007 XML"},
    {".xls", Component::Calc, "MS Excel 97"},
    {".xlsx", Component::Calc, "Calc MS Excel 2007 XML"},
}};

struct ComponentFile
{
    Component component;
    std::string_view package;
    std::string_view registry;
};

constexpr std::array<ComponentFile, 3> components = {{
    {Component::Writer, "libreoffice-writer-nogui", "writer.xcd"},
    {Component::Calc, "libreoffice-calc-nogui", "calc.xcd"},
    {Component::Impress, "libreoffice-impress-nogui", "impress.xcd"},
}};

// The first start initialises the profile and requests a restart; after this many starts it will never convert.
constexpr int mostStarts = 3;
constexpr int restartStatus = 81;
constexpr std::chrono::seconds wallSeconds{60};
constexpr std::chrono::seconds wallSecondsPerPage{2};
constexpr double ticksError = 0.8;

// LibreOffice creates its socket in the first of these folders that is writable, regardless of TMPDIR.
constexpr std::array<const char *, 2> socketFolders = {"/tmp", "/var/tmp"};
constexpr std::string_view socketPrefix = "OSL_PIPE_";

// If the profile contains a version newer than its own, LibreOffice skips the tests of its drawing code that it runs
// after an update, which take ten times as long as a conversion.
constexpr std::string_view profileSettings = R"(<?xml version="1.0" encoding="UTF-8"?>
<oor:items xmlns:oor="http://openoffice.org/2001/registry" xmlns:xs="http://www.w3.org/2001/XMLSchema" xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance">
<item oor:path="/org.openoffice.Office.Common/Misc"><prop oor:name="FirstRun" oor:op="fuse"><value>false</value></prop></item>
<item oor:path="/org.openoffice.Setup/Office"><prop oor:name="ooSetupInstCompleted" oor:op="fuse"><value>true</value></prop></item>
<item oor:path="/org.openoffice.Setup/Product"><prop oor:name="ooSetupLastVersion" oor:op="fuse"><value>99.9</value></prop></item>
</oor:items>
)";

const ComponentFile &fileOf(Component component)
{
    return *std::find_if(
        components.begin(), components.end(), [&](const auto &each) { return each.component == component; });
}

bool hasComponent(const std::string &program, Component component)
{
    const fs::path registry = fs::path(program).parent_path().parent_path() / "share/registry";
    std::error_code error;
    // Installations without this file have a different layout; then the export fails if a component is missing.
    return !fs::exists(registry / "main.xcd", error) || fs::exists(registry / fileOf(component).registry, error);
}

/// The build ID from the installation's settings; empty if they have none.
std::string buildIdOf(const std::string &program)
{
    std::ifstream settings(fs::path(program).parent_path() / "versionrc");
    constexpr std::string_view key = "buildid=";
    for (std::string line; std::getline(settings, line);) {
        if (line.compare(0, key.size(), key) == 0) {
            return line.substr(key.size());
        }
    }
    return {};
}

void writeText(const fs::path &path, std::string_view text)
{
    const auto check = [&path](bool good, int error) {
        if (!good) {
            throw Failure(ExitStatus::CannotWrite, "cannot write " + path.string() + ": " + std::strerror(error));
        }
    };
    std::error_code error;
    fs::create_directories(path.parent_path(), error);
    check(!error, error.value());
    errno = 0;
    std::ofstream file(path);
    file << text;
    file.close();
    check(file.good(), errno);
}

void prepareProfile(const std::string &profile, const std::string &program)
{
    writeText(profile + "/user/registrymodifications.xcu", profileSettings);
    // If this contains its own build ID, it does not have to initialise its extensions and restart.
    const std::string buildId = buildIdOf(program);
    if (!buildId.empty()) {
        writeText(profile + "/user/extensions/buildid", buildId);
    }
}

/// The file: URL with the same escapes as LibreOffice uses, which derives the name of its socket from it.
std::string fileAddress(const std::string &path)
{
    return "file://" + QUrl::toPercentEncoding(QString::fromStdString(path), "!$&'()*+,/:=@").toStdString();
}

/// The URL as an argument of -env, in which an unescaped $ starts the name of a variable.
std::string optionValue(const std::string &address)
{
    return QByteArray::fromStdString(address).replace('$', "%24").toStdString();
}

std::string profileIn(const std::string &folder)
{
    return folder + "/profile";
}

bool startsWith(std::string_view text, std::string_view start)
{
    return text.substr(0, start.size()) == start;
}

bool endsWith(std::string_view text, std::string_view end)
{
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

/// Removes the sockets of these profiles, whoever's they are. LibreOffice prefixes the name with a user ID, unless it
/// cannot tell it, so sockets are identified by the rest of the name.
void removeSockets(const std::vector<std::string> &profileAddresses)
{
    if (profileAddresses.empty()) {
        return;
    }
    std::vector<std::string> names;
    names.reserve(profileAddresses.size());
    for (const std::string &address : profileAddresses) {
        names.push_back(socketName(address));
    }
    for (const char *folder : socketFolders) {
        std::error_code error;
        for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
            const std::string found = entry->path().filename().string();
            const auto isFound = [&found](const std::string &name) { return endsWith(found, name); };
            if (startsWith(found, socketPrefix) && std::any_of(names.begin(), names.end(), isFound)) {
                unlink(entry->path().c_str());
            }
        }
    }
}

/// Removes the socket of a profile of this user. Unlike removeSockets(), it does not list the folders, which a guarded
/// process cannot.
void removeOwnSocket(const std::string &profileAddress)
{
    const std::string name = socketName(profileAddress);
    for (const char *folder : socketFolders) {
        std::string path = std::string(folder) + "/" + std::string(socketPrefix);
        unlink((path + name).c_str());
        path.append(std::to_string(getuid())).append("_").append(name);
        unlink(path.c_str());
    }
}

// Where the packages of distributions keep parts of the installation, to which it has links.
constexpr std::array<const char *, 3> linkedFolders = {
    "/etc/libreoffice", "/var/lib/libreoffice", "/var/spool/libreoffice"};

using guards::Access;

/// What LibreOffice needs, besides fonts and libraries of the system.
guards::FileRules officeRules(const std::string &program, const std::string &folder)
{
    guards::FileRules rules = guards::programFiles(program);
    std::error_code error;
    const fs::path real = fs::canonical(program, error);
    // Another folder may be that of a script, such as the user's home.
    if (!error && real.parent_path().filename() == "program") {
        rules.push_back({Access::Read, real.parent_path().parent_path().string()});
    }
    for (const char *linked : linkedFolders) {
        rules.push_back({Access::Read, linked});
    }
    for (const char *sockets : socketFolders) {
        rules.push_back({Access::Sockets, sockets});
    }
    rules.push_back({Access::ChangeAll, folder});
    return rules;
}

/// Processor time of all child processes that have been reaped.
std::chrono::microseconds timeOfChildren()
{
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    return std::chrono::seconds{usage.ru_utime.tv_sec + usage.ru_stime.tv_sec} +
           std::chrono::microseconds{usage.ru_utime.tv_usec + usage.ru_stime.tv_usec};
}

void checkEnd(const ChildResult &result, std::chrono::seconds limit)
{
    switch (result.end) {
    case ChildEnd::Exited:
        if (result.status != 0) {
            throw Failure(ExitStatus::Helper, "LibreOffice exited with exit status " + std::to_string(result.status));
        }
        return;
    case ChildEnd::Signalled:
        throw Failure(ExitStatus::Helper, "LibreOffice was terminated by signal " + std::to_string(result.status));
    case ChildEnd::TimedOut:
        throw Failure(
            ExitStatus::Limit, "LibreOffice did not finish within " + std::to_string(limit.count()) + " seconds");
    case ChildEnd::NotStarted:
        throw Failure(ExitStatus::Helper, "LibreOffice could not be started");
    }
}

} // namespace

std::vector<std::string> officeCandidates(const char *named, const char *searchPath)
{
    if (named && *named) {
        return {named};
    }
    std::vector<std::string> candidates = {
        "/usr/lib/libreoffice/program/soffice.bin",
        "/usr/lib64/libreoffice/program/soffice.bin",
        "/Applications/LibreOffice.app/Contents/MacOS/soffice",
    };
    std::istringstream folders(searchPath ? searchPath : "");
    for (std::string folder; std::getline(folders, folder, ':');) {
        std::error_code error;
        // The launcher is a link to a script in the folder of the executable, or is in that folder itself.
        const fs::path launcher = fs::canonical(fs::path(folder) / "soffice", error);
        if (!error && !folder.empty()) {
            candidates.push_back((launcher.parent_path() / "soffice.bin").string());
        }
    }
    return candidates;
}

std::string findOffice(const std::vector<std::string> &candidates, Component component)
{
    const std::string package(fileOf(component).package);
    bool incomplete = false;
    for (const std::string &candidate : candidates) {
        if (access(candidate.c_str(), X_OK) != 0) {
            continue;
        }
        if (hasComponent(candidate, component)) {
            return candidate;
        }
        incomplete = true;
    }
    throw Failure(
        ExitStatus::Helper,
        incomplete
            ? "this output requires a component of LibreOffice that is not installed: install the package " + package
            : "this output requires LibreOffice, which is not installed: install the package " + package);
}

std::string socketName(const std::string &profileAddress)
{
    const QString address = QString::fromStdString(profileAddress);
    const QByteArrayView utf16(reinterpret_cast<const char *>(address.utf16()), 2 * address.size());
    QByteArray name = "SingleOfficeIPC_";
    // Bytes in hexadecimal without leading zeros, like LibreOffice does.
    const QByteArray digest = QCryptographicHash::hash(utf16, QCryptographicHash::Md5);
    for (const char byte : digest) {
        name += QByteArray::number(static_cast<unsigned char>(byte), 16);
    }
    return name.toStdString();
}

void sweepSockets()
{
    std::vector<std::string> addresses;
    for (const std::string &folder : abandonedTempFolders()) {
        addresses.push_back(fileAddress(profileIn(folder)));
    }
    removeSockets(addresses);
}

guards::FileRules exportRules(const std::string &program, const std::string &folder)
{
    guards::FileRules rules = officeRules(program, folder);
    rules.push_back({Access::RemoveFolders, folderOf(folder)});
    return rules;
}

std::string exportFile(
    const TempFolder &folder, const std::string &program, const std::string &sourcePath, std::string_view extension,
    int pageCount, std::chrono::milliseconds processorTime)
{
    const auto format =
        std::find_if(formats.begin(), formats.end(), [&](const Format &each) { return each.extension == extension; });
    if (format == formats.end()) {
        throw Failure(ExitStatus::Usage, "no office format has the extension " + std::string(extension));
    }

    ChildCommand command;
    command.program = program;
    const std::string profile = profileIn(folder.path());
    const std::string address = fileAddress(profile);
    const std::string outFolder = folder.path() + "/out";
    prepareProfile(profile, command.program);
    command.arguments = {
        "--headless", "--nologo", "--nodefault", "--norestore", "--nolockcheck",
        "-env:UserInstallation=" + optionValue(address),
        // Otherwise LibreOffice, if run by root, creates this folder in its installation, inaccessible to other users.
        "-env:UNO_SHARED_PACKAGES_CACHE=" + optionValue(address) + "/shared_packages", "--convert-to",
        std::string(extension.substr(1)) + ":" + std::string(format->filter), "--outdir", outFolder, sourcePath};
    command.environment = {"HOME=" + folder.path(), "TMPDIR=" + folder.path()};
    command.workingFolder = folder.path();
#ifndef QUORRA_SANITIZED
    command.addressSpaceBytes = limits::helperAddressSpaceBytes;
#endif
    const auto seconds = std::chrono::floor<std::chrono::seconds>(processorTime);
    command.cpuSeconds =
        static_cast<unsigned>(std::clamp<std::chrono::seconds::rep>(seconds.count(), 1, limits::helperCpuSeconds));
    const std::chrono::seconds limit = wallSeconds + pageCount * wallSecondsPerPage;
    command.wallLimit = limit;

    progress::show("Exporting with LibreOffice");
    if (!guards::isScript(program)) {
        command.files = officeRules(program, folder.path());
        append(command.files, guards::systemFiles());
        append(command.files, guards::fontFiles());
    }

    const std::chrono::microseconds before = timeOfChildren();
    ChildResult result;
    int starts = 0;
    do {
        result = runChild(command);
    } while (result.end == ChildEnd::Exited && result.status == restartStatus && ++starts < mostStarts);
    // It removes its socket unless it is killed.
    removeOwnSocket(address);
    // The system kills it at this limit, or slightly earlier, because it counts clock ticks.
    if (result.end == ChildEnd::Signalled &&
        timeOfChildren() - before >= ticksError * std::chrono::seconds{command.cpuSeconds}) {
        throw Failure(ExitStatus::Limit, "LibreOffice exceeded the processor time allowed for the file");
    }
    checkEnd(result, limit);

    std::string made = outFolder + "/" + fs::path(sourcePath).stem().string() + std::string(extension);
    std::error_code error;
    if (fs::file_size(made, error) == 0 || error) {
        throw Failure(
            ExitStatus::Helper, "LibreOffice wrote no file; is the package " +
                                    std::string(fileOf(format->component).package) + " installed?");
    }
    return made;
}

} // namespace quorra::office
