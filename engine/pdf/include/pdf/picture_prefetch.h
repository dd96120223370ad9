// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "document/picture_source.h"
#include "pdf/document_copies.h"
#include "pdf/region_renderer.h"

#include <map>
#include <tuple>

namespace quorra {

/// The pictures of a document, drawn ahead by several threads; what was not drawn ahead comes from the other source.
class AheadPictures final : public model::PictureSource
{
public:
    /// Draws the pictures of the document as it was built, before its pages are moved or scaled. Few pictures are left
    /// to the other source, which must outlive this one.
    AheadPictures(
        const PictureQuality &quality, DocumentCopies &copies, const model::Document &document,
        model::PictureSource &source);

    model::EncodedPicture encode(int pageNumber, const Box &box, model::PictureKind kind) override;
    model::EncodedPicture background(int pageNumber) override { return m_source.background(pageNumber); }

private:
    /// Page and box in hundredths of a point: boxes may have been moved there and back.
    using Key = std::tuple<int, long, long, long, long>;

    static Key keyOf(int pageNumber, const Box &box);

    model::PictureSource &m_source;
    std::map<Key, model::EncodedPicture> m_drawn;
};

} // namespace quorra
