// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/font_family.h"

#include <QString>

namespace quorra::model {

/// The properties of a font that are encoded in its name.
struct FontName
{
    QString family;
    bool bold = false;
    bool italic = false;
    FontKind kind = FontKind::Unknown;
};

/// Parses a PostScript font name such as "ABCDEF+TimesNewRomanPS-BoldItalicMT". Many fonts have no flags, so that the
/// name is the only source. The family of an empty name is empty.
FontName parseFontName(const QString &name);

} // namespace quorra::model
