// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/picture_size.h"
#include "image/raster.h"
#include "pdf/pdf_file.h"

#include <memory>

namespace quorra {

/// Renders pages. Several threads can render in parallel, each with its own PdfFile and renderer.
class PageRenderer
{
public:
    /// The file must outlive the renderer.
    PageRenderer(PdfFile &file, ColourDepth depth);
    ~PageRenderer();
    PageRenderer(const PageRenderer &) = delete;
    PageRenderer &operator=(const PageRenderer &) = delete;

    /// Renders `rows` rows of the page, starting with row `top`. A page that cannot be rendered is white.
    Raster draw(int page, const PictureSize &size, int top, int rows);

private:
    class Device;

    PdfFile &m_file;
    ColourDepth m_depth;
    std::unique_ptr<Device> m_device;
};

} // namespace quorra
