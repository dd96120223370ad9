// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/language.h"

#include "document/page_walk.h"
#include "document/text.h"

#include <QChar>

namespace quorra::model {

namespace {

struct Thresholds
{
    int minShare = 40; ///< percent of the letters; names, addresses and commands are Latin in any document
    int minKana = 5;   ///< percent of ideographs and kana; Japanese text without kana does not exist
};
constexpr Thresholds thresholds;

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

/// Returns the language of the script of most letters; empty if many languages use it.
QString languageByScript(const Document &document)
{
    LetterCount letters;
    for (const Page &page : document.pages) {
        forEachParagraph(page, [&letters](const Paragraph &paragraph) {
            const QString text = plainText(paragraph);
            for (const QChar c : text) {
                count(letters, c);
            }
        });
    }
    const auto isMain = [&letters](int some) { return 100 * some > thresholds.minShare * letters.all; };
    if (isMain(letters.hangul)) {
        return QStringLiteral("ko");
    }
    const int ideographs = letters.han + letters.kana;
    if (isMain(ideographs)) {
        return 100 * letters.kana > thresholds.minKana * ideographs ? QStringLiteral("ja") : QStringLiteral("zh");
    }
    return isMain(letters.hebrew)  ? QStringLiteral("he")
           : isMain(letters.greek) ? QStringLiteral("el")
           : isMain(letters.thai)  ? QStringLiteral("th")
                                   : QString();
}

} // namespace

QString languageOf(const Document &document)
{
    const QString byScript = languageByScript(document);
    const QString &stated = document.facts.language;
    return byScript.isEmpty() || stated.section(QLatin1Char('-'), 0, 0) == byScript ? stated : byScript;
}

} // namespace quorra::model
