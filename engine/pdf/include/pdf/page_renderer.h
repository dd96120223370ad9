// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/picture_size.h"
#include "image/raster.h"
#include "pdf/document.h"

#include <memory>

namespace quorra {

/// Draws pages as pixels. Several threads can draw at a time, each with a document and a renderer of its own.
class PageRenderer
{
public:
    /// The document must outlive the renderer.
    PageRenderer(Document &document, ColourDepth depth);
    ~PageRenderer();
    PageRenderer(const PageRenderer &) = delete;
    PageRenderer &operator=(const PageRenderer &) = delete;

    /// Draws `rows` rows of the page's picture from row `top` on. A page that cannot be drawn is white.
    Raster draw(int page, const PictureSize &size, int top, int rows);

private:
    class Device;

    Document &m_document;
    ColourDepth m_depth;
    std::unique_ptr<Device> m_device;
};

} // namespace quorra
