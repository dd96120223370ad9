// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/analysis.h"

#include "document/rotation.h"
#include "page_builder.h"
#include "semantics/page_headers.h"
#include "semantics/roles.h"
#include "sound_page.h"

namespace quorra::model {

void onePageAfterAnother(int count, const std::function<void(int)> &work)
{
    for (int page = 0; page < count; ++page) {
        work(page);
    }
}

Document buildDocument(std::vector<RawPage> pages, const PageLoop &forEach)
{
    std::vector<int> rotations;
    for (RawPage &page : pages) {
        page = soundPage(std::move(page));
        rotations.push_back(mainRotation(page));
        page = turnedUpright(std::move(page), rotations.back());
    }
    const auto heads = findRunningHeads(pages);
    Document document;
    document.pages.resize(pages.size());
    forEach(static_cast<int>(pages.size()), [&](int page) {
        const auto i = static_cast<std::size_t>(page);
        document.pages[i] = buildPage(pages[i], heads[i]);
        pages[i] = {}; // its words live on in the lines
    });
    assignRoles(document);
    markContinuations(document);
    for (std::size_t i = 0; i < rotations.size(); ++i) {
        turnBack(document.pages[i], rotations[i]);
    }
    return document;
}

} // namespace quorra::model
