// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/cli/failure.h"
#include "engine/convert.h"

namespace quorra {

void convertToWord(const Job &)
{
    throw Failure(ExitStatus::Helper, "Word output is not available in this version of the engine");
}

void convertToSlides(const Job &)
{
    throw Failure(ExitStatus::Helper, "presentation output is not available in this version of the engine");
}

void convertToSheets(const Job &)
{
    throw Failure(ExitStatus::Helper, "spreadsheet output is not available in this version of the engine");
}

} // namespace quorra
