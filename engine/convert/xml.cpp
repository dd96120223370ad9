// SPDX-License-Identifier: GPL-3.0-or-later
#include "html.h"
#include "markup.h"
#include "xml/xml_writer.h"

namespace quorra {

void convertToXml(const Job &job)
{
    if (job.options.htmlFormat) {
        convertToMarkup(job, true);
        return;
    }
    const auto write = [](QIODevice &out, const model::Document &document, model::PictureSource &pictures) {
        writeXml(out, document, &pictures);
    };
    writeMarkup(job, Continuations::Apart, write);
}

} // namespace quorra
