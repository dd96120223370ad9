// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "passwords.h"

#include <GlobalParams.h>
#include <PDFDoc.h>

#include <memory>
#include <string>

namespace quorra {

/// The PDF library's private objects of one PdfFile. Only sources in engine/pdf include this header.
struct PdfFileHandles
{
    std::string path;
    PasswordPair passwords;     ///< the pair that opened the file
    GlobalParamsIniter globals; ///< the library's process-wide state lives as long as any PdfFile
    std::unique_ptr<PDFDoc> doc;

    explicit PdfFileHandles(ErrorCallback onError) : globals(onError) {}
};

} // namespace quorra
