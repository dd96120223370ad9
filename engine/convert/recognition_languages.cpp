// SPDX-License-Identifier: GPL-3.0-or-later
#include "recognition_languages.h"

#include <QLocale>
#include <QStringList>

#include <algorithm>
#include <array>

namespace quorra {

namespace {

/// Languages for which there are data by script or under another name than the code of ISO 639-3.
struct SpecialName
{
    QLocale::Language language;
    QLocale::Script script; ///< AnyScript for all
    const char *name;
};

constexpr std::array specialNames = {
    SpecialName{QLocale::Chinese, QLocale::TraditionalHanScript, "chi_tra"},
    SpecialName{QLocale::Chinese, QLocale::AnyScript, "chi_sim"},
    SpecialName{QLocale::Serbian, QLocale::LatinScript, "srp_latn"},
    SpecialName{QLocale::Azerbaijani, QLocale::CyrillicScript, "aze_cyrl"},
    SpecialName{QLocale::Uzbek, QLocale::CyrillicScript, "uzb_cyrl"},
    SpecialName{QLocale::Kurdish, QLocale::AnyScript, "kmr"},
    SpecialName{QLocale::NorwegianBokmal, QLocale::AnyScript, "nor"},
    SpecialName{QLocale::NorwegianNynorsk, QLocale::AnyScript, "nor"},
};

/// The name of the data for a language tag or a locale; empty for one that is unknown.
std::string nameFor(const QString &tag)
{
    QString plain = tag.section(QLatin1Char('.'), 0, 0).section(QLatin1Char('@'), 0, 0);
    plain.replace(QLatin1Char('_'), QLatin1Char('-'));
    const QLocale locale(plain);
    if (plain.isEmpty() || locale.language() == QLocale::C) {
        return {};
    }
    const auto *special = std::find_if(specialNames.begin(), specialNames.end(), [&locale](const SpecialName &each) {
        return each.language == locale.language() &&
               (each.script == QLocale::AnyScript || each.script == locale.script());
    });
    return special != specialNames.end()
               ? special->name
               : QLocale::languageToCode(locale.language(), QLocale::ISO639Part3).toStdString();
}

} // namespace

std::string
recognitionLanguages(const QString &stated, const QString &locale, const std::vector<std::string> &installed)
{
    const std::string ofFile = nameFor(stated);
    std::string names;
    for (const std::string &name : {ofFile.empty() ? nameFor(locale) : ofFile, std::string("eng")}) {
        const bool isInstalled = std::find(installed.begin(), installed.end(), name) != installed.end();
        if (isInstalled && name != names) {
            names += (names.empty() ? "" : "+") + name;
        }
    }
    return names;
}

QString userLocale()
{
    for (const char *name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        if (QString value = qEnvironmentVariable(name); !value.isEmpty()) {
            return value;
        }
    }
    return {};
}

} // namespace quorra
