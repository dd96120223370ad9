// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "text_lines/text_lines.h"

#include <cstddef>
#include <vector>

namespace quorra::model {

namespace figures {

struct Thresholds
{
    double minImageSide = 6;   ///< points; smaller images are bullets and parts of ornaments
    double maxSeam = 1;        ///< points between strips or tiles that are one image; more than rounding leaves
    double maxImageArea = 0.6; ///< share of the page; larger images are its background
    double maxExcess = 1.05;   ///< of the outer box's width; a little wider is still inside, for the sake of borders

    std::size_t maxWordsOnImage = 60; ///< more are the text of the page, with the image behind it
    std::size_t maxLabels = 40;       ///< words on a drawing; more, if they are prose, have an ornament around them
    std::size_t maxLabelLines = 3; ///< in a paragraph that belongs to the drawing it reaches out of; more are body text

    double maxLabelGap = 0.8;     ///< em between the words of one label; wider gaps are between labels
    double minLabelInside = 0.6;  ///< share of a label's width inside the drawing; less, and it is text beside it
    double maxShared = 0.5;       ///< share of the smaller of two drawings with their labels; more, and they are one
    double minShownLabel = 0.9;   ///< share of the labels' width inside the picture; less, and it would cut them off
    double minTextOnFigure = 0.5; ///< share of a text's width; less only touches the figure
};

inline constexpr Thresholds thresholds;

} // namespace figures

/// A figure whose labels are still words.
struct FoundFigure
{
    Box box;
    FigureKind kind = FigureKind::Image;
    WordRefs words;                         ///< inside a drawing: the labels of a chart
    std::optional<ImageSource> stream = {}; ///< as in RawPicture
    Box row = {};                           ///< of a formula: as wide as the text that it is in; empty for others

    /// What keeps text away: other columns than the one of a formula begin beside its text, not beside the formula.
    const Box &obstacle() const { return row.isEmpty() ? box : row; }
};

struct PageFigures
{
    std::vector<FoundFigure> placed;      ///< among the text
    std::vector<FoundFigure> backgrounds; ///< behind the text: a scan with recognised text, a background image
};

/// Unites the pieces (strips, tiles) of images that many programs write as several ones. Tiny images are left out.
std::vector<RawPicture> wholeImages(const std::vector<RawPicture> &pieces);

/// Regions that are figures before anything is known of tables.
struct KnownFigures
{
    std::vector<Box> networks; ///< of findNetworks()
    std::vector<Box> formulas; ///< of findFormulas()
};

/// Finds the raster images of a page, with strips of one image united, and its drawings with the words inside them, the
/// known ones among them.
PageFigures
findFigures(const RawPage &raw, const std::vector<Box> &tables, const KnownFigures &known, const WordRefs &words);

/// Returns the block of a figure with its words as labels. If they extend so far over its edge that the picture would
/// cut them off, they follow as a paragraph.
std::vector<Block> figureBlocks(const FoundFigure &found, StyleTable &styles);

/// Sets Figure::behindText for the figures of the page.
void findFiguresBehindText(Page &page);

/// Adds the figures of the displayed page to Document::figures and sets their ids.
void registerFigures(Page &page, Document &document);

} // namespace quorra::model
