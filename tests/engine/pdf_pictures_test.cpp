// SPDX-License-Identifier: GPL-3.0-or-later
#include "pdf/region_renderer.h"

#include <QTest>

#include <GfxState.h>

#include <string>
#include <vector>

using namespace quorra;
using model::PictureKind;

namespace {

/// Four pictures on the first page of a sample, two of them drawings; it does not matter what is seen there.
std::vector<model::Picture> fourPictures()
{
    return {
        {{72, 72, 172, 172}, PictureKind::Drawing},
        {{200, 80, 300, 150}, PictureKind::Image},
        {{72, 300, 300, 420}, PictureKind::Drawing},
        {{310, 300, 500, 420}, PictureKind::Image},
    };
}

model::Document documentOf(const std::vector<model::Picture> &pictures)
{
    model::Page page;
    page.number = 1;
    page.sections.emplace_back();
    for (const model::Picture &picture : pictures) {
        page.sections.back().blocks.push_back({picture});
    }
    model::Document document;
    document.pages.push_back(page);
    return document;
}

std::string sample()
{
    return QUORRA_SAMPLES "/pictures.pdf";
}

} // namespace

Q_DECLARE_METATYPE(quorra::DrawingWords)

class PdfPicturesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // The library makes them with the first graphics state, without a lock: they must be there before threads draw.
    void makesTheColourProfilesWhenADocumentIsOpened()
    {
        QVERIFY(!GfxState::sRGBProfile);
        const Document document(sample(), {}, {});
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
        Document document(sample(), {}, {});
        PagePictureSource source(document, ColourDepth::Colour, 72, 72);
        source.expect(documentOf(fourPictures()), words);
        for (const model::Picture &picture : fourPictures()) {
            const PictureKind kind = words == DrawingWords::Apart ? PictureKind::Image : picture.kind;
            const model::EncodedPicture encoded = source.encode(1, picture.box, kind);
            PagePictureSource alone(document, ColourDepth::Colour, 72, 72);
            QCOMPARE(encoded.bytes, alone.encode(1, picture.box, kind).bytes);
            QVERIFY(!encoded.bytes.isEmpty());
        }
        QCOMPARE(source.drawings(), drawings);
    }

    void drawsAPageAgainAfterAnother()
    {
        Document document(QUORRA_SAMPLES "/report.pdf", {}, {});
        PagePictureSource source(document, ColourDepth::Gray, 72, 72);
        source.background(1);
        source.background(1);
        QCOMPARE(source.drawings(), 1);
        source.encode(2, {72, 72, 172, 172}, PictureKind::Drawing);
        source.background(1);
        QCOMPARE(source.drawings(), 3);
    }
};

QTEST_GUILESS_MAIN(PdfPicturesTest)
#include "pdf_pictures_test.moc"
