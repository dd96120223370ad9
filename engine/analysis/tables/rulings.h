// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/raw_page.h"

#include <vector>

namespace quorra::model {

namespace rulings {

struct Thresholds
{
    double sameLine = 1.2;        ///< points across the line; parallel strokes this close (a bar's edges) are one line
    double maxDashGap = 3.5;      ///< points along the line; wider gaps end a line
    double maxDotRatio = 1.5;     ///< of a dot's length to its width
    double minLength = 4;         ///< points; shorter strokes are dots, letters and ticks
    Colour nearlyWhite = 0xf4;    ///< of each colour component; lighter lines are not seen on paper
    Colour whiteFill = 0xfb;      ///< the same for fills, which are seen when paler
    double minCoveredSide = 0.55; ///< share of a cell's side that a line must cover to be its border
    double fillReach = 2;         ///< points from a light line to the fill on which it is seen
    double minFillSide = 6;       ///< points; smaller fills are bullets, boxes to tick and bars
};

inline constexpr Thresholds thresholds;

} // namespace rulings

/// The straight lines of a page.
struct Rulings
{
    std::vector<Rule> horizontal; ///< from top to bottom
    std::vector<Rule> vertical;   ///< from left to right
};

/// Merges what is drawn as one line (sides of cells, dashes, both edges of a thin bar) and leaves out what is drawn in
/// white on paper. A merged line is as thick as its thickest part and has the colour of its longest.
Rulings mergeRules(const std::vector<Rule> &rules, const std::vector<Fill> &fills = {});

/// The lines together with the edges of the fills, which divide rows and columns as lines do but are not drawn: they
/// have width 0.
Rulings withFillEdges(Rulings rulings, const std::vector<Fill> &fills);

/// The means of clusters of values, growing. Neighbouring values of a cluster differ by at most `tolerance`. No values
/// give no means.
std::vector<double> clusteredPositions(std::vector<double> values, double tolerance);

} // namespace quorra::model
