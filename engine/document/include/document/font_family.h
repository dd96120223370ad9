// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/text_style.h"

#include <QLatin1String>
#include <QString>

namespace quorra::model {

enum class FontKind { Unknown, SansSerif, Serif, FixedPitch };

/// What is known about the character widths of a family when LibreOffice exports a document.
enum class FontWidths {
    Unknown,     ///< LibreOffice may replace it by a family with other widths
    Substituted, ///< LibreOffice has the family, or another one of the same widths
    Measured     ///< likewise, and the widths are those of a common family, whose metrics are known
};

/// A font family that is known by name.
struct FontFamily
{
    QLatin1String start; ///< how names of its fonts begin: in lower case, without spaces and hyphens
    QLatin1String name;  ///< its name in office programs; empty if that is the name in the file
    FontKind kind = FontKind::Unknown;
    bool widespread = false; ///< most machines have it or a metrically compatible one
    FontWidths widths = FontWidths::Unknown;
};

/// Returns the family with the longest `start` that this font name begins with; null if there is none.
const FontFamily *findFontFamily(const QString &name);

/// Returns the kind of a font according to its name, because many fonts in PDF files lack the flags.
FontKind fontKindByName(const QString &name);

/// Returns the kind of a style's font according to the file; never Unknown.
FontKind fontKind(const Style &style);

/// Whether it is a numbered font of a typesetting system, such as "CMR10", which other programs do not have.
bool isTypesettingFace(const QString &family);

} // namespace quorra::model
