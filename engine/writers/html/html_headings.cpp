// SPDX-License-Identifier: GPL-3.0-or-later
#include "html_headings.h"

#include "document/page_walk.h"
#include "document/text.h"

#include <algorithm>
#include <iterator>

namespace quorra {

namespace {

constexpr int deepestLevel = 6; // of HTML

struct Source
{
    const model::Page *page;
    const model::Paragraph *paragraph;
    int level() const { return paragraph->headingLevel; }
};

std::vector<Source> headingsOf(const model::Document &document)
{
    std::vector<Source> headings;
    for (const model::Page &page : document.pages) {
        model::forEachBlock(page, [&headings, &page](const model::Block &block) {
            const model::Paragraph *paragraph = block.paragraph();
            if (paragraph && paragraph->role == model::Role::Heading) {
                headings.push_back({&page, paragraph});
            }
        });
    }
    return headings;
}

/// Returns the heading that is above all others: the only one of the highest level, on the first page.
const model::Paragraph *titleOf(const std::vector<Source> &headings, const model::Document &document)
{
    const auto first = std::min_element(
        headings.begin(), headings.end(), [](const Source &a, const Source &b) { return a.level() < b.level(); });
    if (first == headings.end() || first->page != &document.pages.front()) {
        return nullptr;
    }
    const auto isAsHigh = [first](const Source &each) { return each.level() == first->level(); };
    return std::none_of(std::next(first), headings.end(), isAsHigh) ? first->paragraph : nullptr;
}

QString lettersOf(const QString &text)
{
    QString letters;
    std::copy_if(text.begin(), text.end(), std::back_inserter(letters), [](QChar c) { return c.isLetter(); });
    return letters.toCaseFolded();
}

} // namespace

HtmlHeadings::HtmlHeadings(const model::Document &document)
{
    const std::vector<Source> headings = headingsOf(document);
    const model::Paragraph *title = titleOf(headings, document);
    std::vector<int> open; // the levels of the headings around the next one
    int outer = 1;         // the title, as long as it is not one of the open headings
    for (const Source &heading : headings) {
        if (heading.paragraph == title) {
            m_title = model::plainText(*title).simplified();
            open.clear();
            outer = 0;
        }
        while (!open.empty() && open.back() >= heading.level()) {
            open.pop_back();
        }
        open.push_back(heading.level());
        m_places.insert(heading.paragraph, m_headings.size());
        m_headings.push_back(
            {std::min(static_cast<int>(open.size()) + outer, deepestLevel),
             QStringLiteral("heading-%1").arg(m_headings.size() + 1), heading.page->number,
             lettersOf(model::plainText(*heading.paragraph))});
    }
}

const HtmlHeadings::Heading *HtmlHeadings::find(const model::Paragraph &paragraph) const
{
    const auto place = m_places.constFind(&paragraph);
    return place == m_places.constEnd() ? nullptr : &m_headings[*place];
}

QString HtmlHeadings::idOf(int page, const QString &title) const
{
    const QString letters = lettersOf(title);
    const auto found = std::find_if(m_headings.begin(), m_headings.end(), [&](const Heading &each) {
        return each.page == page && each.text == letters && !letters.isEmpty();
    });
    return found == m_headings.end() ? QString() : found->id;
}

} // namespace quorra
