// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/raw_page.h"

#include <QTest>

#include <cstddef>
#include <functional>
#include <initializer_list>
#include <utility>
#include <vector>

/// Tests of thresholds: the result changes between a value just below and a value just above.
namespace thresholdEdges {

struct Edge
{
    const char *name;
    double below;
    double above;
    bool foundBelow;                     ///< result for the value below; the opposite holds above
    std::function<bool(double)> isFound; ///< returns the result for a value
};

/// A threshold below or above which something is found. The values are 2 % below and above.
inline Edge maximum(const char *name, double threshold, std::function<bool(double)> isFound)
{
    return {name, 0.98 * threshold, 1.02 * threshold, true, std::move(isFound)};
}
inline Edge minimum(const char *name, double threshold, std::function<bool(double)> isFound)
{
    return {name, 0.98 * threshold, 1.02 * threshold, false, std::move(isFound)};
}

/// The largest and the smallest number of things with which something is found.
inline Edge most(const char *name, std::size_t threshold, std::function<bool(double)> isFound)
{
    const auto last = static_cast<double>(threshold);
    return {name, last, last + 1, true, std::move(isFound)};
}
inline Edge fewest(const char *name, std::size_t threshold, std::function<bool(double)> isFound)
{
    const auto first = static_cast<double>(threshold);
    return {name, first - 1, first, false, std::move(isFound)};
}

/// All edges of the lists, one after the other.
inline std::vector<Edge> joined(std::initializer_list<std::vector<Edge>> lists)
{
    std::vector<Edge> all;
    for (const std::vector<Edge> &edges : lists) {
        all.insert(all.end(), edges.begin(), edges.end());
    }
    return all;
}

/// Adds a row to a data-driven test for each edge: its index.
inline void addRows(const std::vector<Edge> &edges)
{
    QTest::addColumn<std::size_t>("number");
    for (std::size_t i = 0; i < edges.size(); ++i) {
        QTest::newRow(edges[i].name) << i;
    }
}

/// Checks the edge of the current row.
inline void checkRow(const std::vector<Edge> &edges)
{
    QFETCH(std::size_t, number);
    const Edge &edge = edges[number];
    QCOMPARE(edge.isFound(edge.below), edge.foundBelow);
    QCOMPARE(edge.isFound(edge.above), !edge.foundBelow);
}

/// A word whose box is `width` points wide whatever its text.
inline quorra::model::RawWord word(const QString &text, double left, double width, double baseline, double size = 10)
{
    quorra::model::RawWord made;
    made.text = text;
    made.style.size = size;
    made.baseline = baseline;
    made.box = {left, baseline - 0.8 * size, left + width, baseline + 0.2 * size};
    return made;
}

/// The words, which must outlive the result, numbered in their order as on a page.
inline std::vector<const quorra::model::RawWord *> refs(std::vector<quorra::model::RawWord> &words)
{
    std::vector<const quorra::model::RawWord *> result;
    for (quorra::model::RawWord &each : words) {
        each.index = result.size();
        result.push_back(&each);
    }
    return result;
}

} // namespace thresholdEdges
