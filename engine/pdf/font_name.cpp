// SPDX-License-Identifier: GPL-3.0-or-later
#include "font_name.h"

#include <QRegularExpression>

#include <array>

namespace quorra::model {

namespace {

struct KnownFamily
{
    const char *start; ///< lower case, without spaces
    const char *family;
};

// PostScript names unknown to office programs, and the corresponding font family.
constexpr std::array knownFamilies{
    KnownFamily{"timesnewroman", "Times New Roman"},
    KnownFamily{"times", "Times New Roman"},
    KnownFamily{"nimbusromno9l", "Times New Roman"},
    KnownFamily{"nimbusroman", "Times New Roman"},
    KnownFamily{"arialnarrow", "Arial Narrow"},
    KnownFamily{"arialunicode", "Arial Unicode MS"},
    KnownFamily{"arialblack", "Arial Black"},
    KnownFamily{"arial", "Arial"},
    KnownFamily{"nimbussanl", "Helvetica"},
    KnownFamily{"nimbussans", "Helvetica"},
    KnownFamily{"helvetica", "Helvetica"},
    KnownFamily{"couriernew", "Courier New"},
    KnownFamily{"nimbusmonl", "Courier New"},
    KnownFamily{"nimbusmono", "Courier New"},
    KnownFamily{"courier", "Courier New"},
    KnownFamily{"symbol", "Symbol"},
    KnownFamily{"dejavusansmono", "DejaVu Sans Mono"},
    KnownFamily{"dejavusans", "DejaVu Sans"},
    KnownFamily{"dejavuserif", "DejaVu Serif"},
    KnownFamily{"texgyreheros", "TeX Gyre Heros"},
    KnownFamily{"texgyretermes", "TeX Gyre Termes"},
};

QString withoutSubsetPrefix(const QString &name)
{
    static const QRegularExpression prefix(QStringLiteral("^[A-Z]{6}\\+"));
    return QString(name).remove(prefix);
}

QString spacedFamily(QString family)
{
    static const QRegularExpression hump(QStringLiteral("(?<=[a-z])(?=[A-Z])"));
    static const QRegularExpression trailing(QStringLiteral("(PS)?(MT)?$"));
    family.remove(trailing);
    return family.replace(hump, QStringLiteral(" ")).simplified();
}

QString familyOf(const QString &plainName)
{
    static const QRegularExpression weightSuffix(
        QStringLiteral("[-,](?:.*)$|(?:PS)?(?:Bold|Italic|Oblique|Regular|Roman|Medium|Light)+(?:MT|PS)?$"));
    QString key = plainName.toLower();
    key.remove(QLatin1Char(' '));
    for (const KnownFamily &known : knownFamilies) {
        if (key.startsWith(QLatin1String(known.start))) {
            return QLatin1String(known.family);
        }
    }
    const QString cut = QString(plainName).remove(weightSuffix);
    return spacedFamily(cut.isEmpty() ? plainName : cut);
}

} // namespace

FontName parseFontName(const QString &name)
{
    static const QRegularExpression boldMark(
        QStringLiteral("bold|black|heavy|demi|medi(?!um)|cmbx|cmssbx|sfbx|lmroman\\d+-bold|(?:^|[-,])bd"),
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression italicMark(
        QStringLiteral("ital|oblique|slant|cmti|cmmi|cmsl|cmbxti|sfti|(?:regu|bold|medi)ital|[-,](?:bold)?it$"),
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression fixedMark(
        QStringLiteral("mono|courier|cmtt|sftt|consol|typewriter|fixed"), QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression sansMark(
        QStringLiteral(
            "sans|arial|helvetica|nimbussanl|verdana|calibri|tahoma|cmss|sfss|gothic|univers|frutiger|myriad|heros"),
        QRegularExpression::CaseInsensitiveOption);
    // The fonts of TeX have no flag for this.
    static const QRegularExpression serifMark(
        QStringLiteral("serif|times|roman|termes|georgia|garamond|palatino|bookman|schoolbook|cambria|minion|"
                       "^cm(?:r|b|bx|ti|sl|csc|mi|bxti)\\d|^sf(?:rm|bx|ti|sl|cc)\\d"),
        QRegularExpression::CaseInsensitiveOption);
    const QString plain = withoutSubsetPrefix(name);
    FontName parsed;
    parsed.family = familyOf(plain);
    parsed.bold = boldMark.match(plain).hasMatch();
    parsed.italic = italicMark.match(plain).hasMatch();
    parsed.fixedPitch = fixedMark.match(plain).hasMatch();
    parsed.sansSerif = sansMark.match(plain).hasMatch();
    parsed.serif = !parsed.sansSerif && serifMark.match(plain).hasMatch();
    return parsed;
}

} // namespace quorra::model
