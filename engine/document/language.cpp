// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/language.h"

#include "document/page_walk.h"
#include "document/text.h"
#include "document/text_language.h"

#include <algorithm>
#include <map>
#include <utility>

namespace quorra::model {

namespace {

/// How much text tells the language of a document: the beginnings of its first paragraphs.
struct Sample
{
    std::size_t paragraphs = 1'000;
    qsizetype length = 200;    ///< characters of a paragraph
    double minShare = 0.4;     ///< of the sample in the language; names, numbers and code are in none
    double minJapanese = 0.05; ///< of the text in ideographs; short Japanese texts do without kana
};
constexpr Sample sample;

} // namespace

QString languageOf(const Document &document)
{
    std::map<QString, qsizetype> letters; // by language
    std::size_t paragraphs = 0;
    for (const Page &page : document.pages) {
        forEachParagraph(page, [&](const Paragraph &paragraph) {
            if (++paragraphs <= sample.paragraphs) {
                const QString text = plainText(paragraph).left(sample.length);
                letters[languageOfText(text, document.facts.language)] += text.size();
            }
        });
    }
    qsizetype all = 0;
    for (const auto &[language, count] : letters) {
        all += count;
    }
    letters.erase(QString());
    qsizetype &japanese = letters[QStringLiteral("ja")];
    qsizetype &chinese = letters[QStringLiteral("zh")];
    if (static_cast<double>(japanese) > sample.minJapanese * static_cast<double>(japanese + chinese)) {
        japanese += std::exchange(chinese, 0);
    }
    const auto most = std::max_element(
        letters.begin(), letters.end(), [](const auto &a, const auto &b) { return a.second < b.second; });
    const bool clear = static_cast<double>(most->second) > sample.minShare * static_cast<double>(all);
    const QString byText = clear ? most->first : QString();
    const QString &stated = document.facts.language;
    return byText.isEmpty() || isSameLanguage(stated, byText) ? stated : byText;
}

} // namespace quorra::model
