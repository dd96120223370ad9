// SPDX-License-Identifier: GPL-3.0-or-later
#include "test_text.h"
#include "threshold_edges.h"

#include "analysis/tags/tag_checks.h"
#include "analysis/tags/tag_use.h"

using namespace quorra;
using namespace quorra::model;
using namespace thresholdEdges;

namespace {

constexpr double em = 10; // the font size of all text that says nothing else

/// A page with tags: each word is a piece of content of its own, in the order in which words are added.
class TaggedPage
{
public:
    /// Adds a paragraph and returns its number.
    std::size_t paragraph(TagRole role = TagRole::Paragraph)
    {
        TaggedParagraph made;
        made.role = role;
        made.number = m_text.paragraphs.size();
        m_text.paragraphs.push_back(made);
        return made.number;
    }

    RawWord &add(std::size_t paragraph, double left, double baseline, const QString &text = QStringLiteral("Words."))
    {
        m_page.words.push_back(word(text, left, 30, baseline));
        m_page.words.back().content = static_cast<int>(m_text.contents.size());
        m_text.contents.push_back({&m_text.paragraphs[paragraph], false, false});
        return m_page.words.back();
    }

    /// Adds so many words, each a line of the paragraph.
    void addLines(std::size_t paragraph, double left, double baseline, double count)
    {
        for (int i = 0; i < static_cast<int>(count); ++i) {
            add(paragraph, left, baseline + 12 * i);
        }
    }

    bool isSound() const { return areTagsSound(m_page, m_text); }

    RawPage &raw() { return m_page; }
    TaggedText &text() { return m_text; }

private:
    RawPage m_page;
    TaggedText m_text;
};

// Paragraphs of one word, each right below the one before it unless the order leads to the one above.
bool isOrdered(int steps, int upward)
{
    TaggedPage page;
    double baseline = 400;
    for (int i = 0; i <= steps; ++i) {
        page.add(page.paragraph(), 100, baseline);
        baseline += i < upward ? -14 : 60; // first upwards
    }
    return page.isSound();
}

// Paragraphs of one word, of which so many go on in the middle of a sentence.
bool areWhole(int pairs, int cut)
{
    TaggedPage page;
    for (int i = 0; i <= pairs; ++i) {
        page.add(page.paragraph(), 100, 100 + 14 * i, i < cut + 1 ? QStringLiteral("and") : QStringLiteral("Then."));
    }
    return page.isSound();
}

// Whether the text of a heading with so many letters, in a document with so many letters, still has tags; where it has,
// whether the heading is one.
bool hasTags(int inHeading, int all)
{
    TaggedPage page;
    page.add(page.paragraph(TagRole::Heading), 100, 100, QString(inHeading, QLatin1Char('a')));
    page.add(page.paragraph(), 100, 120, QString(all - inHeading, QLatin1Char('a')));
    checkHeadings({page.raw()}, page.text());
    return !page.text().contents.empty();
}

std::vector<Edge> checkEdges()
{
    using tagChecks::thresholds;
    return {
        minimum(
            "letters with tags", thresholds.minCovered,
            [](double share) {
                TaggedPage page;
                const auto count = static_cast<int>(std::lround(100 * share));
                page.add(page.paragraph(), 100, 100, QString(count, QLatin1Char('a')));
                page.raw().words.push_back(word(QString(100 - count, QLatin1Char('a')), 100, 30, 130));
                return page.isSound();
            }),
        maximum(
            "letters of artifacts", thresholds.maxArtifacts,
            [](double share) {
                TaggedPage page;
                const auto count = static_cast<int>(std::lround(100 * share));
                page.add(page.paragraph(), 100, 100, QString(100 - count, QLatin1Char('a')));
                page.add(page.paragraph(), 100, 130, QString(count, QLatin1Char('a'))).artifact = true;
                return page.isSound();
            }),
        most( // and one
            "words inside other paragraphs", 5,
            [](double count) {
                TaggedPage page;
                const std::size_t outer = page.paragraph();
                page.addLines(outer, 100, 100, 20); // as wide as the words of the other one are
                const std::size_t inner = page.paragraph();
                for (int i = 0; i < static_cast<int>(count); ++i) {
                    page.add(inner, 120, 100 + 36 * i).box.right = 128;
                }
                for (int i = 0; i < 20 - static_cast<int>(count); ++i) {
                    page.add(page.paragraph(), 300, 100 + 36 * i);
                }
                return page.isSound();
            }),
        most( // of 50
            "words of torn paragraphs", 10,
            [](double count) {
                TaggedPage page;
                const std::size_t torn = page.paragraph();
                page.add(torn, 100, 100);
                for (int i = 1; i < static_cast<int>(count); ++i) {
                    page.add(torn, 100, 160 + 12 * i);
                }
                const std::size_t whole = page.paragraph();
                page.addLines(whole, 300, 100, 50 - count);
                return page.isSound();
            }),
        maximum(
            "distance of the lines of a paragraph", thresholds.minGap,
            [](double distance) {
                TaggedPage page;
                const std::size_t paragraph = page.paragraph();
                page.add(paragraph, 100, 100);
                page.add(paragraph, 100, 100 + distance * em);
                return page.isSound();
            }),
        maximum(
            "font sizes of a paragraph", thresholds.minSizeRatio,
            [](double ratio) {
                TaggedPage page;
                const std::size_t paragraph = page.paragraph();
                page.add(paragraph, 100, 100);
                page.add(paragraph, 100, 120).style.size = ratio * em;
                return page.isSound();
            }),
        most("steps upwards on a page", thresholds.fewUpward, [](double count) { return isOrdered(4, int(count)); }),
        most("steps upwards among others", 4, [](double count) { return isOrdered(20, int(count)); }), // a fifth
        maximum(
            "step upwards inside a line", thresholds.minUpStep,
            [](double step) { // the words above begin another column then, whose words are not inside of the first
                TaggedPage page;
                const std::size_t paragraph = page.paragraph();
                page.addLines(paragraph, 100, 100, 3);
                page.add(paragraph, 200, 124 - step * em);
                for (int i = 0; i < 3; ++i) {
                    page.add(page.paragraph(), 140, 100 + 6 * i).box.right = 150;
                }
                return !page.isSound();
            }),
        most("cut paragraphs on a page", thresholds.fewCut, [](double count) { return areWhole(8, int(count)); }),
        most("cut paragraphs among others", 6, [](double count) { return areWhole(20, int(count)); }), // 0.3
        maximum(
            "letters of headings", thresholds.maxHeadings,
            [](double share) { return hasTags(static_cast<int>(std::lround(share * 1000)), 1000); }),
        most(
            "letters of a short document", thresholds.minLetters - 1,
            [](double count) { return hasTags(static_cast<int>(count) - 1, static_cast<int>(count)); }),
        most(
            "letters of a heading", static_cast<std::size_t>(thresholds.maxHeading),
            [](double count) {
                TaggedPage page;
                page.add(page.paragraph(TagRole::Heading), 100, 100, QString(int(count), QLatin1Char('a')));
                page.add(page.paragraph(), 100, 120, QString(1000, QLatin1Char('a')));
                checkHeadings({page.raw()}, page.text());
                return page.text().paragraphs.front().role == TagRole::Heading;
            }),
    };
}

// How many words of a list item are its mark, where the words of the mark and of the text are two pieces of content.
std::size_t labelWords(const QString &mark)
{
    TaggedParagraph item;
    item.role = TagRole::ListItem;
    std::vector<RawWord> words{word(mark, 100, 10, 100), word(QStringLiteral("text"), 120, 20, 100)};
    for (RawWord &each : words) {
        each.tagged = &item;
    }
    words.front().content = 1;
    words.back().content = 2;
    return tagOf(textLinesOf(refs(words))).labelWords;
}

// Whether a line break is kept between lines of which the first one leaves that share of the column free.
bool keepsBreak(double free)
{
    const Box column{0, 0, 400, 800};
    Paragraph paragraph;
    for (const double right : {(1 - free) * 400, 100.0}) {
        Line line = testText::lineOf(QStringLiteral("x"));
        line.box = {0, 0, right, 12};
        line.words.front().box = {0, 0, right, 12};
        line.words.front().separator = Separator::Space;
        paragraph.lines.push_back(line);
    }
    paragraph.lines.front().words.front().box.right = (1 - free) * 400;
    keepMeantBreaks(paragraph, column);
    return paragraph.lines.front().words.front().separator == Separator::LineBreak;
}

std::vector<Edge> useEdges()
{
    using tagUse::thresholds;
    return {
        most(
            "letters of a bullet", static_cast<std::size_t>(thresholds.maxBullet),
            [](double count) { return labelWords(QString(static_cast<int>(count), QLatin1Char('a'))) == 1; }),
        minimum("end of a line that was broken on purpose", thresholds.minMeantGap, keepsBreak),
        fewest(
            "pages without sound tags", thresholds.minPages,
            [](double count) { // and a page with sound ones
                TaggedPage page;
                page.add(page.paragraph(), 100, 100);
                std::vector<RawPage> pages(static_cast<std::size_t>(count) + 1, page.raw());
                for (std::size_t i = 1; i < pages.size(); ++i) {
                    pages[i].words.front().content = -1;
                }
                applyTags(pages, page.text());
                return pages.front().words.front().tagged == nullptr;
            }),
    };
}

} // namespace

/// The thresholds that decide whether the tags of a page are used, and for what.
class AnalysisTagEdgesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thresholdsDecide_data() { addRows(m_edges); }
    void thresholdsDecide() { checkRow(m_edges); }

private:
    std::vector<Edge> m_edges = joined({checkEdges(), useEdges()});
};

QTEST_APPLESS_MAIN(AnalysisTagEdgesTest)
#include "analysis_tag_edges_test.moc"
