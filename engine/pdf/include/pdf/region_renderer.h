// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/colour.h"
#include "document/document.h"
#include "document/picture_source.h"
#include "pdf/document.h"

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <utility>

namespace quorra {

/// What becomes of the words in a drawing: they are part of its picture, or the writer writes them as text over a
/// picture that it asks for as an image.
enum class DrawingWords { InPicture, Apart };

/// Colour depth and resolution, in dots per inch, of pictures inside documents.
struct PictureQuality
{
    ColourDepth depth = ColourDepth::Colour;
    double xres = 150;
    double yres = 150;
};

/// Pictures of a PDF file, drawn at a resolution and colour depth: an image looks as on the page, whatever masks,
/// turns and colour spaces the file uses for it. What was drawn of the last page is kept.
class PagePictureSource final : public model::PictureSource
{
public:
    /// The document must outlive the source. Resolutions are dots per inch.
    PagePictureSource(Document &document, ColourDepth depth, double xres, double yres);
    ~PagePictureSource() override;

    /// Tells which pictures will be asked for, and how: those of one page are then drawn together. Others can be had as
    /// well.
    void expect(const model::Document &document, DrawingWords words = DrawingWords::InPicture);

    model::EncodedPicture encode(int pageNumber, const Box &box, model::PictureKind kind) override;
    model::EncodedPicture background(int pageNumber) override;

    /// How many times a page, or a part of one, was drawn so far.
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

    Document &m_document;
    ColourDepth m_depth;
    double m_xres;
    double m_yres;
    std::map<std::pair<int, bool>, Box> m_expected; ///< by page, and whether its text is drawn
    std::unique_ptr<Painters> m_painters;
    std::unique_ptr<std::array<Drawn, 2>> m_drawn; ///< without and with text, of one page
    int m_drawings = 0;
};

/// Bytes that a PagePictureSource takes at most while it draws pages of this size in points, at resolutions in dots per
/// inch.
std::uint64_t drawingMemory(const PageSize &size, ColourDepth depth, double xres, double yres);

/// Dots per inch of pictures inside documents when the options name none.
inline constexpr int embeddedResolution = 150;

} // namespace quorra
