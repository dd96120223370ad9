// SPDX-License-Identifier: GPL-3.0-or-later
#include "page_maker.h"
#include "threshold_edges.h"

#include "analysis/recognised_text.h"
#include "document/page_walk.h"

#include <QTest>

using namespace quorra;
using namespace quorra::model;
using namespace thresholdEdges;

namespace {

// A page of 600 x 800 points with that image and a hidden word of 100 x 10 points on it.
RawPage pageWith(const Box &image, const Box &text = {50, 100, 150, 110})
{
    RawPage page;
    page.width = 600;
    page.height = 800;
    page.pictures.push_back({image});
    RawWord hidden = word(QStringLiteral("hidden"), text.left, text.width(), text.top + 8);
    hidden.box = text;
    hidden.hidden = true;
    page.words.push_back(hidden);
    return page;
}

bool isKept(RawPage page)
{
    resolveHiddenWords(page);
    return std::any_of(page.words.begin(), page.words.end(), [](const RawWord &each) { return each.hidden; });
}

std::vector<Edge> edges()
{
    using recognisedText::thresholds;
    return {
        minimum(
            "area of a scan", thresholds.minScanArea,
            [](double share) {
                return isKept(pageWith({0, 0, 600, 800 * share}));
            }),
        minimum(
            "text on a smaller scan", thresholds.minTextArea,
            [](double share) {
                return isKept(pageWith({50, 100, 150, 110 + 100}, {50, 100, 150, 100 + 110 * share}));
            }),
        maximum(
            "overlap with a visible word", thresholds.maxOverlap,
            [](double share) {
                RawPage page = pageWith({0, 0, 600, 800});
                page.words.push_back(word(QStringLiteral("visible"), 50 - 100 + 100 * share, 100, 108));
                return isKept(page);
            }),
        maximum(
            "rule beside a picture", thresholds.partMargin,
            [](double distance) {
                RawPage page = pageWith({0, 0, 600, 800});
                page.pictures.push_back({{300, 300, 500, 500}, {}, false, true});
                page.rules.push_back({300, 500 + distance, 500, 500 + distance});
                resolveHiddenWords(page);
                return page.rules.empty();
            }),
        maximum(
            "baseline of a visible word", thresholds.sameBaseline,
            [](double distance) {
                RawPage page = pageWith({0, 0, 600, 800});
                page.words.push_back(word(QStringLiteral("visible"), 50, 100, 108 + 10 * distance));
                return !isKept(page);
            }),
    };
}

bool hasFigure(const Document &document)
{
    bool has = false;
    forEachBlock(document.pages.front(), [&has](const Block &block) { has = has || block.figure(); });
    return has;
}

} // namespace

class AnalysisRecognisedTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thresholds_data() { addRows(edges()); }
    void thresholds() { checkRow(edges()); }

    void textOfAScanReplacesItsImage()
    {
        PageMaker page;
        page.lines(50, 100, prose(5));
        page.raw().pictures.push_back({{0, 0, 600, 800}});
        for (RawWord &each : page.raw().words) {
            each.hidden = true;
            each.style.colour = white;
        }
        const Document document = page.build();
        QCOMPARE(paragraphTexts(document).size(), 1);
        QVERIFY(document.pages.front().recognised);
        QVERIFY(!document.pages.front().scanned);
        QVERIFY(!hasFigure(document));
        QCOMPARE(document.pages.front().sections[0].blocks[0].paragraph()->lines[0].words[0].style->colour, black);
    }

    void hiddenWordsOnAPictureAreDropped()
    {
        PageMaker page;
        page.lines(50, 400, prose(5));
        page.text(120, 150, QStringLiteral("label"));
        page.raw().words.back().hidden = true;
        page.raw().pictures.push_back({{100, 100, 300, 300}});
        const Document document = page.build();
        QVERIFY(hasFigure(document));
        QVERIFY(!document.pages.front().recognised);
        QVERIFY(!paragraphTexts(document).join(QLatin1Char(' ')).contains(QStringLiteral("label")));
    }

    void hiddenWordsOnPaperAreDropped()
    {
        PageMaker page;
        page.lines(50, 400, prose(5));
        page.text(120, 150, QStringLiteral("keyword"));
        page.raw().words.back().hidden = true;
        QCOMPARE(paragraphTexts(page.build()).size(), 1);
    }

    // As some programs write scans: a page of paper, the letters as a mask, and pictures on it.
    void picturesOnAScanStay()
    {
        PageMaker page;
        page.lines(50, 100, prose(5));
        for (RawWord &each : page.raw().words) {
            each.hidden = true;
        }
        page.raw().pictures = {{{0, 0, 600, 800}}, {{40, 90, 500, 160}}, {{100, 300, 300, 500}}};
        const Document document = page.build();
        std::vector<Box> figures;
        forEachBlock(document.pages.front(), [&figures](const Block &block) {
            if (block.figure()) {
                figures.push_back(block.box());
            }
        });
        QCOMPARE(figures, (std::vector<Box>{{100, 300, 300, 500}}));
    }
};

QTEST_APPLESS_MAIN(AnalysisRecognisedTextTest)
#include "analysis_recognised_text_test.moc"
