// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "document/picture_source.h"

#include <map>

namespace quorra::office {

/// Moves and stretches a page: x becomes x * scaleX + shiftX. Sizes of type follow the smaller of the two scales, so
/// that lines still fit.
struct Transform
{
    double scaleX = 1;
    double scaleY = 1;
    double shiftX = 0;
    double shiftY = 0;
};

/// The page with all in it moved, its text in styles of that table; its own width and height become those given.
void transformPage(
    model::Page &page, model::StyleTable &styles, const Transform &transform, double width, double height);

/// The pictures of pages that were moved: boxes count on the moved page.
class MovedPictures : public model::PictureSource
{
public:
    explicit MovedPictures(model::PictureSource &source) : m_source(source) {}

    void setTransform(int pageNumber, const Transform &transform) { m_transforms[pageNumber] = transform; }

    model::EncodedPicture encode(int pageNumber, const Box &box, model::PictureKind kind) override;
    model::EncodedPicture background(int pageNumber) override { return m_source.background(pageNumber); }

private:
    model::PictureSource &m_source;
    std::map<int, Transform> m_transforms;
};

/// Turns all colours of text, lines and backgrounds to gray, or to black and white.
void reduceColours(model::Document &document, ColourDepth depth);

} // namespace quorra::office
