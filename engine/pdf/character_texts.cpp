// SPDX-License-Identifier: GPL-3.0-or-later
#include "character_texts.h"

#include <GfxFont.h>
#include <GlobalParams.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <string>

namespace quorra {

namespace {

constexpr Unicode firstPrivate = 0xe000;
constexpr Unicode lastPrivate = 0xf8ff;
constexpr Unicode lastByte = 0xff;
constexpr int bitsOfByte = 8;
constexpr int minSwapped = 4;     // characters of a font; fewer could be ideographs whose lower byte happens to be zero
constexpr std::size_t minRun = 4; // codes; fewer may follow one another by chance
constexpr int decimal = 10;
constexpr int hexadecimal = 16;

bool isPrivate(Unicode c)
{
    return c >= firstPrivate && c <= lastPrivate;
}

Unicode characterOfPlainName(const std::string &name)
{
    const Unicode known = globalParams->mapNameToUnicodeText(name.c_str());
    if (known != 0) {
        return isPrivate(known) ? static_cast<Unicode>(plainSymbol(SymbolFont::None, known)) : known;
    }
    constexpr std::size_t shortest = 4; // digits
    constexpr std::size_t longest = 6;
    const std::size_t prefix = name.rfind("uni", 0) == 0 ? 3 : name.rfind('u', 0) == 0 ? 1 : 0;
    const std::string digits = name.substr(prefix);
    if (prefix == 0 || digits.size() < shortest || digits.size() > longest ||
        digits.find_first_not_of("0123456789ABCDEF") != std::string::npos) {
        return 0;
    }
    return static_cast<Unicode>(std::strtoul(digits.c_str(), nullptr, hexadecimal));
}

struct Answer
{
    CharCode code = 0;
    const Unicode *text = nullptr;
    int length = 0;
};

/// What the library gives for the first code in the bytes of a string.
Answer answerFor(const GfxFont &font, const char *bytes, int count)
{
    Answer answer;
    double ignored[4] = {};
    font.getNextChar(
        bytes, count, &answer.code, &answer.text, &answer.length, &ignored[0], &ignored[1], &ignored[2], &ignored[3]);
    return answer;
}

/// The name of the glyph with that code if it has a number that only counts the glyphs, as in "g37". A number that is
/// the code itself ("a65", or "G41" in base 16) says what the glyph is.
const char *countingName(const Gfx8BitFont &font, CharCode code, std::array<long, 3> &numbers)
{
    const char *name = font.getCharName(static_cast<int>(code));
    const char *digits = name ? std::strpbrk(name, "0123456789") : nullptr;
    if (!digits || characterOfGlyphName(name) != 0) {
        return nullptr;
    }
    numbers = {
        std::strtol(digits, nullptr, decimal),
        std::strtol(std::strpbrk(name, "0123456789abcdefABCDEF"), nullptr, hexadecimal),
        std::strtol(name + 1, nullptr, hexadecimal)};
    const bool isCode = std::find(numbers.begin(), numbers.end(), static_cast<long>(code)) != numbers.end();
    return isCode ? nullptr : name;
}

/// The codes for which the library makes up characters: from the number in the glyph's name or, where codes count the
/// glyphs without a hole too, from the code.
template <std::size_t count>
std::bitset<count> guessedCodes(const Gfx8BitFont &font)
{
    std::bitset<count> guessed;
    std::bitset<count> fromCode;
    for (CharCode code = 0; code < count; ++code) {
        std::array<long, 3> numbers{};
        if (!countingName(font, code, numbers)) {
            continue;
        }
        const char byte = static_cast<char>(code);
        const Answer answer = answerFor(font, &byte, 1);
        const long text = answer.length == 1 ? static_cast<long>(answer.text[0]) : -1;
        fromCode[code] = text == static_cast<long>(code);
        guessed[code] = !fromCode[code] && std::find(numbers.begin(), numbers.end(), text) != numbers.end();
    }
    // A run has one beginning.
    const bool isRun = fromCode.count() >= minRun && (fromCode & ~(fromCode << 1)).count() == 1;
    return isRun ? guessed | fromCode : guessed;
}

/// Whether the answer for a character of a font of signs is the letter in whose place the sign stands. The signs of the
/// font Symbol include some of Latin-1, which are right.
bool isPlaceholder(SymbolFont symbols, CharCode code, Unicode c)
{
    constexpr Unicode middleDot = 0xb7;
    const bool isLetter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    return c > ' ' && c <= lastByte && (symbols != SymbolFont::Symbol || c == code || isLetter || c == middleDot);
}

/// Whether the bytes of all characters in the font's map to Unicode are exchanged: Latin letters look like ideographs.
bool isSwapped(const GfxFont &font)
{
    constexpr unsigned codes = 0x10000;
    int swapped = 0;
    for (unsigned code = 0; code < codes && font.isCIDFont() && font.hasToUnicodeCMap(); ++code) {
        const char bytes[] = {static_cast<char>(code >> bitsOfByte), static_cast<char>(code & lastByte)};
        const Answer answer = answerFor(font, bytes, 2);
        for (int i = 0; i < answer.length; ++i) {
            const Unicode c = answer.text[i];
            if ((c & lastByte) != 0 || c < (static_cast<Unicode>(' ') << bitsOfByte)) {
                return false;
            }
            ++swapped;
        }
    }
    return swapped >= minSwapped;
}

} // namespace

Unicode characterOfGlyphName(const char *name)
{
    if (!name || std::strcmp(name, ".notdef") == 0) {
        return 0;
    }
    std::string plain = name;
    if (const std::size_t dot = plain.find('.'); dot != std::string::npos && dot > 0) {
        plain.erase(dot);
    }
    if (const Unicode c = characterOfPlainName(plain)) {
        return c;
    }
    // Sizes, and parts of brackets that are put together of several glyphs.
    for (const char *suffix : {"Bigg", "bigg", "Big", "big", "display", "text"}) {
        const std::size_t length = std::strlen(suffix);
        if (plain.size() > length && plain.compare(plain.size() - length, length, suffix) == 0) {
            return characterOfPlainName(plain.substr(0, plain.size() - length));
        }
    }
    return 0;
}

const Ref &CharacterTexts::idOf(const GfxFont &font)
{
    return *font.getID();
}

CharacterTexts::Facts CharacterTexts::factsOf(const GfxFont &font)
{
    Facts facts;
    facts.isSwapped = isSwapped(font);
    facts.symbols = symbolFontOf(font.getName().value_or(std::string()));
    if (!font.isCIDFont() && !font.hasToUnicodeCMap() && facts.symbols == SymbolFont::None) {
        facts.guessed = guessedCodes<codesOf8BitFont>(static_cast<const Gfx8BitFont &>(font));
    }
    facts.isPlain = !facts.isSwapped && facts.symbols == SymbolFont::None && facts.guessed.none();
    return facts;
}

CharacterTexts::Text CharacterTexts::single(Unicode c)
{
    m_single = c;
    return {&m_single, 1};
}

CharacterTexts::Text CharacterTexts::corrected(const GfxFont &font, CharCode code, const Unicode *text, int length)
{
    if (!m_current || m_id != idOf(font)) {
        m_id = idOf(font);
        const auto known = m_facts.find(m_id);
        m_current = &(known == m_facts.end() ? m_facts.emplace(m_id, factsOf(font)).first : known)->second;
    }
    const Facts &facts = *m_current;
    const Unicode first = length > 0 ? text[0] : 0;
    if (facts.isSwapped && length == 1) {
        return single(first >> bitsOfByte);
    }
    if (facts.symbols != SymbolFont::None && length == 1 && isPlaceholder(facts.symbols, code, first)) {
        const auto symbol = static_cast<Unicode>(symbolOf(facts.symbols, first));
        return symbol != 0 ? single(symbol) : facts.symbols == SymbolFont::Unknown ? Text{} : Text{text, length};
    }
    const bool guessed = code < codesOf8BitFont && facts.guessed[code];
    if (length > 0 && !guessed && !isDoubtful(first)) {
        return {text, length};
    }
    if (isPrivate(first)) {
        if (const char32_t plain = plainSymbol(facts.symbols, first)) {
            return single(static_cast<Unicode>(plain));
        }
    }
    if (!font.isCIDFont() && code < codesOf8BitFont) {
        const char *name = static_cast<const Gfx8BitFont &>(font).getCharName(static_cast<int>(code));
        if (const Unicode named = characterOfGlyphName(name)) {
            return single(named);
        }
    }
    // Control characters are mostly blank.
    return first < ' ' && length > 0 && !guessed ? Text{text, length} : Text{};
}

} // namespace quorra
