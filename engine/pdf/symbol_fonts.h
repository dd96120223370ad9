// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace quorra {

/// Fonts of signs whose characters stand in the places of letters.
enum class SymbolFont {
    None,
    Symbol,     ///< Greek letters and mathematical signs
    Dingbats,   ///< ornaments, numbered as in PDF's ZapfDingbats
    Wingdings,  ///< arrows, boxes and bullets
    Wingdings2, ///< ticks and check boxes
    Wingdings3, ///< arrows
    Unknown     ///< signs in an order that is not known here
};

/// Which of them a PostScript font name such as "ABCDEF+Wingdings-Regular" denotes.
SymbolFont symbolFontOf(const std::string &name);

/// The Unicode character in the place `code` (0 to 255) of the font; 0 if it is not known.
char32_t symbolOf(SymbolFont font, unsigned code);

/// The plain character for a private code point: U+F000 to U+F0FF stand for the places of a font of signs, U+F8E5 to
/// U+F8FE for parts of large brackets. 0 if the code point is not known.
char32_t plainSymbol(SymbolFont font, char32_t privateCode);

} // namespace quorra
