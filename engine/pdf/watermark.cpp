// SPDX-License-Identifier: GPL-3.0-or-later
#include "watermark.h"

#include "base/units.h"

#include <GfxState.h>

#include <algorithm>
#include <cmath>

namespace quorra {

namespace {

struct Thresholds
{
    double minSize = 24;    ///< points; smaller slanted text is a label
    double minSlant = 0.18; ///< across over along: about 10 degrees, which no scanner's skew reaches
    double minLight = 0.55; ///< of white, of what is seen on white paper; darker text is meant to be read
};
constexpr Thresholds thresholds;

double lightOf(GfxState *state)
{
    GfxGray gray = 0;
    state->getFillGray(&gray);
    return 1 - state->getFillOpacity() * (1 - colToDbl(gray));
}

} // namespace

bool isWatermark(GfxState *state)
{
    const double pixelsPerPoint = std::min(state->getHDPI(), state->getVDPI()) / pointsPerInch;
    if (state->getTransformedFontSize() < thresholds.minSize * pixelsPerPoint) {
        return false;
    }
    const double *text = state->getTextMat();
    double x = 0;
    double y = 0;
    state->transformDelta(text[0], text[1], &x, &y);
    const auto [across, along] = std::minmax({std::abs(x), std::abs(y)});
    return across > thresholds.minSlant * along && lightOf(state) > thresholds.minLight;
}

} // namespace quorra
