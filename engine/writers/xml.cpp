// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/cli/failure.h"
#include "engine/convert.h"

namespace quorra {

void convertToXml(const Job &)
{
    throw Failure(ExitStatus::Helper, "XML output is not available in this version of the engine");
}

} // namespace quorra
