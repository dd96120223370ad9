// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/paper_size.h"
#include "pdf/document.h"

#include <optional>

namespace quorra {

class OutputFile;

/// How pages are written as PostScript.
struct PostScriptForm
{
    bool colour = true;             ///< without it, in the first level of the language, which knows no colour
    int rasterResolution = 300;     ///< dots per inch of what can only be drawn as a picture
    std::optional<PaperSize> paper; ///< the page's own size without
};

/// Writes the pages firstPage to lastPage, both included, as one PostScript file. Throws Failure.
void writePostScript(Document &document, int firstPage, int lastPage, const PostScriptForm &form, OutputFile &file);

/// Writes one page as Encapsulated PostScript, scaled to the paper where the form names one. Throws Failure.
void writeEps(Document &document, int page, const PostScriptForm &form, OutputFile &file);

} // namespace quorra
