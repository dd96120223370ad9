// SPDX-License-Identifier: GPL-3.0-or-later
#include "semantics/page_fields.h"

#include "document/page_number.h"
#include "semantics/cut_word.h"

#include <QRegularExpression>

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <tuple>
#include <vector>

namespace quorra::model {

namespace {

using pageFields::thresholds;

/// A number in a page header or footer.
struct Number
{
    bool inHeader = false;
    Line *line = nullptr;
    std::size_t word = 0;
    qsizetype start = 0; ///< in the word
    qsizetype length = 0;
    PageNumber read;
};

/// The numbers of a line: Roman numerals that are whole words, and digits anywhere.
void addNumbers(std::vector<Number> &numbers, Line &line, bool inHeader)
{
    static const QRegularExpression digits(QStringLiteral("[0-9]+"));
    for (std::size_t word = 0; word < line.words.size(); ++word) {
        const QString &text = line.words[word].text;
        if (const std::optional<PageNumber> whole = readPageNumber(text)) {
            numbers.push_back({inHeader, &line, word, 0, text.size(), *whole});
            continue;
        }
        QRegularExpressionMatchIterator matches = digits.globalMatch(text);
        while (matches.hasNext()) {
            const QRegularExpressionMatch match = matches.next();
            if (const std::optional<PageNumber> part = readPageNumber(match.captured())) {
                numbers.push_back({inHeader, &line, word, match.capturedStart(), match.capturedLength(), *part});
            }
        }
    }
}

/// The lines of the page's header and footer that have numbers, with these.
std::vector<std::vector<Number>> numbersByLine(Page &page)
{
    std::vector<std::vector<Number>> lines;
    for (auto *edge : {&page.header, &page.footer}) {
        for (Paragraph &paragraph : *edge) {
            for (Line &line : paragraph.lines) {
                std::vector<Number> numbers;
                addNumbers(numbers, line, edge == &page.header);
                if (!numbers.empty()) {
                    lines.push_back(std::move(numbers));
                }
            }
        }
    }
    return lines;
}

/// The text of the line before the number, or after it.
QString textBefore(const Number &number)
{
    QString text;
    for (std::size_t i = 0; i < number.word; ++i) {
        text += number.line->words[i].text + QLatin1Char(' ');
    }
    return text + number.line->words[number.word].text.left(number.start);
}

QString textAfter(const Number &number)
{
    const std::vector<Word> &words = number.line->words;
    QString text = words[number.word].text.mid(number.start + number.length);
    for (std::size_t i = number.word + 1; i < words.size(); ++i) {
        text += QLatin1Char(' ') + words[i].text;
    }
    return text;
}

/// Whether the text before and after a number is that of a page number, wherever it stands.
bool isWrittenLikePageNumber(const Number &number)
{
    static const QRegularExpression named(
        QStringLiteral(
            "(?:^|\\W)(?:page|p\\.|seite|s\\.|pagina|página|pág\\.|strona|sida|side|sivu|oldal|стр\\.|страница)"
            "[\\s:]*$"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
    static const QRegularExpression alone(QStringLiteral("^[\\s\\-–—|]*$"));
    const QString before = textBefore(number);
    return named.match(before).hasMatch() ||
           (alone.match(before).hasMatch() && alone.match(textAfter(number)).hasMatch());
}

/// The number after a page number that tells how many pages there are.
const Number *countAfter(const Number &number, const std::vector<Number> &numbers, int pages)
{
    static const QRegularExpression between(
        QStringLiteral("^\\s*(?:/|of|von|de|sur|di|z|av|af|van|из)\\s*$"), QRegularExpression::CaseInsensitiveOption);
    for (const Number &next : numbers) {
        const qsizetype length = textBefore(next).size() - textBefore(number).size() - number.length;
        const bool counts = next.read == PageNumber{pages, NumberFormat::Decimal};
        if (length > 0 && counts && between.match(textAfter(number).left(length)).hasMatch()) {
            return &next;
        }
    }
    return nullptr;
}

void mark(const Number &number, PageField field)
{
    const qsizetype rest = number.line->words[number.word].text.size() - number.start - number.length;
    cutWordEnd(*number.line, number.word, rest);
    number.line->words[cutWordEnd(*number.line, number.word, number.length)].field = field;
}

/// Numbers with the same difference to the index of their page, in the same place and format, run with the pages.
using Sequence = std::tuple<bool, NumberFormat, int>;

Sequence sequenceOf(const Number &number, std::size_t page)
{
    return {number.inHeader, number.read.format, number.read.value - static_cast<int>(page)};
}

/// Decides which numbers are those of pages.
class PageNumbers
{
public:
    explicit PageNumbers(Document &document) : m_document(document)
    {
        for (Page &page : document.pages) {
            m_lines.push_back(numbersByLine(page));
            for (const std::vector<Number> &line : m_lines.back()) {
                for (const Number &number : line) {
                    m_pagesOf[sequenceOf(number, m_lines.size() - 1)].insert(m_lines.size() - 1);
                }
            }
        }
    }

    void mark()
    {
        for (std::size_t page = 0; page < m_lines.size(); ++page) {
            for (const std::vector<Number> &line : m_lines[page]) {
                const Number *number = numberOf(line, page);
                if (!number) {
                    continue;
                }
                if (const Number *count = countAfter(*number, line, pageCount())) {
                    model::mark(*count, PageField::Count); // the later one first: places before it stay
                }
                model::mark(*number, PageField::Number);
            }
        }
    }

private:
    /// The page number in the line: one that is written like it, otherwise the last; null if there is none.
    const Number *numberOf(const std::vector<Number> &line, std::size_t page) const
    {
        const Number *found = nullptr;
        for (const Number &number : line) {
            const bool written = isWrittenLikePageNumber(number) || countAfter(number, line, pageCount());
            if (countsOn(number, page) || isLabel(number, page) || (written && isNumberOf(number, page))) {
                found = &number;
                if (written) {
                    break;
                }
            }
        }
        return found;
    }

    int pageCount() const { return static_cast<int>(m_lines.size()); }

    bool countsOn(const Number &number, std::size_t page) const
    {
        const std::set<std::size_t> &pages = m_pagesOf.at(sequenceOf(number, page));
        return std::any_of(pages.begin(), pages.end(), [page](std::size_t other) {
            const std::size_t distance = other > page ? other - page : page - other;
            return distance > 0 && distance <= thresholds.maxDistance;
        });
    }

    bool isLabel(const Number &number, std::size_t page) const
    {
        return readPageNumber(m_document.pages[page].label) == number.read;
    }

    /// A single page may come from anywhere.
    bool isNumberOf(const Number &number, std::size_t page) const
    {
        return number.read.format == NumberFormat::Decimal &&
               (m_lines.size() == 1 || number.read.value == m_document.pages[page].number);
    }

    Document &m_document;
    std::vector<std::vector<std::vector<Number>>> m_lines; ///< by page and line
    std::map<Sequence, std::set<std::size_t>> m_pagesOf;   ///< indices of pages
};

} // namespace

void findPageFields(Document &document)
{
    PageNumbers(document).mark();
}

} // namespace quorra::model
