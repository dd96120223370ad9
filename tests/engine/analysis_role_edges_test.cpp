// SPDX-License-Identifier: GPL-3.0-or-later
#include "page_maker.h"
#include "test_text.h"
#include "threshold_edges.h"

#include "analysis/headings.h"
#include "analysis/semantics/contents.h"
#include "analysis/semantics/headings.h"
#include "analysis/semantics/lists.h"
#include "analysis/semantics/notes.h"
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
            "size of a footnote", notes::thresholds.maxSmallSize,
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

// ---- headings that other paragraphs or the outline decide

Role firstRoleOf(const std::function<void(PageMaker &)> &draw)
{
    return paragraphsWith(draw).front().role;
}

// A title of so many lines, each a paragraph, with a heading below it.
bool hasTitle(double top, int paragraphs)
{
    PageMaker page;
    for (int i = 0; i < paragraphs; ++i) {
        page.text(60, top + 0.8 * 24 + 60 * i, QStringLiteral("A title of the text"), 24);
    }
    const double below = top + 60 * paragraphs;
    page.text(60, below + 30, QStringLiteral("A heading"), 16);
    page.lines(60, below + 60, prose(8));
    return page.build().pages.front().sections.front().blocks.front().paragraph()->title;
}

// Whether an outline makes ordinary lines headings: one of so many entries, of which so many are found on the page.
bool isOutlineUsed(int entries, int found)
{
    PageMaker page;
    page.lines(60, 100, prose(8));
    for (int i = 0; i < found; ++i) {
        page.text(60, 250 + 30 * i, QStringLiteral("Chapter %1").arg(QChar(u'a' + i)));
    }
    Document document = page.build();
    for (int i = 0; i < entries; ++i) {
        document.facts.outline.push_back({QStringLiteral("Chapter %1").arg(QChar(u'a' + i)), 0, 1, 0});
    }
    useOutline(document);
    return document.pages.front().sections.front().blocks.back().paragraph()->role == Role::Heading;
}

// Whether a paragraph at the foot of the page that begins with that number is a note, referred to above.
bool isNote(const QString &number, double size)
{
    Document document;
    Style style;
    style.size = em;
    Paragraph body = testText::paragraphOf(QStringLiteral("Text with a mark") + u' ' + number, style);
    body.lines.front().words.back().shift = BaselineShift::Superscript;
    style.size = size;
    Paragraph note = testText::paragraphOf(number + QStringLiteral(" A note"), style);
    Page page;
    page.sections.push_back({{{0, 0, 600, 800}}, {}});
    page.sections.front().blocks.push_back({body, 0});
    page.sections.front().blocks.push_back({note, 0});
    document.pages.push_back(page);
    linkNotes(document, em);
    return document.pages.front().sections.front().blocks.back().paragraph()->note.has_value();
}

Block listItem(const QString &mark, double left, bool ordered)
{
    Paragraph item = testText::paragraphOf(mark + QStringLiteral(" text"));
    item.lines.front().box.left = left;
    item.listItem = ListItem{mark, ordered};
    item.role = Role::ListItem;
    return {item, 0};
}

// Whether an inner item counts on after so many other lists with text before each.
bool countsOnAfterLists(int others)
{
    Page page;
    page.width = 600;
    page.height = 800;
    page.sections.push_back({{{0, 0, 600, 800}}, {}});
    std::vector<Block> &blocks = page.sections.front().blocks;
    blocks = {listItem(QStringLiteral("1."), 60, true), listItem(QStringLiteral("a)"), 90, true)};
    for (int i = 0; i < others; ++i) {
        blocks.push_back({testText::paragraphOf(QStringLiteral("Text")), 0});
        blocks.push_back(listItem(QStringLiteral("•"), 60, false));
    }
    blocks.push_back({testText::paragraphOf(QStringLiteral("Text")), 0});
    blocks.push_back(listItem(QStringLiteral("b)"), 90, true));
    Document document;
    document.pages.push_back(page);
    assignListLevels(document);
    return document.pages.front().sections.front().blocks.back().paragraph()->listItem->level == 1;
}

std::vector<Edge> documentEdges()
{
    using headings::thresholds;
    return {
        most(
            "lines of a bold heading", thresholds.maxBoldLines,
            [](double count) {
                return firstRoleOf([count](PageMaker &page) {
                           for (int line = 0; line < static_cast<int>(count); ++line) {
                               page.bold(60, 60 + 12 * line, letters(30));
                           }
                       }) == Role::Heading;
            }),
        most(
            "bold lines one after the other", thresholds.maxBoldStack,
            [](double count) {
                return firstRoleOf([count](PageMaker &page) {
                           for (int line = 0; line < static_cast<int>(count); ++line) {
                               page.bold(60, 60 + 30 * line, QStringLiteral("A label"));
                           }
                       }) == Role::Heading;
            }),
        most(
            "paragraphs of a title", thresholds.maxTitle,
            [](double count) { return hasTitle(60.0, static_cast<int>(count)); }),
        maximum("place of a title", thresholds.maxTitleTop, [](double share) { return hasTitle(share * 800, 1); }),
        fewest( // of ten
            "entries of an outline on their pages", 5, [](double count) { return isOutlineUsed(10, int(count)); }),
        fewest(
            "entries of an outline", thresholds.minEntries,
            [](double count) { return isOutlineUsed(int(count), int(count)); }),
        maximum(
            "size of a note", notes::thresholds.maxSmallSize,
            [](double size) { return isNote(QStringLiteral("1"), size * em); }),
        most(
            "digits of the number of a note", static_cast<std::size_t>(notes::thresholds.maxDigits),
            [](double count) { return isNote(QString(int(count), QLatin1Char('1')), 8); }),
        most(
            "lists before one that counts on", lists::thresholds.maxInterrupted - 1,
            [](double count) { return countsOnAfterLists(static_cast<int>(count)); }),
        fewest(
            "entries of a table of contents", contents::thresholds.minEntries,
            [](double count) {
                PageMaker page;
                for (int i = 0; i < static_cast<int>(count); ++i) {
                    page.text(60, 100 + 14 * i, QStringLiteral("Chapter ........ %1").arg(i + 1));
                }
                return page.build()
                    .pages.front()
                    .sections.front()
                    .blocks.front()
                    .paragraph()
                    ->contentsEntry.has_value();
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

// What is above the text of a page that is the only one of its kind.
struct LoneHeader
{
    QString text = QStringLiteral("A report");
    double size = 8;
    double gap = 3;       ///< em of the text
    double rule = 0;      ///< share of the text's width
    double baseline = 40; ///< points
    double numberGap = 0; ///< em of the header, to a page number beside it; 0 for none
};

bool isLoneHeader(const LoneHeader &header)
{
    PageMaker page;
    const double right = 60 + 0.5 * header.size * static_cast<double>(header.text.size()); // of a text of one word
    page.text(60, header.baseline, header.text, header.size);
    if (header.numberGap > 0) {
        page.text(right + header.numberGap * header.size, header.baseline, QStringLiteral("7"), header.size);
    }
    const double below = header.baseline + header.gap * em;
    page.lines(60, below, prose(20));
    Box all;
    for (const RawWord &word : page.raw().words) {
        all = united(all, word.box);
    }
    if (header.rule > 0) {
        page.rule(60, below - 15, 60 + header.rule * all.width(), below - 15);
    }
    return !findPageHeaders({page.raw()}).front().empty();
}

// Whether the first of 48 pages has a header when the first pages have it, close to their text.
bool hasHeaderOnSome(int count)
{
    std::vector<RawPage> pages;
    for (int i = 0; i < 48; ++i) {
        PageMaker page(i + 1);
        if (i < count) {
            page.text(60, 40, QStringLiteral("A report of the year"));
        }
        page.lines(60, 60, prose(40, letters(i + 3)));
        pages.push_back(page.raw());
    }
    return !findPageHeaders(pages).front().empty();
}

// Whether rotated words are stamps when they are that far from one another on three pages.
bool areStamps(double shift)
{
    std::vector<RawPage> pages;
    for (int i = 0; i < 3; ++i) {
        PageMaker page(i + 1);
        page.lines(60, 60, prose(40, letters(i + 3)));
        RawWord stamp = word(QStringLiteral("draft"), 20 + i * shift / 2, 10, 408);
        stamp.rotation = 90;
        page.raw().words.push_back(stamp);
        pages.push_back(page.raw());
    }
    return !findPageHeaders(pages).front().empty();
}

std::vector<Edge> headerEdges()
{
    using pageHeaders::thresholds;
    const QString oneWord = QStringLiteral("Report");
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
        maximum(
            "place of a page number", thresholds.zone,
            [](double share) { // the middle of the number's box
                return isLoneHeader({QStringLiteral("7"), em, 6, 0, share * 800 + 0.3 * em});
            }),
        fewest(
            "pages of a long document with a header", 48 / thresholds.pagesPerHeader,
            [](double count) { return hasHeaderOnSome(static_cast<int>(count)); }),
        minimum(
            "high gap below a header", thresholds.minFarGap,
            [=](double gap) {
                return isLoneHeader({oneWord, 8, gap});
            }),
        maximum(
            "size of a header", thresholds.maxSmallSize,
            [=](double size) {
                return isLoneHeader({oneWord, size * em, 8});
            }),
        minimum(
            "rule below a header", thresholds.minRule,
            [=](double share) {
                return isLoneHeader({oneWord, 8, 3, share});
            }),
        minimum(
            "gap before the page number of a header", thresholds.minPartGap,
            [=](double gap) {
                return isLoneHeader({oneWord, 8, 3, 0, 40, gap});
            }),
        maximum("places of stamps", thresholds.stampGrid / 2, areStamps),
    };
}

} // namespace

class AnalysisRoleEdgesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void roles_data() { addRows(roleEdges()); }
    void roles() { checkRow(roleEdges()); }
    void documents_data() { addRows(documentEdges()); }
    void documents() { checkRow(documentEdges()); }
    void pageHeaders_data() { addRows(headerEdges()); }
    void pageHeaders() { checkRow(headerEdges()); }
};

QTEST_APPLESS_MAIN(AnalysisRoleEdgesTest)
#include "analysis_role_edges_test.moc"
