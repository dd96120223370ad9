// SPDX-License-Identifier: GPL-3.0-or-later
#include "semantics/page_headers.h"

#include <QHash>

#include <algorithm>
#include <cmath>

namespace quorra::model {

namespace {

constexpr double edgeShare = 0.13;       // of the page's height: where heads and feet are looked for
constexpr std::size_t outermostRows = 3; // at each end
constexpr std::size_t fewestPages = 3;

struct EdgeRow
{
    TextLine row;
    QString key;            ///< its text with every number replaced
    double gap = 0;         ///< font sizes from its baseline to that of the next row towards the page's middle
    bool outermost = false; ///< nothing stands between it and the edge of the page
};

QString keyOf(const TextLine &row)
{
    QString key;
    bool inNumber = false;
    for (const RawWord *word : row.words) {
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

std::vector<EdgeRow> edgeRows(const RawPage &page)
{
    std::vector<EdgeRow> found;
    const auto [first, last] = textExtent(page);
    const double reach = edgeShare * page.height;
    for (const bool top : {true, false}) {
        const auto inZone = [&, first = first, last = last](double y, double depth) {
            return top ? y < std::max(first + depth / 2, depth) : y > std::min(last - depth / 2, page.height - depth);
        };
        WordRefs words; // from further in than looked for, to see how far the next row is
        for (const RawWord &word : page.words) {
            if (word.rotation == 0 && inZone(word.box.centreY(), 2 * reach)) {
                words.push_back(&word);
            }
        }
        std::vector<TextLine> rows = textLinesOf(std::move(words));
        if (!top) {
            std::reverse(rows.begin(), rows.end());
        }
        for (std::size_t i = 0; i < std::min(rows.size(), outermostRows) && inZone(rows[i].box.centreY(), reach); ++i) {
            constexpr double farAway = 99;
            const double gap = i + 1 < rows.size() ? std::abs(rows[i + 1].baseline - rows[i].baseline) /
                                                         std::max(rows[i].size, rows[i + 1].size)
                                                   : farAway;
            found.push_back({rows[i], keyOf(rows[i]), gap, i == 0});
        }
    }
    return found;
}

// Stamps in the margin: words in another direction that stand at the same place on other pages.
void addTurnedStamps(
    const std::vector<RawPage> &pages, std::size_t needed, std::vector<std::set<const RawWord *>> &heads)
{
    const auto keyOfWord = [](const RawWord &word) {
        return QStringLiteral("%1 %2 %3")
            .arg(
                word.text, QString::number(std::lround(word.box.left / 4)),
                QString::number(std::lround(word.box.top / 4)));
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

std::vector<std::set<const RawWord *>> findRunningHeads(const std::vector<RawPage> &pages)
{
    std::vector<std::set<const RawWord *>> heads(pages.size());
    if (pages.size() < fewestPages) {
        return heads;
    }
    std::vector<std::vector<EdgeRow>> rows;
    QHash<QString, QList<double>> places; // the heights at which each text stands
    for (const RawPage &page : pages) {
        rows.push_back(edgeRows(page));
        for (const EdgeRow &row : rows.back()) {
            places[row.key].append(row.row.baseline);
        }
    }
    constexpr double sameHeight = 6; // points
    const std::size_t needed = std::max(fewestPages, pages.size() / 12);
    addTurnedStamps(pages, needed, heads);
    for (std::size_t i = 0; i < pages.size(); ++i) {
        // From the text outwards: a line that the text follows at its usual distance is part of it, such as the head
        // of a table that comes back on each page.
        bool apart = false;
        for (auto row = rows[i].rbegin(); row != rows[i].rend(); ++row) {
            const QList<double> &heights = places[row->key];
            const auto alike = std::count_if(heights.begin(), heights.end(), [row](double y) {
                return std::abs(y - row->row.baseline) <= sameHeight;
            });
            constexpr double usualGap = 1.5;
            const bool repeated = static_cast<std::size_t>(alike) >= needed;
            const bool isNumber = row->key == QLatin1String("# ");
            apart = apart || row->gap > usualGap;
            if (repeated && (apart || isNumber)) {
                heads[i].insert(row->row.words.begin(), row->row.words.end());
            }
            apart = apart && !row->outermost; // the other end of the page begins anew
        }
    }
    return heads;
}

} // namespace quorra::model
