// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "symbol_fonts.h"

#include <CharTypes.h>
#include <Object.h>

#include <bitset>
#include <map>

class Gfx8BitFont;
class GfxFont;

namespace quorra {

/// What the characters of fonts stand for. The PDF library tells it by the map to Unicode in the file, or by the names
/// of the glyphs. This class corrects it where the map is missing or wrong: by other names of glyphs, by the encodings
/// of fonts of signs, and for maps whose bytes are exchanged.
class CharacterTexts
{
public:
    /// The text of a character; without any if nothing but its shape tells what it is.
    struct Text
    {
        const Unicode *unicode = nullptr;
        int length = 0;
    };

    /// Returns the text of a character with that code in the font, for which the library gives `text`. Valid until the
    /// next call.
    Text textOf(const GfxFont &font, CharCode code, const Unicode *text, int length)
    {
        if (m_current && m_id == idOf(font) && m_current->isPlain && length > 0 && !isDoubtful(text[0])) {
            return {text, length};
        }
        return corrected(font, code, text, length);
    }

private:
    static constexpr std::size_t codesOf8BitFont = 256;

    /// What is known about a font.
    struct Facts
    {
        bool isPlain = true; ///< the library's answers are right but for doubtful characters
        bool isSwapped = false;
        SymbolFont symbols = SymbolFont::None;
        std::bitset<codesOf8BitFont> guessed; ///< codes that the library took from numbers in the names of glyphs
    };

    static const Ref &idOf(const GfxFont &font);
    static bool isDoubtful(Unicode c)
    {
        constexpr Unicode firstPrivate = 0xe000;
        constexpr Unicode lastPrivate = 0xf8ff;
        constexpr Unicode replacement = 0xfffd;
        return c < ' ' || (c >= firstPrivate && c <= lastPrivate) || c == replacement;
    }
    static Facts factsOf(const GfxFont &font);
    Text corrected(const GfxFont &font, CharCode code, const Unicode *text, int length);
    Text single(Unicode c);

    std::map<Ref, Facts> m_facts;
    Ref m_id = Ref::INVALID();
    const Facts *m_current = nullptr;
    Unicode m_single = 0;
};

/// The character that the name of a glyph denotes: "bullet", "uni2022", "u1F600", "parenleftBig" (a large one), "a.alt"
/// (a variant). 0 for other names.
Unicode characterOfGlyphName(const char *name);

} // namespace quorra
