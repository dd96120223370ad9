// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/text_style.h"

#include <QLatin1String>
#include <QString>

namespace quorra::model {

enum class FontKind { Unknown, SansSerif, Serif, FixedPitch };

/// How wide the letters of a family come out where office documents are made.
enum class FontWidths {
    Unknown,     ///< LibreOffice may have to set it in a family of other widths
    Substituted, ///< LibreOffice has the family, or another one of the same widths
    Measured     ///< likewise, and they are those of the common family of its kind, whose widths the engine knows
};

/// A font family that is known by name.
struct FontFamily
{
    QLatin1String start; ///< how its names begin: lower case, without spaces and hyphens
    QLatin1String name;  ///< the name that office programs know it by; empty where that is the file's own
    FontKind kind = FontKind::Unknown;
    bool widespread = false; ///< most machines have it, or one that stands in for it letter by letter
    FontWidths widths = FontWidths::Unknown;
};

/// The family to which a font of this name belongs, told by the name's beginning: of several the one with the longest
/// beginning. Null for an unknown one.
const FontFamily *findFontFamily(const QString &name);

/// What the name of a font or family says about its kind. Many fonts in PDF files carry no flags that tell it.
FontKind fontKindByName(const QString &name);

/// The kind of a style's font, as far as the file tells; never Unknown.
FontKind fontKind(const Style &style);

/// Whether it is a numbered face of a typesetting system, such as "CMR10": those exist only inside PDF files.
bool isTypesettingFace(const QString &family);

} // namespace quorra::model
