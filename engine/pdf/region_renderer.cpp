// SPDX-License-Identifier: GPL-3.0-or-later
#include "pdf/region_renderer.h"

#include "base/units.h"
#include "character_texts.h"
#include "document/page_walk.h"
#include "image/encode_picture.h"
#include "own_pixels.h"
#include "pdf_file_handles.h"
#include "platform/page_time.h"
#include "watermark.h"

#include <SplashOutputDev.h>
#include <splash/SplashBitmap.h>

#include <algorithm>
#include <cmath>

namespace quorra {

namespace {

constexpr int rowAlignment = 4;
constexpr double mostPixels = 60e6;    // of one page; larger ones are drawn at a lower resolution
constexpr double bitmapsInDrawing = 4; // two cached ones, a transparency group on the page and its mask
constexpr Box everything{-1e6, -1e6, 1e6, 1e6};

bool hasText(model::FigureKind kind, model::DrawingWords words)
{
    return kind == model::FigureKind::Page ||
           (kind == model::FigureKind::Drawing && words == model::DrawingWords::InPicture);
}

SplashColorMode splashMode(ColourDepth depth)
{
    return depth == ColourDepth::Colour ? splashModeRGB8
           : depth == ColourDepth::Gray ? splashModeMono8
                                        : splashModeMono1;
}

double pixelsOf(const PageSize &size, const PictureQuality &quality)
{
    return size.width * quality.xres / pointsPerInch * size.height * quality.yres / pointsPerInch;
}

bool isInside(const Box &box, const Box &area)
{
    return box.left >= area.left && box.top >= area.top && box.right <= area.right && box.bottom <= area.bottom;
}

/// Renders a page, optionally without its text.
class Painter final : public SplashOutputDev
{
public:
    Painter(ColourDepth depth, bool withText)
        : SplashOutputDev(splashMode(depth), rowAlignment, false, initialColour)
        , m_withText(withText)
    {
        setFontAntialias(true);
        setVectorAntialias(true);
        setEnableFreeType(true);
        setFreeTypeHinting(false, false);
    }

    void drawChar(
        GfxState *state, double x, double y, double dx, double dy, double originX, double originY, CharCode code,
        int bytes, const Unicode *u, int uLength) override
    {
        const bool wanted = m_withText || isWatermark(state) || isSign(state, code, u, uLength);
        if (wanted && isNear(state, x - originX, y - originY) && !isLeftOut(state, x - originX, y - originY)) {
            SplashOutputDev::drawChar(state, x, y, dx, dy, originX, originY, code, bytes, u, uLength);
        }
    }

    bool beginType3Char(
        GfxState *state, double x, double y, double dx, double dy, CharCode code, const Unicode *u,
        int uLength) override
    {
        return (!m_withText && !isSign(state, code, u, uLength)) || isLeftOut(state, x, y) ||
               SplashOutputDev::beginType3Char(state, x, y, dx, dy, code, u, uLength);
    }

    /// Leaves out the characters whose origins lie in these boxes, in pixels of the bitmap.
    void leaveOut(std::vector<Box> text) { m_leftOut = std::move(text); }

private:
    /// Whether a character is no text, because nobody can tell what it stands for.
    bool isSign(const GfxState *state, CharCode code, const Unicode *u, int uLength)
    {
        return m_texts.textOf(*state->getFont(), code, u, uLength).length == 0;
    }

    bool isLeftOut(GfxState *state, double x, double y) const
    {
        if (m_leftOut.empty()) {
            return false;
        }
        double left = 0;
        double top = 0;
        state->transform(x, y, &left, &top);
        return std::any_of(
            m_leftOut.begin(), m_leftOut.end(), [left, top](const Box &box) { return box.contains(left, top); });
    }

    // Most characters of a page are outside the region to render: their fonts do not even have to be loaded. Characters
    // used for clipping count wherever they are.
    bool isNear(GfxState *state, double x, double y)
    {
        constexpr int firstClippingMode = 4;
        constexpr double reach = 4; // font sizes; more than the width of a character
        double left = 0;
        double top = 0;
        state->transform(x, y, &left, &top);
        const double margin = reach * state->getTransformedFontSize();
        return state->getRender() >= firstClippingMode ||
               (left > -margin && top > -margin && left < getBitmapWidth() + margin &&
                top < getBitmapHeight() + margin);
    }

    static inline SplashColor initialColour = {0xff, 0xff, 0xff, 0xff}; // static: the base class is constructed first
    bool m_withText;
    std::vector<Box> m_leftOut;
    CharacterTexts m_texts;
};

} // namespace

/// A rendered page or region.
struct PagePictureSource::Drawn
{
    int page = 0;
    Box area;
    double xres = 0;
    double yres = 0;
    int left = 0; ///< position of the bitmap on the page, in pixels
    int top = 0;
    std::unique_ptr<SplashBitmap> bitmap;
};

/// A renderer caches fonts and colours for all pages.
struct PagePictureSource::Painters
{
    std::unique_ptr<Painter> withText;
    std::unique_ptr<Painter> withoutText;
};

PagePictureSource::PagePictureSource(
    PdfFile &file, const model::Document &document, const PictureQuality &quality, model::DrawingWords words)
    : m_file(file)
    , m_figures(document.figures)
    , m_quality(quality)
    , m_painters(std::make_unique<Painters>())
    , m_drawn(std::make_unique<std::array<Drawn, 2>>())
{
    for (const model::Page &page : document.pages) {
        model::forEachBlock(page, [&](const model::Block &block) {
            if (const model::Figure *figure = block.figure()) {
                const model::FigureRegion &region = m_figures.at(static_cast<std::size_t>(figure->id));
                if (region.stream && m_quality.ownPixels) {
                    return;
                }
                Box &area = m_expected[{region.page, hasText(figure->kind, words)}];
                area = united(area, region.box);
            }
        });
    }
}

PagePictureSource::~PagePictureSource() = default;

PagePictureSource::Drawn &PagePictureSource::kept(bool withText) const
{
    return (*m_drawn)[withText ? 1 : 0];
}

bool PagePictureSource::isDrawn(int page, bool withText, const Box &box) const
{
    const Drawn &drawn = kept(withText);
    return drawn.page == page && isInside(box, drawn.area);
}

/// The region to render for a box: everything that is expected of the page, or only the box. After a second unexpected
/// box, more of them are expected.
Box PagePictureSource::areaFor(int page, bool withText, const Box &box) const
{
    const auto expected = m_expected.find({page, withText});
    if (expected != m_expected.end() && isInside(box, expected->second)) {
        return expected->second;
    }
    return kept(withText).page == page ? everything : box;
}

/// Discards the bitmap that a new one replaces, those of other pages, and those too large to be cached together with
/// it.
void PagePictureSource::makeRoom(int page, bool withText, double pixels)
{
    kept(withText) = {};
    Drawn &other = kept(!withText);
    const SplashBitmap *bitmap = other.bitmap.get();
    const double otherPixels = bitmap ? static_cast<double>(bitmap->getWidth()) * bitmap->getHeight() : 0;
    if (other.page != page || pixels + otherPixels > mostPixels) {
        other = {};
    }
}

void PagePictureSource::draw(int page, bool withText, const Box &area)
{
    auto &painter = withText ? m_painters->withText : m_painters->withoutText;
    PDFDoc *doc = m_file.handles().doc.get();
    if (!painter) {
        painter = std::make_unique<Painter>(m_quality.depth, withText);
        painter->startDoc(doc);
    }
    const PageTime time(page);
    const PageSize size = m_file.pageSize(page);
    const double pixels = pixelsOf(size, m_quality);
    const double shrink = pixels > mostPixels ? std::sqrt(mostPixels / pixels) : 1;
    Drawn drawn{page, area, m_quality.xres * shrink, m_quality.yres * shrink, 0, 0, nullptr};
    ++m_drawings;
    const auto leaveOutText = [&] {
        std::vector<Box> text;
        for (const model::FigureRegion &figure : m_figures) {
            for (const Box &word : figure.page == page && withText ? figure.text : std::vector<Box>()) {
                constexpr double margin = 1; // points: origins lie on the edge of the box
                const double x = drawn.xres / pointsPerInch;
                const double y = drawn.yres / pointsPerInch;
                text.push_back(
                    {(word.left - margin) * x - drawn.left, (word.top - margin) * y - drawn.top,
                     (word.right - margin) * x - drawn.left, (word.bottom + margin) * y - drawn.top});
            }
        }
        painter->leaveOut(std::move(text));
    };
    if (area == everything) {
        leaveOutText();
        makeRoom(page, withText, pixels * shrink * shrink);
        doc->displayPage(painter.get(), page, drawn.xres, drawn.yres, 0, false, true, false);
    } else {
        const auto first = [](double points, double res) { return static_cast<int>(points * res / pointsPerInch); };
        drawn.left = std::max(0, first(area.left, drawn.xres) - 1);
        drawn.top = std::max(0, first(area.top, drawn.yres) - 1);
        const int width = std::max(1, first(std::min(area.right, size.width), drawn.xres) + 2 - drawn.left);
        const int height = std::max(1, first(std::min(area.bottom, size.height), drawn.yres) + 2 - drawn.top);
        leaveOutText();
        makeRoom(page, withText, static_cast<double>(width) * height);
        doc->displayPageSlice(
            painter.get(), page, drawn.xres, drawn.yres, 0, false, true, false, drawn.left, drawn.top, width, height);
    }
    painter->leaveOut({});
    drawn.bitmap.reset(painter->takeBitmap());
    kept(withText) = std::move(drawn);
}

model::EncodedPicture PagePictureSource::cut(bool withText, const Box &box) const
{
    const Drawn &drawn = kept(withText);
    SplashBitmap *bitmap = drawn.bitmap.get();
    if (!bitmap || !bitmap->getDataPtr()) {
        return {};
    }
    const auto pixel = [](double points, double res, int first, int limit) {
        return std::clamp(static_cast<int>(std::lround(points * res / pointsPerInch)) - first, 0, limit);
    };
    const int left = pixel(box.left, drawn.xres, drawn.left, bitmap->getWidth());
    const int right = pixel(box.right, drawn.xres, drawn.left, bitmap->getWidth());
    const int top = pixel(box.top, drawn.yres, drawn.top, bitmap->getHeight());
    const int bottom = pixel(box.bottom, drawn.yres, drawn.top, bitmap->getHeight());
    if (left >= right || top >= bottom) {
        return {};
    }
    const Raster raster{bitmap->getWidth(),   bitmap->getHeight(),
                        m_quality.depth,      static_cast<std::size_t>(bitmap->getRowSize()),
                        bitmap->getDataPtr(), nullptr};
    return encodePicture(raster, {left, top, right - left, bottom - top});
}

model::EncodedPicture PagePictureSource::encode(const model::Figure &figure, model::DrawingWords words)
{
    const auto index = static_cast<std::size_t>(figure.id);
    if (index >= m_figures.size()) {
        return {};
    }
    const int page = m_figures[index].page;
    const Box &box = m_figures[index].box;
    const bool withText = hasText(figure.kind, words);
    if (const std::optional<model::ImageSource> &stream = m_figures[index].stream; stream && m_quality.ownPixels) {
        const PageTime time(page);
        model::EncodedPicture picture = ownPixels(*m_file.handles().doc, *stream, box);
        if (!picture.bytes.isEmpty()) {
            return picture;
        }
    }
    if (!isDrawn(page, withText, box)) {
        const bool whole = figure.kind == model::FigureKind::Page;
        draw(page, withText, whole ? everything : areaFor(page, withText, box));
    }
    return cut(withText, box);
}

model::EncodedPicture PagePictureSource::background(int pageNumber)
{
    if (!isDrawn(pageNumber, false, everything)) {
        draw(pageNumber, false, everything);
    }
    return cut(false, everything);
}

std::uint64_t drawingMemory(const PageSize &size, const PictureQuality &quality)
{
    const double bytesPerPixel = static_cast<double>(rowBytes(quality.depth, 8)) / 8;
    const double pixels = std::min(pixelsOf(size, quality), mostPixels);
    return static_cast<std::uint64_t>(bitmapsInDrawing * pixels * bytesPerPixel);
}

} // namespace quorra
