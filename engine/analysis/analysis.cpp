// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/analysis.h"

#include "columns/column_gaps.h"
#include "document/page_walk.h"
#include "document/rotation.h"
#include "figures/drawn_signs.h"
#include "figures/figures.h"
#include "page_builder.h"
#include "paragraphs/dehyphenation.h"
#include "paragraphs/paragraph_borders.h"
#include "recognised_text.h"
#include "sanitised_page.h"
#include "semantics/captions.h"
#include "semantics/contents.h"
#include "semantics/continuations.h"
#include "semantics/page_fields.h"
#include "semantics/page_headers.h"
#include "semantics/roles.h"
#include "tables/table_continuations.h"
#include "tags/alternatives.h"
#include "tags/tag_checks.h"
#include "tags/tag_use.h"
#include "text_lines/leader_words.h"
#include "text_lines/underlines.h"

#include <algorithm>
#include <unordered_map>

namespace quorra::model {

void onePageAfterAnother(int count, const std::function<void(int)> &work)
{
    for (int page = 0; page < count; ++page) {
        work(page);
    }
}

namespace {

// Pages are built side by side, each with styles of its own; the document has each style once.
void takeStyles(Page &page, StyleTable &styles)
{
    std::unordered_map<const Style *, StyleRef> known;
    model::forEachParagraph(page, [&](Paragraph &paragraph) {
        for (Line &line : paragraph.lines) {
            for (Word &word : line.words) {
                const Style *own = &*word.style;
                const auto found = known.find(own);
                word.style = found != known.end() ? found->second : known.emplace(own, styles.add(*own)).first->second;
            }
        }
    });
}

struct Thresholds
{
    int minPages = 2; ///< pages with a gap, from which on it is known for all pages
};
constexpr Thresholds thresholds;

// The pages with strips that continue column gaps of several pages: their few lines are columns, too. Makes these gaps
// known to them.
std::vector<std::size_t> pagesWithKnownGaps(std::vector<PageGaps> &gaps)
{
    std::vector<std::size_t> pages;
    for (std::size_t i = 0; i < gaps.size(); ++i) {
        for (const ColumnGap &possible : gaps[i].possible) {
            const auto isHere = [&possible](const ColumnGap &gap) { return continues(gap, possible); };
            const auto hasGap = [&isHere](const PageGaps &page) {
                return std::any_of(page.found.begin(), page.found.end(), isHere);
            };
            if (std::count_if(gaps.begin(), gaps.end(), hasGap) >= thresholds.minPages) {
                gaps[i].known.push_back(possible);
            }
        }
        if (!gaps[i].known.empty()) {
            pages.push_back(i);
        }
    }
    return pages;
}

} // namespace

Document buildDocument(std::vector<RawPage> pages, const PageLoop &forEach, const TagTree &tags)
{
    Document document;
    document.pages.resize(pages.size());
    std::vector<int> rotations;
    std::vector<std::vector<Comment>> comments;
    std::vector<std::vector<Alternative>> alternatives;
    for (RawPage &page : pages) {
        comments.push_back(std::move(page.comments));
        alternatives.push_back(std::move(page.alternatives));
        page = sanitised(std::move(page));
        resolveHiddenWords(page);
        cutLeadersOff(page.words);
        rotations.push_back(mainRotation(page));
        page = withDrawnSigns(rotatedUpright(std::move(page), rotations.back()));
        for (std::size_t i = 0; i < page.words.size(); ++i) {
            page.words[i].index = i;
        }
        underlineWords(page);
    }
    TaggedText tagged = taggedText(tags);
    checkHeadings(pages, tagged);
    applyTags(pages, tagged);
    std::vector<std::set<const RawWord *>> heads = findPageHeaders(pages);
    for (std::size_t i = 0; i < pages.size(); ++i) {
        addArtifacts(pages[i], heads[i]);
    }
    std::vector<StyleTable> styles(pages.size());
    std::vector<PageGaps> gaps(pages.size());
    forEach(static_cast<int>(pages.size()), [&](int page) {
        const auto i = static_cast<std::size_t>(page);
        document.pages[i] = buildPage(pages[i], heads[i], tagged.tables, styles[i], gaps[i]);
        if (gaps[i].possible.empty()) {
            pages[i] = {};
        }
    });
    const std::vector<std::size_t> again = pagesWithKnownGaps(gaps);
    forEach(static_cast<int>(again.size()), [&](int page) {
        const std::size_t i = again[static_cast<std::size_t>(page)];
        styles[i] = {};
        document.pages[i] = buildPage(pages[i], heads[i], tagged.tables, styles[i], gaps[i]);
    });
    pages.clear();
    for (Page &page : document.pages) {
        takeStyles(page, document.styles);
    }
    assignRoles(document);
    findContents(document);
    markContinuations(document);
    markTableContinuations(document);
    keepHyphensOfCompounds(document);
    for (std::size_t i = 0; i < rotations.size(); ++i) {
        Page &page = document.pages[i];
        findParagraphBorders(page);
        rotateToPage(page, rotations[i]);
        separateFooter(page);
        findFiguresBehindText(page);
        registerFigures(page, document);
        linkCaptions(page);
        giveAlternatives(page, alternatives[i]);
        page.comments = std::move(comments[i]);
    }
    findPageFields(document);
    return document;
}

} // namespace quorra::model
