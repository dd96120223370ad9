// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "measure.h"

#include <string>
#include <vector>

namespace benchmark {

/// A line of the table; `met` tells whether the target was reached.
struct Row
{
    std::string figure;
    std::string ours;
    std::string floor;
    std::string ratio;
    std::string target;
    bool met = false;
};

/// A line whose ratio to the baseline may be at most `limit`. Measurements of 0 are shown as not measured.
Row ratioRow(const std::string &figure, const std::string &unit, const Sides &sides, double limit);

/// A line for memory in KiB: usage before, and peak usage after; it must grow by less than `limitKib`.
Row memoryRow(const std::string &figure, double beforeKib, double peakKib, double limitKib);

/// A line for a figure that could not be measured.
Row failedRow(const std::string &figure);

/// The machine, the date and the Qt version, one line each.
std::string machineText();

/// The lines as a Markdown table, with padded columns to be readable in a terminal.
std::string tableText(const std::vector<Row> &rows);

} // namespace benchmark
