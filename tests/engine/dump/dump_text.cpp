// SPDX-License-Identifier: GPL-3.0-or-later
#include "dump_text.h"

#include <QList>

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace quorra::test {

namespace {

std::string hexadecimal(char32_t character)
{
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "\\u{%02X}", static_cast<unsigned>(character));
    return text.data();
}

} // namespace

std::string whole(double value)
{
    return std::to_string(std::lround(value));
}

std::string tenths(double value)
{
    const long tenth = std::lround(value * 10);
    std::string text = tenth < 0 ? "-" : "";
    text += std::to_string(std::labs(tenth) / 10);
    if (tenth % 10 != 0) {
        text += '.';
        text += std::to_string(std::labs(tenth) % 10);
    }
    return text;
}

std::string box(const Box &box)
{
    return whole(box.left) + "," + whole(box.top) + "-" + whole(box.right) + "," + whole(box.bottom);
}

std::string colour(Colour colour)
{
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "#%06x", static_cast<unsigned>(colour));
    return text.data();
}

std::string visible(const QString &text)
{
    std::string result;
    for (const uint codePoint : text.toUcs4()) {
        const char32_t character = codePoint;
        if (character == U'\n') {
            result += "↵";
        } else if (character != U' ' && (!QChar::isPrint(character) || QChar::isSpace(character))) {
            result += hexadecimal(character);
        } else {
            result += QString::fromUcs4(&character, 1).toStdString();
        }
    }
    return result;
}

std::string styleText(const model::Style &style, const QString &link)
{
    return joined(
        {visible(style.family), tenths(style.size), style.bold ? "bold" : "", style.italic ? "italic" : "",
         style.underlined ? "underlined" : "", style.struckThrough ? "struck" : "",
         style.colour == black ? "" : colour(style.colour), link.isEmpty() ? "" : "link " + visible(link)},
        " ");
}

std::string joined(const std::vector<std::string> &parts, std::string_view separator)
{
    std::string text;
    for (const std::string &part : parts) {
        if (!part.empty() && !text.empty()) {
            text += separator;
        }
        text += part;
    }
    return text;
}

} // namespace quorra::test
