// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/options.h"

#include "base/failure.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace quorra {

namespace {

constexpr std::string_view usageText = "usage: Qtminw [options] -call INPUT OUTPUT (see Qtminw --help)";

// The column of the help text in which descriptions begin.
constexpr std::size_t descriptionColumn = 16;
constexpr std::size_t helpWidth = 80; // characters; of the list of extensions

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

/// Checks names of recognition data that are joined by "+". Throws Failure(Usage) for anything else.
std::vector<std::string> languages(const std::string &option, const std::string &text)
{
    std::vector<std::string> names(1);
    for (const char c : text) {
        const bool isName = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
        if (c == '+') {
            names.emplace_back();
        } else if (isName) {
            names.back() += c;
        } else {
            names.assign(1, {});
            break;
        }
    }
    if (std::find(names.begin(), names.end(), std::string()) != names.end()) {
        throw Failure(ExitStatus::Usage, "option " + option + " requires names such as eng or deu+eng");
    }
    return names;
}

/// The headings of the help text, in its order.
enum class Group {
    Pages,
    Passwords,
    Sizes,
    Images,
    Documents,
    Names,
};

constexpr std::array<std::string_view, 6> groupTitles = {
    "Pages", "Passwords", "Sizes and resolution", "Images", "Documents", "Names of output files",
};

struct Switch
{
    std::string_view name;
    Group group;
    std::string_view help;
    void (*set)(Options &);
};

constexpr std::array<Switch, 6> switches = {{
    {"-tempname1", Group::Names, "use the template even if there is only one output file",
     [](Options &o) { o.tempNameForSingle = true; }},
    {"-mono", Group::Images, "black and white", [](Options &o) { o.colourDepth = ColourDepth::Mono; }},
    {"-gray", Group::Images, "grey", [](Options &o) { o.colourDepth = ColourDepth::Gray; }},
    {"-multipage", Group::Images, ".tif, .tiff: all pages in one file", [](Options &o) { o.multipage = true; }},
    {"-htmlformat", Group::Documents, ".xml: write XHTML", [](Options &o) { o.htmlFormat = true; }},
    {"-noocr", Group::Documents, "leave the text in scanned pages unread", [](Options &o) { o.recogniseText = false; }},
}};

struct ValueOption
{
    std::string_view name;
    std::string_view value; ///< its name in the help text
    Group group;
    std::string_view help;
    void (*set)(Options &, const std::string &option, const std::string &value);
};

using Text = const std::string &;

constexpr std::array<ValueOption, 12> valueOptions = {{
    {"-tempname", "T", Group::Names, "images, EPS: template; %d or %03d becomes 1, 2, ...",
     [](Options &o, Text, Text value) { o.tempName = value; }},
    {"-f", "N", Group::Pages, "first page, counted from 1",
     [](Options &o, Text name, Text value) { o.firstPage = number(name, value, 1); }},
    {"-l", "N", Group::Pages, "last page",
     [](Options &o, Text name, Text value) { o.lastPage = number(name, value, 1); }},
    {"-width", "W", Group::Sizes, "images: width in pixels; others: of the paper, in pixels of -xres or 1/96 inch",
     [](Options &o, Text name, Text value) { o.width = number(name, value, 1); }},
    {"-height", "H", Group::Sizes, "the same for the height; if only one is given, proportions are kept",
     [](Options &o, Text name, Text value) { o.height = number(name, value, 1); }},
    {"-xres", "X", Group::Sizes, "horizontal resolution of pictures in dots per inch, 150 if not given",
     [](Options &o, Text name, Text value) { o.xres = number(name, value, 1); }},
    {"-yres", "Y", Group::Sizes, "the same for the vertical resolution; if only one is given, it is used for both",
     [](Options &o, Text name, Text value) { o.yres = number(name, value, 1); }},
    {"-compress", "C", Group::Images,
     ".tif, .tiff: 1 none, 3 or 88884 Group 3, 4 Group 4, 5 LZW, 32773 PackBits,\n"
     "88882 or 88883 Class F",
     [](Options &o, Text name, Text value) { o.compression = compression(name, value); }},
    {"-wordmode", "M", Group::Documents,
     ".doc, .docx, .rtf: 0 automatic, 1 text boxes, 2 exact positions,\n"
     "3 flowing text, 4 continuous text",
     [](Options &o, Text name, Text value) { o.wordMode = wordMode(name, value); }},
    {"-ocrlang", "L", Group::Documents,
     "languages of scanned pages, such as deu+eng; if not given, that of the\n"
     "file or of the system, and English",
     [](Options &o, Text name, Text value) { o.recognitionLanguages = languages(name, value); }},
    {"-upw", "P", Group::Passwords, "user password", [](Options &o, Text, Text value) { o.userPassword = value; }},
    {"-opw", "P", Group::Passwords, "owner password", [](Options &o, Text, Text value) { o.ownerPassword = value; }},
}};

template <typename Table>
auto find(const Table &table, std::string_view name)
{
    const auto found = std::find_if(table.begin(), table.end(), [&](const auto &row) { return row.name == name; });
    return found == table.end() ? nullptr : &*found;
}

/// One entry of the help text: the option, and its description in a column of its own.
std::string helpLine(const std::string &option, std::string_view help)
{
    std::string line = "  " + option;
    line.append(descriptionColumn - line.size(), ' ');
    for (const char each : help) {
        line += each;
        if (each == '\n') {
            line.append(descriptionColumn, ' ');
        }
    }
    return line + '\n';
}

} // namespace

std::string helpText(const std::vector<std::string_view> &extensions)
{
    std::string text = "Usage: Qtminw [options] -call INPUT OUTPUT\n"
                       "       Qtminw --help | --version\n\n"
                       "Converts the PDF file INPUT. The extension of OUTPUT selects the format:\n";
    std::size_t width = helpWidth;
    for (const std::string_view extension : extensions) {
        const bool fits = width + 1 + extension.size() <= helpWidth;
        text.append(fits ? " " : text.back() == '\n' ? "  " : "\n  ").append(extension);
        width = fits ? width + 1 + extension.size() : 2 + extension.size();
    }
    text += '\n';
    for (std::size_t i = 0; i < groupTitles.size(); ++i) {
        const auto group = static_cast<Group>(i);
        text.append("\n").append(groupTitles[i]).append(":\n");
        for (const ValueOption &option : valueOptions) {
            if (option.group == group) {
                text += helpLine(std::string(option.name) + ' ' + std::string(option.value), option.help);
            }
        }
        for (const Switch &option : switches) {
            if (option.group == group) {
                text += helpLine(std::string(option.name), option.help);
            }
        }
    }
    return text;
}

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
