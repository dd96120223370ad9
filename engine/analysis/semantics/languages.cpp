// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/languages.h"

#include "document/language.h"
#include "document/page_walk.h"
#include "document/text.h"
#include "document/text_language.h"

namespace quorra::model {

namespace {

bool hasIdeographs(const QString &language)
{
    return isSameLanguage(language, QStringLiteral("ja")) || isSameLanguage(language, QStringLiteral("zh"));
}

/// Returns the language of the text; `stated` is that of the file's tags, `usual` that of the document.
QString languageOf(const QString &text, const QString &stated, const QString &usual)
{
    const QString found = languageOfText(text, stated.isEmpty() ? usual : stated);
    if (found.isEmpty() || isSameLanguage(found, stated)) {
        return stated;
    }
    return hasIdeographs(found) && hasIdeographs(usual) ? usual : found; // a short Japanese text may do without kana
}

} // namespace

void findLanguages(Document &document)
{
    const QString usual = languageOf(document);
    for (Page &page : document.pages) {
        forEachParagraph(page, [&usual](Paragraph &paragraph) {
            const QString language = languageOf(plainText(paragraph), paragraph.language, usual);
            paragraph.language = isSameLanguage(language, usual) ? QString() : language;
        });
    }
}

} // namespace quorra::model
