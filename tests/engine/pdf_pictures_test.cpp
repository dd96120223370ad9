// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/page_transform.h"
#include "pdf/page_reader.h"
#include "pdf/picture_prefetch.h"
#include "pdf/region_renderer.h"

#include <QTest>

#include <GfxState.h>

#include <string>
#include <vector>

using namespace quorra;
using model::DrawingWords;
using model::FigureKind;

namespace {

/// Adds a figure to the document's last page.
void addFigure(model::Document &document, const Box &box, FigureKind kind)
{
    model::Figure figure;
    figure.box = box;
    figure.kind = kind;
    figure.id = model::FigureId{document.figures.size()};
    document.figures.push_back({document.pages.back().number, box});
    document.pages.back().sections.back().blocks.push_back({figure});
}

void addPage(model::Document &document, int number)
{
    document.pages.emplace_back();
    document.pages.back().number = number;
    document.pages.back().sections.emplace_back();
}

/// Four figures on the first page of a sample, two of them drawings; it does not matter what is seen there.
model::Document fourFigures()
{
    model::Document document;
    addPage(document, 1);
    addFigure(document, {72, 72, 172, 172}, FigureKind::Drawing);
    addFigure(document, {200, 80, 300, 150}, FigureKind::Image);
    addFigure(document, {72, 300, 300, 420}, FigureKind::Drawing);
    addFigure(document, {310, 300, 500, 420}, FigureKind::Image);
    return document;
}

const model::Figure &figureAt(const model::Document &document, std::size_t page, std::size_t block)
{
    return *document.pages[page].sections.back().blocks[block].figure();
}

constexpr PictureQuality coarse{ColourDepth::Colour, 72, 72};

std::string sample()
{
    return QUORRA_SAMPLES "/pictures.pdf";
}

} // namespace

Q_DECLARE_METATYPE(quorra::model::DrawingWords)

class PdfPicturesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // The library creates them with the first graphics state, without a lock: they must exist before threads draw.
    void makesTheColourProfilesWhenADocumentIsOpened()
    {
        QVERIFY(!GfxState::sRGBProfile);
        const PdfFile document(sample(), {}, {});
        QVERIFY(GfxState::sRGBProfile);
    }

    void drawsWhatIsExpectedOfAPageTogether_data()
    {
        QTest::addColumn<DrawingWords>("words");
        QTest::addColumn<int>("drawings");
        QTest::newRow("words in the drawings: once with and once without text") << DrawingWords::InPicture << 2;
        QTest::newRow("words apart: all at once") << DrawingWords::Apart << 1;
    }

    void drawsWhatIsExpectedOfAPageTogether()
    {
        QFETCH(DrawingWords, words);
        QFETCH(int, drawings);
        PdfFile file(sample(), {}, {});
        const model::Document all = fourFigures();
        PagePictureSource source(file, all, coarse, words);
        for (const model::Block &block : all.pages[0].sections[0].blocks) {
            const model::Figure &figure = *block.figure();
            const model::EncodedPicture encoded = source.encode(figure, words);
            model::Document one;
            addPage(one, 1);
            addFigure(one, figure.box, figure.kind);
            PagePictureSource alone(file, one, coarse, words);
            QCOMPARE(encoded.bytes, alone.encode(figureAt(one, 0, 0), words).bytes);
            QVERIFY(!encoded.bytes.isEmpty());
        }
        QCOMPARE(source.drawings(), drawings);
    }

    // The two pictures of the sample have 160 by 160 pixels on two and a half inches.
    void picturesKeepTheirOwnPixels_data()
    {
        QTest::addColumn<double>("share"); // of the picture's height that is shown
        QTest::addColumn<int>("rotation");
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("height");
        QTest::newRow("whole") << 1.0 << 0 << 160 << 160;
        QTest::newRow("cut") << 0.5 << 0 << 160 << 80;
        QTest::newRow("cut and rotated") << 0.5 << 90 << 160 << 80;
    }

    void picturesKeepTheirOwnPixels()
    {
        QFETCH(double, share);
        QFETCH(int, rotation);
        PdfFile file(sample(), {}, {});
        model::RawPage page = PageCollector(file, Collect::Everything).collect(1);
        QCOMPARE(page.pictures.size(), std::size_t(2));
        for (model::RawPicture &picture : page.pictures) {
            QVERIFY(picture.stream);
            QCOMPARE(picture.stream->rotation, 0);
            picture.stream->rotation = rotation;
            picture.box.bottom = picture.box.top + share * picture.box.height();
            model::Document document;
            addPage(document, 1);
            addFigure(document, picture.box, FigureKind::Image);
            document.figures.back().stream = picture.stream;
            PictureQuality quality = coarse;
            PagePictureSource rendered(file, document, quality, DrawingWords::InPicture);
            QVERIFY(rendered.encode(figureAt(document, 0, 0), DrawingWords::InPicture).widthPixels != 160);
            quality.ownPixels = true;
            PagePictureSource source(file, document, quality, DrawingWords::InPicture);
            const model::EncodedPicture own = source.encode(figureAt(document, 0, 0), DrawingWords::InPicture);
            QTEST(own.widthPixels, "width");
            QTEST(own.heightPixels, "height");
            QVERIFY(!own.bytes.isEmpty());
            QCOMPARE(source.drawings(), 0);
        }
    }

    // Damaged references must not be worse than none.
    void picturesWithoutAReadableStreamAreRendered()
    {
        PdfFile file(sample(), {}, {});
        model::Document document;
        addPage(document, 1);
        addFigure(document, {72, 72, 172, 172}, FigureKind::Image);
        document.figures.back().stream = model::ImageSource{1, 0, {72, 72, 172, 172}, 0, false};
        PictureQuality quality = coarse;
        quality.ownPixels = true;
        PagePictureSource source(file, document, quality, DrawingWords::InPicture);
        QVERIFY(!source.encode(figureAt(document, 0, 0), DrawingWords::InPicture).bytes.isEmpty());
        QCOMPARE(source.drawings(), 1);
    }

    // What a figure shows is a matter of its id, wherever its page was moved to meanwhile.
    void drawsTheSameRegionAfterThePageWasScaled()
    {
        PdfFile file(sample(), {}, {});
        model::Document document = fourFigures();
        PagePictureSource source(file, document, coarse, DrawingWords::InPicture);
        const QByteArray before = source.encode(figureAt(document, 0, 2), DrawingWords::InPicture).bytes;
        const QByteArray other = source.encode(figureAt(document, 0, 0), DrawingWords::InPicture).bytes;
        model::transformPage(document.pages[0], document.styles, {0.5, 0.25, 7, 9}, 300, 200);
        QCOMPARE(figureAt(document, 0, 2).box, (Box{43, 84, 157, 114}));
        QCOMPARE(source.encode(figureAt(document, 0, 2), DrawingWords::InPicture).bytes, before);
        QVERIFY(before != other);
        PagePictureSource later(file, document, coarse, DrawingWords::InPicture);
        QCOMPARE(later.encode(figureAt(document, 0, 2), DrawingWords::InPicture).bytes, before);
    }

    void hasNoBytesForAFigureOfNoDocument()
    {
        PdfFile file(sample(), {}, {});
        PagePictureSource source(file, fourFigures(), coarse, DrawingWords::InPicture);
        model::Figure unknown;
        unknown.id = model::FigureId{4};
        QVERIFY(source.encode(unknown, DrawingWords::InPicture).bytes.isEmpty());
    }

    void prefetchesEveryFigureAsTheSourceDrawsIt()
    {
        PdfFile file(sample(), {}, {});
        PdfFilePool pool(file);
        const model::Document document = fourFigures();
        PdfFile other(sample(), {}, {});
        PagePictureSource source(other, document, coarse, DrawingWords::InPicture);
        PrefetchedPictures pictures(coarse, pool, document, source);
        for (const DrawingWords words : {DrawingWords::InPicture, DrawingWords::Apart}) {
            for (std::size_t i = 0; i < document.figures.size(); ++i) {
                const model::Figure &figure = figureAt(document, 0, i);
                QCOMPARE(pictures.encode(figure, words).bytes, source.encode(figure, words).bytes);
            }
        }
    }

    void drawsAPageAgainAfterAnother()
    {
        PdfFile file(QUORRA_SAMPLES "/report.pdf", {}, {});
        model::Document document;
        addPage(document, 2);
        addFigure(document, {72, 72, 172, 172}, FigureKind::Drawing);
        PagePictureSource source(file, document, {ColourDepth::Gray, 72, 72}, DrawingWords::InPicture);
        source.background(1);
        source.background(1);
        QCOMPARE(source.drawings(), 1);
        source.encode(figureAt(document, 0, 0), DrawingWords::InPicture);
        source.background(1);
        QCOMPARE(source.drawings(), 3);
    }
};

QTEST_GUILESS_MAIN(PdfPicturesTest)
#include "pdf_pictures_test.moc"
