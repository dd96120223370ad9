// SPDX-License-Identifier: GPL-3.0-or-later
#include "semantics/lists.h"

#include "document/list_number.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

namespace quorra::model {

namespace {

using lists::thresholds;

/// How far a mark stands from the edge at which the lines of the box begin.
double startOf(const Paragraph &paragraph, const Box &box)
{
    const Box &line = paragraph.lines.front().box;
    return paragraph.rightToLeft ? box.right - line.right : line.left - box.left;
}

/// Goes through the paragraphs of a document in reading order.
class ListLevels
{
public:
    /// Sets the level of a list item. `box` is what its indent is measured from.
    void add(Paragraph &paragraph, const Box &box)
    {
        const double start = startOf(paragraph, box);
        if (paragraph.listItem) {
            addItem(*paragraph.listItem, start);
        } else if (m_running && start < m_lists.back().back().start + thresholds.levelIndent) {
            interrupt();
        }
    }

    /// Something else than indented text follows: items after it begin another list, unless they count on.
    void interrupt() { m_running = false; }

private:
    /// The last item of a level that can still go on.
    struct Level
    {
        double start = 0;
        QString mark;
        std::optional<ListNumber> number;
    };

    /// The open levels of a list, from the outermost; at least one.
    using List = std::vector<Level>;

    /// A level of a list, and the number that an item has there.
    struct Place
    {
        std::size_t list = 0;
        std::size_t level = 0;
        ListNumber number;
    };

    void addItem(ListItem &item, double start)
    {
        const std::vector<ListNumber> numbers = item.ordered ? possibleNumbers(item.mark) : std::vector<ListNumber>();
        std::optional<ListNumber> number = numbers.empty() ? std::nullopt : std::optional(numbers.front());
        if (const std::optional<Place> place = countingOn(item, start, numbers)) {
            number = place->number;
            resume(place->list, place->level);
        } else {
            const std::size_t level = levelFor(item, start, number);
            m_lists.back().resize(level + 1, {start, item.mark, number});
        }
        m_lists.back().back() = {start, item.mark, number};
        item.level = static_cast<int>(m_lists.back().size()) - 1;
        m_running = true;
    }

    /// Where the item counts on, in the list that is running or in one that was interrupted.
    std::optional<Place> countingOn(const ListItem &item, double start, const std::vector<ListNumber> &numbers) const
    {
        for (std::size_t list = m_lists.size(); list-- > 0;) {
            for (std::size_t level = m_lists[list].size(); level-- > 0;) {
                const Level &last = m_lists[list][level];
                const bool placed = item.fromTags ? static_cast<int>(level) == item.level
                                                  : std::abs(start - last.start) <= thresholds.levelIndent;
                const auto next = std::find_if(numbers.begin(), numbers.end(), [&last](const ListNumber &number) {
                    return last.number && continuesNumbers(*last.number, number);
                });
                if (placed && next != numbers.end()) {
                    return Place{list, level, *next};
                }
            }
        }
        return std::nullopt;
    }

    /// Makes the list the running one, and the level its innermost.
    void resume(std::size_t list, std::size_t level)
    {
        const auto at = m_lists.begin() + static_cast<std::ptrdiff_t>(list);
        std::rotate(at, at + 1, m_lists.end());
        m_lists.back().resize(level + 1);
    }

    /// The level of an item that does not count on. Begins a list if there is none for it.
    std::size_t levelFor(const ListItem &item, double start, const std::optional<ListNumber> &number)
    {
        const auto taggedLevel = static_cast<std::size_t>(std::max(0, item.level));
        if (const std::optional<std::size_t> outer = item.fromTags ? std::nullopt : outerLevel(number)) {
            return *outer + 1;
        }
        if (!m_running) {
            beginList();
            return item.fromTags ? taggedLevel : 0;
        }
        const List &levels = m_lists.back();
        if (item.fromTags) {
            return taggedLevel;
        }
        std::size_t level = levels.size();
        while (level > 0 && start < levels[level - 1].start - thresholds.levelIndent) {
            --level;
        }
        const bool deeper = level == 0 || start > levels[level - 1].start + thresholds.levelIndent;
        return deeper || isInside(number, levels[level - 1]) ? level : level - 1;
    }

    /// The level whose last number the number begins with ("2." of "2.1"). Resumes its list.
    std::optional<std::size_t> outerLevel(const std::optional<ListNumber> &number)
    {
        for (std::size_t list = m_lists.size(); number && list-- > 0;) {
            for (std::size_t level = m_lists[list].size(); level-- > 0;) {
                const Level &outer = m_lists[list][level];
                if (outer.number && number->before == outer.mark.chopped(outer.number->after.size()) + u'.') {
                    resume(list, level);
                    return level;
                }
            }
        }
        return std::nullopt;
    }

    /// Whether an item at the same place as the last one is an inner one: bullets below a number, or the first number
    /// of another kind.
    static bool isInside(const std::optional<ListNumber> &number, const Level &last)
    {
        return last.number && (!number || (number->value == 1 && !looksLike(*number, *last.number)));
    }

    void beginList()
    {
        if (m_lists.size() == thresholds.maxInterrupted) {
            m_lists.erase(m_lists.begin());
        }
        m_lists.emplace_back();
    }

    std::vector<List> m_lists; ///< the last one is running, or was the last to be interrupted
    bool m_running = false;
};

/// The box that indents in a block are measured from. The edges of a single column are those of its text, which differ
/// from page to page: it is measured from the edge of the page.
Box measuringBox(const Page &page, const Section &section, const Block &block)
{
    const auto column = static_cast<std::size_t>(std::max(0, block.column));
    return section.columns.size() > 1 && column < section.columns.size() ? section.columns[column]
                                                                         : Box{0, 0, page.width, page.height};
}

} // namespace

void assignListLevels(Document &document)
{
    ListLevels levels;
    for (Page &page : document.pages) {
        for (Section &section : page.sections) {
            for (Block &block : section.blocks) {
                if (Paragraph *paragraph = block.paragraph()) {
                    levels.add(*paragraph, measuringBox(page, section, block));
                    continue;
                }
                levels.interrupt();
                if (Table *table = block.table()) {
                    for (Cell &cell : table->cells) {
                        for (Paragraph &paragraph : cell.paragraphs) {
                            levels.add(paragraph, cell.box);
                        }
                        levels.interrupt();
                    }
                }
            }
        }
    }
}

} // namespace quorra::model
