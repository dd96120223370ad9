// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/list_plan.h"
#include "odf/odf_runs.h"

#include <stack>

namespace quorra::office {

/// Returns the value of style:num-format: "1", "a", "A", "i" or "I".
QString numberFormatName(model::NumberFormat format);

/// Returns the item with a hanging indent if it has only one line: a second line would begin below the text, not below
/// the mark. Other paragraphs are returned unchanged.
model::Paragraph withHang(const model::Paragraph &paragraph);

/// The list and list-item elements around a paragraph; none without a place in a list.
class ListPosition
{
public:
    /// Begins the elements.
    ListPosition(const Sink &sink, const model::ListPlace *place);

    /// Ends them.
    ~ListPosition();

    Q_DISABLE_COPY_MOVE(ListPosition)

private:
    std::stack<XmlElement> m_open;
};

} // namespace quorra::office
