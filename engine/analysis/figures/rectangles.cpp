// SPDX-License-Identifier: GPL-3.0-or-later
#include "figures/rectangles.h"

#include <algorithm>
#include <cmath>

namespace quorra::model {

namespace {

using rectangles::thresholds;

bool same(double a, double b)
{
    return std::abs(a - b) <= thresholds.sameEdge;
}

/// Vertical rules, sorted by their places.
class Uprights
{
public:
    explicit Uprights(const std::vector<Rule> &rules)
    {
        std::copy_if(rules.begin(), rules.end(), std::back_inserter(m_rules), [](const Rule &rule) {
            return !rule.isHorizontal();
        });
        std::sort(m_rules.begin(), m_rules.end(), [](const Rule &a, const Rule &b) { return a.x1 < b.x1; });
    }

    bool hasSide(double x, double top, double bottom) const
    {
        auto at = std::lower_bound(
            m_rules.begin(), m_rules.end(), x - thresholds.sameEdge,
            [](const Rule &rule, double value) { return rule.x1 < value; });
        for (; at != m_rules.end() && at->x1 <= x + thresholds.sameEdge; ++at) {
            if (same(at->y1, top) && same(at->y2, bottom)) {
                return true;
            }
        }
        return false;
    }

private:
    std::vector<Rule> m_rules;
};

} // namespace

std::vector<Box> drawnRectangles(const std::vector<Rule> &rules)
{
    if (rules.size() > thresholds.maxRules) {
        return {};
    }
    const Uprights uprights(rules);
    std::vector<Rule> level;
    std::copy_if(rules.begin(), rules.end(), std::back_inserter(level), [](const Rule &rule) {
        return rule.isHorizontal() && rule.length() >= thresholds.minSide;
    });
    std::sort(level.begin(), level.end(), [](const Rule &a, const Rule &b) { return a.y1 < b.y1; });
    std::vector<Box> found;
    for (auto top = level.begin(); top != level.end(); ++top) {
        // The nearest line below of the same length that is joined to this one at both ends.
        const auto bottom = std::find_if(top + 1, level.end(), [&](const Rule &rule) {
            return rule.y1 - top->y1 >= thresholds.minSide && same(rule.x1, top->x1) && same(rule.x2, top->x2) &&
                   uprights.hasSide(top->x1, top->y1, rule.y1) && uprights.hasSide(top->x2, top->y1, rule.y1);
        });
        if (bottom == level.end()) {
            continue;
        }
        const Box box{top->x1, top->y1, top->x2, bottom->y1};
        const bool known = std::any_of(found.begin(), found.end(), [&box](const Box &other) {
            return same(box.left, other.left) && same(box.right, other.right) && same(box.top, other.top) &&
                   same(box.bottom, other.bottom);
        });
        if (!known) {
            found.push_back(box);
        }
    }
    return found;
}

bool isSideOf(const Rule &rule, const Box &box)
{
    const auto within = [](double from, double to, double low, double high) {
        return from >= low - thresholds.sameEdge && to <= high + thresholds.sameEdge;
    };
    return rule.isHorizontal()
               ? within(rule.x1, rule.x2, box.left, box.right) && (same(rule.y1, box.top) || same(rule.y1, box.bottom))
               : within(rule.y1, rule.y2, box.top, box.bottom) && (same(rule.x1, box.left) || same(rule.x1, box.right));
}

bool touch(const Box &a, const Box &b, double margin)
{
    return a.left - margin <= b.right && b.left - margin <= a.right && a.top - margin <= b.bottom &&
           b.top - margin <= a.bottom;
}

} // namespace quorra::model
