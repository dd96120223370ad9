// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/naming.h"

#include <algorithm>

namespace quorra {

namespace {

constexpr int defaultDigits = 4;
constexpr int mostDigits = 20;

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

std::string digits(int number, int width)
{
    const std::string plain = std::to_string(number);
    const std::size_t wanted = static_cast<std::size_t>(width);
    return plain.size() < wanted ? std::string(wanted - plain.size(), '0') + plain : plain;
}

struct NumberField
{
    std::size_t begin = std::string_view::npos;
    std::size_t end = 0;
    int width = 0;
};

NumberField findField(std::string_view text)
{
    for (std::size_t begin = text.find('%'); begin != std::string_view::npos; begin = text.find('%', begin + 1)) {
        std::size_t end = begin + 1;
        int width = 0;
        for (; end < text.size() && isDigit(text[end]); ++end) {
            width = std::min(width * 10 + (text[end] - '0'), mostDigits);
        }
        if (end < text.size() && text[end] == 'd') {
            return {begin, end + 1, width};
        }
    }
    return {};
}

bool sameLetters(std::string_view left, std::string_view right)
{
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    return std::equal(
        left.begin(), left.end(), right.begin(), right.end(), [&](char a, char b) { return lower(a) == lower(b); });
}

/// The output path, split into the folder with its slash, the base name, and the extension with its dot.
struct PathParts
{
    std::string_view folder;
    std::string_view base;
    std::string_view extension;
};

PathParts split(std::string_view path)
{
    const std::size_t name = path.rfind('/') + 1;
    const std::size_t dot = path.find('.', name) == std::string_view::npos ? path.size() : path.rfind('.');
    return {path.substr(0, name), path.substr(name, dot - name), path.substr(dot)};
}

} // namespace

std::string withNumber(std::string_view text, int number)
{
    const NumberField field = findField(text);
    if (field.begin == std::string_view::npos) {
        return std::string(text) + digits(number, defaultDigits);
    }
    return std::string(text.substr(0, field.begin)) + digits(number, field.width) + std::string(text.substr(field.end));
}

std::string cleanTemplate(std::string_view tempName, std::string_view extension)
{
    std::string name(tempName.substr(tempName.rfind('/') + 1));
    name.erase(
        std::remove_if(
            name.begin(), name.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7f; }),
        name.end());
    if (name.size() >= extension.size() &&
        sameLetters(std::string_view(name).substr(name.size() - extension.size()), extension)) {
        name.resize(name.size() - extension.size());
    }
    return name;
}

std::string pageFilePath(const Options &options, int position, int count)
{
    const PathParts path = split(options.outputPath);
    const std::string wanted = cleanTemplate(options.tempName, path.extension);
    const bool single = count == 1;
    std::string name;
    if (wanted.empty() || (single && !options.tempNameForSingle)) {
        name = single ? std::string(path.base) : std::string(path.base) + digits(position, defaultDigits);
    } else {
        // For a single file, a template without a number field is used unchanged.
        name = single && findField(wanted).begin == std::string_view::npos ? wanted : withNumber(wanted, position);
    }
    return std::string(path.folder) + name + std::string(path.extension);
}

} // namespace quorra
