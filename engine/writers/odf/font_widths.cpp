// SPDX-License-Identifier: GPL-3.0-or-later
#include "odf/font_widths.h"

#include "document/font_family.h"
#include "font_width_table.h"

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

Face faceOf(const model::Style &style)
{
    if (fontKind(style) != model::FontKind::Serif) {
        return style.bold ? SansBold : SansRegular;
    }
    if (style.bold) {
        return style.italic ? SerifBoldItalic : SerifBold;
    }
    return style.italic ? SerifItalic : SerifRegular;
}

/// Returns the index of the character in the table; nothing if it is not there.
std::optional<std::size_t> indexOf(char16_t character)
{
    std::size_t before = 0; // characters in the ranges so far
    for (const CharacterRange &range : measuredCharacters) {
        if (character >= range.first && character <= range.last) {
            return before + (character - range.first);
        }
        before += static_cast<std::size_t>(range.last - range.first) + 1;
    }
    return std::nullopt;
}

} // namespace

QString measuredFamily(const model::Style &style)
{
    switch (fontKind(style)) {
    case model::FontKind::FixedPitch:
        return u"Courier New"_s;
    case model::FontKind::Serif:
        return u"Times New Roman"_s;
    default:
        return u"Arial"_s;
    }
}

std::optional<double> textWidth(const QString &text, const model::Style &style)
{
    const auto &widths = characterWidths[faceOf(style)];
    double width = 0;
    for (const QChar character : text) {
        const std::optional<std::size_t> index = indexOf(character.unicode());
        if (!index) {
            return std::nullopt;
        }
        width += style.fixedPitch ? fixedPitchWidth : widths[*index] / 1000.0;
    }
    return width * style.size;
}

} // namespace quorra::office
