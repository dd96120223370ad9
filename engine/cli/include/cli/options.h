// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/colour.h"
#include "image/tiff_compression.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorra {

/// The numbers that -wordmode takes.
enum class WordMode {
    Combine = 0,
    FlowWithBoxes = 1,
    Exact = 2,
    FlowWithoutBoxes = 3,
    Continuous = 4,
};

/// What the command line asks for. Paths, passwords and the name template are bytes as the system gave them;
/// nothing in them is decoded. An absent option is an empty optional.
struct Options
{
    std::string inputPath;
    std::string outputPath;
    std::optional<int> firstPage;
    std::optional<int> lastPage;
    std::optional<int> width;  ///< pixels
    std::optional<int> height; ///< pixels
    std::optional<int> xres;   ///< dots per inch
    std::optional<int> yres;   ///< dots per inch
    ColourDepth colourDepth = ColourDepth::Colour;
    std::optional<Compression> compression;
    bool multipage = false;
    WordMode wordMode = WordMode::Combine;
    std::string userPassword;
    std::string ownerPassword;
    std::string tempName; ///< template for the names of several files; empty: none
    bool tempNameForSingle = false;
    bool htmlFormat = false;

    /// Dots per inch for each axis. One given sets both; none gives `fallback`.
    int horizontalResolution(int fallback) const { return xres.value_or(yres.value_or(fallback)); }
    int verticalResolution(int fallback) const { return yres.value_or(xres.value_or(fallback)); }
};

/// Reads the arguments that follow the program's name. Throws Failure(Usage) for anything it does not know.
Options parseOptions(const std::vector<std::string> &arguments);

/// The part of the output path's file name from its last dot on, in lower case, such as ".png"; empty for none.
std::string outputExtension(std::string_view outputPath);

} // namespace quorra
