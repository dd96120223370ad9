// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/pdf/page_renderer.h"

#include "engine/cli/failure.h"
#include "engine/pdf/document_handles.h"

#include <SplashOutputDev.h>
#include <poppler-document.h>
#include <poppler-page-renderer.h>
#include <poppler-page.h>
#include <splash/SplashBitmap.h>

#include <vector>

namespace quorra {

namespace {

/// The pixels that a library's object holds, if they have the wanted shape; else white ones.
template <typename Owner>
Raster
rasterOf(std::shared_ptr<Owner> owner, const void *data, std::ptrdiff_t stride, ColourDepth depth, int width, int rows)
{
    if (data && stride >= static_cast<std::ptrdiff_t>(rowBytes(depth, width)))
        return {width,           rows, depth, static_cast<std::size_t>(stride), static_cast<const std::uint8_t *>(data),
                std::move(owner)};
    const std::size_t bytes = rowBytes(depth, width);
    auto white = std::make_shared<std::vector<std::uint8_t>>(bytes * static_cast<std::size_t>(rows), 0xFF);
    return {width, rows, depth, bytes, white->data(), white};
}

} // namespace

class PageRenderer::Source
{
public:
    virtual ~Source() = default;
    virtual Raster draw(int page, const PictureSize &size, int top, int rows) = 0;
};

/// Colour and gray, through the library's public interface.
class PageRenderer::PublicSource : public Source
{
public:
    PublicSource(const DocumentHandles &handles, ColourDepth depth)
        : m_depth(depth)
        , m_document(poppler::document::load_from_file(handles.path, handles.passwords.owner, handles.passwords.user))
    {
        if (!m_document || m_document->is_locked())
            throw Failure(ExitStatus::CannotOpen, "cannot read " + handles.path);
        m_renderer.set_image_format(
            depth == ColourDepth::Gray ? poppler::image::format_gray8 : poppler::image::format_rgb24);
        m_renderer.set_render_hint(poppler::page_renderer::antialiasing);
        m_renderer.set_render_hint(poppler::page_renderer::text_antialiasing);
    }

    Raster draw(int number, const PictureSize &size, int top, int rows) override
    {
        auto picture = std::make_shared<poppler::image>();
        const std::unique_ptr<poppler::page> page(m_document->create_page(number - 1));
        if (page)
            *picture = m_renderer.render_page(page.get(), size.xres, size.yres, 0, top, size.width, rows);
        const bool whole = picture->width() == size.width && picture->height() == rows;
        const void *const data = whole ? picture->const_data() : nullptr;
        const std::ptrdiff_t stride = picture->bytes_per_row();
        return rasterOf(std::move(picture), data, stride, m_depth, size.width, rows);
    }

private:
    ColourDepth m_depth;
    std::unique_ptr<poppler::document> m_document;
    poppler::page_renderer m_renderer;
};

/// Black and white, through the library's private interface: the public one shears pictures of most widths.
class PageRenderer::BilevelSource : public Source
{
public:
    explicit BilevelSource(const DocumentHandles &handles)
        : m_document(handles.path, handles.passwords.user, handles.passwords.owner)
        , m_device(splashModeMono1, RowAlignment, false, m_white)
    {
        m_device.setFontAntialias(true);
        m_device.setVectorAntialias(true);
        m_device.setEnableFreeType(true);
        m_device.setFreeTypeHinting(false, false);
        m_device.startDoc(m_document.handles().doc.get());
    }

    Raster draw(int page, const PictureSize &size, int top, int rows) override
    {
        m_document.handles().doc->displayPageSlice(
            &m_device, page, size.xres, size.yres, 0, false, true, false, 0, top, size.width, rows);
        const std::shared_ptr<SplashBitmap> bitmap(m_device.takeBitmap());
        const bool whole = bitmap && bitmap->getWidth() == size.width && bitmap->getHeight() == rows;
        return rasterOf(
            bitmap, whole ? bitmap->getDataPtr() : nullptr, whole ? bitmap->getRowSize() : 0, ColourDepth::Mono,
            size.width, rows);
    }

private:
    static constexpr int RowAlignment = 4;

    SplashColor m_white = {0xFF, 0xFF, 0xFF, 0xFF};
    Document m_document;
    SplashOutputDev m_device;
};

PageRenderer::PageRenderer(const Document &document, ColourDepth depth)
{
    if (depth == ColourDepth::Mono)
        m_source = std::make_unique<BilevelSource>(document.handles());
    else
        m_source = std::make_unique<PublicSource>(document.handles(), depth);
}

PageRenderer::~PageRenderer() = default;

Raster PageRenderer::draw(int page, const PictureSize &size, int top, int rows)
{
    return m_source->draw(page, size, top, rows);
}

} // namespace quorra
