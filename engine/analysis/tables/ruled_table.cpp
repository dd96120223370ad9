// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/ruled_table.h"

#include "tables/lattice.h"

#include <algorithm>
#include <numeric>

namespace quorra::model {

namespace {

using ruledTables::thresholds;

/// Groups of rules that touch one another.
class Groups
{
public:
    explicit Groups(std::size_t count) : m_parent(count) { std::iota(m_parent.begin(), m_parent.end(), 0U); }

    std::size_t find(std::size_t i)
    {
        while (m_parent[i] != i) {
            m_parent[i] = m_parent[m_parent[i]];
            i = m_parent[i];
        }
        return i;
    }
    void join(std::size_t a, std::size_t b) { m_parent[find(a)] = find(b); }

private:
    std::vector<std::size_t> m_parent;
};

bool meet(const Rule &horizontal, const Rule &vertical)
{
    return vertical.x1 >= horizontal.x1 - thresholds.maxJointGap &&
           vertical.x1 <= horizontal.x2 + thresholds.maxJointGap &&
           horizontal.y1 >= vertical.y1 - thresholds.maxJointGap &&
           horizontal.y1 <= vertical.y2 + thresholds.maxJointGap;
}

std::vector<Rulings> connectedRulings(const Rulings &all)
{
    const std::size_t h = all.horizontal.size();
    const std::size_t v = all.vertical.size();
    if (h > thresholds.maxRules || v > thresholds.maxRules) {
        return {};
    }
    Groups groups(h + v);
    for (std::size_t i = 0; i < h; ++i) {
        for (std::size_t j = 0; j < v; ++j) {
            if (meet(all.horizontal[i], all.vertical[j])) {
                groups.join(i, h + j);
            }
        }
    }
    std::vector<Rulings> byRoot(h + v);
    for (std::size_t i = 0; i < h; ++i) {
        byRoot[groups.find(i)].horizontal.push_back(all.horizontal[i]);
    }
    for (std::size_t j = 0; j < v; ++j) {
        byRoot[groups.find(h + j)].vertical.push_back(all.vertical[j]);
    }
    byRoot.erase(
        std::remove_if(
            byRoot.begin(), byRoot.end(),
            [](const Rulings &r) { return r.horizontal.size() < thresholds.minRulesAcross || r.vertical.empty(); }),
        byRoot.end());
    return byRoot;
}

void placeWords(TableWords &found, const WordRefs &words)
{
    found.words.resize(found.table.cells.size());
    for (const RawWord *word : words) {
        const Box body = bodyOf(*word);
        if (!found.table.box.contains(body.centreX(), body.centreY())) {
            continue;
        }
        for (std::size_t i = 0; i < found.table.cells.size(); ++i) {
            if (found.table.cells[i].box.contains(body.centreX(), body.centreY())) {
                found.words[i].push_back(word);
                break;
            }
        }
    }
}

// Whether most of several text lines have wide gaps: the words are a table without lines, or a form.
bool holdsColumns(const WordRefs &words)
{
    const std::vector<TextLine> lines = textLinesOf(words);
    const auto divided = std::count_if(lines.begin(), lines.end(), [](const TextLine &line) {
        return segmentsOf(line, thresholds.minFrameGap).size() > 1;
    });
    return lines.size() > 1 && 2 * static_cast<std::size_t>(divided) > lines.size();
}

// Whether the grid is a frame around tables without lines, with a line or two between them.
bool isFrame(const TableWords &found)
{
    return found.table.rows() == 1 && std::any_of(found.words.begin(), found.words.end(), holdsColumns);
}

bool isTable(const TableWords &found, double innerLines)
{
    const auto filled = std::count_if(found.words.begin(), found.words.end(), [](const auto &w) { return !w.empty(); });
    const auto cells = static_cast<double>(found.table.cells.size());
    return cells >= 2 && filled >= 2 && static_cast<double>(filled) >= thresholds.minFilledCells * cells &&
           innerLines >= thresholds.minInnerLines;
}

} // namespace

std::vector<TableWords> findRuledTables(const Rulings &rulings, const WordRefs &words)
{
    std::vector<TableWords> tables;
    for (const Rulings &group : connectedRulings(rulings)) {
        const Lattice lattice(group);
        if (lattice.rows() < 1 || lattice.columns() < 1 || lattice.rows() * lattice.columns() < 2) {
            continue;
        }
        TableWords found;
        found.table = lattice.table();
        placeWords(found, words);
        if (isTable(found, lattice.innerLineShare()) && !isFrame(found)) {
            splitAlignedLines(found);
            tables.push_back(std::move(found));
        }
    }
    // A grid in a cell of another grid is part of that cell's text.
    const auto isInside = [&tables](const TableWords &inner) {
        return std::any_of(tables.begin(), tables.end(), [&inner](const TableWords &outer) {
            const Box common = intersected(inner.table.box, outer.table.box);
            return &inner != &outer &&
                   outer.table.box.width() * outer.table.box.height() >
                       inner.table.box.width() * inner.table.box.height() &&
                   common.width() * common.height() >
                       thresholds.minInside * inner.table.box.width() * inner.table.box.height();
        });
    };
    std::vector<TableWords> outermost;
    for (const TableWords &table : tables) {
        if (!isInside(table)) {
            outermost.push_back(table);
        }
    }
    return outermost;
}

} // namespace quorra::model
