// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/tag_use.h"

#include "tags/tag_checks.h"
#include "text_lines/list_mark.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <map>

namespace quorra::model {

namespace {

using tagUse::thresholds;

void forget(RawPage &page)
{
    for (RawWord &word : page.words) {
        word.artifact = false;
        word.content = -1;
    }
}

void apply(RawPage &page, const TaggedText &text)
{
    for (RawWord &word : page.words) {
        if (word.content < 0 || static_cast<std::size_t>(word.content) >= text.contents.size()) {
            continue;
        }
        const TaggedContent &content = text.contents[static_cast<std::size_t>(word.content)];
        word.tagged = word.rotation == 0 ? content.paragraph : nullptr;
        word.inLabel = content.label;
        word.artifact = word.artifact || content.artifact;
    }
}

/// The only paragraph that the words belong to; null where there are several, or a word without one.
const TaggedParagraph *paragraphOf(const TextLine &line)
{
    const TaggedParagraph *paragraph = line.words.front()->tagged;
    const bool same = std::all_of(
        line.words.begin(), line.words.end(), [paragraph](const RawWord *word) { return word->tagged == paragraph; });
    return same ? paragraph : nullptr;
}

TextLine lineOfWords(WordRefs words, const TextLine &whole)
{
    TextLine line{std::move(words), {}, whole.baseline, whole.size};
    const RawWord *largest = line.words.front();
    for (const RawWord *word : line.words) {
        line.box = united(line.box, bodyOf(*word));
        largest = largest->style.size >= word->style.size ? largest : word;
    }
    line.baseline = largest->baseline;
    line.size = largest->style.size;
    return line;
}

/// Whether the word is none of the text around it: a stamp, for example.
bool isStamp(const RawWord *word)
{
    return word->artifact && !word->tagged;
}

/// The line cut where its paragraph changes. Words without a paragraph stay with those before them.
void addParts(const TextLine &line, std::vector<TextLine> &parts)
{
    std::vector<WordRefs> groups;
    const TaggedParagraph *current = nullptr;
    for (const RawWord *word : line.words) {
        const bool changes = (word->tagged && current && word->tagged != current) ||
                             (!groups.empty() && isStamp(word) != isStamp(groups.back().front()));
        if (groups.empty() || changes) {
            groups.emplace_back();
        }
        groups.back().push_back(word);
        current = word->tagged ? word->tagged : current;
    }
    if (groups.size() == 1) {
        parts.push_back(line);
        return;
    }
    // A paragraph can go on after a word of another one that is drawn between its words, such as a note.
    std::map<const TaggedParagraph *, std::size_t> known;
    std::vector<WordRefs> joined;
    for (WordRefs &group : groups) {
        const auto tagged = std::find_if(group.begin(), group.end(), [](const RawWord *word) { return word->tagged; });
        const TaggedParagraph *own = tagged == group.end() ? nullptr : (*tagged)->tagged; // null for stamps
        const auto [at, isNew] = known.emplace(own, joined.size());
        if (isNew) {
            joined.push_back(std::move(group));
        } else {
            WordRefs &first = joined[at->second];
            first.insert(first.end(), group.begin(), group.end());
        }
    }
    for (WordRefs &group : joined) {
        parts.push_back(lineOfWords(std::move(group), line));
    }
}

const TaggedParagraph *firstParagraph(const TextLine &line)
{
    const auto tagged =
        std::find_if(line.words.begin(), line.words.end(), [](const RawWord *word) { return word->tagged; });
    return tagged == line.words.end() ? nullptr : (*tagged)->tagged;
}

Role roleOf(const TaggedParagraph &tag)
{
    switch (tag.role) {
    case TagRole::Heading:
        return Role::Heading;
    case TagRole::Caption:
        return Role::Caption;
    case TagRole::Note:
        return Role::Footnote;
    default:
        return Role::Body;
    }
}

/// Makes the first words of the paragraph one word.
void joinWords(Line &line, std::size_t count)
{
    Word &first = line.words.front();
    for (std::size_t i = 1; i < count; ++i) {
        first.text += line.words[i].text;
        first.box = united(first.box, line.words[i].box);
    }
    first.separator = Separator::Space;
    line.words.erase(line.words.begin() + 1, line.words.begin() + static_cast<std::ptrdiff_t>(count));
}

bool counts(const QString &mark)
{
    return std::any_of(mark.begin(), mark.end(), [](QChar c) { return c.isLetterOrNumber(); }) &&
           mark != QLatin1String("o"); // a bullet of many programs
}

} // namespace

void applyTags(std::vector<RawPage> &pages, const TaggedText &text)
{
    std::vector<bool> sound(pages.size(), false);
    std::size_t unsoundPages = 0;
    std::size_t soundPages = 0;
    for (std::size_t i = 0; i < pages.size() && !text.contents.empty(); ++i) {
        sound[i] = areTagsSound(pages[i], text);
        soundPages += sound[i] ? 1 : 0;
        unsoundPages += !sound[i] && !pages[i].words.empty() ? 1 : 0;
    }
    const bool none = unsoundPages >= thresholds.minPages && unsoundPages > soundPages;
    for (std::size_t i = 0; i < pages.size(); ++i) {
        if (sound[i] && !none) {
            apply(pages[i], text);
        } else {
            forget(pages[i]);
        }
    }
}

void addArtifacts(const RawPage &page, std::set<const RawWord *> &heads)
{
    double top = std::numeric_limits<double>::max();
    double bottom = 0;
    for (const RawWord &word : page.words) {
        if (word.tagged && heads.count(&word) == 0) {
            top = std::min(top, bodyOf(word).top);
            bottom = std::max(bottom, word.baseline);
        }
    }
    for (const RawWord &word : page.words) {
        if (word.artifact && word.rotation == 0 && bottom > 0 && (word.baseline < top || bodyOf(word).top > bottom)) {
            heads.insert(&word);
        }
    }
}

std::vector<TextLine> inReadingOrder(const std::vector<TextLine> &lines)
{
    std::vector<TextLine> parts;
    for (const TextLine &line : lines) {
        addParts(line, parts);
    }
    constexpr std::size_t last = std::numeric_limits<std::size_t>::max();
    std::vector<std::pair<std::pair<std::size_t, bool>, std::size_t>> order; // by paragraph; place in the parts
    std::size_t number = 0;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const TaggedParagraph *paragraph = firstParagraph(parts[i]);
        if (paragraph) { // notes are at the foot, whatever their place among the tags
            number = paragraph->role == TagRole::Note ? last : paragraph->number;
        }
        order.push_back({{number, isStamp(parts[i].words.front())}, i});
    }
    std::stable_sort(order.begin(), order.end(), [](const auto &a, const auto &b) { return a.first < b.first; });
    std::vector<TextLine> sorted;
    sorted.reserve(parts.size());
    for (const auto &[paragraph, place] : order) {
        sorted.push_back(std::move(parts[place]));
    }
    return sorted;
}

std::optional<bool> paragraphEndsBetween(const TextLine &line, const TextLine &next)
{
    const TaggedParagraph *before = paragraphOf(line);
    const TaggedParagraph *after = paragraphOf(next);
    return before && after ? std::optional(before != after) : std::nullopt;
}

ParagraphTag tagOf(const std::vector<TextLine> &lines)
{
    ParagraphTag tag;
    for (const TextLine &line : lines) {
        const TaggedParagraph *own = paragraphOf(line);
        if (!own || (tag.paragraph && own != tag.paragraph)) {
            return {};
        }
        tag.paragraph = own;
    }
    if (!tag.paragraph || tag.paragraph->role != TagRole::ListItem) {
        return tag;
    }
    const WordRefs &words = lines.front().words;
    const auto countWhile = [&words](const auto &isMark) {
        return static_cast<std::size_t>(std::find_if_not(words.begin(), words.end(), isMark) - words.begin());
    };
    tag.labelWords = countWhile([](const RawWord *word) { return word->inLabel; });
    if (tag.labelWords == 0 && isListMark(words.front()->text)) {
        tag.labelWords = 1;
    } else if (tag.labelWords == 0) { // a mark without a label of its own is at least a piece of content of its own
        tag.labelWords = countWhile([&words](const RawWord *word) { return word->content == words.front()->content; });
        const bool whole = lines.size() == 1 && tag.labelWords == words.size();
        const bool text = tag.labelWords > 1 || words.front()->text.size() > thresholds.maxBullet;
        const bool counted = isOrdinalMark(words.front()->text) || words.front()->text.contains(QLatin1Char('.')) ||
                             words.front()->text.contains(QLatin1Char(')'));
        tag.labelWords = whole || (text && !counted) ? 0 : tag.labelWords;
    }
    return tag;
}

void setRole(Paragraph &paragraph, const ParagraphTag &tag)
{
    paragraph.tag = tag.paragraph->number;
    paragraph.headingFromTags = tag.paragraph->headingsTagged;
    paragraph.role = roleOf(*tag.paragraph);
    paragraph.headingLevel = paragraph.role == Role::Heading ? tag.paragraph->level : 0;
    paragraph.language = tag.paragraph->language;
    if (tag.paragraph->role == TagRole::ContentsEntry) {
        paragraph.contentsEntry.emplace();
    }
    Line &first = paragraph.lines.front();
    const bool hasText = paragraph.lines.size() > 1 || first.words.size() > tag.labelWords;
    if (tag.labelWords > 0 && hasText && !paragraph.rightToLeft) {
        joinWords(first, tag.labelWords);
        const QString &mark = first.words.front().text;
        paragraph.role = Role::ListItem;
        paragraph.listItem = ListItem{mark, counts(mark), tag.paragraph->level, true};
    }
}

void keepMeantBreaks(Paragraph &paragraph, const Box &column)
{
    std::vector<Line> &lines = paragraph.lines;
    double right = 0;
    for (const Line &line : lines) {
        right = std::max(right, line.box.right);
    }
    const auto fits = [&lines](std::size_t i, double edge) {
        const Word &next = lines[i + 1].words.front();
        const double space = next.style->size / 4;
        return lines[i].box.right + space + next.box.width() < edge - space;
    };
    bool meant = false;
    for (std::size_t i = 0; i + 1 < lines.size(); ++i) {
        meant = meant || fits(i, right) || column.right - lines[i].box.right > thresholds.minMeantGap * column.width();
    }
    for (std::size_t i = 0; meant && !paragraph.rightToLeft && i + 1 < lines.size(); ++i) {
        Separator &end = lines[i].words.back().separator;
        end = end == Separator::Space && fits(i, column.right) ? Separator::LineBreak : end;
    }
}

} // namespace quorra::model
