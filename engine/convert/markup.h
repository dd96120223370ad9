// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "convert/convert.h"
#include "document/document.h"
#include "document/picture_source.h"

#include <QIODevice>

#include <functional>

namespace quorra {

/// Writes a document with its pictures to the device.
using MarkupWriter = std::function<void(QIODevice &, const model::Document &, model::PictureSource &)>;

/// Whether paragraphs that continue over columns and pages become one.
enum class Continuations { Apart, Joined };

/// Reads the job's pages and has them written, with the page size and colours that the options ask for. The pictures of
/// figures are rendered ahead.
void writeMarkup(const Job &job, Continuations continuations, const MarkupWriter &write);

} // namespace quorra
