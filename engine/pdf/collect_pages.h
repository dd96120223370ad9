// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/convert.h"
#include "engine/model/page.h"
#include "engine/pdf/collector.h"
#include "engine/pdf/document_copies.h"

#include <vector>

namespace quorra {

/// The raw pages of a job's range, in their order. Long ranges are read by several threads.
std::vector<model::RawPage> collectPages(const Job &job, DocumentCopies &copies, Collect what);

} // namespace quorra
