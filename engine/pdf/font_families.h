// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <Object.h>

#include <QByteArray>
#include <QHash>
#include <QString>

#include <set>

class GfxFont;
class XRef;

namespace quorra {

/// The names of font families that a PDF file states in the descriptors of its fonts. They are written as people know
/// them ("DejaVu Sans"), while PostScript names lack blanks.
class FontFamilies
{
public:
    /// Looks up the family of a font, once.
    void add(const GfxFont &font, XRef &file);

    /// The family of the font with that PostScript name; `guessed`, the family according to the name, if the file
    /// states none, or one of another spelling.
    QString familyOf(const QByteArray &name, const QString &guessed) const;

private:
    std::set<Ref> m_seen;
    QHash<QByteArray, QString> m_families;
};

} // namespace quorra
