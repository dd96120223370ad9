// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "odf/odf_runs.h"
#include "page_layout.h"

namespace quorra::office {

/// True when the section's columns can stand beside one another in a flowing text: there are two or more, and they
/// follow one another from left to right.
bool canStandInColumns(const model::Section &section);

/// Begins a part of the text that stands in the section's columns, each at its place. The number makes its name unlike
/// that of others.
[[nodiscard]] XmlElement beginColumns(
    const Sink &sink, const model::Page &page, const model::Section &section, const Margins &margins, int number);

} // namespace quorra::office
