// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/cli/failure.h"
#include "engine/convert.h"

namespace quorra {

void convertToSlides(const Job &)
{
    throw Failure(ExitStatus::Helper, "presentation output is not available in this version of the engine");
}

} // namespace quorra
