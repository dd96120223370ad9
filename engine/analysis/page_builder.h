// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "text_lines/text_lines.h"

#include <set>

namespace quorra::model {

/// Builds one page whose text runs upright (see turnedUpright). `heads` are the words of its header and footer; what
/// they make is all in Page::header.
Page buildPage(const RawPage &raw, const std::set<const RawWord *> &heads, StyleTable &styles);

} // namespace quorra::model
