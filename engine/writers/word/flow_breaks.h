// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "odf/odf_paragraphs.h"

#include <QString>

namespace quorra::office {

/// Collects the breaks and link targets that the next paragraph of flowing text has to carry, and writes an empty
/// paragraph for them where necessary: columns and tables cannot carry them, a break directly after columns is lost,
/// and a break directly after frames takes effect before the frames.
class FlowBreaks
{
public:
    /// Without `separate`, breaks before and after columns get no empty paragraphs (see FlowForm::separateBreaks).
    FlowBreaks(const Sink &sink, bool separate) : m_sink(sink), m_separate(separate) {}

    /// Adds bookmarks and comments to the next paragraph.
    void addMarks(const Marks &marks);

    /// Makes the next paragraph begin a page: by a page break if `breaks`, by this master page unless it is empty, and
    /// with this page number if there is one.
    void addPage(const QString &masterPage, bool breaks, std::optional<int> number);

    /// Makes the next paragraph begin a column.
    void addColumn();

    /// Returns what the next paragraph has to carry; the caller writes that paragraph.
    ParagraphPlace take();

    /// Writes a blank space of this height (points) above a table, with all that has been collected.
    void writeSpace(double height);

    /// Does so above columns. Bookmarks and comments remain for the text in the columns: LibreOffice writes a bookmark
    /// directly before a section twice.
    void writeSpaceAboveColumns(double height);

    /// Writes an empty paragraph for what has been collected, if there is anything.
    void flush();

    /// To be called when columns, or the frames of a whole page, have been written.
    void afterColumns();

    /// To be called when a table has been written: LibreOffice would join another one directly below it.
    void afterTable() { m_afterTable = true; }

private:
    void separateFromColumns();

    const Sink &m_sink;
    bool m_separate;
    ParagraphPlace m_pending;
    bool m_hasPending = false;
    bool m_afterColumns = false;
    bool m_afterTable = false;
};

} // namespace quorra::office
