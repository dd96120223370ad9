// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/cli/failure.h"
#include "engine/convert.h"

namespace quorra {

void convertToImages(const Job &)
{
    throw Failure(ExitStatus::Helper, "picture output is not available in this version of the engine");
}

void convertToPostScript(const Job &)
{
    throw Failure(ExitStatus::Helper, "PostScript output is not available in this version of the engine");
}

} // namespace quorra
