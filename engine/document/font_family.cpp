// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/font_family.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>

using namespace Qt::Literals::StringLiterals;

namespace quorra::model {

namespace {

constexpr auto sansSerif = FontKind::SansSerif;
constexpr auto serif = FontKind::Serif;
constexpr auto fixedPitch = FontKind::FixedPitch;
constexpr auto substituted = FontWidths::Substituted;
constexpr auto measured = FontWidths::Measured;
constexpr QLatin1String asInFile; // the name in the file

// All known families. Some are listed only for their kind, by which a replacement is chosen.
constexpr std::array families{
    FontFamily{"timesnewroman"_L1, "Times New Roman"_L1, serif, true, measured},
    FontFamily{"times"_L1, "Times New Roman"_L1, serif, true, measured},
    FontFamily{"nimbusromno9l"_L1, "Times New Roman"_L1, serif, true, measured},
    FontFamily{"nimbusroman"_L1, "Times New Roman"_L1, serif, true, measured},
    FontFamily{"liberationserif"_L1, asInFile, serif, true, measured},
    FontFamily{"arial"_L1, "Arial"_L1, sansSerif, true, measured},
    FontFamily{"arialunicode"_L1, "Arial Unicode MS"_L1, sansSerif, true, measured},
    FontFamily{"arialnarrow"_L1, "Arial Narrow"_L1, sansSerif, true, substituted},
    FontFamily{"arialblack"_L1, "Arial Black"_L1, sansSerif, true},
    FontFamily{"helvetica"_L1, "Helvetica"_L1, sansSerif, false, measured},
    FontFamily{"nimbussanl"_L1, "Helvetica"_L1, sansSerif, false, measured},
    FontFamily{"nimbussans"_L1, "Helvetica"_L1, sansSerif, false, measured},
    FontFamily{"liberationsans"_L1, asInFile, sansSerif, true, measured},
    FontFamily{"couriernew"_L1, "Courier New"_L1, fixedPitch, true, measured},
    FontFamily{"courier"_L1, "Courier New"_L1, fixedPitch, true, measured},
    FontFamily{"nimbusmonl"_L1, "Courier New"_L1, fixedPitch, true, measured},
    FontFamily{"nimbusmono"_L1, "Courier New"_L1, fixedPitch, true, measured},
    FontFamily{"liberationmono"_L1, asInFile, fixedPitch, true, measured},
    FontFamily{"calibri"_L1, asInFile, sansSerif, true, substituted},
    FontFamily{"carlito"_L1, asInFile, sansSerif, true, substituted},
    FontFamily{"cambria"_L1, asInFile, serif, true, substituted},
    FontFamily{"caladea"_L1, asInFile, serif, true, substituted},
    FontFamily{"dejavusans"_L1, "DejaVu Sans"_L1, sansSerif, true, substituted},
    FontFamily{"dejavuserif"_L1, "DejaVu Serif"_L1, serif, true, substituted},
    FontFamily{"dejavusansmono"_L1, "DejaVu Sans Mono"_L1, fixedPitch, true, substituted},
    FontFamily{"aptos"_L1, asInFile, sansSerif, true},
    FontFamily{"bookantiqua"_L1, asInFile, serif, true},
    FontFamily{"bookmanoldstyle"_L1, asInFile, serif, true},
    FontFamily{"candara"_L1, asInFile, sansSerif, true},
    FontFamily{"centurygothic"_L1, asInFile, sansSerif, true},
    FontFamily{"centuryschoolbook"_L1, asInFile, serif, true},
    FontFamily{"comicsans"_L1, asInFile, sansSerif, true},
    FontFamily{"consolas"_L1, asInFile, fixedPitch, true},
    FontFamily{"constantia"_L1, asInFile, serif, true},
    FontFamily{"corbel"_L1, asInFile, sansSerif, true},
    FontFamily{"franklin"_L1, asInFile, sansSerif, true},
    FontFamily{"garamond"_L1, asInFile, serif, true},
    FontFamily{"georgia"_L1, asInFile, serif, true},
    FontFamily{"gillsans"_L1, asInFile, sansSerif, true},
    FontFamily{"impact"_L1, asInFile, sansSerif, true},
    FontFamily{"lucida"_L1, asInFile, FontKind::Unknown, true},
    FontFamily{"msgothic"_L1, asInFile, sansSerif, true},
    FontFamily{"msmincho"_L1, asInFile, serif, true},
    FontFamily{"noto"_L1, asInFile, FontKind::Unknown, true},
    FontFamily{"palatino"_L1, asInFile, serif, true},
    FontFamily{"segoe"_L1, asInFile, sansSerif, true},
    FontFamily{"simsun"_L1, asInFile, serif, true},
    FontFamily{"tahoma"_L1, asInFile, sansSerif, true},
    FontFamily{"trebuchet"_L1, asInFile, sansSerif, true},
    FontFamily{"verdana"_L1, asInFile, sansSerif, true},
    FontFamily{"baskerville"_L1, asInFile, serif},
    FontFamily{"bodoni"_L1, asInFile, serif},
    FontFamily{"bookman"_L1, asInFile, serif},
    FontFamily{"caslon"_L1, asInFile, serif},
    FontFamily{"century"_L1, asInFile, serif},
    FontFamily{"frutiger"_L1, asInFile, sansSerif},
    FontFamily{"melior"_L1, asInFile, serif},
    FontFamily{"minion"_L1, asInFile, serif},
    FontFamily{"myriad"_L1, asInFile, sansSerif},
    FontFamily{"schoolbook"_L1, asInFile, serif},
    FontFamily{"symbol"_L1, "Symbol"_L1},
    FontFamily{"texgyreheros"_L1, "TeX Gyre Heros"_L1, sansSerif},
    FontFamily{"texgyretermes"_L1, "TeX Gyre Termes"_L1, serif},
    FontFamily{"univers"_L1, asInFile, sansSerif},
};

QString keyOf(const QString &name)
{
    return name.toLower().remove(u' ').remove(u'-');
}

// The kind of the first family in the list whose name is part of this one, as in "ITC Garamond".
FontKind kindOfPart(const QString &name)
{
    const QString key = keyOf(name);
    const auto *found = std::find_if(families.begin(), families.end(), [&](const FontFamily &family) {
        return family.kind != FontKind::Unknown && key.contains(family.start);
    });
    return found == families.end() ? FontKind::Unknown : found->kind;
}

} // namespace

const FontFamily *findFontFamily(const QString &name)
{
    const QString key = keyOf(name);
    const FontFamily *best = nullptr;
    for (const FontFamily &family : families) {
        if (key.startsWith(family.start) && (!best || family.start.size() > best->start.size())) {
            best = &family;
        }
    }
    return best;
}

FontKind fontKindByName(const QString &name)
{
    // Words in names of fonts, and the beginnings of names of TeX fonts, which have no flags.
    static const QRegularExpression fixedWord(
        u"mono|courier|consol|typewriter|fixed|cmtt|sftt"_s, QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression sansWord(u"sans|gothic|cmss|sfss"_s, QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression serifWord(
        u"[Ss]erif|[Rr]oman|Song|Ming|^CM(?!SS|TT|SY|EX)[A-Z]|^SF(?!SS|SX|TT)[A-Z]{2}[0-9]"_s);
    if (fixedWord.match(name).hasMatch()) {
        return FontKind::FixedPitch;
    }
    if (sansWord.match(name).hasMatch()) {
        return FontKind::SansSerif;
    }
    const FontKind kind = kindOfPart(name);
    return kind == FontKind::Unknown && serifWord.match(name).hasMatch() ? FontKind::Serif : kind;
}

FontKind fontKind(const Style &style)
{
    return style.fixedPitch ? FontKind::FixedPitch : style.serif ? FontKind::Serif : FontKind::SansSerif;
}

bool isTypesettingFace(const QString &family)
{
    // "CMR10", "SFBX1095", "MSBM10": capital letters and a size
    static const QRegularExpression numbered(u"^[A-Z]{2,8}[0-9]{1,4}$"_s);
    return numbered.match(family).hasMatch();
}

} // namespace quorra::model
