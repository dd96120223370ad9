// SPDX-License-Identifier: GPL-3.0-or-later
#include "font_name.h"

#include <QRegularExpression>

namespace quorra::model {

namespace {

QString withoutSubsetPrefix(const QString &name)
{
    static const QRegularExpression prefix(QStringLiteral("^[A-Z]{6}\\+"));
    return QString(name).remove(prefix);
}

QString spacedFamily(QString family)
{
    static const QRegularExpression hump(QStringLiteral("(?<=[a-z])(?=[A-Z]|\\d+$)"));
    static const QRegularExpression trailing(QStringLiteral("(PS)?(MT)?$"));
    family.remove(trailing);
    return family.replace(hump, QStringLiteral(" ")).simplified();
}

QString familyOf(const QString &plainName)
{
    static const QRegularExpression weightSuffix(
        QStringLiteral("[-,](?:.*)$|(?:PS)?(?:Bold|Italic|Oblique|Regular|Roman|Medium|Light)+(?:MT|PS)?$"));
    const FontFamily *known = findFontFamily(plainName);
    if (known && !known->name.isEmpty()) {
        return known->name;
    }
    const QString cut = QString(plainName).remove(weightSuffix);
    return spacedFamily(cut.isEmpty() ? plainName : cut);
}

} // namespace

FontName parseFontName(const QString &name)
{
    static const QRegularExpression boldWord(
        QStringLiteral("bold|black|heavy|demi|medi(?!um)|cmbx|cmssbx|sfbx|lmroman\\d+-bold|(?:^|[-,])bd"),
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression italicWord(
        QStringLiteral("ital|oblique|slant|cmti|cmmi|cmsl|cmbxti|sfti|(?:regu|bold|medi)ital|[-,](?:bold)?it$"),
        QRegularExpression::CaseInsensitiveOption);
    const QString plain = withoutSubsetPrefix(name);
    FontName parsed;
    parsed.family = familyOf(plain);
    parsed.bold = boldWord.match(plain).hasMatch();
    parsed.italic = italicWord.match(plain).hasMatch();
    parsed.kind = fontKindByName(plain);
    return parsed;
}

} // namespace quorra::model
