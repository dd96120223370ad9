// SPDX-License-Identifier: GPL-3.0-or-later
#include "semantics/page_fields.h"

#include "document/page_number.h"
#include "semantics/cut_word.h"
#include "semantics/page_number_words.h"

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

/// A number in a line of a page header or footer.
struct Number
{
    std::size_t word = 0;
    qsizetype start = 0; ///< in the word
    qsizetype length = 0;
    qsizetype offset = 0; ///< in the text of the line
    PageNumber read;
};

/// A line that has numbers.
struct NumberedLine
{
    Line *line = nullptr;
    bool inHeader = false;
    QString text; ///< with a space between two words
    std::vector<Number> numbers;
};

/// The text of the line with its numbers: Roman numerals that are whole words, and digits anywhere.
NumberedLine readNumbers(Line &line, bool inHeader)
{
    static const QRegularExpression digits(QStringLiteral("[0-9]+"));
    NumberedLine read{&line, inHeader, {}, {}};
    for (std::size_t word = 0; word < line.words.size(); ++word) {
        const QString &text = line.words[word].text;
        const qsizetype offset = read.text.size();
        read.text += text + QLatin1Char(' ');
        if (const std::optional<PageNumber> whole = readPageNumber(text)) {
            read.numbers.push_back({word, 0, text.size(), offset, *whole});
            continue;
        }
        QRegularExpressionMatchIterator matches = digits.globalMatch(text);
        while (matches.hasNext()) {
            const QRegularExpressionMatch match = matches.next();
            if (const std::optional<PageNumber> part = readPageNumber(match.captured())) {
                const qsizetype start = match.capturedStart();
                read.numbers.push_back({word, start, match.capturedLength(), offset + start, *part});
            }
        }
    }
    return read;
}

/// The lines of the page's header and footer that have numbers.
std::vector<NumberedLine> numberedLines(Page &page)
{
    std::vector<NumberedLine> lines;
    for (auto *edge : {&page.header, &page.footer}) {
        for (Paragraph &paragraph : *edge) {
            for (Line &line : paragraph.lines) {
                NumberedLine read = readNumbers(line, edge == &page.header);
                if (!read.numbers.empty()) {
                    lines.push_back(std::move(read));
                }
            }
        }
    }
    return lines;
}

/// Whether the text before and after a number is that of a page number, wherever it stands.
bool isWrittenLikePageNumber(const NumberedLine &line, const Number &number)
{
    static const QRegularExpression named(QStringLiteral("(?:^|\\W)(?:%1)[\\s:]*$").arg(pageNames), pageNumberOptions);
    static const QRegularExpression alone(QStringLiteral("^[\\s\\-–—|]*$"));
    const qsizetype before = std::min(number.offset, thresholds.maxNameLength);
    return named.match(line.text.mid(number.offset - before, before)).hasMatch() ||
           (line.numbers.size() == 1 &&
            alone.match(QString(line.text).remove(number.offset, number.length)).hasMatch());
}

/// The number after a page number that tells how many pages there are. A word between the two may read as a Roman
/// numeral.
const Number *countAfter(const NumberedLine &line, std::size_t index, int pages)
{
    static const QRegularExpression between(
        QStringLiteral("^\\s*(?:%1)\\s*$").arg(pageCountSeparators), pageNumberOptions);
    const PageNumber count{pages, NumberFormat::Decimal};
    const qsizetype after = line.numbers[index].offset + line.numbers[index].length;
    for (std::size_t i = index + 1; i < std::min(index + 3, line.numbers.size()); ++i) {
        const Number &next = line.numbers[i];
        if (next.read == count && between.match(line.text.mid(after, next.offset - after)).hasMatch()) {
            return &next;
        }
    }
    return nullptr;
}

void mark(Line &line, const Number &number, PageField field)
{
    const qsizetype rest = line.words[number.word].text.size() - number.start - number.length;
    cutWordEnd(line, number.word, rest);
    line.words[cutWordEnd(line, number.word, number.length)].field = field;
}

/// Numbers with the same difference to the index of their page, in the same place and format, run with the pages.
using Sequence = std::tuple<bool, NumberFormat, int>;

Sequence sequenceOf(const NumberedLine &line, const Number &number, std::size_t page)
{
    return {line.inHeader, number.read.format, number.read.value - static_cast<int>(page)};
}

/// Decides which numbers are those of pages.
class PageNumbers
{
public:
    explicit PageNumbers(Document &document) : m_document(document)
    {
        for (Page &page : document.pages) {
            m_lines.push_back(numberedLines(page));
            for (const NumberedLine &line : m_lines.back()) {
                for (const Number &number : line.numbers) {
                    m_pagesOf[sequenceOf(line, number, m_lines.size() - 1)].insert(m_lines.size() - 1);
                }
            }
        }
    }

    void mark()
    {
        for (std::size_t page = 0; page < m_lines.size(); ++page) {
            for (const NumberedLine &line : m_lines[page]) {
                const std::optional<std::size_t> number = numberOf(line, page);
                if (!number) {
                    continue;
                }
                if (const Number *count = countAfter(line, *number, pageCount())) {
                    model::mark(*line.line, *count, PageField::Count); // the later one first: places before it stay
                }
                model::mark(*line.line, line.numbers[*number], PageField::Number);
            }
        }
    }

private:
    /// The index of the page number in the line: one that is written like it, otherwise the last.
    std::optional<std::size_t> numberOf(const NumberedLine &line, std::size_t page) const
    {
        std::optional<std::size_t> found;
        for (std::size_t i = 0; i < line.numbers.size(); ++i) {
            const Number &number = line.numbers[i];
            const bool certain = countsOn(line, number, page) || isLabel(number, page);
            if (!certain && !isNumberOf(number, page)) {
                continue;
            }
            const bool written = isWrittenLikePageNumber(line, number) || countAfter(line, i, pageCount());
            if (certain || written) {
                found = i;
            }
            if (written) {
                break;
            }
        }
        return found;
    }

    int pageCount() const { return static_cast<int>(m_lines.size()); }

    bool countsOn(const NumberedLine &line, const Number &number, std::size_t page) const
    {
        const std::set<std::size_t> &pages = m_pagesOf.at(sequenceOf(line, number, page));
        const auto first = pages.lower_bound(page - std::min(page, thresholds.maxDistance));
        const auto end = pages.upper_bound(page + thresholds.maxDistance);
        return std::any_of(first, end, [page](std::size_t other) { return other != page; });
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
    std::vector<std::vector<NumberedLine>> m_lines;      ///< by page
    std::map<Sequence, std::set<std::size_t>> m_pagesOf; ///< indices of pages
};

} // namespace

void findPageFields(Document &document)
{
    PageNumbers(document).mark();
}

} // namespace quorra::model
