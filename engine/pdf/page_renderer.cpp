// SPDX-License-Identifier: GPL-3.0-or-later
#include "pdf/page_renderer.h"

#include "pdf_file_handles.h"
#include "platform/page_time.h"

#include <SplashOutputDev.h>
#include <splash/SplashBitmap.h>

#include <vector>

namespace quorra {

namespace {

constexpr int rowAlignment = 4;

SplashColorMode splashMode(ColourDepth depth)
{
    switch (depth) {
    case ColourDepth::Mono:
        return splashModeMono1;
    case ColourDepth::Gray:
        return splashModeMono8;
    case ColourDepth::Colour:
        break;
    }
    return splashModeRGB8;
}

Raster whiteRaster(ColourDepth depth, int width, int rows)
{
    const std::size_t bytes = rowBytes(depth, width);
    auto white = std::make_shared<std::vector<std::uint8_t>>(bytes * static_cast<std::size_t>(rows), 0xFF);
    return {width, rows, depth, bytes, white->data(), white};
}

} // namespace

/// The library's public interface is deliberately not used: its one-bit pictures are sheared for most widths, and if
/// the page size is not a whole number of pixels, it positions the page differently from the library's own tools.
class PageRenderer::Device
{
public:
    Device(PDFDoc *doc, ColourDepth depth) : m_splash(splashMode(depth), rowAlignment, false, m_white)
    {
        m_splash.setFontAntialias(true);
        m_splash.setVectorAntialias(true);
        m_splash.setEnableFreeType(true);
        m_splash.setFreeTypeHinting(false, false);
        m_splash.startDoc(doc);
    }

    SplashOutputDev &splash() { return m_splash; }

private:
    SplashColor m_white = {0xFF, 0xFF, 0xFF, 0xFF};
    SplashOutputDev m_splash;
};

PageRenderer::PageRenderer(PdfFile &file, ColourDepth depth)
    : m_file(file)
    , m_depth(depth)
    , m_device(std::make_unique<Device>(file.handles().doc.get(), depth))
{}

PageRenderer::~PageRenderer() = default;

Raster PageRenderer::draw(int page, const PictureSize &size, int top, int rows)
{
    const PageTime time(page);
    SplashOutputDev &splash = m_device->splash();
    m_file.handles().doc->displayPageSlice(
        &splash, page, size.xres, size.yres, 0, false, false, false, 0, top, size.width, rows);
    const std::shared_ptr<SplashBitmap> bitmap(splash.takeBitmap());
    if (!bitmap || !bitmap->getDataPtr() || bitmap->getWidth() != size.width || bitmap->getHeight() != rows) {
        return whiteRaster(m_depth, size.width, rows);
    }
    return {size.width, rows, m_depth, static_cast<std::size_t>(bitmap->getRowSize()), bitmap->getDataPtr(), bitmap};
}

} // namespace quorra
