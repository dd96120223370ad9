// SPDX-License-Identifier: GPL-3.0-or-later
#include "semantics/page_headers.h"

#include <QHash>

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
    bool outermost = false; ///< nothing stands between it and the edge of the page
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
    const auto [first, last] = textExtent(page);
    const double reach = thresholds.zone * page.height;
    for (const bool top : {true, false}) {
        const auto inZone = [&, first = first, last = last](double y, double depth) {
            return top ? y < std::max(first + depth / 2, depth) : y > std::min(last - depth / 2, page.height - depth);
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
            found.push_back({lines[i], keyOf(lines[i]), gap, i == 0});
        }
    }
    return found;
}

// Stamps in the margin: words in another direction that stand at the same place on other pages.
void addRotatedStamps(
    const std::vector<RawPage> &pages, std::size_t needed, std::vector<std::set<const RawWord *>> &heads)
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
                heads[i].insert(&word);
            }
        }
    }
}

} // namespace

std::vector<std::set<const RawWord *>> findPageHeaders(const std::vector<RawPage> &pages)
{
    std::vector<std::set<const RawWord *>> heads(pages.size());
    if (pages.size() < thresholds.minPages) {
        return heads;
    }
    std::vector<std::vector<EdgeLine>> lines;
    QHash<QString, QList<double>> places; // the heights at which each text stands
    for (const RawPage &page : pages) {
        lines.push_back(edgeLines(page));
        for (const EdgeLine &line : lines.back()) {
            places[line.key].append(line.line.baseline);
        }
    }
    const std::size_t needed = std::max(thresholds.minPages, pages.size() / thresholds.pagesPerHeader);
    addRotatedStamps(pages, needed, heads);
    for (std::size_t i = 0; i < pages.size(); ++i) {
        // From the text outwards: a line that the text follows at its usual distance is part of it, such as a table's
        // header row that is repeated on each page.
        bool apart = false;
        for (auto line = lines[i].rbegin(); line != lines[i].rend(); ++line) {
            const QList<double> &heights = places[line->key];
            const auto alike = std::count_if(heights.begin(), heights.end(), [line](double y) {
                return std::abs(y - line->line.baseline) <= thresholds.sameHeight;
            });
            const bool repeated = static_cast<std::size_t>(alike) >= needed;
            const bool isNumber = line->key == QLatin1String("# ");
            apart = apart || line->gap > thresholds.minGap;
            if (repeated && (apart || isNumber)) {
                heads[i].insert(line->line.words.begin(), line->line.words.end());
            }
            apart = apart && !line->outermost; // the other end of the page begins anew
        }
    }
    return heads;
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
