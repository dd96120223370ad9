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
    append(rules, guards::fontFiles());
    append(rules, ocr::recognitionFiles());
    rules.push_back({Access::Read, "/proc/self"});
    // Threads open it again.
    rules.push_back({Access::Read, options.inputPath});
    rules.push_back({Access::ChangeFiles, folderOf(options.outputPath)});
    if (!tempFolder.empty()) {
        for (const std::string &program :
             office::officeCandidates(std::getenv("QUORRA_SOFFICE"), std::getenv("PATH"))) {
            append(rules, office::exportRules(program, tempFolder));
        }
    }
    return rules;
}

} // namespace quorra
