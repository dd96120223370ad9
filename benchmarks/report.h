// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "measure.h"

#include <string>
#include <vector>

namespace benchmark {

/// One line of the table, as texts; `met` says whether the target was reached.
struct Row
{
    std::string figure;
    std::string ours;
    std::string floor;
    std::string ratio;
    std::string target;
    bool met = false;
};

/// A line whose ratio ours : floor may be at most `limit`. Sides of 0 (not measured) give a line that says so.
Row ratioRow(const std::string &figure, const std::string &unit, const Sides &sides, double limit);

/// A line about memory in KiB: what was used before, and the highest use after; it may grow by less than `limitKib`.
Row memoryRow(const std::string &figure, double beforeKib, double peakKib, double limitKib);

/// A line for a figure that could not be measured.
Row failedRow(const std::string &figure);

/// The machine, the day and the toolkit's version, one line each.
std::string machineText();

/// The lines as a Markdown table, its columns padded so that it also reads well in a terminal.
std::string tableText(const std::vector<Row> &rows);

} // namespace benchmark
