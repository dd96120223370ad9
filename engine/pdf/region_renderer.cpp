// SPDX-License-Identifier: GPL-3.0-or-later
#include "pdf/region_renderer.h"

#include "document_handles.h"
#include "image/encode_picture.h"
#include "platform/page_time.h"

#include <SplashOutputDev.h>
#include <splash/SplashBitmap.h>

#include <algorithm>
#include <cmath>

namespace quorra {

namespace {

constexpr double pointsPerInch = 72;
constexpr int rowAlignment = 4;
constexpr double mostPixels = 60e6;    // of one page; larger ones are drawn at a lower resolution
constexpr double bitmapsInDrawing = 4; // two cached ones, a transparency group on the page and its mask
constexpr Box everything{0, 0, 1e6, 1e6};

/// The labels of a drawing are part of its picture: without them a chart is useless.
bool hasText(model::PictureKind kind)
{
    return kind != model::PictureKind::Image;
}

SplashColorMode splashMode(ColourDepth depth)
{
    return depth == ColourDepth::Colour ? splashModeRGB8
           : depth == ColourDepth::Gray ? splashModeMono8
                                        : splashModeMono1;
}

double pixelsOf(const PageSize &size, double xres, double yres)
{
    return size.width * xres / pointsPerInch * size.height * yres / pointsPerInch;
}

/// Boxes that were transformed and restored have rounding errors.
bool isInside(const Box &box, const Box &area)
{
    constexpr double tolerance = 0.02; // points
    return box.left > area.left - tolerance && box.top > area.top - tolerance && box.right < area.right + tolerance &&
           box.bottom < area.bottom + tolerance;
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
        if (m_withText && isNear(state, x - originX, y - originY)) {
            SplashOutputDev::drawChar(state, x, y, dx, dy, originX, originY, code, bytes, u, uLength);
        }
    }

    bool beginType3Char(
        GfxState *state, double x, double y, double dx, double dy, CharCode code, const Unicode *u,
        int uLength) override
    {
        return !m_withText || SplashOutputDev::beginType3Char(state, x, y, dx, dy, code, u, uLength);
    }

    void endType3Char(GfxState *state) override
    {
        if (m_withText) {
            SplashOutputDev::endType3Char(state);
        }
    }

private:
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

PagePictureSource::PagePictureSource(Document &document, ColourDepth depth, double xres, double yres)
    : m_document(document)
    , m_depth(depth)
    , m_xres(xres)
    , m_yres(yres)
    , m_painters(std::make_unique<Painters>())
    , m_drawn(std::make_unique<std::array<Drawn, 2>>())
{}

PagePictureSource::~PagePictureSource() = default;

void PagePictureSource::expect(const model::Document &document, DrawingWords words)
{
    m_expected.clear();
    for (const model::Page &page : document.pages) {
        for (const model::Section &section : page.sections) {
            for (const model::Block &block : section.blocks) {
                if (const model::Picture *picture = block.picture()) {
                    const bool asImage = words == DrawingWords::Apart && picture->kind == model::PictureKind::Drawing;
                    Box &area = m_expected[{page.number, !asImage && hasText(picture->kind)}];
                    area = united(area, picture->box);
                }
            }
        }
    }
}

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
    PDFDoc *doc = m_document.handles().doc.get();
    if (!painter) {
        painter = std::make_unique<Painter>(m_depth, withText);
        painter->startDoc(doc);
    }
    const PageTime time(page);
    const PageSize size = m_document.pageSize(page);
    const double pixels = pixelsOf(size, m_xres, m_yres);
    const double shrink = pixels > mostPixels ? std::sqrt(mostPixels / pixels) : 1;
    Drawn drawn{page, area, m_xres * shrink, m_yres * shrink, 0, 0, nullptr};
    ++m_drawings;
    if (area == everything) {
        makeRoom(page, withText, pixels * shrink * shrink);
        doc->displayPage(painter.get(), page, drawn.xres, drawn.yres, 0, false, true, false);
    } else {
        const auto first = [](double points, double res) { return static_cast<int>(points * res / pointsPerInch); };
        drawn.left = std::max(0, first(area.left, drawn.xres) - 1);
        drawn.top = std::max(0, first(area.top, drawn.yres) - 1);
        const int width = std::max(1, first(std::min(area.right, size.width), drawn.xres) + 2 - drawn.left);
        const int height = std::max(1, first(std::min(area.bottom, size.height), drawn.yres) + 2 - drawn.top);
        makeRoom(page, withText, static_cast<double>(width) * height);
        doc->displayPageSlice(
            painter.get(), page, drawn.xres, drawn.yres, 0, false, true, false, drawn.left, drawn.top, width, height);
    }
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
    const Raster raster{
        bitmap->getWidth(),
        bitmap->getHeight(),
        m_depth,
        static_cast<std::size_t>(bitmap->getRowSize()),
        bitmap->getDataPtr(),
        nullptr};
    return encodePicture(raster, {left, top, right - left, bottom - top});
}

model::EncodedPicture PagePictureSource::encode(int pageNumber, const Box &box, model::PictureKind kind)
{
    const bool withText = hasText(kind);
    if (!isDrawn(pageNumber, withText, box)) {
        const bool whole = kind == model::PictureKind::Page;
        draw(pageNumber, withText, whole ? everything : areaFor(pageNumber, withText, box));
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

std::uint64_t drawingMemory(const PageSize &size, ColourDepth depth, double xres, double yres)
{
    const double bytesPerPixel = static_cast<double>(rowBytes(depth, 8)) / 8;
    const double pixels = std::min(pixelsOf(size, xres, yres), mostPixels);
    return static_cast<std::uint64_t>(bitmapsInDrawing * pixels * bytesPerPixel);
}

} // namespace quorra
