// SPDX-License-Identifier: GPL-3.0-or-later
#include "font_families.h"

#include "text_string.h"

#include <Dict.h>
#include <GfxFont.h>
#include <XRef.h>

namespace quorra {

namespace {

QString letters(const QString &family)
{
    return QString(family).remove(QLatin1Char(' ')).toLower();
}

Object descriptorOf(const Object &font)
{
    if (!font.isDict()) {
        return {};
    }
    const Object descendants = font.dictLookup("DescendantFonts");
    const Object inner = descendants.isArray() && descendants.arrayGetLength() > 0 ? descendants.arrayGet(0) : Object();
    return inner.isDict() ? inner.dictLookup("FontDescriptor") : font.dictLookup("FontDescriptor");
}

} // namespace

void FontFamilies::add(const GfxFont &font, XRef &file)
{
    if (!font.getName() || !m_seen.insert(*font.getID()).second) {
        return;
    }
    const Object descriptor = descriptorOf(file.fetch(*font.getID()));
    const Object family = descriptor.isDict() ? descriptor.dictLookup("FontFamily") : Object();
    if (family.isString()) {
        m_families.insert(QByteArray::fromStdString(*font.getName()), textString(family));
    }
}

QString FontFamilies::familyOf(const QByteArray &name, const QString &guessed) const
{
    const QString stated = m_families.value(name).simplified();
    return stated.contains(QLatin1Char(' ')) && letters(stated) == letters(guessed) ? stated : guessed;
}

} // namespace quorra
