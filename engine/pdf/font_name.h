// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace quorra::model {

/// What the name of a font says about it.
struct FontName
{
    QString family;
    bool bold = false;
    bool italic = false;
    bool fixedPitch = false;
    bool sansSerif = false;
    bool serif = false; ///< never together with sansSerif
};

/// Reads a PostScript font name such as "ABCDEF+TimesNewRomanPS-BoldItalicMT". Many fonts carry no flags, so the name
/// is often all there is. An empty name gives an empty family.
FontName parseFontName(const QString &name);

} // namespace quorra::model
