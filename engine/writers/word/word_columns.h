// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "flow_plan.h"
#include "odf/odf_runs.h"
#include "page_layout.h"

namespace quorra::office {

/// Returns whether flowing text can have the columns of the section: there are at least two, from left to right.
bool canHaveColumns(const model::Section &section);

/// Begins a section of the text with the columns at their positions. The number makes its name unique.
[[nodiscard]] XmlElement
beginColumns(const Sink &sink, const model::Page &page, const FlowSection &planned, const Margins &margins, int number);

} // namespace quorra::office
