// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <QString>

#include <vector>

namespace quorra::office {

/// Returns a name for the sheet of each page: its page label and its first heading, "Page N" without a heading. Names
/// are at most 31 characters long, unique whatever their case, and free of the characters that spreadsheets reject.
std::vector<QString> sheetNames(const std::vector<model::Page> &pages);

} // namespace quorra::office
