// SPDX-License-Identifier: GPL-3.0-or-later
#include "semantics/page_headers.h"

#include "base/statistics.h"
#include "semantics/page_number_words.h"

#include <QHash>
#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

namespace quorra::model {

namespace {

using pageHeaders::thresholds;

struct EdgeLine
{
    TextLine line;
    QString key;            ///< its text with every number replaced
    double gap = 0;         ///< em, from its baseline to that of the next line towards the page's middle
    bool outermost = false; ///< nothing is between it and the edge of the page
    double next = 0; ///< baseline of the next line towards the page's middle, the middle of the page if it is far off
};

QString keyOf(const TextLine &line)
{
    QString key;
    bool inNumber = false;
    for (const RawWord *word : line.words) {
        for (const QChar c : word->text) {
            if (c.isDigit()) {
                key += inNumber ? QString() : QStringLiteral("#");
            } else {
                key += c;
            }
            inNumber = c.isDigit();
        }
        inNumber = false;
        key += QLatin1Char(' ');
    }
    return key;
}

// The text may end far above the edge of the paper, so that its own extent counts.
std::pair<double, double> textExtent(const RawPage &page)
{
    double top = page.height;
    double bottom = 0;
    for (const RawWord &word : page.words) {
        if (word.rotation == 0) {
            top = std::min(top, word.box.centreY());
            bottom = std::max(bottom, word.box.centreY());
        }
    }
    return {top, bottom};
}

std::vector<EdgeLine> edgeLines(const RawPage &page)
{
    std::vector<EdgeLine> found;
    const auto [highest, lowest] = textExtent(page);
    const double reach = thresholds.zone * page.height;
    for (const bool top : {true, false}) {
        const auto inZone = [&, highest = highest, lowest = lowest](double y, double depth) {
            return top ? y < std::max(highest + depth / 2, depth)
                       : y > std::min(lowest - depth / 2, page.height - depth);
        };
        WordRefs words; // from further in than looked for, to see how far the next line is
        for (const RawWord &word : page.words) {
            if (word.rotation == 0 && inZone(word.box.centreY(), 2 * reach)) {
                words.push_back(&word);
            }
        }
        std::vector<TextLine> lines = textLinesOf(std::move(words));
        if (!top) {
            std::reverse(lines.begin(), lines.end());
        }
        for (std::size_t i = 0;
             i < std::min(lines.size(), thresholds.maxLines) && inZone(lines[i].box.centreY(), reach); ++i) {
            constexpr double farAway = std::numeric_limits<double>::max();
            const double gap = i + 1 < lines.size() ? std::abs(lines[i + 1].baseline - lines[i].baseline) /
                                                          std::max(lines[i].size, lines[i + 1].size)
                                                    : farAway;
            const RawWord *first = lines[i].words.front();
            if (std::any_of(found.begin(), found.end(), [first](const EdgeLine &edge) {
                    return edge.line.words.front() == first; // of a page of a few lines
                })) {
                continue;
            }
            const double next = i + 1 < lines.size() ? lines[i + 1].baseline : page.height / 2;
            found.push_back({lines[i], keyOf(lines[i]), gap, i == 0, next});
        }
    }
    return found;
}

// Whether the text ends like Arabic and Roman numbers, and those in dashes.
bool endsLikeNumber(const QString &text)
{
    static const QString others = QStringLiteral("ivxlIVXL-–—");
    return !text.isEmpty() && (text.back().isDigit() || others.contains(text.back()));
}

bool isPageNumber(const QString &text)
{
    if (!endsLikeNumber(text)) {
        return false; // most lines are spared the regular expression
    }
    static const QRegularExpression number(
        QStringLiteral("^(?:[-–—] ?|(?:%1) ?)?(?:\\d{1,4}|[ivxl]{1,6})(?: ?[-–—]| ?(?:%2) ?\\d{1,4})?$")
            .arg(pageNames, pageCountSeparators),
        pageNumberOptions);
    return number.match(text).hasMatch();
}

bool hasPageNumberAtEnd(const TextLine &line)
{
    const std::vector<Segment> parts = segmentsOf(line, thresholds.minPartGap);
    return parts.size() > 1 && (isPageNumber(joinedText(parts.front().words, QStringLiteral(" "))) ||
                                isPageNumber(joinedText(parts.back().words, QStringLiteral(" "))));
}

double usualSizeOf(const RawPage &page)
{
    std::vector<double> sizes;
    for (const RawWord &word : page.words) {
        if (word.rotation == 0) {
            sizes.push_back(word.style.size);
        }
    }
    return median(std::move(sizes));
}

double textWidthOf(const RawPage &page)
{
    Box text;
    for (const RawWord &word : page.words) {
        if (word.rotation == 0) {
            text = united(text, word.box);
        }
    }
    return text.width();
}

// Whether the line begins as a note does, with a short number or a sign.
bool beginsLikeNote(const TextLine &line)
{
    static const QRegularExpression mark(QStringLiteral("^(?:[*†‡§¶]|\\d{1,3}(?:\\D|$))"));
    return mark.match(line.words.front()->text).hasMatch();
}

// How many of the outermost lines [from, end) of one end of the page are headers by themselves, whatever is on
// other pages: all up to the first wide gap, or none.
std::size_t countHeadersByThemselves(const std::vector<EdgeLine> &edges, std::size_t from, const RawPage &page)
{
    const double margin = thresholds.zone * page.height;
    std::size_t end = from;
    bool isSmall = true;
    bool hasNumber = false;
    bool isNote = false;
    for (bool goesOn = true; goesOn; ++end) {
        if (end == edges.size() || (end > from && edges[end].outermost)) {
            return 0; // there is no gap
        }
        const TextLine &line = edges[end].line;
        const double y = line.box.centreY();
        if (y > margin && y < page.height - margin) {
            return 0;
        }
        isSmall = isSmall && line.size <= thresholds.maxSmallSize * usualSizeOf(page);
        hasNumber = hasNumber || hasPageNumberAtEnd(line);
        isNote = isNote || beginsLikeNote(line);
        goesOn = edges[end].gap < thresholds.minWideGap;
    }
    const EdgeLine &outer = edges[from];
    const EdgeLine &inner = edges[end - 1];
    if (end == from + 1 && isPageNumber(joinedText(outer.line.words, QStringLiteral(" ")))) {
        return 1;
    }
    const double minRule = thresholds.minRule * textWidthOf(page);
    const bool ruled = std::any_of(page.rules.begin(), page.rules.end(), [&](const Rule &rule) {
        return rule.isHorizontal() && rule.length() >= minRule && rule.y1 > std::min(inner.line.baseline, inner.next) &&
               rule.y1 < std::max(inner.line.baseline, inner.next);
    });
    const int evidence =
        (isSmall ? 1 : 0) + (ruled ? 1 : 0) + (hasNumber ? 1 : 0) + (inner.gap >= thresholds.minFarGap ? 1 : 0);
    return !isNote && evidence >= 2 ? end - from : 0;
}

// Stamps in the margin: words in another direction that are at the same place on other pages.
void addRotatedStamps(
    const std::vector<RawPage> &pages, std::size_t needed, std::vector<std::set<const RawWord *>> &headers)
{
    const auto keyOfWord = [](const RawWord &word) {
        return QStringLiteral("%1 %2 %3")
            .arg(
                word.text, QString::number(std::lround(word.box.left / thresholds.stampGrid)),
                QString::number(std::lround(word.box.top / thresholds.stampGrid)));
    };
    QHash<QString, std::size_t> count;
    for (const RawPage &page : pages) {
        for (const RawWord &word : page.words) {
            if (word.rotation != 0) {
                ++count[keyOfWord(word)];
            }
        }
    }
    for (std::size_t i = 0; i < pages.size() && !count.isEmpty(); ++i) {
        for (const RawWord &word : pages[i].words) {
            if (word.rotation != 0 && count.value(keyOfWord(word)) >= needed) {
                headers[i].insert(&word);
            }
        }
    }
}

bool isSameLook(const EdgeLine &a, const EdgeLine &b)
{
    const auto style = [](const EdgeLine &edge) -> const Style & { return edge.line.words.front()->style; };
    return std::abs(a.line.baseline - b.line.baseline) <= thresholds.exactHeight && style(a) == style(b);
}

// Adds outermost lines that look like the headers of other pages and stand at the same place: the running titles of
// chapters differ, and a chapter may have a single page.
void addOthersOfSameLook(
    const std::vector<std::vector<EdgeLine>> &lines, std::vector<std::set<const RawWord *>> &headers)
{
    std::vector<EdgeLine> known;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        std::copy_if(lines[i].begin(), lines[i].end(), std::back_inserter(known), [&](const EdgeLine &edge) {
            return edge.outermost && headers[i].count(edge.line.words.front()) > 0;
        });
    }
    for (std::size_t i = 0; i < lines.size(); ++i) {
        for (const EdgeLine &edge : lines[i]) {
            const auto alike = std::count_if(
                known.begin(), known.end(), [&edge](const EdgeLine &other) { return isSameLook(edge, other); });
            if (edge.outermost && edge.gap > thresholds.minGap &&
                static_cast<std::size_t>(alike) >= thresholds.minExactPages) {
                headers[i].insert(edge.line.words.begin(), edge.line.words.end());
            }
        }
    }
}

} // namespace

std::vector<std::set<const RawWord *>> findPageHeaders(const std::vector<RawPage> &pages)
{
    std::vector<std::set<const RawWord *>> headers(pages.size());
    std::vector<std::vector<EdgeLine>> lines;
    QHash<QString, QList<double>> places; // the vertical positions of each text
    for (const RawPage &page : pages) {
        lines.push_back(edgeLines(page));
        for (const EdgeLine &line : lines.back()) {
            places[line.key].append(line.line.baseline);
        }
    }
    const std::size_t needed = std::max(thresholds.minPages, pages.size() / thresholds.pagesPerHeader);
    const std::size_t neededExactly = std::max(thresholds.minExactPages, pages.size() / thresholds.pagesPerHeader);
    addRotatedStamps(pages, needed, headers);
    for (std::size_t i = 0; i < pages.size(); ++i) {
        // From the text outwards: a line that the text follows at its usual distance is part of it, such as a table's
        // header row that is repeated on each page.
        bool apart = false;
        for (auto line = lines[i].rbegin(); line != lines[i].rend(); ++line) {
            const QList<double> &heights = places[line->key];
            const auto countWithin = [&heights, line](double distance) {
                return static_cast<std::size_t>(std::count_if(heights.begin(), heights.end(), [=](double y) {
                    return std::abs(y - line->line.baseline) <= distance;
                }));
            };
            const bool isNumber = line->key == QLatin1String("# ");
            apart = apart || line->gap > thresholds.minGap;
            const bool repeated = countWithin(thresholds.sameHeight) >= needed ||
                                  (line->outermost && line->gap >= thresholds.minWideGap &&
                                   countWithin(thresholds.exactHeight) >= neededExactly);
            if (repeated && (apart || isNumber)) {
                headers[i].insert(line->line.words.begin(), line->line.words.end());
            }
            apart = apart && !line->outermost; // the other end of the page begins anew
        }
        for (std::size_t k = 0; k < lines[i].size(); ++k) {
            const std::size_t count = lines[i][k].outermost ? countHeadersByThemselves(lines[i], k, pages[i]) : 0;
            for (std::size_t header = k; header < k + count; ++header) {
                headers[i].insert(lines[i][header].line.words.begin(), lines[i][header].line.words.end());
            }
        }
    }
    addOthersOfSameLook(lines, headers);
    return headers;
}

void separateFooter(Page &page)
{
    const auto lower = std::stable_partition(page.header.begin(), page.header.end(), [&page](const Paragraph &each) {
        return each.box.centreY() < page.height / 2;
    });
    page.footer.insert(page.footer.end(), std::make_move_iterator(lower), std::make_move_iterator(page.header.end()));
    page.header.erase(lower, page.header.end());
}

} // namespace quorra::model
