// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/orientation.h"

#include <cmath>
#include <cstdlib>
#include <numbers>

namespace quorra::ocr {

namespace {

constexpr struct
{
    float widestSkew = 11;    ///< degrees: more than scanners with a feeder skew pages
    float sweepStep = 1;      ///< degrees between angles that are tried at first
    float finestStep = 0.01F; ///< degrees to which the angle is found
    int sweepReduction = 4;   ///< of the picture, for trying angles
    int searchReduction = 2;  ///< of the picture, for the best angle
    float certainty = 3;      ///< the best angle's score is this many times that of the worst if there are lines
    double sidewaysLead = 2;  ///< lines run sideways only if that direction scores this many times as much
    float upConfidence = 4;   ///< standard deviations by which ascenders outnumber descenders
} thresholds;

struct Sweep
{
    float angle = 0;
    float confidence = 0;
    float score = 0; ///< how much the number of dark pixels differs from row to row
};

Sweep sweep(PIX *dark)
{
    Sweep found;
    if (pixFindSkewSweepAndSearchScore(
            dark, &found.angle, &found.confidence, &found.score, thresholds.sweepReduction, thresholds.searchReduction,
            0, thresholds.widestSkew, thresholds.sweepStep, thresholds.finestStep) != 0) {
        return {};
    }
    return found;
}

} // namespace

LineDirection lineDirectionOf(PIX *dark)
{
    const Sweep level = sweep(dark);
    const PixPtr rotated(pixRotateOrth(dark, 1));
    const Sweep upended = rotated ? sweep(rotated.get()) : Sweep();
    LineDirection direction;
    direction.sideways = upended.score > thresholds.sidewaysLead * level.score;
    const Sweep &best = direction.sideways ? upended : level;
    direction.certain = best.confidence >= thresholds.certainty;
    // The library gives the angle that makes the picture level.
    direction.skew = direction.certain ? -double(best.angle) : 0;
    return direction;
}

Upright uprightOf(PIX *dark, bool sideways)
{
    Upright found;
    found.rotation = sideways ? 90 : 0;
    const PixPtr level = rotatedByRightAngle(dark, sideways ? 270 : 0);
    float up = 0;
    if (pixUpDownDetect(level.get(), &up, 0, 0, 0) != 0 || std::abs(up) < thresholds.upConfidence) {
        return found;
    }
    found.certain = true;
    if (up < 0) {
        found.rotation += 180;
    }
    return found;
}

PixPtr rotatedBy(PIX *pix, double degrees)
{
    const auto angle = static_cast<float>(degrees * std::numbers::pi / 180);
    constexpr l_uint8 white = 255;
    return checked(
        pixGetDepth(pix) == 1 ? pixRotate(pix, angle, L_ROTATE_SAMPLING, L_BRING_IN_WHITE, 0, 0)
                              : pixRotateAMGray(pix, angle, white));
}

PixPtr rotatedByRightAngle(PIX *pix, int degrees)
{
    return checked(pixRotateOrth(pix, degrees / 90));
}

} // namespace quorra::ocr
