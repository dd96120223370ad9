// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/raw_page.h"
#include "document/recognised_picture.h"

namespace quorra::model {

/// What the text that a page has of its own is worth.
enum class TextLayer {
    Usable,  ///< it is the text of the page, or there is nothing to read on the page
    Missing, ///< images show the page, which has no text, or only a few marks at its edges
    Drawn,   ///< the page has no text, but curves of the size of letters
    Doubtful ///< it has letters that make no sense in any language
};

/// Whether the page may be a scan, as far as its words say.
bool hasLittleText(const RawPage &page);

/// Judges the text of a page that was read with its pictures. Text that cannot be seen counts: a searchable scan is
/// usable.
TextLayer textLayerOf(const RawPage &page);

/// Returns the resolution, in dots per inch, in which a picture of the page is to be recognised: that of its images, or
/// one that is enough for print.
double readingResolution(const RawPage &page);

/// Adds to a page what was recognised in a picture of the whole page. `dot` is the size in points of a pixel, `layer`
/// what textLayerOf() returned. On a scan, the words become hidden ones, as on a searchable scan, figures become parts
/// of the scan (RawPicture::part), and rules and fills are added. Returns false, and leaves the page as it is, if what
/// was recognised is not better than what the page has: hardly any text, or text that contradicts nothing.
bool addRecognised(RawPage &page, TextLayer layer, const RecognisedPicture &picture, double dot);

/// Removes parts of a scan (RawPicture::part) that show text rather than a picture: words were recognised in them.
void removePartsWithText(RawPage &page);

} // namespace quorra::model
