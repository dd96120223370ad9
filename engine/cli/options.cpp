// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/options.h"

#include "base/failure.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace quorra {

namespace {

constexpr std::string_view usageText = "usage: Qtminw [options] -call INPUT OUTPUT";

constexpr std::array<Compression, 8> compressions = {
    Compression::None,     Compression::Group3OneD, Compression::Group4,     Compression::Lzw,
    Compression::PackBits, Compression::ClassFLow,  Compression::ClassFFine, Compression::Group3TwoD,
};

/// Parses a decimal number of at least `least`. Throws Failure(Usage) for any other text.
int number(const std::string &option, const std::string &text, int least)
{
    int value = 0;
    const char *const end = text.data() + text.size();
    const auto parsed = std::from_chars(text.data(), end, value);
    if (parsed.ec != std::errc() || parsed.ptr != end || value < least) {
        throw Failure(
            ExitStatus::Usage, "option " + option + " requires a whole number of at least " + std::to_string(least));
    }
    return value;
}

Compression compression(const std::string &option, const std::string &text)
{
    const auto wanted = static_cast<Compression>(number(option, text, 0));
    if (std::find(compressions.begin(), compressions.end(), wanted) == compressions.end()) {
        throw Failure(ExitStatus::Usage, "unknown value " + text + " for option " + option);
    }
    return wanted;
}

WordMode wordMode(const std::string &option, const std::string &text)
{
    const int wanted = number(option, text, 0);
    if (wanted > static_cast<int>(WordMode::Continuous)) {
        throw Failure(ExitStatus::Usage, "unknown value " + text + " for option " + option);
    }
    return static_cast<WordMode>(wanted);
}

struct Switch
{
    std::string_view name;
    void (*set)(Options &);
};

constexpr std::array<Switch, 5> switches = {{
    {"-tempname1", [](Options &o) { o.tempNameForSingle = true; }},
    {"-mono", [](Options &o) { o.colourDepth = ColourDepth::Mono; }},
    {"-gray", [](Options &o) { o.colourDepth = ColourDepth::Gray; }},
    {"-multipage", [](Options &o) { o.multipage = true; }},
    {"-htmlformat", [](Options &o) { o.htmlFormat = true; }},
}};

struct ValueOption
{
    std::string_view name;
    void (*set)(Options &, const std::string &option, const std::string &value);
};

using Text = const std::string &;

constexpr std::array<ValueOption, 11> valueOptions = {{
    {"-tempname", [](Options &o, Text, Text value) { o.tempName = value; }},
    {"-f", [](Options &o, Text name, Text value) { o.firstPage = number(name, value, 1); }},
    {"-l", [](Options &o, Text name, Text value) { o.lastPage = number(name, value, 1); }},
    {"-width", [](Options &o, Text name, Text value) { o.width = number(name, value, 1); }},
    {"-height", [](Options &o, Text name, Text value) { o.height = number(name, value, 1); }},
    {"-xres", [](Options &o, Text name, Text value) { o.xres = number(name, value, 1); }},
    {"-yres", [](Options &o, Text name, Text value) { o.yres = number(name, value, 1); }},
    {"-compress", [](Options &o, Text name, Text value) { o.compression = compression(name, value); }},
    {"-wordmode", [](Options &o, Text name, Text value) { o.wordMode = wordMode(name, value); }},
    {"-upw", [](Options &o, Text, Text value) { o.userPassword = value; }},
    {"-opw", [](Options &o, Text, Text value) { o.ownerPassword = value; }},
}};

template <typename Table>
auto find(const Table &table, std::string_view name)
{
    const auto found = std::find_if(table.begin(), table.end(), [&](const auto &row) { return row.name == name; });
    return found == table.end() ? nullptr : &*found;
}

} // namespace

Options parseOptions(const std::vector<std::string> &arguments)
{
    // The last three arguments are identified by position, so a path or a value may look like an option.
    const std::size_t count = arguments.size();
    if (count < 3 || arguments[count - 3] != "-call") {
        throw Failure(ExitStatus::Usage, std::string(usageText));
    }
    Options options;
    options.inputPath = arguments[count - 2];
    options.outputPath = arguments[count - 1];
    for (std::size_t i = 0; i < count - 3; ++i) {
        const std::string &name = arguments[i];
        if (const Switch *found = find(switches, name)) {
            found->set(options);
        } else if (const ValueOption *withValue = find(valueOptions, name)) {
            if (++i == count - 3) {
                throw Failure(ExitStatus::Usage, "option " + name + " requires a value");
            }
            withValue->set(options, name, arguments[i]);
        } else {
            // The argument itself is not shown: it may be a piece of a password that contains a quote.
            throw Failure(ExitStatus::Usage, "unknown argument at position " + std::to_string(i + 1));
        }
    }
    return options;
}

std::string outputExtension(std::string_view outputPath)
{
    const std::string_view name = outputPath.substr(outputPath.rfind('/') + 1);
    const std::size_t dot = name.rfind('.');
    std::string extension(dot == std::string_view::npos ? std::string_view() : name.substr(dot));
    std::transform(extension.begin(), extension.end(), extension.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return extension;
}

} // namespace quorra
