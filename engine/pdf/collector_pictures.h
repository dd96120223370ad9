// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/cli/options.h"
#include "engine/model/document.h"
#include "engine/model/picture.h"
#include "engine/pdf/document.h"

#include <map>
#include <memory>
#include <utility>

namespace quorra {

/// Pictures of a PDF file, drawn at a resolution and colour depth: an image looks as on the page, whatever masks,
/// turns and colour spaces the file uses for it. What was drawn last is kept.
class PagePictureSource final : public model::PictureSource
{
public:
    /// The document must outlive the source. Resolutions are dots per inch.
    PagePictureSource(Document &document, ColourDepth depth, double xres, double yres);
    ~PagePictureSource() override;

    /// Tells which pictures will be asked for: those of one page are then drawn together. Others can be had as well.
    void expect(const model::Document &document);

    model::EncodedPicture encode(int pageNumber, const model::Box &box, model::PictureKind kind) override;
    model::EncodedPicture background(int pageNumber) override;

private:
    struct Drawn;
    struct Painters;

    model::Box areaFor(int page, bool withText, const model::Box &box) const;
    bool isDrawn(int page, bool withText, const model::Box &box) const;
    void draw(int page, bool withText, const model::Box &area);
    model::EncodedPicture cut(const model::Box &box) const;

    Document &m_document;
    ColourDepth m_depth;
    double m_xres;
    double m_yres;
    std::map<std::pair<int, bool>, model::Box> m_expected; ///< by page, and whether its text is drawn
    std::unique_ptr<Painters> m_painters;
    std::unique_ptr<Drawn> m_drawn;
};

/// Dots per inch of pictures inside documents when the options name none.
inline constexpr int EmbeddedResolution = 150;

} // namespace quorra
