// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/list_plan.h"

#include "document/page_walk.h"

#include <algorithm>
#include <utility>

namespace quorra::model {

namespace {

struct Thresholds
{
    std::size_t openLists = 8; ///< lists that an item after other text can continue, the latest ones
};
constexpr Thresholds thresholds;

/// An item of a list with everything that finding its list requires.
struct Item
{
    const Paragraph *paragraph = nullptr;
    int level = 0;
    std::vector<ListNumber> numbers; ///< possible ones; none for a bullet
    bool followsItem = false;        ///< no other text is between it and the item before
};

bool canBeItem(const Paragraph &paragraph)
{
    return paragraph.listItem && paragraph.headingLevel == 0 && !paragraph.note;
}

std::vector<Item> itemsOf(const Document &document)
{
    std::vector<Item> items;
    bool adjacent = false;
    const auto add = [&](const Paragraph &paragraph) {
        if (!canBeItem(paragraph)) {
            adjacent = false;
            return;
        }
        const ListItem &item = *paragraph.listItem;
        std::vector<ListNumber> numbers = item.ordered ? possibleNumbers(item.mark) : std::vector<ListNumber>{};
        if (numbers.empty() && !isBullet(item)) {
            return; // its mark remains text
        }
        const int level = std::clamp(item.level, 0, maxListLevels - 1);
        items.push_back({&paragraph, level, std::move(numbers), adjacent});
        adjacent = true;
    };
    for (const Page &page : document.pages) {
        forEachBlock(page, [&](const Block &block) {
            if (block.paragraph()) {
                add(*block.paragraph());
                return;
            }
            adjacent = false;
            if (!block.table()) {
                return;
            }
            for (const Cell &cell : block.table()->cells) {
                adjacent = false;
                std::for_each(cell.paragraphs.begin(), cell.paragraphs.end(), add);
            }
            adjacent = false;
        });
    }
    return items;
}

/// Chooses the meaning of an item's mark that begins a list: the one that the next item of its level continues, or
/// the one that begins at 1.
ListNumber firstNumber(const std::vector<Item> &items, std::size_t index)
{
    const Item &item = items[index];
    const auto next =
        std::find_if(items.begin() + static_cast<std::ptrdiff_t>(index) + 1, items.end(), [&](const Item &each) {
            return each.level <= item.level;
        });
    const auto continued = [&](const ListNumber &number) {
        return next != items.end() &&
               std::any_of(next->numbers.begin(), next->numbers.end(), [&](const ListNumber &each) {
                   return looksLike(each, number) && each.value == number.value + 1;
               });
    };
    const auto found = std::find_if(item.numbers.begin(), item.numbers.end(), continued);
    if (found != item.numbers.end()) {
        return *found;
    }
    const auto first = std::find_if(
        item.numbers.begin(), item.numbers.end(), [](const ListNumber &number) { return number.value == 1; });
    return first == item.numbers.end() ? item.numbers.front() : *first;
}

class ListFinder
{
public:
    explicit ListFinder(const std::vector<Item> &items) : m_items(items) {}

    ListPlan find();

private:
    /// A list, and the number that each level has reached.
    struct Open
    {
        List *list = nullptr;
        std::array<std::optional<int>, maxListLevels> counts;
    };

    Open *continued(const Item &item);
    Open *joined(const Item &item);
    Open &begun();
    void place(Open &open, std::size_t index);
    static int nextNumber(const Open &open, int level);
    static bool hasBullet(const ListLevel &level, const Item &item);

    const std::vector<Item> &m_items;
    ListPlan m_plan;
    std::deque<Open> m_open; ///< the list of the last item comes last
};

int ListFinder::nextNumber(const Open &open, int level)
{
    const auto at = static_cast<std::size_t>(level);
    return open.counts[at] ? *open.counts[at] + 1 : open.list->levels[at]->number->value;
}

bool ListFinder::hasBullet(const ListLevel &level, const Item &item)
{
    return item.numbers.empty() && !level.number && level.first->listItem->mark == item.paragraph->listItem->mark;
}

/// Returns the latest list whose next number the item has, or the bullet of whose level, if it follows an item.
ListFinder::Open *ListFinder::continued(const Item &item)
{
    const auto at = static_cast<std::size_t>(item.level);
    for (auto open = m_open.rbegin(); open != m_open.rend(); ++open) {
        const std::optional<ListLevel> &level = open->list->levels[at];
        if (!level) {
            continue;
        }
        const bool counted =
            level->number && std::any_of(item.numbers.begin(), item.numbers.end(), [&](const ListNumber &number) {
                return looksLike(number, *level->number) && number.value == nextNumber(*open, item.level) &&
                       (item.followsItem || open->counts[at]);
            });
        if (counted || (item.followsItem && hasBullet(*level, item))) {
            return &*open;
        }
    }
    return nullptr;
}

/// Returns the list of the item before if it has no such level yet, or if the item only misses a number.
ListFinder::Open *ListFinder::joined(const Item &item)
{
    if (!item.followsItem || m_open.empty()) {
        return nullptr;
    }
    Open &last = m_open.back();
    const auto at = static_cast<std::size_t>(item.level);
    const std::optional<ListLevel> &level = last.list->levels[at];
    if (!level) {
        // A list that begins at an inner level is none of the outer ones.
        const bool hasOuter = std::any_of(
            last.counts.begin(), last.counts.begin() + item.level, [](const auto &count) { return count.has_value(); });
        return hasOuter ? &last : nullptr;
    }
    const bool skips =
        level->number && std::any_of(item.numbers.begin(), item.numbers.end(), [&](const auto &number) {
            return looksLike(number, *level->number) && last.counts[at] && number.value > *last.counts[at];
        });
    return skips ? &last : nullptr;
}

ListFinder::Open &ListFinder::begun()
{
    m_plan.lists.push_back({m_plan.lists.size(), {}});
    m_open.push_back({&m_plan.lists.back(), {}});
    if (m_open.size() > thresholds.openLists) {
        m_open.pop_front();
    }
    return m_open.back();
}

void ListFinder::place(Open &open, std::size_t index)
{
    const Item &item = m_items[index];
    const auto at = static_cast<std::size_t>(item.level);
    std::optional<ListLevel> &level = open.list->levels[at];
    if (!level) {
        level =
            ListLevel{item.paragraph, item.numbers.empty() ? std::nullopt : std::optional(firstNumber(m_items, index))};
    }
    ListPlace place{open.list, item.level, false, {}};
    place.continues = std::any_of(
        open.counts.begin(), open.counts.end(), [](const std::optional<int> &count) { return count.has_value(); });
    int value = 0;
    if (level->number) {
        const auto number = std::find_if(item.numbers.begin(), item.numbers.end(), [&](const ListNumber &each) {
            return looksLike(each, *level->number);
        });
        value = number->value;
        if (value != nextNumber(open, item.level)) {
            place.restart = value;
        }
    }
    open.counts[at] = value;
    std::fill(open.counts.begin() + item.level + 1, open.counts.end(), std::nullopt);
    m_plan.places.emplace(item.paragraph, place);
}

ListPlan ListFinder::find()
{
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        Open *open = continued(m_items[i]);
        if (!open) {
            open = joined(m_items[i]);
        }
        if (!open) {
            open = &begun();
        }
        // The latest list is the one that the next item is compared with first.
        const Open latest = *open;
        m_open.erase(
            m_open.begin() +
            (std::find_if(m_open.begin(), m_open.end(), [&](const Open &each) { return each.list == latest.list; }) -
             m_open.begin()));
        m_open.push_back(latest);
        place(m_open.back(), i);
    }
    return std::move(m_plan);
}

} // namespace

bool isBullet(const ListItem &item)
{
    return !item.ordered && item.mark.toUcs4().size() == 1;
}

ListPlan planLists(const Document &document)
{
    const std::vector<Item> items = itemsOf(document);
    return ListFinder(items).find();
}

} // namespace quorra::model
