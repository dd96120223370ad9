// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/grid_columns.h"

#include "base/number.h"
#include "base/statistics.h"
#include "text_lines/list_mark.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace quorra::model {

namespace {

using gridColumns::thresholds;

double sizeAt(const TextLine &line, const RawWord &word)
{
    return std::min(line.size, word.style.size * textLines::thresholds.maxSizeRatio);
}

// Whether the gap before the word is one between a currency sign and its number, or between a bullet and its text.
bool followsSign(const RawWord &previous, const RawWord &word)
{
    return (isCurrencySign(previous) && looksNumeric(word.text)) ||
           (isBullet(previous.text) && !isDashBullet(previous.text) && !looksNumeric(word.text) &&
            !isBullet(word.text));
}

// A blank of a typewriter is as wide as a letter: it divides nothing.
double minWeakGapAfter(const RawWord &word)
{
    return word.style.fixedPitch ? thresholds.minCellGap : thresholds.minWeakGap;
}

bool hasDigit(const QString &text)
{
    return std::any_of(text.begin(), text.end(), [](QChar c) { return c.isDigit(); });
}

// Whether the text has a sign that amounts have and numbers of pages, years and counts have not.
bool hasSeparator(const QString &text)
{
    static const QString separators = QStringLiteral(".,%$€£¥+-\u2212\u2013");
    return std::any_of(text.begin(), text.end(), [](QChar c) { return separators.contains(c); });
}

// Whether the text can be the next three digits of a number, and its decimals.
bool isGroupOfDigits(const QString &text)
{
    constexpr qsizetype digits = 3;
    return text.size() >= digits &&
           std::all_of(text.begin(), text.begin() + digits, [](QChar c) { return c.isDigit(); }) &&
           (text.size() == digits || !text.at(digits).isDigit());
}

// Whether both words are numbers that cannot be parts of one: neither groups of digits nor a number with its share or
// error in parentheses.
bool isBetweenNumbers(const RawWord &previous, const RawWord &word)
{
    const QChar end = previous.text.back();
    const QChar begin = word.text.front();
    if ((!end.isDigit() && end != QLatin1Char('%') && end != QLatin1Char(')')) || begin.isLetter() ||
        begin == QLatin1Char('(')) {
        return false;
    }
    const bool amounts = hasDigit(word.text) && looksNumeric(previous.text) && looksNumeric(word.text) &&
                         (hasSeparator(previous.text) || hasSeparator(word.text));
    const bool whole = previous.text.contains(QLatin1Char(',')) || previous.text.contains(QLatin1Char('.'));
    return amounts && (whole || !isGroupOfDigits(word.text));
}

// Whether both words are such numbers with at least the gap of numbers between them. `size` is that of the later one.
bool areApart(const RawWord &previous, const RawWord &word, double size)
{
    return bodyOf(word).left - bodyOf(previous).right >= thresholds.minNumberGap * size &&
           isBetweenNumbers(previous, word);
}

// The left edges at which texts begin behind numbers in several lines, with a gap that is wider than the usual blank.
std::vector<double> startsBehindNumbers(const std::vector<TextLine> &lines)
{
    struct Start
    {
        double x;
        double gap;
        QString text;
    };
    std::vector<double> blanks;
    std::vector<Start> starts;
    for (const TextLine &line : lines) {
        for (std::size_t i = 1; i < line.words.size(); ++i) {
            const RawWord &previous = *line.words[i - 1];
            const RawWord &word = *line.words[i];
            const double gap = (bodyOf(word).left - bodyOf(previous).right) / sizeAt(line, word);
            if (gap < thresholds.minCellGap) {
                blanks.push_back(gap);
            }
            if (i > 1 && word.text.front().isLetter() && hasDigit(previous.text) && looksNumeric(previous.text)) {
                starts.push_back({bodyOf(word).left, gap, word.text});
            }
        }
    }
    if (blanks.empty()) {
        return {};
    }
    const double minGap = thresholds.minWiderBlank * median(std::move(blanks));
    std::sort(starts.begin(), starts.end(), [](const Start &a, const Start &b) { return a.x < b.x; });
    std::vector<double> result;
    for (auto from = starts.begin(); from != starts.end();) {
        const auto to = std::find_if(
            from, starts.end(), [from](const Start &start) { return start.x - from->x > thresholds.insideTolerance; });
        std::set<QString> texts;
        bool wide = true;
        std::for_each(from, to, [&](const Start &start) {
            texts.insert(start.text);
            wide = wide && start.gap >= minGap;
        });
        if (wide && static_cast<std::size_t>(to - from) >= thresholds.minStarts &&
            texts.size() >= thresholds.minStarts - 1) {
            result.push_back(from->x);
        }
        from = to;
    }
    return result;
}

/// Counts for each point across the table the lines that have a gap there, and those whose text runs across.
class StripVotes
{
public:
    /// `starts` are the left edges of texts that begin behind numbers.
    StripVotes(double left, double right, std::vector<double> starts)
        : m_left(left)
        , m_starts(std::move(starts))
        , m_votes(static_cast<std::size_t>(std::ceil((right - left) / thresholds.binWidth)) + 1)
        , m_wide(m_votes.size())
        , m_crossings(m_votes.size())
    {}

    std::size_t bins() const { return m_votes.size(); }
    double x(double bin) const { return m_left + bin * thresholds.binWidth; }

    void addLine(const TextLine &line, double weight)
    {
        double reached = bodyOf(*line.words.front()).left;
        const RawWord *previous = nullptr;
        for (const RawWord *word : line.words) {
            if (previous && followsSign(*previous, *word)) {
                reached = bodyOf(*word).left; // says nothing about columns
            }
            const Box body = bodyOf(*word);
            const double gap = (body.left - reached) / sizeAt(line, *word);
            const bool start = gap >= thresholds.minNumberGap && isStart(body.left);
            const bool numbers = previous && gap >= thresholds.minNumberGap && isBetweenNumbers(*previous, *word);
            const double strength = gap > thresholds.minCellGap || numbers || start ? 1
                                    : gap >= minWeakGapAfter(*word)                 ? thresholds.weakVote
                                                                                    : 0;
            previous = word;
            add(m_wide, reached, body.left, strength >= 1 ? weight : 0);
            add(strength > 0 ? m_votes : m_crossings, reached, body.left, strength > 0 ? strength * weight : weight);
            add(m_crossings, std::max(reached, body.left), body.right, weight);
            reached = std::max(reached, body.right);
        }
    }

    void addRule(double at)
    {
        for (std::vector<double> *counts : {&m_votes, &m_wide}) {
            add(*counts, at - thresholds.binWidth, at + thresholds.binWidth, thresholds.ruleVote);
        }
    }

    bool isOpen(std::size_t bin) const
    {
        const bool clear = m_votes[bin] >= thresholds.minClearVotes && m_crossings[bin] <= 0;
        return m_votes[bin] >= thresholds.minVotes && (m_wide[bin] >= thresholds.minWideVotes || clear) &&
               m_crossings[bin] <= thresholds.maxCrossing * m_votes[bin];
    }

    /// The middle of the widest part of [from, to) over which most lines agree on a gap.
    double best(std::size_t from, std::size_t to) const
    {
        double most = m_votes[from] - m_crossings[from];
        for (std::size_t i = from; i < to; ++i) {
            most = std::max(most, m_votes[i] - m_crossings[i]);
        }
        std::size_t begin = from;
        std::size_t length = 0;
        for (std::size_t i = from; i < to;) {
            std::size_t end = i;
            while (end < to && m_votes[end] - m_crossings[end] >= most) {
                ++end;
            }
            if (end - i > length) {
                begin = i;
                length = end - i;
            }
            i = std::max(end, i + 1);
        }
        return x(static_cast<double>(begin) + static_cast<double>(length) / 2);
    }

    std::size_t binOf(double at) const
    {
        const double bin = (at - m_left) / thresholds.binWidth;
        return static_cast<std::size_t>(std::clamp(bin, 0.0, static_cast<double>(bins() - 1)));
    }

private:
    bool isStart(double x) const
    {
        return std::any_of(m_starts.begin(), m_starts.end(), [x](double start) {
            return x >= start - thresholds.insideTolerance && x <= start + thresholds.insideTolerance;
        });
    }

    void add(std::vector<double> &counts, double from, double to, double weight)
    {
        if (to <= from) {
            return;
        }
        const auto first = static_cast<std::size_t>(std::max(0.0, std::ceil((from - m_left) / thresholds.binWidth)));
        const auto last = static_cast<std::size_t>(std::max(0.0, std::ceil((to - m_left) / thresholds.binWidth)));
        for (std::size_t i = first; i < std::min(last, counts.size()); ++i) {
            counts[i] += weight;
        }
    }

    double m_left;
    std::vector<double> m_starts;
    std::vector<double> m_votes;
    std::vector<double> m_wide; ///< the votes of wide gaps alone
    std::vector<double> m_crossings;
};

/// A line of text with its parts between wide gaps, two or more.
struct DividedLine
{
    const TextLine *line = nullptr;
    std::vector<Segment> segments;
    bool head = false;
};

bool isBody(const DividedLine &line)
{
    const auto numbers = std::count_if(line.segments.begin() + 1, line.segments.end(), [](const Segment &segment) {
        return looksNumeric(joinedText(segment.words));
    });
    return static_cast<double>(numbers) >= thresholds.minHeadNumbers * static_cast<double>(line.segments.size() - 1);
}

std::vector<DividedLine> dividedLines(const std::vector<TextLine> &lines)
{
    std::vector<DividedLine> divided;
    for (const TextLine &line : lines) {
        std::vector<Segment> segments = cellTexts(line);
        if (segments.size() > 1) {
            divided.push_back({&line, std::move(segments), true});
        }
    }
    const auto body = std::find_if(divided.begin(), divided.end(), isBody);
    const bool known = body != divided.end() && static_cast<double>(divided.end() - body) >= thresholds.minBodyLines;
    std::for_each(known ? body : divided.begin(), divided.end(), [](DividedLine &line) { line.head = false; });
    return divided;
}

struct Extent
{
    double left;
    double right;
};

// Texts that are alone inside a strip have a column of their own, unless it is a single heading, which may
// be over the columns on both sides.
std::vector<Extent> textsInside(const std::vector<DividedLine> &lines, double left, double right)
{
    std::vector<Extent> texts;
    std::size_t inBody = 0;
    for (const DividedLine &line : lines) {
        for (const Segment &segment : line.segments) {
            if (segment.box.left >= left - thresholds.insideTolerance &&
                segment.box.right <= right + thresholds.insideTolerance) {
                texts.push_back({segment.box.left, segment.box.right});
                inBody += line.head ? 0 : 1;
            }
        }
    }
    if (inBody == 0 && texts.size() < 2) {
        return {};
    }
    std::sort(texts.begin(), texts.end(), [](const Extent &a, const Extent &b) { return a.left < b.left; });
    std::vector<Extent> columns;
    for (const Extent &text : texts) {
        if (!columns.empty() && text.left < columns.back().right) {
            columns.back().right = std::max(columns.back().right, text.right);
        } else {
            columns.push_back(text);
        }
    }
    return columns;
}

void addStrip(
    std::vector<double> &edges, const StripVotes &votes, const std::vector<DividedLine> &lines, std::size_t from,
    std::size_t to)
{
    std::size_t begin = from;
    for (const Extent &text :
         textsInside(lines, votes.x(static_cast<double>(from)), votes.x(static_cast<double>(to)))) {
        const std::size_t end = std::clamp(votes.binOf(text.left), begin, to);
        if (end > begin) {
            edges.push_back(votes.best(begin, end));
        }
        begin = std::clamp(votes.binOf(text.right) + 1, begin, to);
    }
    if (to > begin) {
        edges.push_back(votes.best(begin, to));
    }
}

} // namespace

bool isCurrencySign(const RawWord &word)
{
    constexpr qsizetype maxLength = 3; // "US$"
    static const QString signs = QString::fromUtf8("$€£¥");
    return word.text.size() <= maxLength &&
           std::any_of(word.text.begin(), word.text.end(), [](QChar c) { return signs.contains(c); }) &&
           std::none_of(word.text.begin(), word.text.end(), [](QChar c) { return c.isDigit(); });
}

std::vector<Segment> cellTexts(const TextLine &line)
{
    std::vector<Segment> texts;
    Box reached; // around the words since the last wide gap
    for (const RawWord *word : line.words) {
        const Box body = bodyOf(*word);
        const double size = sizeAt(line, *word);
        const RawWord *previous = texts.empty() ? nullptr : texts.back().words.back();
        const bool wide = previous && body.left - reached.right > thresholds.minCellGap * size;
        const bool divided = wide || (previous && areApart(*previous, *word, size));
        if (!previous || (divided && !followsSign(*previous, *word))) {
            texts.emplace_back();
        }
        texts.back().words.push_back(word);
        texts.back().box = united(texts.back().box, body);
        reached = wide ? body : united(reached, body);
    }
    return texts;
}

std::vector<double> findColumnEdges(const std::vector<TextLine> &lines, const std::vector<Rule> &vertical)
{
    Box area;
    for (const TextLine &line : lines) {
        area = united(area, line.box);
    }
    StripVotes votes(area.left, area.right, startsBehindNumbers(lines));
    const std::vector<DividedLine> divided = dividedLines(lines);
    for (const DividedLine &line : divided) {
        votes.addLine(*line.line, line.head ? thresholds.headVote : 1);
    }
    std::vector<double> drawn;
    for (const Rule &rule : vertical) {
        if (rule.x1 <= area.left || rule.x1 >= area.right) {
            continue;
        }
        if (rule.width > 0 && rule.length() >= thresholds.minRuleHeight * area.height()) {
            drawn.push_back(rule.x1);
        } else {
            votes.addRule(rule.x1);
        }
    }
    std::vector<double> edges;
    const double minWidth = thresholds.minStrip * lines.front().size;
    for (std::size_t i = 0; i < votes.bins();) {
        std::size_t end = i;
        while (end < votes.bins() && votes.isOpen(end)) {
            ++end;
        }
        const double left = votes.x(static_cast<double>(i));
        const double right = votes.x(static_cast<double>(end));
        const bool hasLine = std::any_of(drawn.begin(), drawn.end(), [&](double x) {
            return x > left - thresholds.ruleReach && x < right + thresholds.ruleReach;
        });
        if (right - left >= minWidth && !hasLine) {
            addStrip(edges, votes, divided, i, end);
        }
        i = std::max(end, i + 1);
    }
    edges.insert(edges.end(), drawn.begin(), drawn.end());
    edges.push_back(area.left - thresholds.outerMargin);
    edges.push_back(area.right + thresholds.outerMargin);
    std::sort(edges.begin(), edges.end());
    return edges;
}

} // namespace quorra::model
