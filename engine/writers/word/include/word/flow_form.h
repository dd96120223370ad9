// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace quorra::office {

/// What a flowing text keeps of the pages it comes from.
struct FlowForm
{
    bool columns = false; ///< columns stay columns; otherwise they follow one another
    bool pages = true;    ///< page breaks and running heads stay
    bool places = true;   ///< indents and spacing as on the page
    /// Breaks beside columns get empty paragraphs of their own. Word's newer formats lose them otherwise; in the older
    /// one such a paragraph fills a page.
    bool breaksApart = true;
};

} // namespace quorra::office
