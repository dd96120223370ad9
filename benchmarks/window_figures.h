// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "report.h"

#include <string>
#include <vector>

namespace benchmark {

/// Absolute paths of the programs to start.
struct Programs
{
    std::string converter;
    std::string plainWindow;
    std::string firstPaintProbe;
    std::string noopEngine;
    std::string floodEngine;
};

// Each function measures one or two lines of the table. `folder` is an empty folder in the memory file system. All
// functions except startFigures() show the window in a child process.

/// A run over 1,000 files, compared with starting the same engine 1,000 times.
Row runFigure(const Programs &programs, const std::string &folder);

/// Time from program start to first paint, and for opening the settings dialog.
std::vector<Row> startFigures(const Programs &programs, const std::string &folder);

/// Dropping 20,000 files.
Row dropFigure(const std::string &folder);

/// Clear with 100,000 rows.
Row clearFigure(const std::string &folder);

/// Delete with 20,000 rows, every other one selected.
Row deleteFigure(const std::string &folder);

/// Memory over a run of 10,000 files.
Row longRunMemoryFigure(const Programs &programs, const std::string &folder);

/// Memory while an engine prints 400 MB on each channel.
Row floodMemoryFigure(const Programs &programs, const std::string &folder);

} // namespace benchmark
