// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <QByteArray>
#include <QString>

#include <string>
#include <vector>

namespace fuzz {

/// The output of a writer.
struct Output
{
    std::string writer; ///< "text", "xml", "word mode 2" and so on
    QByteArray bytes;
    QString error; ///< where the output is no well-formed XML, why; empty for plain text
};

/// Runs all writers that do not require the PDF library: text, HTML, XHTML, XML, the five modes of Word, slides and
/// sheets; then XML and Word again, in gray and scaled to another paper size. \p folder is where the office writers put
/// their files.
std::vector<Output> everyOutput(const quorra::model::Document &document, const QString &folder);

} // namespace fuzz
