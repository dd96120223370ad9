// SPDX-License-Identifier: GPL-3.0-or-later
#include "figures/networks.h"

#include "base/disjoint_sets.h"
#include "figures/rectangles.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace quorra::model {

namespace {

struct Thresholds
{
    double maxFrameGap = 1.5;     ///< points between frames that share a side
    double maxJoint = 4;          ///< points between the end of a line and the frame that it leads to
    double minCornerGap = 3;      ///< points between the end of a line and the corners of the frame
    double maxInside = 2;         ///< points by which a line that leads to a frame reaches into it
    double minFrame = 12;         ///< points; smaller frames are check boxes and legends
    double maxFrame = 0.6;        ///< share of the page's longer side; longer frames are the page's own
    std::ptrdiff_t maxWords = 80; ///< in one frame; more are text of the page in a box
    std::size_t minFrames = 2;    ///< joined by a line
    std::size_t maxParts = 1500;  ///< more lines than this are a plan: not searched
};
constexpr Thresholds thresholds;

bool isLarge(const Box &box, const RawPage &page)
{
    return std::max(box.width(), box.height()) > thresholds.maxFrame * std::max(page.width, page.height);
}

// Frames that share sides, and frames inside others, are one.
std::vector<Box> unitedFrames(std::vector<Box> frames)
{
    DisjointSets groups(frames.size());
    for (std::size_t i = 0; i < frames.size(); ++i) {
        for (std::size_t k = i + 1; k < frames.size(); ++k) {
            if (touch(frames[i], frames[k], thresholds.maxFrameGap)) {
                groups.join(i, k);
            }
        }
    }
    for (std::size_t i = 0; i < frames.size(); ++i) {
        const std::size_t root = groups.find(i);
        frames[root] = united(frames[root], frames[i]);
    }
    std::vector<Box> whole;
    for (std::size_t i = 0; i < frames.size(); ++i) {
        if (groups.find(i) == i) {
            whole.push_back(frames[i]);
        }
    }
    return whole;
}

// A frame around a group of frames is none of them.
std::vector<Box> withoutContainers(const std::vector<Box> &frames)
{
    const auto contains = [](const Box &outer, const Box &inner) {
        const double gap = thresholds.maxFrameGap;
        return inner.left > outer.left + gap && inner.right < outer.right - gap && inner.top > outer.top + gap &&
               inner.bottom < outer.bottom - gap;
    };
    std::vector<Box> innermost;
    std::copy_if(frames.begin(), frames.end(), std::back_inserter(innermost), [&](const Box &frame) {
        return std::none_of(frames.begin(), frames.end(), [&](const Box &other) { return contains(frame, other); });
    });
    return innermost;
}

std::vector<Box> framesOf(const RawPage &page)
{
    std::vector<Box> frames = drawnRectangles(page.rules);
    for (const Ink &ink : page.ink) {
        if (ink.frame) {
            frames.push_back(ink.box);
        }
    }
    frames.erase(
        std::remove_if(
            frames.begin(), frames.end(),
            [&](const Box &box) {
                return std::min(box.width(), box.height()) < thresholds.minFrame || isLarge(box, page);
            }),
        frames.end());
    frames = unitedFrames(withoutContainers(frames));
    const auto isText = [&](const Box &frame) {
        return isLarge(frame, page) ||
               std::count_if(page.words.begin(), page.words.end(), [&frame](const RawWord &word) {
                   return frame.contains(word.box.centreX(), word.box.centreY());
               }) > thresholds.maxWords;
    };
    frames.erase(std::remove_if(frames.begin(), frames.end(), isText), frames.end());
    return frames;
}

// What may lead from frame to frame: lines and strokes that belong to no frame.
std::vector<Box> connectorsOf(const RawPage &page, const std::vector<Box> &frames)
{
    const auto isInFrame = [&frames](const Box &box) {
        return std::any_of(frames.begin(), frames.end(), [&box](const Box &frame) {
            return box.left >= frame.left - thresholds.maxInside && box.right <= frame.right + thresholds.maxInside &&
                   box.top >= frame.top - thresholds.maxInside && box.bottom <= frame.bottom + thresholds.maxInside;
        });
    };
    std::vector<Box> connectors;
    const auto add = [&](const Box &box) {
        if (!isLarge(box, page) && !isInFrame(box)) {
            connectors.push_back(box);
        }
    };
    for (const Rule &rule : page.rules) {
        add({rule.x1, rule.y1, rule.x2, rule.y2});
    }
    for (const Ink &ink : page.ink) {
        if (!ink.frame) {
            add(ink.box);
        }
    }
    return connectors;
}

// Whether a line ends at a side of the frame, away from its corners, without going through the frame.
bool leadsTo(const Box &line, const Box &frame)
{
    const Box common = intersected(
        {line.left - thresholds.maxJoint, line.top - thresholds.maxJoint, line.right + thresholds.maxJoint,
         line.bottom + thresholds.maxJoint},
        frame);
    if (common.width() <= 0 || common.height() <= 0) {
        return false;
    }
    const Box inside = intersected(line, frame);
    const bool fromSide =
        line.left >= frame.right - thresholds.maxInside || line.right <= frame.left + thresholds.maxInside;
    const bool fromAbove =
        line.top >= frame.bottom - thresholds.maxInside || line.bottom <= frame.top + thresholds.maxInside;
    if (!fromSide && !fromAbove) {
        return false;
    }
    const auto isAway = [](double from, double to, double low, double high) {
        return to >= low + thresholds.minCornerGap && from <= high - thresholds.minCornerGap;
    };
    const bool away = fromSide ? isAway(line.top, line.bottom, frame.top, frame.bottom)
                               : isAway(line.left, line.right, frame.left, frame.right);
    return away && std::min(inside.width(), inside.height()) <= thresholds.maxInside;
}

// Several lines of the same length between the same frames are the lines under the rows of a table.
bool areRows(const std::vector<Box> &lines)
{
    std::vector<Box> level;
    std::copy_if(
        lines.begin(), lines.end(), std::back_inserter(level), [](const Box &line) { return line.height() <= 0; });
    for (std::size_t i = 0; i < level.size(); ++i) {
        for (std::size_t k = i + 1; k < level.size(); ++k) {
            if (std::abs(level[i].left - level[k].left) <= thresholds.maxJoint &&
                std::abs(level[i].right - level[k].right) <= thresholds.maxJoint) {
                return true;
            }
        }
    }
    return false;
}

} // namespace

std::vector<Box> findNetworks(const RawPage &page)
{
    if (page.rules.size() + page.ink.size() > thresholds.maxParts) {
        return {};
    }
    const std::vector<Box> frames = framesOf(page);
    if (frames.size() < thresholds.minFrames) {
        return {};
    }
    const std::vector<Box> lines = connectorsOf(page, frames);
    // Frames come first, then the lines.
    DisjointSets groups(frames.size() + lines.size());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        for (std::size_t f = 0; f < frames.size(); ++f) {
            if (leadsTo(lines[i], frames[f])) {
                groups.join(frames.size() + i, f);
            }
        }
        for (std::size_t k = i + 1; k < lines.size(); ++k) {
            if (touch(lines[i], lines[k], thresholds.maxFrameGap)) {
                groups.join(frames.size() + i, frames.size() + k);
            }
        }
    }
    std::vector<Box> networks;
    for (std::size_t root = 0; root < frames.size() + lines.size(); ++root) {
        Box around;
        std::size_t joined = 0;
        std::vector<Box> joints;
        for (std::size_t f = 0; f < frames.size(); ++f) {
            if (groups.find(f) == root) {
                around = united(around, frames[f]);
                ++joined;
            }
        }
        for (std::size_t i = 0; i < lines.size() && joined >= thresholds.minFrames; ++i) {
            if (groups.find(frames.size() + i) == root) {
                around = united(around, lines[i]);
                joints.push_back(lines[i]);
            }
        }
        if (joined >= thresholds.minFrames && !areRows(joints)) {
            networks.push_back(around);
        }
    }
    return networks;
}

} // namespace quorra::model
