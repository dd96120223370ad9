// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace quorra::office {

/// What flowing text keeps of the pages that it comes from.
struct FlowForm
{
    bool columns = false; ///< columns are kept; otherwise their text becomes a single column
    bool pages = true;    ///< page breaks, headers and footers are kept
    bool places = true;   ///< indents and spacing are those of the page
    bool frames = false;  ///< text beside the page's text that runs up or down gets frames
    /// Breaks before and after columns get empty paragraphs of their own. Without them they are lost in Word's newer
    /// formats; in the older format, such a paragraph fills a page.
    bool separateBreaks = true;
    /// Columns may have margins of their own. In the older format, LibreOffice begins a page with such columns.
    bool columnMargins = true;
    bool numbersBeginAnew = true; ///< page numbers can begin anew in the midst of the text, or with another than 1
    bool leftAndRight = true;     ///< left and right pages can have different headers
};

/// The available forms, for Word's newer formats; see forOldWord().
namespace flowForms {

/// Pages with columns.
inline constexpr FlowForm inColumns{.columns = true, .pages = true, .places = true, .frames = true};

/// Pages with a single column.
inline constexpr FlowForm inOneColumn{.columns = false, .pages = true, .places = true};

/// Text without pages.
inline constexpr FlowForm continuous{.columns = false, .pages = false, .places = false};

} // namespace flowForms

/// Returns the form as Word's older format (.doc) needs it.
constexpr FlowForm forOldWord(FlowForm form)
{
    form.separateBreaks = false;
    form.columnMargins = false;
    return form;
}

/// Returns the form as rich text (.rtf) needs it: LibreOffice writes neither first page numbers nor left pages there.
constexpr FlowForm forRichText(FlowForm form)
{
    form.numbersBeginAnew = false;
    form.leftAndRight = false;
    return form;
}

} // namespace quorra::office
