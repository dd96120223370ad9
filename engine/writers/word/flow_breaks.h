// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "odf/odf_paragraphs.h"

#include <QString>

namespace quorra::office {

/// Which breaks, link targets and spaces are still to be carried by a paragraph of a flowing text, and whether an
/// empty one has to carry them: columns and tables cannot, and a break right after columns is lost, one right after
/// frames comes before them.
class FlowBreaks
{
public:
    /// Without apart, columns and what they hold carry breaks themselves.
    FlowBreaks(const Sink &sink, bool apart) : m_sink(sink), m_apart(apart) {}

    /// The next paragraph is a link target of this name.
    void addBookmark(const QString &name);

    /// The next paragraph begins a page, with this master page unless the name is empty.
    void addPage(const QString &masterPage, bool breaks);

    /// The next paragraph begins a column.
    void addColumn();

    /// What the paragraph that is written next has to carry.
    ParagraphPlace take();

    /// Blank space of this height (points) above columns or a table, and all that is still to be carried.
    void writeSpace(double height);

    /// Writes what is still to be carried, if there is anything.
    void flush();

    /// Columns, or frames of a whole page, have been written.
    void afterColumns();

    /// A table has been written: another one right below it would become one with it.
    void afterTable() { m_afterTable = true; }

private:
    void close();

    const Sink &m_sink;
    bool m_apart;
    ParagraphPlace m_pending;
    bool m_hasPending = false;
    bool m_afterColumns = false;
    bool m_afterTable = false;
};

} // namespace quorra::office
