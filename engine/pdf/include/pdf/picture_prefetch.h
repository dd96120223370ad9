// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "document/picture_source.h"
#include "pdf/pdf_file_pool.h"
#include "pdf/region_renderer.h"

#include <map>

namespace quorra {

/// Provides the figures of a document, rendered in advance by several threads; other figures come from another source.
class PrefetchedPictures final : public model::PictureSource
{
public:
    /// Renders the figures of the document, with the words in drawings as part of them. If there are only a few, they
    /// are left to the other source, which must outlive this one.
    PrefetchedPictures(
        const PictureQuality &quality, PdfFilePool &pool, const model::Document &document,
        model::PictureSource &source);

    model::EncodedPicture encode(const model::Figure &figure, model::DrawingWords words) override;
    model::EncodedPicture background(int pageNumber) override { return m_source.background(pageNumber); }

private:
    model::PictureSource &m_source;
    std::map<model::FigureId, model::EncodedPicture> m_drawn; ///< with their words
};

} // namespace quorra
