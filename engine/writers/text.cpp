// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/convert.h"
#include "engine/pdf/plain_text.h"
#include "engine/platform/output_file.h"

namespace quorra {

void convertToText(const Job &job)
{
    OutputFile file(job.options.outputPath);
    writePlainText(job.document, job.firstPage, job.lastPage, file);
    file.commit();
}

} // namespace quorra
