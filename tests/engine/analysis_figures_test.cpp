// SPDX-License-Identifier: GPL-3.0-or-later
#include "page_maker.h"

#include "analysis/semantics/captions.h"
#include "document/page_walk.h"
#include "document/rotation.h"

#include <QTest>

using namespace quorra;
using namespace quorra::model;

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
        RawPage page = upright.raw();
        const Turn turn{1, 800, 600};
        page.width = 600;
        page.height = 800;
        for (RawWord &word : page.words) {
            word.baseline = turn.point(0, word.baseline).first;
            word.box = turn.box(word.box);
            word.rotation = 90;
        }
        page.pictures[0].box = turn.box(page.pictures[0].box);
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
        QVERIFY(figuresOf(document)[0]->labels.empty());
        QVERIFY(paragraphTexts(document).join(QLatin1Char(' ')).contains(QStringLiteral("halfway")));
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
};

QTEST_GUILESS_MAIN(AnalysisFiguresTest)
#include "analysis_figures_test.moc"
