// SPDX-License-Identifier: GPL-3.0-or-later
#include "page_maker.h"
#include "threshold_edges.h"

#include "analysis/semantics/headings.h"
#include "analysis/semantics/lists.h"
#include "analysis/semantics/page_headers.h"
#include "analysis/semantics/roles.h"
#include "analysis/text_lines/list_mark.h"

using namespace quorra;
using namespace quorra::model;
using namespace thresholdEdges;

namespace {

constexpr double em = 10; // the font size of the body text

// ---- roles

// The paragraphs of a page of body text, which begins at baseline 300, and more that is drawn on it.
std::vector<Paragraph> paragraphsWith(const std::function<void(PageMaker &)> &draw)
{
    PageMaker page;
    draw(page);
    page.lines(60, 300, prose(8));
    const Document document = page.build();
    std::vector<Paragraph> paragraphs; // without the styles, which go with the document
    for (const Section &section : document.pages.front().sections) {
        for (const Block &block : section.blocks) {
            if (block.paragraph()) {
                paragraphs.push_back(*block.paragraph());
            }
        }
    }
    return paragraphs;
}

Role firstRole(const QString &text, double size, bool bold = false)
{
    return paragraphsWith(
               [&](PageMaker &page) { bold ? page.bold(60, 100, text, size) : page.text(60, 100, text, size); })
        .front()
        .role;
}

Role lastRole(const QString &text, double baseline, double size)
{
    return paragraphsWith([&](PageMaker &page) { page.text(60, baseline, text, size); }).back().role;
}

QString letters(double count)
{
    return QString(static_cast<int>(count), QLatin1Char('a'));
}

std::vector<Edge> roleEdges()
{
    using roles::thresholds;
    const QString title = QStringLiteral("A title of the text");
    const QString note = QStringLiteral("2 A note below the text");
    return {
        minimum(
            "size of a heading", headings::thresholds.minSize,
            [=](double size) { return firstRole(title, size * em) == Role::Heading; }),
        minimum(
            "size of a bold heading", headings::thresholds.minBoldSize,
            [=](double size) { return firstRole(title, size * em, true) == Role::Heading; }),
        most(
            "length of a heading", static_cast<std::size_t>(headings::thresholds.maxLength),
            [](double count) { return firstRole(letters(count), 2 * em) == Role::Heading; }),
        most(
            "length of a bold heading", static_cast<std::size_t>(headings::thresholds.maxBoldLength),
            [](double count) { return firstRole(letters(count), em, true) == Role::Heading; }),
        most(
            "lines of a heading", headings::thresholds.maxLines,
            [](double count) {
                return paragraphsWith([count](PageMaker &page) {
                           for (int line = 0; line < std::lround(count); ++line) {
                               page.text(60, 60 + 24 * line, letters(40), 2 * em);
                           }
                       })
                           .front()
                           .role == Role::Heading;
            }),
        fewest(
            "length of a number of a list", static_cast<std::size_t>(listMarks::thresholds.minOrdinalLength),
            [](double count) { return isOrdinalMark(QStringLiteral("1.").left(std::lround(count))); }),
        most(
            "length of a long number of a list", static_cast<std::size_t>(listMarks::thresholds.maxOrdinalLength),
            [](double count) { return isOrdinalMark(u'(' + QString(std::lround(count) - 2, u'x') + u')'); }),
        minimum(
            "size of a heading of the same level", headings::thresholds.sameSize,
            [=](double size) {
                const std::vector<Paragraph> all = paragraphsWith([&](PageMaker &page) {
                    page.text(60, 60, title, 2 * em);
                    page.text(60, 160, title, size * 2 * em);
                    page.text(60, 260, title, 2 * em); // so that the first is not the document's title
                });
                return all[1].headingLevel == all[0].headingLevel;
            }),
        most(
            "length of a caption", static_cast<std::size_t>(thresholds.maxCaption) - 1,
            [](double count) {
                const QString start = QStringLiteral("Figure 1 ");
                return firstRole(start + letters(count - static_cast<double>(start.size())), em) == Role::Caption;
            }),
        maximum(
            "size of a footnote", thresholds.maxFootnoteSize,
            [=](double size) { return lastRole(note, 700, size * em) == Role::Footnote; }),
        minimum(
            "place of a footnote", thresholds.minFootnoteTop,
            [=](double share) { return lastRole(note, share * 800 + 0.8 * 8, 8) == Role::Footnote; }),
        minimum(
            "indent of an inner list", lists::thresholds.levelIndent,
            [](double indent) {
                const std::vector<Paragraph> all = paragraphsWith([&](PageMaker &page) {
                    const QString bullet = QStringLiteral("•");
                    page.text(60, 100, bullet);
                    page.text(75, 100, QStringLiteral("an entry"));
                    page.text(60 + indent, 114, bullet);
                    page.text(75 + indent, 114, QStringLiteral("another entry"));
                });
                return all[1].listItem->level == 1;
            }),
    };
}

// ---- page headers

// Whether the first page has a header when the lines are at these baselines on the pages, and the text that far
// below.
bool hasHeader(const std::vector<double> &baselines, double gap)
{
    std::vector<RawPage> pages;
    for (const double baseline : baselines) {
        PageMaker page(static_cast<int>(pages.size()) + 1);
        page.text(60, baseline, QStringLiteral("A report of the year"));
        page.lines(60, baseline + gap * em, prose(40, letters(static_cast<double>(pages.size()) + 3)));
        pages.push_back(page.raw());
    }
    return !findPageHeaders(pages).front().empty();
}

std::vector<Edge> headerEdges()
{
    using pageHeaders::thresholds;
    return {
        minimum(
            "gap below a header", thresholds.minGap,
            [](double gap) {
                return hasHeader({40, 40, 40}, gap);
            }),
        fewest(
            "pages with a header", thresholds.minExactPages,
            [](double count) { return hasHeader(std::vector<double>(static_cast<std::size_t>(count), 40), 3); }),
        fewest(
            "pages with a header close to the text", thresholds.minPages,
            [](double count) { return hasHeader(std::vector<double>(static_cast<std::size_t>(count), 40), 2); }),
        minimum(
            "gap below the header of two pages", thresholds.minWideGap,
            [](double gap) {
                return hasHeader({40, 40}, gap);
            }),
        maximum(
            "heights of the header of two pages", thresholds.exactHeight,
            [](double shift) {
                return hasHeader({40, 40 + shift}, 3);
            }),
        maximum(
            "heights of a header", thresholds.sameHeight,
            [](double shift) {
                return hasHeader({40, 40 - shift, 40 + shift}, 3);
            }),
    };
}

} // namespace

class AnalysisRoleEdgesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void roles_data() { addRows(roleEdges()); }
    void roles() { checkRow(roleEdges()); }
    void pageHeaders_data() { addRows(headerEdges()); }
    void pageHeaders() { checkRow(headerEdges()); }
};

QTEST_APPLESS_MAIN(AnalysisRoleEdgesTest)
#include "analysis_role_edges_test.moc"
