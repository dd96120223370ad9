// SPDX-License-Identifier: GPL-3.0-or-later
#include "flow_breaks.h"

#include <algorithm>
#include <utility>

namespace quorra::office {

namespace {

struct Thresholds
{
    double minSpace = 2; ///< points; a smaller space needs no paragraph of its own
};
constexpr Thresholds thresholds;

} // namespace

void FlowBreaks::addMarks(const Marks &marks)
{
    m_pending.marks.add(marks);
    m_hasPending = m_hasPending || !marks.isEmpty();
}

void FlowBreaks::addPage(const QString &masterPage, bool breaks, std::optional<int> number)
{
    separateFromColumns();
    m_pending.breakBefore = breaks;
    m_pending.masterPage = masterPage;
    m_pending.pageNumber = number;
    m_hasPending = true;
}

void FlowBreaks::addColumn()
{
    m_pending.breakColumn = true;
    m_hasPending = true;
}

ParagraphPlace FlowBreaks::take()
{
    separateFromColumns();
    m_hasPending = false;
    m_afterTable = false;
    return std::exchange(m_pending, {});
}

void FlowBreaks::writeSpace(double height)
{
    const bool needed =
        (m_hasPending && m_separate) || (m_afterColumns && m_separate) || m_afterTable || height > thresholds.minSpace;
    if (!m_hasPending) {
        m_afterColumns = false; // the paragraph that makes the space follows the columns
    }
    if (needed) {
        ParagraphPlace place = take();
        place.above = std::max(0.0, height - emptyParagraphHeight);
        writeAnchorParagraph(m_sink, place);
    }
}

void FlowBreaks::writeSpaceAboveColumns(double height)
{
    const Marks marks = std::exchange(m_pending.marks, {});
    writeSpace(height);
    addMarks(marks);
}

void FlowBreaks::flush()
{
    if (m_hasPending) {
        writeAnchorParagraph(m_sink, take());
    }
}

void FlowBreaks::afterColumns()
{
    m_afterColumns = true;
    m_afterTable = false;
}

void FlowBreaks::separateFromColumns()
{
    if (std::exchange(m_afterColumns, false) && m_separate) {
        writeAnchorParagraph(m_sink, {});
        m_afterTable = false;
    }
}

} // namespace quorra::office
