// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace quorra::office {

/// What a flowing text keeps of the pages it comes from.
struct FlowForm
{
    bool columns = false; ///< columns stay columns; otherwise they follow one another
    bool pages = true;    ///< page breaks, headers and footers stay
    bool places = true;   ///< indents and spacing as on the page
    /// Breaks beside columns get empty paragraphs of their own. Word's newer formats lose them otherwise; in the older
    /// one such a paragraph fills a page.
    bool breaksApart = true;
};

/// The forms that exist. Each is for Word's newer formats; see forOldWord().
namespace flowForms {

/// Pages with their columns.
inline constexpr FlowForm inColumns{.columns = true, .pages = true, .places = true, .breaksApart = true};

/// Pages on which columns follow one another.
inline constexpr FlowForm inOneColumn{.columns = false, .pages = true, .places = true, .breaksApart = true};

/// One text from the first page to the last.
inline constexpr FlowForm continuous{.columns = false, .pages = false, .places = false, .breaksApart = true};

} // namespace flowForms

/// The form as Word's older format (.doc) needs it.
constexpr FlowForm forOldWord(FlowForm form)
{
    form.breaksApart = false;
    return form;
}

} // namespace quorra::office
