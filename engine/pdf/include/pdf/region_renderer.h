// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/colour.h"
#include "document/document.h"
#include "document/picture_source.h"
#include "pdf/pdf_file.h"

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace quorra {

/// Colour depth and resolution, in dots per inch, of pictures in documents.
struct PictureQuality
{
    ColourDepth depth = ColourDepth::Colour;
    double xres = 150;
    double yres = 150;
    bool ownPixels = false; ///< images keep the pixels that they have in the file where that is possible
};

/// Renders pictures of a PDF file at a given resolution and colour depth. An image looks as on the page, whatever
/// masks, rotations and colour spaces the file uses. The renderings of the last page are cached.
class PagePictureSource final : public model::PictureSource
{
public:
    /// Provides the figures of the document that was built from the file. The file must outlive the source, the
    /// document may be changed. The figures of a page are rendered together if drawings are requested with `words` as
    /// given here.
    PagePictureSource(
        PdfFile &file, const model::Document &document, const PictureQuality &quality, model::DrawingWords words);
    ~PagePictureSource() override;

    model::EncodedPicture encode(const model::Figure &figure, model::DrawingWords words) override;
    model::EncodedPicture background(int pageNumber) override;

    /// Returns how many times a page or region has been rendered.
    int drawings() const { return m_drawings; }

private:
    struct Drawn;
    struct Painters;

    Box areaFor(int page, bool withText, const Box &box) const;
    Drawn &kept(bool withText) const;
    bool isDrawn(int page, bool withText, const Box &box) const;
    void makeRoom(int page, bool withText, double pixels);
    void draw(int page, bool withText, const Box &area);
    model::EncodedPicture cut(bool withText, const Box &box) const;

    PdfFile &m_file;
    std::vector<model::FigureRegion> m_figures;
    PictureQuality m_quality;
    std::map<std::pair<int, bool>, Box> m_expected; ///< by page, and whether its text is rendered
    std::unique_ptr<Painters> m_painters;
    std::unique_ptr<std::array<Drawn, 2>> m_drawn; ///< without and with text, of one page
    int m_drawings = 0;
};

/// Returns the peak memory in bytes of a PagePictureSource that renders pages of this size in points.
std::uint64_t drawingMemory(const PageSize &size, const PictureQuality &quality);

/// Default resolution of pictures in documents, in dots per inch.
inline constexpr int embeddedResolution = 150;

} // namespace quorra
