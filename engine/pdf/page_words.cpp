// SPDX-License-Identifier: GPL-3.0-or-later
#include "page_words.h"

#include "document/direction.h"
#include "drawn_characters.h"
#include "font_families.h"
#include "font_name.h"
#include "marked_content.h"

#include <TextOutputDev.h>

#include <QHash>

#include <algorithm>
#include <cmath>

namespace quorra {

namespace {

Colour colourOf(double r, double g, double b)
{
    const auto byte = [](double c) { return static_cast<Colour>(std::clamp(std::lround(c * 255), 0L, 255L)); };
    return byte(r) << 16U | byte(g) << 8U | byte(b);
}

/// Converts the library's words to RawWord; caches the fonts it has seen.
class WordReader
{
public:
    WordReader(
        model::RawPage &page, const MarkedContent &contents, const FontFamilies &families,
        const DrawnCharacters &characters)
        : m_page(page)
        , m_contents(contents)
        , m_families(families)
        , m_characters(characters)
    {}

    void read(const TextWord *word)
    {
        QString text;
        text.reserve(word->getLength());
        for (int i = 0; i < word->getLength(); ++i) {
            if (const char32_t letter = *word->getChar(i); letter != QChar::ByteOrderMark) {
                text += QChar::fromUcs4(letter);
            }
        }
        model::RawWord own;
        own.text = model::plainLetters(model::uprightBrackets(model::logicalWord(text)));
        if (std::all_of(own.text.cbegin(), own.text.cend(), [](QChar c) { return c.isSpace(); })) {
            return;
        }
        word->getBBox(&own.box.left, &own.box.top, &own.box.right, &own.box.bottom);
        own.baseline = word->getBaseline();
        own.rotation = word->getRotation() * 90;
        own.endsLine = !word->getNext();
        own.spaceAfter = word->getSpaceAfter() || own.endsLine; // a word fragment never ends a line
        own.style = styleOf(word);
        const DrawnCharacters::Appearance appearance =
            m_characters.appearanceOf(word->getCharPos(), word->getCharLen(), inner(own.box), own.style.colour);
        if (appearance.covered && !appearance.underImage) {
            return;
        }
        own.hidden = appearance.invisible || appearance.covered;
        own.style.bold = own.style.bold || appearance.overprinted;
        own.style.colour = appearance.colour.value_or(own.style.colour);
        own.index = m_page.words.size();
        if (m_contents.isUsed()) {
            const int content = m_contents.ofText(word->getCharPos());
            own.artifact = content == MarkedContent::artifact;
            own.content = std::max(content, MarkedContent::none);
        }
        m_page.words.push_back(std::move(own));
    }

private:
    /// The part of a word's box that its letters fill.
    static Box inner(const Box &box)
    {
        constexpr double margin = 0.25; // of the height
        const double edge = margin * std::min(box.width(), box.height());
        return {box.left + edge, box.top + edge, box.right - edge, box.bottom - edge};
    }

    model::Style styleOf(const TextWord *word)
    {
        const TextFontInfo *info = word->getFontInfo(0);
        auto known = m_styles.constFind(info);
        if (known == m_styles.constEnd()) {
            const GooString *name = word->getFontName(0);
            const QByteArray bytes = name ? QByteArray(name->c_str(), name->getLength()) : QByteArray();
            const model::FontName parsed = model::parseFontName(QString::fromLatin1(bytes));
            model::Style style;
            style.family = m_families.familyOf(bytes, parsed.family);
            style.bold = parsed.bold || info->isBold();
            style.italic = parsed.italic || info->isItalic();
            // The name is more reliable than the flags, which many fonts lack.
            style.fixedPitch = parsed.kind == model::FontKind::FixedPitch || info->isFixedWidth();
            style.serif =
                !style.fixedPitch &&
                (parsed.kind == model::FontKind::Unknown ? info->isSerif() : parsed.kind == model::FontKind::Serif);
            m_styles.insert(info, style);
            known = m_styles.constFind(info);
        }
        model::Style style = *known;
        style.size = word->getFontSize();
        double r = 0;
        double g = 0;
        double b = 0;
        word->getColor(&r, &g, &b);
        style.colour = colourOf(r, g, b);
        return style;
    }

    model::RawPage &m_page;
    const MarkedContent &m_contents;
    const FontFamilies &m_families;
    const DrawnCharacters &m_characters;
    QHash<const TextFontInfo *, model::Style> m_styles;
};

} // namespace

void readWords(
    const TextOutputDev &device, const MarkedContent &contents, const FontFamilies &families,
    DrawnCharacters &characters, model::RawPage &page)
{
    characters.finish();
    WordReader reader(page, contents, families, characters);
    for (const TextFlow *flow = device.getFlows(); flow; flow = flow->getNext()) {
        for (const TextBlock *block = flow->getBlocks(); block; block = block->getNext()) {
            for (const TextLine *line = block->getLines(); line; line = line->getNext()) {
                for (const TextWord *word = line->getWords(); word; word = word->getNext()) {
                    reader.read(word);
                }
            }
        }
    }
}

} // namespace quorra
