// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/text.h"

#include "base/statistics.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace quorra::model {

namespace {

constexpr double usualSize = 10; // points; for paragraphs without text

// Adds what stands between two words to the text of the first one.
void append(QString &text, Separator separator)
{
    switch (separator) {
    case Separator::None:
        break;
    case Separator::Space:
        text += QLatin1Char(' ');
        break;
    case Separator::LineBreak:
        text += QLatin1Char('\n');
        break;
    case Separator::Tab:
        text += QLatin1Char('\t');
        break;
    case Separator::Hyphen:
        text.chop(1);
        break;
    }
}

// Calls use(word, separator before it) for the words of a paragraph that are its text.
template <typename Use>
void forEachWord(const Paragraph &paragraph, const Use &use)
{
    Separator before = Separator::None;
    bool isMark = paragraph.listItem.has_value();
    for (const Line &line : paragraph.lines) {
        for (const Word &word : line.words) {
            if (std::exchange(isMark, false) || word.leader) {
                continue;
            }
            use(word, before);
            before = word.separator;
        }
    }
}

class RunBuilder
{
public:
    void add(const Word &word)
    {
        const bool same = !m_runs.empty() && m_runs.back().shift == word.shift && m_runs.back().link == word.link &&
                          m_runs.back().note == word.note && m_runs.back().field == word.field &&
                          (m_style == &*word.style || m_runs.back().style == *word.style);
        m_style = &*word.style;
        if (same) {
            m_runs.back().text += word.text;
        } else {
            m_runs.push_back({word.text, *word.style, word.shift, word.link, word.note, word.field});
        }
    }

    // Separators belong to the run before them, so that a link or an underline does not begin with a space.
    void add(Separator separator)
    {
        if (!m_runs.empty()) {
            append(m_runs.back().text, separator);
        }
    }

    std::vector<Run> take() { return std::move(m_runs); }

private:
    std::vector<Run> m_runs;
    const Style *m_style = nullptr;
};

// A whole paragraph or document is not underlined, only parts of its text are.
Style withoutLines(Style style)
{
    style.underlined = false;
    style.struckThrough = false;
    return style;
}

// The mean width of a character; 0 if no word is long enough for an estimate.
double letterWidth(const Paragraph &paragraph)
{
    constexpr qsizetype minLength = 3; // characters of a word that is measured
    std::vector<double> widths;
    for (const Line &line : paragraph.lines) {
        for (const Word &word : line.words) {
            if (word.text.size() >= minLength) {
                widths.push_back(word.box.width() / static_cast<double>(word.text.size()));
            }
        }
    }
    return median(std::move(widths));
}

// The left edge of the lines from `first` on that are below one another. Preformatted text that continues in another
// column has another edge there.
double leftEdge(const std::vector<Line> &lines, std::size_t first)
{
    double left = lines[first].box.left;
    for (std::size_t i = first; i < lines.size() && (i == first || lines[i].baseline > lines[i - 1].baseline); ++i) {
        for (const Word &word : lines[i].words) {
            left = std::min(left, word.box.left);
        }
    }
    return left;
}

std::vector<Run> spacedLine(const Line &line, double left, double width)
{
    constexpr qsizetype maxSpaces = 200; // a wrong character width must not exhaust the memory
    std::vector<Run> runs;
    qsizetype column = 0;
    for (std::size_t i = 0; i < line.words.size(); ++i) {
        const Word &word = line.words[i];
        const bool joined = i > 0 && !line.words[i - 1].spaceAfter();
        const auto wanted = static_cast<qsizetype>(std::lround((word.box.left - left) / width));
        const qsizetype minSpaces = i == 0 || joined ? 0 : 1;
        const qsizetype spaces = joined ? 0 : std::clamp(wanted - column, minSpaces, maxSpaces);
        runs.push_back({QString(spaces, QLatin1Char(' ')) + word.text, *word.style, BaselineShift::None, word.link});
        column += spaces + word.text.size();
    }
    return runs;
}

} // namespace

std::vector<Run> runsOf(const Paragraph &paragraph)
{
    RunBuilder builder;
    forEachWord(paragraph, [&builder](const Word &word, Separator before) {
        builder.add(before);
        builder.add(word);
    });
    return builder.take();
}

std::vector<Run> runsOf(const Cell &cell)
{
    std::vector<Run> runs;
    for (const Paragraph &paragraph : cell.paragraphs) {
        const std::vector<Run> own = runsOf(paragraph);
        runs.insert(runs.end(), own.begin(), own.end());
    }
    return runs;
}

std::vector<Run> runsOf(const Line &line)
{
    RunBuilder builder;
    for (std::size_t i = 0; i < line.words.size(); ++i) {
        if (i > 0) {
            builder.add(line.words[i - 1].spaceAfter() ? Separator::Space : Separator::None);
        }
        builder.add(line.words[i]);
    }
    return builder.take();
}

QString plainText(const std::vector<Run> &runs)
{
    QString text;
    for (const Run &run : runs) {
        text += run.text;
    }
    return text;
}

QString plainText(const Paragraph &paragraph)
{
    QString text;
    forEachWord(paragraph, [&text](const Word &word, Separator before) {
        append(text, before);
        text += word.text;
    });
    return text;
}

QString plainText(const Line &line)
{
    QString text;
    for (std::size_t i = 0; i < line.words.size(); ++i) {
        const Word &word = line.words[i];
        if (word.leader) {
            continue;
        }
        text += word.text;
        if (i + 1 < line.words.size() && word.spaceAfter()) {
            text += QLatin1Char(word.separator == Separator::Tab ? '\t' : ' ');
        }
    }
    return text;
}

void StyleCount::add(const std::vector<Run> &runs)
{
    for (const Run &run : runs) {
        if (run.shift != BaselineShift::None) {
            continue;
        }
        const Style style = withoutLines(run.style);
        auto known = std::find_if(
            m_counts.begin(), m_counts.end(), [&style](const auto &count) { return count.second == style; });
        if (known == m_counts.end()) {
            known = m_counts.insert(known, {0, style});
        }
        // A table of contents has more dots than letters.
        known->first += std::count_if(run.text.begin(), run.text.end(), [](QChar c) { return c.isLetterOrNumber(); });
    }
}

Style StyleCount::dominant(const Style &fallback) const
{
    const auto most = std::max_element(
        m_counts.begin(), m_counts.end(), [](const auto &a, const auto &b) { return a.first < b.first; });
    return most == m_counts.end() ? fallback : most->second;
}

Style dominantStyle(const std::vector<Run> &runs)
{
    StyleCount count;
    count.add(runs);
    return count.dominant(runs.empty() ? Style{} : withoutLines(runs.front().style));
}

double largestSize(const Line &line)
{
    double largest = 0;
    for (const Word &word : line.words) {
        largest = std::max(largest, word.style->size);
    }
    return largest > 0 ? largest : usualSize;
}

double largestSize(const Paragraph &paragraph)
{
    double largest = 0;
    bool isMark = paragraph.listItem || paragraph.dropCapLines > 0;
    for (const Line &line : paragraph.lines) {
        for (const Word &word : line.words) {
            largest = std::exchange(isMark, false) ? largest : std::max(largest, word.style->size);
        }
    }
    return largest > 0 ? largest : usualSize;
}

double meanFontSize(const Paragraph &paragraph)
{
    double sum = 0;
    double letters = 0;
    for (const Line &line : paragraph.lines) {
        for (const Word &word : line.words) {
            sum += word.style->size * static_cast<double>(word.text.size());
            letters += static_cast<double>(word.text.size());
        }
    }
    return sum / std::max(1.0, letters);
}

std::vector<std::vector<Run>> preformattedLines(const Paragraph &paragraph)
{
    std::vector<std::vector<Run>> lines;
    const double width = paragraph.preformatted ? letterWidth(paragraph) : 0;
    if (width <= 0) {
        return lines;
    }
    double left = 0;
    for (std::size_t i = 0; i < paragraph.lines.size(); ++i) {
        if (i == 0 || paragraph.lines[i].baseline <= paragraph.lines[i - 1].baseline) {
            left = leftEdge(paragraph.lines, i);
        }
        lines.push_back(spacedLine(paragraph.lines[i], left, width));
    }
    return lines;
}

} // namespace quorra::model
