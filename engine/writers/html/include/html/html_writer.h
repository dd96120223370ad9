// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "document/picture_source.h"

#include <QIODevice>
#include <QString>

namespace quorra {

struct HtmlOptions
{
    bool xhtml = false; ///< an XML document instead of HTML5
    QString title;      ///< of a document whose file names none
};

/// Writes the document as a single file that contains its pictures. It is well-formed XML in both forms. Continuations
/// of paragraphs and tables must have been joined before.
void writeHtml(
    QIODevice &out, const model::Document &document, model::PictureSource &pictures, const HtmlOptions &options);

} // namespace quorra
