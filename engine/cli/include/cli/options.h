// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/colour.h"
#include "image/tiff_compression.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorra {

/// The values of -wordmode.
enum class WordMode {
    Combine = 0,
    FlowWithBoxes = 1,
    Exact = 2,
    FlowWithoutBoxes = 3,
    Continuous = 4,
};

/// The parsed command line. Paths, passwords and the name template are bytes as received from the system, without
/// decoding. Options that are absent are empty.
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
    std::string tempName; ///< template for names of page files; empty if there is none
    bool tempNameForSingle = false;
    bool htmlFormat = false;
    bool recogniseText = true;                     ///< in scanned pages
    std::vector<std::string> recognitionLanguages; ///< names of recognition data, such as "eng"

    /// Dots per inch for each axis. If only one is given, it applies to both; if none is given, `fallback`.
    int horizontalResolution(int fallback) const { return xres.value_or(yres.value_or(fallback)); }
    int verticalResolution(int fallback) const { return yres.value_or(xres.value_or(fallback)); }
};

/// Parses the arguments after the program name. Throws Failure(Usage) for invalid arguments.
Options parseOptions(const std::vector<std::string> &arguments);

/// Returns the text of --help, whole lines: how the engine is called, these output extensions, and the options in
/// groups.
std::string helpText(const std::vector<std::string_view> &extensions);

/// Returns the extension of the output path, with its dot and in lower case, such as ".png"; empty if there is none.
std::string outputExtension(std::string_view outputPath);

} // namespace quorra
