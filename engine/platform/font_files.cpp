// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/system_files.h"

#include <QByteArray>
#include <QString>
#include <QXmlStreamReader>

#include <algorithm>
#include <array>
#include <climits>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include <unistd.h>

namespace quorra::guards {

namespace {

namespace fs = std::filesystem;

constexpr int deepestInclude = 8;
constexpr std::size_t mostBytes = 64 * 1024; ///< of a file; the largest of Debian has a third of it
constexpr const char *systemFolder = "/etc/fonts";
constexpr std::string_view sharedData = "/usr/share/"; ///< see systemFiles()

/// Elements that name folders, without which a file need not be parsed. Most files have only rules for fonts.
constexpr std::array<std::string_view, 3> folderElements = {"<dir", "<cachedir", "<include"};

/// Used whatever the configuration says: it may be missing.
constexpr std::array systemFonts = {"/usr/share/fonts", "/usr/local/share/fonts", "/var/cache/fontconfig"};

std::string valueOf(const char *name)
{
    const char *const value = std::getenv(name);
    return value ? value : "";
}

/// A folder that $NAME sets, or else the one in the home; empty without a home.
std::string userFolder(const char *name, const char *inHome)
{
    const std::string set = valueOf(name);
    const std::string home = valueOf("HOME");
    return !set.empty() ? set : home.empty() ? "" : home + inHome;
}

/// Where a value of the attribute "prefix" leads to, for one element.
struct Prefix
{
    QLatin1String element;
    const char *variable;
    const char *inHome;
};

constexpr std::array<Prefix, 3> xdgPrefixes = {{
    {QLatin1String("dir"), "XDG_DATA_HOME", "/.local/share"},
    {QLatin1String("cachedir"), "XDG_CACHE_HOME", "/.cache"},
    {QLatin1String("include"), "XDG_CONFIG_HOME", "/.config"},
}};

/// Follows the configuration of fontconfig from file to file.
class FontConfiguration
{
public:
    FileRules rules;

    /// Paths in its files are relative to the folder.
    explicit FontConfiguration(fs::path folder) : m_folder(std::move(folder)) {}

    /// Adds the file or folder and what it names.
    void add(const fs::path &path, int depth = 0)
    {
        std::error_code error;
        if (depth > deepestInclude || !m_seen.insert(path.string()).second) {
            return;
        }
        rules.push_back({Access::Read, path.string()});
        if (!fs::is_directory(path, error)) {
            addFile(path, depth);
            return;
        }
        for (fs::directory_iterator entry(path, error), end; !error && entry != end; entry.increment(error)) {
            if (entry->path().extension() != ".conf") {
                continue;
            }
            if (entry->is_symlink(error) && leadsElsewhere(*entry)) {
                rules.push_back({Access::Read, entry->path().string()});
            }
            addFile(entry->path(), depth);
        }
    }

private:
    /// Most are links to files that there are rules for already, which saves time.
    bool leadsElsewhere(const fs::directory_entry &link) const
    {
        std::array<char, PATH_MAX> text;
        const ssize_t size = readlink(link.path().c_str(), text.data(), text.size());
        const std::string_view read(text.data(), static_cast<std::size_t>(std::max<ssize_t>(0, size)));
        const std::string target = (link.path().parent_path() / read).lexically_normal().string();
        const auto isBelow = [&target](std::string_view folder) {
            return target.compare(0, folder.size(), folder) == 0;
        };
        return !isBelow(sharedData) && !isBelow((m_folder / "").native());
    }

    void addFile(const fs::path &path, int depth)
    {
        const std::string content = startOf(path.string(), mostBytes);
        if (content.empty()) {
            return;
        }
        const auto isIn = [&content](std::string_view element) { return content.find(element) != std::string::npos; };
        if (std::any_of(folderElements.begin(), folderElements.end(), isIn)) {
            parse(path, content, depth);
        }
    }

    void parse(const fs::path &path, const std::string &content, int depth)
    {
        QXmlStreamReader reader(QByteArray::fromStdString(content));
        while (!reader.atEnd()) {
            if (reader.readNext() != QXmlStreamReader::StartElement) {
                continue;
            }
            const QString element = reader.name().toString();
            const auto prefix = std::find_if(
                xdgPrefixes.begin(), xdgPrefixes.end(), [&](const Prefix &each) { return each.element == element; });
            if (prefix == xdgPrefixes.end()) {
                continue;
            }
            const QString kind = reader.attributes().value(QLatin1String("prefix")).toString();
            const std::string text =
                reader.readElementText(QXmlStreamReader::SkipChildElements).trimmed().toStdString();
            const fs::path named = resolved(*prefix, kind, text, path.parent_path());
            if (named.empty()) {
                continue;
            }
            if (element == QLatin1String("include")) {
                add(named, depth + 1);
                continue;
            }
            append(rules, linkedFolder(named.string()));
            if (element == QLatin1String("dir") && kind == QLatin1String("xdg")) {
                appendSystemFolders(text);
            }
        }
    }

    /// Folders of this name below those that the system shares.
    void appendSystemFolders(const std::string &name)
    {
        std::istringstream folders(valueOf("XDG_DATA_DIRS"));
        for (std::string folder; std::getline(folders, folder, ':');) {
            append(rules, linkedFolder((fs::path(folder) / name).string()));
        }
    }

    /// `beside` is the folder of the file that has the text.
    fs::path resolved(const Prefix &prefix, const QString &kind, const std::string &text, const fs::path &beside) const
    {
        if (text.empty()) {
            return {};
        }
        if (kind == QLatin1String("xdg")) {
            const std::string base = userFolder(prefix.variable, prefix.inHome);
            return base.empty() ? fs::path() : fs::path(base) / text;
        }
        if (text[0] == '~') {
            const std::string home = valueOf("HOME");
            return home.empty() ? fs::path() : fs::path(home + text.substr(1));
        }
        if (kind == QLatin1String("relative")) {
            return beside / text;
        }
        return prefix.element == QLatin1String("include") ? m_folder / text : fs::path(text);
    }

    fs::path m_folder;
    std::set<std::string> m_seen;
};

} // namespace

FileRules fontFiles()
{
    const std::string set = valueOf("FONTCONFIG_PATH");
    const fs::path folder = set.empty() ? systemFolder : set;
    FontConfiguration configuration(folder);
    const std::string file = valueOf("FONTCONFIG_FILE");
    configuration.rules.push_back({Access::Read, folder.string()});
    configuration.add(folder / (file.empty() ? "fonts.conf" : file));
    for (const char *each : systemFonts) {
        configuration.rules.push_back({Access::Read, each});
    }
    // What fontconfig uses without a configuration for the user.
    append(configuration.rules, linkedFolder(userFolder("XDG_DATA_HOME", "/.local/share") + "/fonts"));
    append(configuration.rules, linkedFolder(valueOf("HOME") + "/.fonts"));
    append(configuration.rules, linkedFolder(userFolder("XDG_CACHE_HOME", "/.cache") + "/fontconfig"));
    return configuration.rules;
}

} // namespace quorra::guards
