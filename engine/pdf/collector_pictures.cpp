// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/pdf/collector_pictures.h"

#include "engine/pdf/document_handles.h"
#include "engine/writers/encode_picture.h"

#include <SplashOutputDev.h>
#include <splash/SplashBitmap.h>

#include <algorithm>
#include <cmath>

namespace quorra {

namespace {

constexpr double pointsPerInch = 72;
constexpr int rowAlignment = 4;
constexpr double mostPixels = 60e6; // of one page; larger ones are drawn at a lower resolution

SplashColorMode splashMode(ColourDepth depth)
{
    return depth == ColourDepth::Colour ? splashModeRGB8
           : depth == ColourDepth::Gray ? splashModeMono8
                                        : splashModeMono1;
}

/// Draws a page, its text left out on request.
class Painter final : public SplashOutputDev
{
public:
    Painter(ColourDepth depth, bool withText)
        : SplashOutputDev(splashMode(depth), rowAlignment, false, m_white)
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
        if (m_withText) {
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
    static inline SplashColor m_white = {0xff, 0xff, 0xff, 0xff}; // read before members of the object exist
    bool m_withText;
};

} // namespace

class PagePictureSource::Page
{
public:
    Page(Document &document, int number, bool withText, ColourDepth depth, double xres, double yres)
        : m_number(number)
        , m_withText(withText)
        , m_depth(depth)
        , m_xres(xres)
        , m_yres(yres)
    {
        const PageSize size = document.pageSize(number);
        const double pixels = size.width * xres / pointsPerInch * size.height * yres / pointsPerInch;
        const double shrink = pixels > mostPixels ? std::sqrt(mostPixels / pixels) : 1;
        m_xres *= shrink;
        m_yres *= shrink;
        PDFDoc *doc = document.handles().doc.get();
        Painter painter(depth, withText);
        painter.startDoc(doc);
        doc->displayPage(&painter, number, m_xres, m_yres, 0, false, true, false);
        m_bitmap.reset(painter.takeBitmap());
    }

    bool is(int number, bool withText) const { return number == m_number && withText == m_withText; }

    model::EncodedPicture cut(const model::Box &box) const
    {
        if (!m_bitmap || !m_bitmap->getDataPtr()) {
            return {};
        }
        const auto pixel = [](double points, double res, int limit) {
            return std::clamp(static_cast<int>(std::lround(points * res / pointsPerInch)), 0, limit);
        };
        const int left = pixel(box.left, m_xres, m_bitmap->getWidth());
        const int right = pixel(box.right, m_xres, m_bitmap->getWidth());
        const int top = pixel(box.top, m_yres, m_bitmap->getHeight());
        const int bottom = pixel(box.bottom, m_yres, m_bitmap->getHeight());
        if (left >= right || top >= bottom) {
            return {};
        }
        const Raster raster{
            m_bitmap->getWidth(),
            m_bitmap->getHeight(),
            m_depth,
            static_cast<std::size_t>(m_bitmap->getRowSize()),
            m_bitmap->getDataPtr(),
            nullptr};
        return encodePicture(raster, {left, top, right - left, bottom - top});
    }

    model::EncodedPicture all() const { return cut({0, 0, 1e6, 1e6}); }

private:
    int m_number;
    bool m_withText;
    ColourDepth m_depth;
    double m_xres;
    double m_yres;
    std::unique_ptr<SplashBitmap> m_bitmap;
};

PagePictureSource::PagePictureSource(Document &document, ColourDepth depth, double xres, double yres)
    : m_document(document)
    , m_depth(depth)
    , m_xres(xres)
    , m_yres(yres)
{}

PagePictureSource::~PagePictureSource() = default;

const PagePictureSource::Page &PagePictureSource::page(int number, bool withText)
{
    if (!m_page || !m_page->is(number, withText)) {
        m_page.reset();
        m_page = std::make_unique<Page>(m_document, number, withText, m_depth, m_xres, m_yres);
    }
    return *m_page;
}

model::EncodedPicture PagePictureSource::encode(int pageNumber, const model::Box &box, model::PictureKind kind)
{
    // The labels of a drawing belong to its picture: without them a chart cannot be read.
    return page(pageNumber, kind != model::PictureKind::Image).cut(box);
}

model::EncodedPicture PagePictureSource::background(int pageNumber)
{
    return page(pageNumber, false).all();
}

} // namespace quorra
