// SPDX-License-Identifier: GPL-3.0-or-later
#include "html_language.h"

#include "document/page_walk.h"
#include "document/text.h"

#include <QChar>

namespace quorra {

namespace {

struct LetterCount
{
    int all = 0;
    int han = 0;
    int kana = 0;
    int hangul = 0;
    int hebrew = 0;
    int greek = 0;
    int thai = 0;
};

void count(LetterCount &letters, QChar c)
{
    if (!c.isLetter()) {
        return;
    }
    ++letters.all;
    switch (c.script()) {
    case QChar::Script_Han:
        ++letters.han;
        break;
    case QChar::Script_Hiragana:
    case QChar::Script_Katakana:
        ++letters.kana;
        break;
    case QChar::Script_Hangul:
        ++letters.hangul;
        break;
    case QChar::Script_Hebrew:
        ++letters.hebrew;
        break;
    case QChar::Script_Greek:
        ++letters.greek;
        break;
    case QChar::Script_Thai:
        ++letters.thai;
        break;
    default:
        break;
    }
}

// The language that the script tells; empty when it is that of many languages.
QString languageByScript(const model::Document &document)
{
    LetterCount letters;
    for (const model::Page &page : document.pages) {
        model::forEachParagraph(page, [&letters](const model::Paragraph &paragraph) {
            const QString text = model::plainText(paragraph);
            for (const QChar c : text) {
                count(letters, c);
            }
        });
    }
    // Names, addresses and commands stand in Latin letters among any script.
    const auto rules = [&letters](int some) { return 5 * some > 2 * letters.all; };
    if (rules(letters.hangul)) {
        return QStringLiteral("ko");
    }
    if (rules(letters.han + letters.kana)) { // no Japanese text does without kana
        return 20 * letters.kana > letters.han + letters.kana ? QStringLiteral("ja") : QStringLiteral("zh");
    }
    return rules(letters.hebrew)  ? QStringLiteral("he")
           : rules(letters.greek) ? QStringLiteral("el")
           : rules(letters.thai)  ? QStringLiteral("th")
                                  : QString();
}

} // namespace

QString languageOf(const model::Document &document)
{
    const QString byScript = languageByScript(document);
    const QString &told = document.facts.language;
    return byScript.isEmpty() || told.section(QLatin1Char('-'), 0, 0) == byScript ? told : byScript;
}

} // namespace quorra
