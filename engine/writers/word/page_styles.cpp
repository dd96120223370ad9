// SPDX-License-Identifier: GPL-3.0-or-later
#include "page_styles.h"

#include "document/page_transform.h"
#include "document/text.h"

#include <QHash>

#include <algorithm>
#include <cmath>

namespace quorra::office {

namespace {

struct Thresholds
{
    double samePlace = 1.5;       ///< points; by which the same part of a header differs from page to page
    std::size_t minAlternate = 3; ///< pages in a row with two headers in turn, which belong to left and right pages
};
constexpr Thresholds thresholds;

using Paragraphs = std::vector<model::Paragraph>;

/// The number of the page as it is printed on it; nothing if there is none.
std::optional<model::PageNumber> printedNumber(const model::Page &page)
{
    for (const Paragraphs *edge : {&page.header, &page.footer}) {
        for (const model::Paragraph &paragraph : *edge) {
            for (const model::Run &run : model::runsOf(paragraph)) {
                if (run.field == model::PageField::Number) {
                    return model::readPageNumber(run.text.trimmed());
                }
            }
        }
    }
    return std::nullopt;
}

bool isNear(double a, double b)
{
    return std::abs(a - b) <= thresholds.samePlace;
}

bool isSameText(const model::Run &a, const model::Run &b, bool fields)
{
    const bool counted = fields && a.field == model::PageField::Number;
    return (counted || a.text == b.text) && a.field == b.field && a.style == b.style && a.shift == b.shift &&
           a.link == b.link;
}

/// Whether two parts of headers look the same. The width of page numbers differs, so that the edges at which they are
/// aligned count.
bool isSamePart(const model::Paragraph &a, const model::Paragraph &b, bool fields)
{
    const std::vector<model::Run> runsA = model::runsOf(a);
    const std::vector<model::Run> runsB = model::runsOf(b);
    const auto sameLine = [](const model::ParagraphBorder &one, const model::ParagraphBorder &other) {
        return isNear(one.line.width, other.line.width) && one.line.colour == other.line.colour;
    };
    const bool sameEdge =
        isNear(a.box.left, b.box.left) || isNear(a.box.right, b.box.right) || isNear(a.box.centreX(), b.box.centreX());
    return sameEdge && isNear(a.box.top, b.box.top) && isNear(a.box.bottom, b.box.bottom) &&
           sameLine(a.borderAbove, b.borderAbove) && sameLine(a.borderBelow, b.borderBelow) &&
           std::equal(
               runsA.begin(), runsA.end(), runsB.begin(), runsB.end(),
               [fields](const model::Run &x, const model::Run &y) { return isSameText(x, y, fields); });
}

/// The text of header and footer, by which pages that cannot look the same are told apart quickly.
QString headerText(const model::Page &page, bool fields)
{
    QString text;
    for (const Paragraphs *edge : {&page.header, &page.footer}) {
        for (const model::Paragraph &paragraph : *edge) {
            for (const model::Run &run : model::runsOf(paragraph)) {
                text += fields && run.field == model::PageField::Number ? QStringLiteral("#") : run.text;
            }
            text += QLatin1Char('\n');
        }
        text += QLatin1Char('\f');
    }
    return text;
}

/// A page with what its style depends on.
struct Numbered
{
    const model::Page *page = nullptr;
    Margins margins;
    model::PageNumber number; ///< as printed, otherwise as counted
    bool fields = false;      ///< the output can count like that
    bool beginsAnew = false;  ///< its number does not follow that of the page before it
    std::size_t like = 0;     ///< the first page with the same header and footer
};

bool haveSameHeaders(const Numbered &a, const Numbered &b)
{
    const auto same = [fields = a.fields](const Paragraphs &one, const Paragraphs &other) {
        return std::equal(one.begin(), one.end(), other.begin(), other.end(), [fields](const auto &x, const auto &y) {
            return isSamePart(x, y, fields);
        });
    };
    return a.page->scanned == b.page->scanned && model::haveSameSize(*a.page, *b.page) && a.margins == b.margins &&
           a.fields == b.fields && a.number.format == b.number.format && same(a.page->header, b.page->header) &&
           same(a.page->footer, b.page->footer);
}

std::vector<Numbered>
numberedPages(const model::Document &document, const std::vector<Margins> &margins, const FlowForm &form)
{
    std::vector<Numbered> pages;
    QHash<QString, std::vector<std::size_t>> known; // the first pages with each header, by its text
    model::PageNumber next;
    for (std::size_t i = 0; i < document.pages.size(); ++i) {
        Numbered page;
        page.page = &document.pages[i];
        page.margins = margins[i];
        const std::optional<model::PageNumber> printed = printedNumber(*page.page);
        page.number = printed.value_or(next);
        page.beginsAnew = page.number.value != next.value;
        page.fields = printed && (form.numbersBeginAnew || !page.beginsAnew);
        if (!form.numbersBeginAnew) {
            page.number.value = next.value;
            page.beginsAnew = false;
        }
        next = {page.number.value + 1, page.number.format};
        std::vector<std::size_t> &alike = known[headerText(*page.page, page.fields)];
        const auto same = std::find_if(
            alike.begin(), alike.end(), [&](std::size_t each) { return haveSameHeaders(pages[each], page); });
        page.like = same != alike.end() ? *same : i;
        if (same == alike.end()) {
            alike.push_back(i);
        }
        pages.push_back(page);
    }
    return pages;
}

/// Returns the end of the pages from `begin` on that have two headers in turn.
std::size_t endOfAlternation(const std::vector<Numbered> &pages, std::size_t begin)
{
    std::size_t end = begin + 1;
    while (end < pages.size() && !pages[end].beginsAnew && pages[end].fields == pages[begin].fields &&
           pages[end].like != pages[end - 1].like && (end < begin + 2 || pages[end].like == pages[end - 2].like) &&
           model::haveSameSize(*pages[end].page, *pages[begin].page) && pages[end].margins == pages[begin].margins) {
        ++end;
    }
    return end;
}

} // namespace

std::vector<PageStyle>
planPageStyles(const model::Document &document, const std::vector<Margins> &margins, const FlowForm &form)
{
    const std::vector<Numbered> pages = numberedPages(document, margins, form);
    std::vector<PageStyle> styles;
    while (styles.size() < pages.size()) {
        const std::size_t begin = styles.size();
        const std::size_t end = form.leftAndRight ? endOfAlternation(pages, begin) : begin + 1;
        const bool alternate = end - begin >= thresholds.minAlternate;
        for (std::size_t i = begin; i < (alternate ? end : begin + 1); ++i) {
            const Numbered &page = pages[i];
            const model::Page *own = pages[page.like].page;
            PageStyle style{own, own, page.fields, page.number.format, {}};
            if (alternate) {
                const model::Page *other = pages[pages[i > begin ? i - 1 : i + 1].like].page;
                (page.number.value % 2 == 0 ? style.right : style.left) = other;
            }
            if (page.beginsAnew) {
                style.firstNumber = page.number.value;
            }
            styles.push_back(style);
        }
    }
    return styles;
}

} // namespace quorra::office
