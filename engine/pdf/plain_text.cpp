// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/pdf/plain_text.h"

#include "engine/pdf/document_handles.h"

#include <TextOutputDev.h>

namespace quorra {

namespace {

constexpr double PointsPerInch = 72;

void append(void *file, const char *text, int length)
{
    static_cast<OutputFile *>(file)->write({text, static_cast<std::size_t>(length)});
}

} // namespace

void writePlainText(Document &document, int firstPage, int lastPage, OutputFile &file)
{
    TextOutputDev device(&append, &file, false, 0, false);
    document.handles().doc->displayPages(
        &device, firstPage, lastPage, PointsPerInch, PointsPerInch, 0, false, true, false);
}

} // namespace quorra
