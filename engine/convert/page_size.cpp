// SPDX-License-Identifier: GPL-3.0-or-later
#include "page_size.h"

#include "document/page_transform.h"
#include "paper_size.h"

namespace quorra {

void fitToOptions(model::Document &document, const Options &options)
{
    for (model::Page &page : document.pages) {
        if (const std::optional<PaperSize> paper = paperSize(options, page.width, page.height)) {
            const model::Transform transform{paper->width / page.width, paper->height / page.height, 0, 0};
            model::transformPage(page, document.styles, transform, paper->width, paper->height);
        }
    }
}

} // namespace quorra
