// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <QByteArray>
#include <QString>

#include <string>
#include <vector>

namespace fuzz {

/// What one writer made of a document.
struct Output
{
    std::string writer; ///< "text", "xml", "word mode 2" and so on
    QByteArray bytes;
    QString error; ///< where the output is no well-formed XML, why; empty for plain text
};

/// The document through every writer that needs no PDF library: text, HTML, XHTML, XML, the five modes of Word, slides
/// and sheets; and once more, as XML and Word, in gray and fitted to another paper.
/// \p folder is where the office writers put their files.
std::vector<Output> everyOutput(const quorra::model::Document &document, const QString &folder);

} // namespace fuzz
