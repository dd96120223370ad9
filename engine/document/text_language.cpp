// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/text_language.h"

#include <QHash>
#include <QStringList>

#include <algorithm>
#include <array>
#include <map>

namespace quorra::model {

namespace {

struct Thresholds
{
    int minShare = 40;            ///< percent of the letters; names, addresses and commands are Latin in any document
    int minKana = 5;              ///< percent of ideographs and kana; Japanese text without kana does not exist
    qsizetype minWords = 6;       ///< words of Latin text; fewer may be a name or a title in another language
    double minFrequent = 0.12;    ///< share of the words that are frequent ones of the language
    double minLead = 1.25;        ///< times as many as of any other language
    double minLeadOverStated = 2; ///< times as many as of the language that the file states
    int minHits = 3;              ///< frequent words
    qsizetype maxSample = 500;    ///< characters of a text that are looked at; more say the same
};
constexpr Thresholds thresholds;

struct FrequentWords
{
    const char *language;
    const char *words;
};

// Words without meaning of their own, which make up a third of any text. Those that two languages share decide nothing,
// but keep the shares of both comparable.
constexpr std::array<FrequentWords, 17> frequentWords = {{
    {"en", "the of and to in a is that for it with as on be by this are was or from at which an not have has will"},
    {"de", "der die und in den von zu das mit sich des auf für ist im dem nicht ein eine als auch es an werden aus"},
    {"fr", "de la le et les des en un une du que est pour qui dans par sur au avec il ne pas plus se ce sont aux"},
    {"es", "de la que el en y a los se del las un por con una su para es al lo como más o pero sus le no fue"},
    {"it", "di e il la che in un a per del una con non sono da della si i le dei al alla nel più come gli ha delle"},
    {"pt", "de a o que e do da em um para com não uma os no se na por mais as dos como mas ao das à ou são pelo"},
    {"nl", "de het een van en in is dat op te voor met die zijn niet aan er om ook als bij door of uit naar wordt"},
    {"sv", "och i att det som en på är av för med den till inte om ett har de från eller vi kan ska vid också"},
    {"da", "og i at det er en til af på for med den der ikke som de et har fra eller kan vi om skal blev også"},
    {"nb", "og i å det er en til av på for med den som ikke de et har fra eller kan vi om skal ble også være"},
    {"fi", "ja on ei se että oli hän mutta ovat kun niin kuin tai myös sekä joka sen olla voi mukaan"},
    {"pl", "i w na z do się nie że o jest to od za przez po dla ze są jako oraz lub ich które"},
    {"cs", "a v se na je že s z do o i to ve k za pro by od po jsou ale jako které nebo při"},
    {"hu", "a az és hogy nem is egy ez meg volt mint vagy csak már de ha még el kell lehet"},
    {"ro", "de și în a la cu pe care o din nu un este să pentru ca mai sau al se ale prin"},
    {"tr", "ve bir bu da de için ile olarak olan çok en daha gibi veya ancak kadar sonra her ise"},
    {"id", "yang dan di dengan untuk dari ini dalam tidak pada itu adalah ke akan oleh atau juga sebagai"},
}};

/// The languages, by their place in the table, that a word is a frequent one of.
const QHash<QString, QList<int>> &languagesOfWords()
{
    static const QHash<QString, QList<int>> table = [] {
        QHash<QString, QList<int>> words;
        for (std::size_t i = 0; i < frequentWords.size(); ++i) {
            for (const QString &word : QString::fromUtf8(frequentWords.at(i).words).split(QLatin1Char(' '))) {
                words[word].append(static_cast<int>(i));
            }
        }
        return words;
    }();
    return table;
}

using Hits = std::array<int, frequentWords.size()>;

/// Counts the words of the text, and adds those that are frequent ones to the hits of their languages.
int countWords(const QString &text, Hits &hits)
{
    int words = 0;
    QString word;
    const auto end = [&] {
        if (!word.isEmpty()) {
            ++words;
            for (const int language : languagesOfWords().value(word)) {
                ++hits.at(static_cast<std::size_t>(language));
            }
            word.clear();
        }
    };
    for (const QChar c : text) {
        if (c.isLetter()) {
            word += c.toLower();
        } else {
            end();
        }
    }
    end();
    return words;
}

QString latinLanguage(const QString &text, const QString &stated)
{
    Hits hits{};
    const int words = countWords(text, hits);
    const auto best = std::max_element(hits.begin(), hits.end());
    const auto language = [&hits](Hits::const_iterator hit) {
        return QLatin1String(frequentWords.at(static_cast<std::size_t>(hit - hits.cbegin())).language);
    };
    bool clear = words >= thresholds.minWords && *best >= thresholds.minHits &&
                 *best >= thresholds.minFrequent * static_cast<double>(words);
    for (auto other = hits.cbegin(); clear && other != hits.cend(); ++other) {
        if (other != best && *other > 0) {
            const bool isStated = isSameLanguage(language(other), stated);
            clear = *best >= (isStated ? thresholds.minLeadOverStated : thresholds.minLead) * *other;
        }
    }
    return clear ? QString(language(best)) : QString();
}

bool hasAny(const QString &text, const QString &letters)
{
    return std::any_of(text.begin(), text.end(), [&letters](QChar c) { return letters.contains(c); });
}

QString cyrillicLanguage(const QString &text)
{
    if (hasAny(text, QStringLiteral("іїєґІЇЄҐ"))) {
        return hasAny(text, QStringLiteral("ўЎ")) ? QStringLiteral("be") : QStringLiteral("uk");
    }
    if (hasAny(text, QStringLiteral("ђјљњћџЂЈЉЊЋЏ"))) {
        return QStringLiteral("sr");
    }
    const bool russian = hasAny(text, QStringLiteral("ыэёЫЭЁ"));
    const bool bulgarian = !russian && hasAny(text, QStringLiteral("ъЪ"));
    return bulgarian ? QStringLiteral("bg") : QStringLiteral("ru");
}

QString arabicLanguage(const QString &text)
{
    return hasAny(text, QStringLiteral("ٹڈڑے"))   ? QStringLiteral("ur")
           : hasAny(text, QStringLiteral("پچژگ")) ? QStringLiteral("fa")
                                                  : QStringLiteral("ar");
}

/// The language of most text in a script that is neither Latin nor one of East Asia; empty if there are several.
QString languageOfScript(QChar::Script script, const QString &text)
{
    switch (script) {
    case QChar::Script_Hangul:
        return QStringLiteral("ko");
    case QChar::Script_Hebrew:
        return QStringLiteral("he");
    case QChar::Script_Greek:
        return QStringLiteral("el");
    case QChar::Script_Thai:
        return QStringLiteral("th");
    case QChar::Script_Cyrillic:
        return cyrillicLanguage(text);
    case QChar::Script_Arabic:
        return arabicLanguage(text);
    case QChar::Script_Devanagari:
        return QStringLiteral("hi");
    case QChar::Script_Bengali:
        return QStringLiteral("bn");
    case QChar::Script_Tamil:
        return QStringLiteral("ta");
    case QChar::Script_Georgian:
        return QStringLiteral("ka");
    case QChar::Script_Armenian:
        return QStringLiteral("hy");
    default:
        return {};
    }
}

} // namespace

bool isSameLanguage(const QString &a, const QString &b)
{
    const auto first = [](const QString &tag) {
        const auto isSeparator = [](QChar c) { return c == QLatin1Char('-') || c == QLatin1Char('_'); };
        const auto end = std::find_if(tag.begin(), tag.end(), isSeparator);
        const QStringView language(tag.begin(), end);
        const bool norwegian = language.compare(QLatin1String("no"), Qt::CaseInsensitive) == 0;
        return norwegian ? QStringView(u"nb") : language; // mostly Bokmål
    };
    return first(a).compare(first(b), Qt::CaseInsensitive) == 0;
}

QString languageOfText(const QString &whole, const QString &stated)
{
    const QString text = whole.left(thresholds.maxSample);
    std::map<QChar::Script, int> letters;
    int all = 0;
    for (const QChar c : text) {
        if (c.isLetter()) {
            ++letters[c.script()];
            ++all;
        }
    }
    const int kana = letters[QChar::Script_Hiragana] + letters[QChar::Script_Katakana];
    const int ideographs = letters[QChar::Script_Han] + kana;
    const auto isMain = [all](int some) { return 100 * some > thresholds.minShare * all; };
    for (const auto &[script, count] : letters) {
        if (isMain(count)) {
            if (QString language = languageOfScript(script, text); !language.isEmpty()) {
                return language;
            }
        }
    }
    if (isMain(ideographs)) {
        return 100 * kana > thresholds.minKana * ideographs ? QStringLiteral("ja") : QStringLiteral("zh");
    }
    return latinLanguage(text, stated);
}

} // namespace quorra::model
