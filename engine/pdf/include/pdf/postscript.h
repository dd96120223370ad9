// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/paper_size.h"
#include "pdf/pdf_file.h"

#include <optional>

namespace quorra {

class OutputFile;

/// Options for PostScript output.
struct PostScriptForm
{
    bool colour = true;             ///< if false, PostScript Level 1, which has no colour
    int rasterResolution = 300;     ///< dots per inch for content that has to be rasterised
    std::optional<PaperSize> paper; ///< if empty, the size of the page
};

/// Writes pages `firstPage` to `lastPage`, inclusive, to a PostScript file. Throws Failure.
void writePostScript(PdfFile &pdf, int firstPage, int lastPage, const PostScriptForm &form, OutputFile &file);

/// Writes one page as Encapsulated PostScript, scaled to the paper if one is given. Throws Failure.
void writeEps(PdfFile &pdf, int page, const PostScriptForm &form, OutputFile &file);

} // namespace quorra
