// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/preformatted.h"

#include "base/characters.h"
#include "base/statistics.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace quorra::model {

namespace {

// The width of a letter; 0 when no word is long enough to tell.
double letterWidth(const Paragraph &paragraph)
{
    constexpr qsizetype longWord = 3;
    std::vector<double> widths;
    for (const Line &line : paragraph.lines) {
        for (const Word &word : line.words) {
            if (word.text.size() >= longWord) {
                widths.push_back(word.box.width() / static_cast<double>(word.text.size()));
            }
        }
    }
    return median(std::move(widths));
}

// The left edge of the lines from the first one on that stand below one another: a listing that goes on in another
// column begins there anew.
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
    constexpr qsizetype mostBlanks = 200; // a width that is far off must not fill the memory
    std::vector<Run> runs;
    qsizetype column = 0;
    for (std::size_t i = 0; i < line.words.size(); ++i) {
        const Word &word = line.words[i];
        const bool joined = i > 0 && !line.words[i - 1].spaceAfter;
        const auto wanted = static_cast<qsizetype>(std::lround((word.box.left - left) / width));
        const qsizetype least = i == 0 || joined ? 0 : 1;
        const qsizetype blanks = joined ? 0 : std::clamp(wanted - column, least, mostBlanks);
        runs.push_back({QString(blanks, QLatin1Char(' ')) + word.text, word.style});
        column += blanks + word.text.size();
    }
    return runs;
}

} // namespace

bool isListing(const Paragraph &paragraph)
{
    const bool broken = std::any_of(paragraph.runs.begin(), paragraph.runs.end(), [](const Run &run) {
        return run.text.contains(QLatin1Char('\n'));
    });
    if (!broken || paragraph.rightToLeft || paragraph.rotation != 0 || !paragraph.listMark.isEmpty()) {
        return false;
    }
    int letters = 0;
    int fixed = 0;
    for (const Run &run : paragraph.runs) {
        const int count = letterCount(run.text);
        letters += count;
        fixed += run.style.fixedPitch ? count : 0;
    }
    return fixed > 0 && 10 * fixed > 8 * letters;
}

std::vector<std::vector<Run>> listingLines(const Paragraph &paragraph)
{
    std::vector<std::vector<Run>> lines;
    if (paragraph.lines.empty() || !isListing(paragraph)) {
        return lines;
    }
    const double width = letterWidth(paragraph);
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
