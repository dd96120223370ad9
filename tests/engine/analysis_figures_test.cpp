// SPDX-License-Identifier: GPL-3.0-or-later
#include "page_maker.h"
#include "threshold_edges.h"

#include "analysis/figures/figures.h"
#include "analysis/page_builder.h"
#include "analysis/semantics/captions.h"
#include "document/page_walk.h"

#include <QTest>

#include <cmath>

using namespace quorra;
using namespace quorra::model;
using namespace thresholdEdges;

namespace {

std::vector<const Figure *> figuresOf(const Document &document)
{
    std::vector<const Figure *> figures;
    for (const Page &page : document.pages) {
        model::forEachBlock(page, [&figures](const Block &block) {
            if (block.figure()) {
                figures.push_back(block.figure());
            }
        });
    }
    return figures;
}

void addImage(PageMaker &page, const Box &box)
{
    page.raw().pictures.push_back({box});
}

// A curve that nothing takes for a frame or a table.
void addDrawing(PageMaker &page, const Box &box)
{
    for (int i = 0; i < 6; ++i) {
        page.raw().ink.push_back({{box.left, box.top, box.right - i, box.bottom - i}, false});
    }
}

Block figureAt(const Box &box, int id)
{
    Figure figure;
    figure.box = box;
    figure.id = FigureId{static_cast<std::size_t>(id)};
    return {figure, 0};
}

Block captionAt(const Box &box)
{
    Paragraph caption;
    caption.box = box;
    caption.role = Role::Caption;
    return {caption, 0};
}

Page pageOf(std::vector<Block> blocks)
{
    Page page;
    page.sections.push_back({{{0, 0, 600, 800}}, std::move(blocks)});
    return page;
}

/// The figure of each caption, counted from 0; -1 for none.
std::vector<int> captionLinks(Page page)
{
    linkCaptions(page);
    std::vector<int> links;
    for (const Block &block : page.sections.front().blocks) {
        if (const Paragraph *paragraph = block.paragraph()) {
            links.push_back(paragraph->captionOf ? static_cast<int>(*paragraph->captionOf) : -1);
        }
    }
    return links;
}

// ---- thresholds

std::vector<FoundFigure> placedFigures(PageMaker &page)
{
    return findFigures(page.raw(), {}, {}, refs(page.raw().words)).placed;
}

bool isPlaced(const Box &image)
{
    PageMaker page;
    addImage(page, image);
    return placedFigures(page).size() == 1;
}

/// Short words in lines of ten.
void addProse(PageMaker &page, int words, double left, double top)
{
    for (int i = 0; i < words; ++i) {
        page.text(left + 30 * (i % 10), top + 12 * std::floor(i / 10.0), QStringLiteral("prose"));
    }
}

Block paragraphAt(const Box &box, int lines)
{
    Paragraph paragraph;
    paragraph.box = box;
    paragraph.lines.resize(static_cast<std::size_t>(lines));
    return {paragraph, 0};
}

bool isBehindText(Figure figure, Block text)
{
    Page page = pageOf({{std::move(figure), 0}, std::move(text)});
    findFiguresBehindText(page);
    return page.sections[0].blocks[0].figure()->behindText;
}

std::vector<Edge> figureEdges()
{
    using figures::thresholds;
    return {
        minimum(
            "side of an image", thresholds.minImageSide,
            [](double side) {
                return isPlaced({100, 100, 100 + side, 200});
            }),
        maximum(
            "area of an image that is no background", thresholds.maxImageArea,
            [](double share) {
                return isPlaced({0, 0, 600, 800 * share});
            }),
        maximum(
            "seam between strips of an image", thresholds.maxSeam,
            [](double seam) {
                PageMaker page;
                addImage(page, {100, 100, 200, 150});
                addImage(page, {100, 150 + seam, 200, 200});
                return placedFigures(page).size() == 1;
            }),
        most(
            "words on an image", thresholds.maxWordsOnImage,
            [](double words) {
                PageMaker page;
                addProse(page, static_cast<int>(words), 110.0, 120.0);
                addImage(page, {100, 100, 500, 300});
                return placedFigures(page).size() == 1;
            }),
        most(
            "words on a drawing", thresholds.maxLabels,
            [](double words) {
                PageMaker page;
                addProse(page, static_cast<int>(words), 110.0, 120.0);
                addDrawing(page, {100, 100, 500, 300});
                return placedFigures(page).size() == 1;
            }),
        maximum(
            "width of an image in a drawing", thresholds.maxExcess,
            [](double excess) {
                PageMaker page;
                addDrawing(page, {100, 100, 300, 300});
                addImage(page, {200 - 101 * excess, 150, 200 + 101 * excess, 250}); // a drawing has a margin
                return placedFigures(page).size() == 1;
            }),
        minimum(
            "part of a label on its drawing", thresholds.minShownLabel,
            [](double share) {
                StyleTable styles;
                PageMaker page;
                page.text(100, 200, QStringLiteral("twenty-letter-labels")); // 100 points wide
                const Box picture{100, 100, 100 + 100 * share, 300};
                return figureBlocks({picture, FigureKind::Drawing, refs(page.raw().words)}, styles).size() == 1;
            }),
        most(
            "lines of a text that belongs to a drawing", thresholds.maxLabelLines,
            [](double lines) {
                Figure drawing;
                drawing.box = {100, 100, 300, 300};
                drawing.kind = FigureKind::Drawing;
                return !isBehindText(drawing, paragraphAt({120, 120, 250, 200}, static_cast<int>(lines)));
            }),
        minimum(
            "part of a text on a figure", thresholds.minTextOnFigure,
            [](double share) {
                Figure image;
                image.box = {200 - 50 * share, 100, 200 + 50 * share, 300};
                return isBehindText(image, paragraphAt({150, 120, 250, 200}, 1));
            }),
        maximum(
            "distance of a caption", captions::thresholds.maxDistance,
            [](double distance) {
                const Box caption{100, 200 + distance, 300, 212 + distance};
                return captionLinks(pageOf({figureAt({100, 100, 300, 200}, 0), captionAt(caption)})).front() == 0;
            }),
        minimum(
            "area of a scan", pageBuilder::thresholds.minScanArea,
            [](double share) {
                PageMaker page;
                addImage(page, {0, 0, 600, 800 * share});
                return page.build().pages.front().scanned;
            }),
        maximum(
            "rule at the edge of a figure", pageBuilder::thresholds.blockMargin,
            [](double distance) {
                PageMaker page;
                addImage(page, {100, 100, 200, 200});
                page.rule(100, 200 + distance, 200, 200 + distance);
                return page.build().pages.front().rules.empty();
            }),
    };
}

} // namespace

class AnalysisFiguresTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void figuresAreNamedOverTheWholeDocument()
    {
        PageMaker first(3);
        first.lines(50, 500, prose(5));
        addImage(first, {50, 100, 150, 200});
        PageMaker second(4);
        second.lines(50, 500, prose(5));
        addImage(second, {60, 250, 160, 350});
        addImage(second, {60, 100, 160, 200});
        const Document document = buildDocument({first.raw(), second.raw()});
        const std::vector<const Figure *> figures = figuresOf(document);
        QCOMPARE(figures.size(), std::size_t(3));
        QCOMPARE(document.figures.size(), figures.size());
        for (std::size_t i = 0; i < figures.size(); ++i) {
            QCOMPARE(figures[i]->id, FigureId{i});
            QCOMPARE(document.figures[i].box, figures[i]->box);
            QCOMPARE(document.figures[i].page, i == 0 ? 3 : 4);
        }
        QCOMPARE(document.figures[1].box, (Box{60, 100, 160, 200})); // in reading order
    }

    // The region counts on the page as shown, whichever way its text runs.
    void figuresOfSidewaysPagesLieWhereTheyAreShown()
    {
        PageMaker upright(1, 800, 600);
        upright.lines(50, 300, prose(5));
        addImage(upright, {60, 100, 160, 250});
        const RawPage page = sideways(upright.raw());
        const Document document = buildDocument({page});
        QCOMPARE(figuresOf(document).size(), std::size_t(1));
        QCOMPARE(document.figures[0].box, page.pictures[0].box);
        QCOMPARE(figuresOf(document)[0]->box, page.pictures[0].box);
    }

    void wordsInsideADrawingAreItsLabels()
    {
        PageMaker page;
        page.lines(50, 500, prose(5));
        addDrawing(page, {100, 100, 300, 300});
        page.text(150, 200, QStringLiteral("inside"));
        page.text(150, 340, QStringLiteral("below"));
        const Document document = page.build();
        const std::vector<const Figure *> figures = figuresOf(document);
        QCOMPARE(figures.size(), std::size_t(1));
        QCOMPARE(figures[0]->kind, FigureKind::Drawing);
        QCOMPARE(figures[0]->labels.size(), std::size_t(1));
        QCOMPARE(plainText(figures[0]->labels[0]), QStringLiteral("inside"));
        QVERIFY(!figures[0]->behindText);
        QVERIFY(!paragraphTexts(document).contains(QStringLiteral("inside")));
        QVERIFY(paragraphTexts(document).contains(QStringLiteral("below")));
    }

    // The picture ends at its box: text that reaches far over it would be cut off there.
    void textThatLeavesTheDrawingIsNoLabel()
    {
        PageMaker page;
        page.lines(50, 500, prose(5));
        addDrawing(page, {100, 100, 300, 300});
        page.text(260, 200, QStringLiteral("halfway"), 20);
        page.text(270, 240, QStringLiteral("inside"));
        const Document document = page.build();
        QCOMPARE(figuresOf(document).size(), std::size_t(1));
        QCOMPARE(labelTexts(document).join(QLatin1Char('|')), QStringLiteral("inside"));
        QVERIFY(paragraphTexts(document).join(QLatin1Char(' ')).contains(QStringLiteral("halfway")));
        QCOMPARE(document.figures[0].text.size(), std::size_t(1)); // the picture leaves it out
    }

    // Another picture that begins between a drawing's top and its labels does not come between them.
    void labelsStayWithTheirDrawingBesideAnotherFigure()
    {
        PageMaker page;
        page.lines(50, 500, prose(5));
        addDrawing(page, {60, 100, 250, 300});
        page.text(100, 250, QStringLiteral("label"));
        addImage(page, {260, 150, 400, 300});
        const Document document = page.build();
        QCOMPARE(figuresOf(document).size(), std::size_t(2));
        QCOMPARE(figuresOf(document)[0]->labels.size(), std::size_t(1));
    }

    void picturesUnderTextAreBehindIt()
    {
        PageMaker page;
        page.lines(50, 100, prose(30));
        addImage(page, {40, 80, 560, 500});
        addImage(page, {40, 600, 200, 700});
        const Document document = page.build();
        const std::vector<const Figure *> figures = figuresOf(document);
        QCOMPARE(figures.size(), std::size_t(2));
        QVERIFY(figures[0]->behindText);
        QVERIFY(!figures[1]->behindText);
    }

    void captionsBelongToTheNearerFigure()
    {
        const std::vector<int> above = captionLinks(pageOf(
            {captionAt({100, 80, 300, 92}), figureAt({100, 100, 300, 200}, 0), captionAt({100, 230, 300, 242}),
             figureAt({100, 250, 300, 350}, 1)}));
        QCOMPARE(above, (std::vector<int>{0, 1}));
        const std::vector<int> below = captionLinks(pageOf(
            {figureAt({100, 100, 300, 200}, 0), captionAt({100, 208, 300, 220}), figureAt({100, 250, 300, 350}, 1),
             captionAt({100, 358, 300, 370})}));
        QCOMPARE(below, (std::vector<int>{0, 1}));
    }

    void captionsOfTablesAndFarOnesBelongToNoFigure()
    {
        Table table;
        table.box = {100, 250, 300, 350};
        QCOMPARE(
            captionLinks(pageOf({figureAt({100, 100, 300, 200}, 0), captionAt({100, 230, 300, 242}), Block{table, 0}})),
            std::vector<int>{-1});
        QCOMPARE(
            captionLinks(pageOf({figureAt({100, 100, 300, 200}, 0), captionAt({100, 240, 300, 252})})),
            std::vector<int>{-1});
        QCOMPARE(
            captionLinks(pageOf({figureAt({100, 100, 300, 200}, 0), captionAt({310, 205, 500, 217})})),
            std::vector<int>{-1});
    }

    void thresholds_data() { addRows(figureEdges()); }
    void thresholds() { checkRow(figureEdges()); }
};

QTEST_GUILESS_MAIN(AnalysisFiguresTest)
#include "analysis_figures_test.moc"
