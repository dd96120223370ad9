// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/cli/picture_rules.h"
#include "engine/image/raster.h"
#include "engine/pdf/document.h"

#include <memory>

namespace quorra {

/// Draws pages as pixels. Each object opens the file anew, so that several threads can draw, one object each.
class PageRenderer
{
public:
    /// `document` only tells what to open. Throws as Document does.
    PageRenderer(const Document &document, ColourDepth depth);
    ~PageRenderer();
    PageRenderer(const PageRenderer &) = delete;
    PageRenderer &operator=(const PageRenderer &) = delete;

    /// Draws `rows` rows of the page's picture from row `top` on. A page that cannot be drawn is white.
    Raster draw(int page, const PictureSize &size, int top, int rows);

private:
    class Source;
    class PublicSource;
    class BilevelSource;

    std::unique_ptr<Source> m_source;
};

} // namespace quorra
