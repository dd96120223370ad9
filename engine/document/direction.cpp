// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/direction.h"

#include <algorithm>

namespace quorra::model {

namespace {

constexpr char16_t softHyphen = 0xad;

enum class Side { Left, Right, None };

Side sideOf(char32_t c)
{
    switch (QChar::direction(c)) {
    case QChar::DirR:
    case QChar::DirAL:
        return Side::Right;
    case QChar::DirL:
    case QChar::DirEN:
    case QChar::DirAN:
        return Side::Left;
    default:
        return Side::None;
    }
}

bool isLatinOnly(const QString &text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x250; });
}

bool isMark(char32_t c)
{
    return QChar::category(c) == QChar::Mark_NonSpacing;
}

// A separator stays inside a number or a Latin run only between two characters of it.
bool staysLeftToRight(const QList<uint> &text, int i)
{
    if (sideOf(text[i]) == Side::Left) {
        return true;
    }
    return sideOf(text[i]) == Side::None && !isMark(text[i]) && i > 0 && i + 1 < text.size() &&
           sideOf(text[i - 1]) == Side::Left && sideOf(text[i + 1]) == Side::Left;
}

bool isLeftToRightWord(const Word &word)
{
    return !hasRightToLeft(word.text) &&
           std::any_of(word.text.begin(), word.text.end(), [](QChar c) { return sideOf(c.unicode()) == Side::Left; });
}

} // namespace

bool hasRightToLeft(const QString &text)
{
    if (isLatinOnly(text)) {
        return false;
    }
    return std::any_of(text.begin(), text.end(), [](QChar c) { return sideOf(c.unicode()) == Side::Right; });
}

bool isRightToLeft(const QString &text)
{
    int balance = 0;
    for (const QChar c : text) {
        const auto direction = QChar::direction(c.unicode());
        balance += direction == QChar::DirR || direction == QChar::DirAL ? 1 : 0;
        balance -= direction == QChar::DirL ? 1 : 0;
    }
    return balance > 0;
}

QString logicalWord(const QString &drawn)
{
    if (!hasRightToLeft(drawn)) {
        return drawn;
    }
    const QList<uint> text = drawn.toUcs4();
    QList<uint> reordered;
    reordered.reserve(text.size());
    for (int end = static_cast<int>(text.size()); end > 0;) {
        int start = end - 1;
        if (staysLeftToRight(text, start)) {
            while (start > 0 && staysLeftToRight(text, start - 1)) {
                --start;
            }
        }
        reordered.append(text.mid(start, end - start));
        end = start;
    }
    return QString::fromUcs4(reinterpret_cast<const char32_t *>(reordered.constData()), reordered.size());
}

QString uprightBrackets(const QString &text)
{
    static const QString opening = QStringLiteral("([{<");
    static const QString closing = QStringLiteral(")]}>");
    if (text.size() < 2) {
        return text;
    }
    const auto isPunctuation = [](QChar c) { return QStringLiteral(".,;:!?\u060c\u061b\u061f").contains(c); };
    qsizetype last = text.size() - 1;
    while (last > 0 && isPunctuation(text.at(last))) {
        --last;
    }
    const bool wrongBegin = closing.contains(text.front());
    const bool wrongEnd = opening.contains(text.at(last));
    if (hasRightToLeft(text) ? !wrongBegin && !wrongEnd : !wrongBegin || !wrongEnd || last < 2) {
        return text;
    }
    QString exchanged = text;
    for (QChar &c : exchanged) {
        const qsizetype open = opening.indexOf(c);
        const qsizetype close = closing.indexOf(c);
        c = open >= 0 ? closing.at(open) : close >= 0 ? opening.at(close) : c;
    }
    return exchanged;
}

QString plainLetters(const QString &text)
{
    if (isLatinOnly(text) && std::none_of(text.begin(), text.end(), [](QChar c) {
            return c.unicode() < 0x20 || c.unicode() == 0x7f || c.unicode() == softHyphen;
        })) {
        return text;
    }
    QString plain;
    plain.reserve(text.size());
    for (const QChar c : text) {
        const char16_t code = c.unicode();
        const bool form = (code >= 0xfb00 && code <= 0xfdff) || (code >= 0xfe70 && code <= 0xfefc);
        if (code == softHyphen) {
            plain += QLatin1Char('-');
        } else if (form) {
            plain += QString(c).normalized(QString::NormalizationForm_KC);
        } else if (c.category() != QChar::Other_Control && code != 0xfeff) {
            plain += c;
        }
    }
    return plain;
}

void orderWords(std::vector<Word> &words, bool rightToLeft)
{
    if (rightToLeft) {
        std::reverse(words.begin(), words.end());
    }
    const auto isOther = [rightToLeft](const Word &w) {
        return rightToLeft ? isLeftToRightWord(w) : hasRightToLeft(w.text);
    };
    for (auto it = words.begin(); it != words.end();) {
        if (!isOther(*it)) {
            ++it;
            continue;
        }
        const auto end = std::find_if_not(it, words.end(), isOther);
        std::reverse(it, end);
        it = end;
    }
}

} // namespace quorra::model
