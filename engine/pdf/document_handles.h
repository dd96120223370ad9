// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "passwords.h"

#include <GlobalParams.h>
#include <PDFDoc.h>

#include <memory>
#include <string>

namespace quorra {

/// The PDF library's private objects of one Document. Only sources in engine/pdf include this header.
struct DocumentHandles
{
    std::string path;
    PasswordPair passwords;     ///< the pair that opened the file
    GlobalParamsIniter globals; ///< the library's process-wide state lives as long as any document
    std::unique_ptr<PDFDoc> doc;

    explicit DocumentHandles(ErrorCallback onError) : globals(onError) {}
};

} // namespace quorra
