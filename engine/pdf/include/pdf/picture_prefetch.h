// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "document/picture_source.h"
#include "pdf/document_copies.h"
#include "pdf/region_renderer.h"

#include <map>
#include <tuple>

namespace quorra {

/// Provides the pictures of a document, rendered in advance by several threads; other pictures come from another
/// source.
class AheadPictures final : public model::PictureSource
{
public:
    /// Renders the pictures of the document before its pages are moved or scaled. If there are only a few pictures,
    /// they are left to the other source, which must outlive this one.
    AheadPictures(
        const PictureQuality &quality, DocumentCopies &copies, const model::Document &document,
        model::PictureSource &source);

    model::EncodedPicture encode(int pageNumber, const Box &box, model::PictureKind kind) override;
    model::EncodedPicture background(int pageNumber) override { return m_source.background(pageNumber); }

private:
    /// Page and box in hundredths of a point: boxes may have rounding errors.
    using Key = std::tuple<int, long, long, long, long>;

    static Key keyOf(int pageNumber, const Box &box);

    model::PictureSource &m_source;
    std::map<Key, model::EncodedPicture> m_drawn;
};

} // namespace quorra
