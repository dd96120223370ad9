// SPDX-License-Identifier: GPL-3.0-or-later
#include "office_fixture.h"

#include "slides/slides_writer.h"
#include "writers/slides/slide_background.h"

#include <QTest>

using namespace quorra;
using namespace quorra::office;

/// What is behind the text of slides, and their pictures.
class OfficeSlidePicturesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void commonThingsAreOnTheMasterPage();
    void otherPagesHaveTheirOwn();
    void picturesUnderOthersAreNotCommon();
    void whiteIsSeenOnColour();
    void picturesHaveNamesAndAlternatives();
    void labelsFormAGroupWithTheirDrawing();
};

namespace {

constexpr Colour blue = 0x0000a0;
constexpr Colour red = 0xa00000;

model::Figure image(const Box &box, int object)
{
    model::Figure figure = fixture::figure(box, model::FigureKind::Image);
    figure.stream = model::ImageSource{};
    figure.stream->object = object;
    return figure;
}

// A blue page with a red strip and a picture.
model::Page coloured()
{
    model::Page page = fixture::page();
    page.fills = {{{0, 0, 612, 792}, blue}, {{0, 0, 612, 40}, red}};
    page.sections[0].blocks.push_back({image({500, 10, 600, 30}, 7), 0});
    return page;
}

QString slides(const std::vector<model::Page> &pages)
{
    fixture::Pictures pictures;
    return fixture::odf(
        OdfKind::Presentation, [&](OdfFile &file) { writeSlides(file, fixture::document(pages), pictures); });
}

QString bodyOf(const QString &text)
{
    return text.mid(text.indexOf(QLatin1String("<office:body>")));
}

} // namespace

void OfficeSlidePicturesTest::commonThingsAreOnTheMasterPage()
{
    model::Page more = coloured();
    more.fills.push_back({{100, 100, 200, 200}, red});
    const CommonBackground common = commonBackground(fixture::document({coloured(), more, coloured()}));
    QCOMPARE(common.fills.size(), std::size_t(2));
    QCOMPARE(common.pictures.size(), std::size_t(1));
    const QString text = slides({coloured(), more, coloured()});
    const QString body = bodyOf(text);
    QCOMPARE(body.count(QLatin1String("draw:master-page-name=\"Common\"")), 3);
    QCOMPARE(body.count(QLatin1String("<draw:image>")), 0);
    QCOMPARE(body.count(QLatin1String("<draw:rect ")), 1);
    QCOMPARE(text.count(QLatin1String("<draw:image>")), 1);
    QCOMPARE(text.count(QLatin1String("<draw:rect ")), 2); // the blue of the whole page is no rectangle
    QVERIFY(text.contains(QLatin1String("<style:drawing-page-properties")));
}

void OfficeSlidePicturesTest::otherPagesHaveTheirOwn()
{
    model::Page first = fixture::page();
    first.fills = {{{0, 0, 612, 792}, red}};
    const QString body = bodyOf(slides({first, coloured(), coloured()}));
    QCOMPARE(body.count(QLatin1String("draw:master-page-name=\"Default\"")), 1);
    QCOMPARE(body.count(QLatin1String("draw:style-name=\"a")), 1);        // its own colour
    QVERIFY(commonBackground(fixture::document({coloured()})).isEmpty()); // of one page nothing is common
}

void OfficeSlidePicturesTest::picturesUnderOthersAreNotCommon()
{
    model::Page covered = coloured();
    covered.fills.push_back({{490, 0, 610, 50}, red});
    const CommonBackground common = commonBackground(fixture::document({covered, covered, coloured()}));
    QCOMPARE(common.fills.size(), std::size_t(3));
    QVERIFY(!hasBackground(coloured(), common));
    covered.fills[2].colour = blue;
    model::Page other = covered;
    other.fills[2].colour = white;
    const CommonBackground different = commonBackground(fixture::document({covered, other, coloured()}));
    QCOMPARE(different.fills.size(), std::size_t(2));
    QVERIFY(different.pictures.empty());
}

void OfficeSlidePicturesTest::whiteIsSeenOnColour()
{
    model::Page page = fixture::page();
    page.fills = {{{0, 0, 612, 792}, white}, {{0, 0, 300, 300}, blue}, {{50, 50, 100, 100}, white}};
    QCOMPARE(slides({page}).count(QLatin1String("<draw:rect ")), 2);
    page.fills[2].box = {400, 50, 500, 100};
    QCOMPARE(slides({page}).count(QLatin1String("<draw:rect ")), 1);
}

void OfficeSlidePicturesTest::picturesHaveNamesAndAlternatives()
{
    model::Page page = fixture::page();
    model::Figure figure = fixture::figure({72, 72, 172, 172}, model::FigureKind::Image);
    figure.id = model::FigureId{4};
    figure.alternative = QStringLiteral("a bridge <at night>");
    page.sections[0].blocks = {{figure, 0}};
    const QString text = slides({page});
    QVERIFY(text.contains(QLatin1String("draw:name=\"Picture 5\"")));
    QVERIFY(text.contains(QLatin1String("</draw:image><svg:desc>a bridge &lt;at night&gt;</svg:desc>")));
    QVERIFY(!text.contains(QLatin1String("<draw:g ")));
}

void OfficeSlidePicturesTest::labelsFormAGroupWithTheirDrawing()
{
    model::Page page = fixture::page();
    model::Figure figure = fixture::figure({72, 72, 172, 172}, model::FigureKind::Drawing);
    figure.labels = {fixture::paragraph(QStringLiteral("label"), {80, 80, 105, 90})};
    page.sections[0].blocks = {{figure, 0}};
    const QString text = slides({page});
    const qsizetype begin = text.indexOf(QLatin1String("<draw:g draw:name=\"Picture 1\">"));
    const qsizetype end = text.indexOf(QLatin1String("</draw:g>"));
    QVERIFY(begin >= 0);
    const QString group = text.mid(begin, end - begin);
    QCOMPARE(group.count(QLatin1String("<draw:image>")), 1);
    QVERIFY(group.contains(QLatin1String(">label</text:p>")));
    QCOMPARE(text.count(QLatin1String("label</text:p>")), 1);
}

QTEST_APPLESS_MAIN(OfficeSlidePicturesTest)
#include "office_slide_pictures_test.moc"
