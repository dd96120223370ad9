// SPDX-License-Identifier: GPL-3.0-or-later
#include "symbol_fonts.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <iterator>
#include <string_view>

namespace quorra {

namespace {

/// Characters in consecutive places of a font.
struct Run
{
    unsigned first;
    std::u32string_view characters;
};

constexpr Run symbolRuns[] = {
    {0x21, U"!∀#∃%&∍()∗+,−./0123456789:;<=>?≅"},
    {0x41, U"ΑΒΧΔΕΦΓΗΙϑΚΛΜΝΟΠΘΡΣΤΥςΩΞΨΖ[∴]⊥_"},
    {0x61, U"αβχδεφγηιϕκλμνοπθρστυϖωξψζ{|}∼"},
    {0xa1, U"ϒ′≤⁄∞ƒ♣♦♥♠↔←↑→↓°±″≥×∝∂•÷≠≡≈…⏐⎯↵ℵ"},
    {0xc1, U"ℑℜ℘⊗⊕∅∩∪⊃⊇⊄⊂⊆∈∉∠∇®©™∏√⋅¬∧∨⇔⇐⇑⇒⇓◊"},
    {0xe1, U"〈®©™∑⎛⎜⎝⎡⎢⎣⎧⎨⎩⎪"},
    {0xf1, U"〉∫⌠⎮⌡⎞⎟⎠⎤⎥⎦⎫⎬⎭"},
};

constexpr Run dingbatRuns[] = {
    {0x21, U"✁✂✃✄☎✆✇✈✉☛☞✌✍✎✏✐✑✒✓✔✕✖✗✘✙✚✛✜✝✞✟✠"},
    {0x41, U"✡✢✣✤✥✦✧★✩✪✫✬✭✮✯✰✱✲✳✴✵✶✷✸✹✺✻✼✽✾✿❀"},
    {0x61, U"❁❂❃❄❅❆❇❈❉❊❋●❍■❏❐❑❒▲▼◆❖◗❘❙❚❛❜❝❞"},
    {0xa1, U"❡❢❣❤❥❦❧♣♦♥♠①②③④⑤⑥⑦⑧⑨⑩❶❷❸❹❺❻❼❽❾❿➀"},
    {0xc1, U"➁➂➃➄➅➆➇➈➉➊➋➌➍➎➏➐➑➒➓➔→↔↕➘➙➚➛➜➝➞➟➠"},
    {0xe1, U"➡➢➣➤➥➦➧➨➩➪➫➬➭➮➯"},
    {0xf1, U"➱➲➳➴➵➶➷➸➹➺➻➼➽➾"},
};

constexpr Run wingdingRuns[] = {
    {0x21, U"✏✂✁"},
    {0x28, U"☎✆"},
    {0x36, U"⌛"},
    {0x3e, U"✇✍"},
    {0x41, U"✌👌👍👎☜☞☝☟🖐☺😐☹💣☠🏳"},
    {0x51, U"✈☼💧❄"},
    {0x56, U"✞"},
    {0x58, U"✠✡☪☯ॐ☸♈♉♊♋♌♍♎♏♐♑♒♓🙰🙵●❍■□❐❑❒⬧⧫◆❖⬥"},
    {0x78, U"⌧⍓⌘❀✿❝❞"},
    {0x80, U"⓪①②③④⑤⑥⑦⑧⑨⑩⓿❶❷❸❹❺❻❼❽❾❿"},
    {0x9e, U"·•⚬○⭕◉◉◎"},
    {0xa7, U"▪◻"},
    {0xaa, U"✦★✶✴✹✵"},
    {0xb5, U"✪✰🕐🕑🕒🕓🕔🕕🕖🕗🕘🕙🕚🕛"},
    {0xd5, U"⌫⌦"},
    {0xd8, U"➢"},
    {0xdc, U"➲"},
    {0xdf, U"←→↑↓↖↗↙↘←➔↑↓↖↗↙↘⇦⇨⇧⇩⬄⇳"},
    {0xfb, U"✗✓☒☑"},
};

constexpr Run wingding2Runs[] = {
    {0x4f, U"✗✓☒☑☒☒"},
    {0x96, U"•●●"},
    {0x9e, U"◯"},
    {0xa3, U"☐"},
};

constexpr Run wingding3Runs[] = {
    {0x66, U"←→↑↓↖↗↙↘"}, {0x70, U"▲▼"}, {0x74, U"◀▶"}, {0x7d, U"▶"}, {0x80, U"▲▼"},
};

constexpr std::u32string_view largeBracketParts = U"⎷⏐⎯®©™⎛⎜⎝⎡⎢⎣⎧⎨⎩⎪⎮⎞⎟⎠⎤⎥⎦⎫⎬⎭";
constexpr char32_t firstBracketPart = 0xf8e5;
constexpr char32_t firstPlace = 0xf000;
constexpr char32_t lastPlace = 0xf0ff;
constexpr char32_t firstLetter = 0xf021; // of those that fonts with letters have there
constexpr char32_t lastLetter = 0xf07e;

template <std::size_t count>
char32_t find(const Run (&runs)[count], unsigned code)
{
    const auto *run = std::find_if(std::begin(runs), std::end(runs), [code](const Run &each) {
        return code >= each.first && code < each.first + each.characters.size();
    });
    return run == std::end(runs) ? 0 : run->characters[code - run->first];
}

} // namespace

SymbolFont symbolFontOf(const std::string &name)
{
    std::string plain;
    for (const char c : name.substr(name.find('+') == std::string::npos ? 0 : name.find('+') + 1)) {
        if (std::isalnum(static_cast<unsigned char>(c)) != 0) {
            plain += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        }
    }
    const auto begins = [&plain](const char *with) { return plain.rfind(with, 0) == 0; };
    if (begins("symbol") && !begins("symbola")) {
        return SymbolFont::Symbol;
    }
    if (begins("zapfdingbats") || begins("itczapfdingbats") || begins("dingbats") || begins("monotypesorts")) {
        return SymbolFont::Dingbats;
    }
    if (begins("wingdings2")) {
        return SymbolFont::Wingdings2;
    }
    if (begins("wingdings3")) {
        return SymbolFont::Wingdings3;
    }
    if (begins("wingdings")) {
        return SymbolFont::Wingdings;
    }
    return begins("webdings") ? SymbolFont::Unknown : SymbolFont::None;
}

char32_t symbolOf(SymbolFont font, unsigned code)
{
    switch (font) {
    case SymbolFont::Symbol:
        return find(symbolRuns, code);
    case SymbolFont::Dingbats:
        return find(dingbatRuns, code);
    case SymbolFont::Wingdings:
        return find(wingdingRuns, code);
    case SymbolFont::Wingdings2:
        return find(wingding2Runs, code);
    case SymbolFont::Wingdings3:
        return find(wingding3Runs, code);
    case SymbolFont::None:
    case SymbolFont::Unknown:
        break;
    }
    return 0;
}

char32_t plainSymbol(SymbolFont font, char32_t privateCode)
{
    if (privateCode >= firstBracketPart && privateCode < firstBracketPart + largeBracketParts.size()) {
        return largeBracketParts[privateCode - firstBracketPart];
    }
    if (privateCode < firstPlace || privateCode > lastPlace) {
        return 0;
    }
    const unsigned code = privateCode - firstPlace;
    if (font != SymbolFont::None) {
        return symbolOf(font, code);
    }
    // The marks of lists, which office programs take from these fonts; they keep their places in other fonts of signs.
    constexpr unsigned bulletOfSymbol = 0xb7;
    if (code == bulletOfSymbol) {
        return U'•';
    }
    return privateCode >= firstLetter && privateCode <= lastLetter ? 0 : find(wingdingRuns, code);
}

} // namespace quorra
