// SPDX-License-Identifier: GPL-3.0-or-later
#include "guard_rules.h"

#include "libreoffice/libreoffice.h"
#include "ocr/recogniser.h"
#include "platform/output_file.h"
#include "platform/system_files.h"

#include <cstdlib>

namespace quorra {

guards::FileRules guardRules(const Options &options, const std::string &tempFolder)
{
    using guards::Access;
    guards::FileRules rules = guards::systemFiles();
    const auto append = [&rules](const guards::FileRules &more) {
        rules.insert(rules.end(), more.begin(), more.end());
    };
    append(guards::fontFiles());
    append(ocr::recognitionFiles());
    rules.push_back({Access::Read, "/proc/self"});
    // Threads open it again.
    rules.push_back({Access::Read, options.inputPath});
    rules.push_back({Access::ChangeFiles, folderOf(options.outputPath)});
    if (!tempFolder.empty()) {
        for (const std::string &program :
             office::officeCandidates(std::getenv("QUORRA_SOFFICE"), std::getenv("PATH"))) {
            append(office::exportRules(program, tempFolder));
        }
    }
    return rules;
}

} // namespace quorra
