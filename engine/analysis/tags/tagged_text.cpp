// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/tagged_text.h"

#include <algorithm>

namespace quorra::model {

namespace {

struct Limits
{
    int columns = 500;    ///< of a table
    int rows = 100'000;   ///< of a table
    int headingLevel = 6; ///< deeper ones are written as this one
};

constexpr Limits limits;

bool isInline(TagRole role)
{
    return role == TagRole::Inline || role == TagRole::Formula || role == TagRole::Code;
}

// What may have a label: an entry of a list, a note.
bool isItem(TagRole role)
{
    return role == TagRole::ListItem || role == TagRole::Note;
}

bool isCell(TagRole role)
{
    return role == TagRole::HeadCell || role == TagRole::DataCell;
}

/// The position of a tag in the tables.
struct GridPlace
{
    int table = -1;
    int cell = -1;
};

/// Sets the rows and columns of a table's cells as HTML does: each cell takes the next free place of its row.
class GridBuilder
{
public:
    void startRow()
    {
        ++m_row;
        m_column = 0;
    }

    /// The cell's place in the table's list; -1 for one that has no place.
    int add(TaggedTable &table, const Tag &tag, bool head)
    {
        if (m_row < 0 || m_row >= limits.rows) {
            return -1;
        }
        while (isTaken(m_column)) {
            ++m_column;
        }
        int columns = 1; // as many as are free
        while (columns < tag.columnSpan && !isTaken(m_column + columns)) {
            ++columns;
        }
        if (m_column + columns > limits.columns) {
            return -1;
        }
        m_takenTo.resize(std::max(m_takenTo.size(), static_cast<std::size_t>(m_column + columns)), 0);
        std::fill_n(m_takenTo.begin() + m_column, columns, m_row + tag.rowSpan);
        table.cells.push_back({m_row, m_column, tag.rowSpan, columns, head});
        m_column += columns;
        table.rows = std::max(table.rows, m_row + 1);
        table.columns = std::max(table.columns, m_column);
        return static_cast<int>(table.cells.size()) - 1;
    }

private:
    bool isTaken(int column) const
    {
        const auto at = static_cast<std::size_t>(column);
        return at < m_takenTo.size() && m_takenTo[at] > m_row;
    }

    int m_row = -1;
    int m_column = 0;
    std::vector<int> m_takenTo; ///< for each column, the first row that no cell from above reaches
};

std::vector<int> cellCounts(const std::vector<Tag> &tags)
{
    std::vector<int> tableOf(tags.size(), -1);
    std::vector<int> count(tags.size(), 0);
    for (std::size_t i = 0; i < tags.size(); ++i) {
        const int parent = tags[i].parent;
        tableOf[i] = tags[i].role == TagRole::Table ? static_cast<int>(i)
                     : parent < 0                   ? -1
                                                    : tableOf[static_cast<std::size_t>(parent)];
        if (isCell(tags[i].role) && tableOf[i] >= 0) {
            ++count[static_cast<std::size_t>(tableOf[i])];
        }
    }
    return count;
}

/// Finds the tables, and for each tag its place in them. A table of one cell is a frame around a text: what counts is
/// the outermost table of several cells.
std::vector<GridPlace> findTables(const std::vector<Tag> &tags, std::vector<TaggedTable> &tables)
{
    const std::vector<int> count = cellCounts(tags);
    std::vector<GridBuilder> builders;
    std::vector<GridPlace> places(tags.size());
    for (std::size_t i = 0; i < tags.size(); ++i) {
        const Tag &tag = tags[i];
        const Tag *parent = tag.parent < 0 ? nullptr : &tags[static_cast<std::size_t>(tag.parent)];
        GridPlace own = parent ? places[static_cast<std::size_t>(tag.parent)] : GridPlace{};
        const auto table = static_cast<std::size_t>(std::max(0, own.table));
        if (tag.role == TagRole::Table && own.table < 0 && count[i] > 1) {
            own.table = static_cast<int>(tables.size());
            tables.emplace_back();
            builders.emplace_back();
        } else if (tag.role == TagRole::Row && own.table >= 0 && own.cell < 0) {
            builders[table].startRow();
        } else if (isCell(tag.role) && own.table >= 0 && own.cell < 0) {
            const Tag *group =
                parent && parent->parent >= 0 ? &tags[static_cast<std::size_t>(parent->parent)] : nullptr;
            own.cell = builders[table].add(tables[table], tag, tag.role == TagRole::HeadCell || (group && group->head));
        }
        places[i] = own;
    }
    for (TaggedTable &table : tables) {
        for (TaggedCell &cell : table.cells) {
            cell.rowSpan = std::min(cell.rowSpan, table.rows - cell.row);
        }
    }
    return places;
}

/// Finds the paragraph of each piece of content by what is around it.
class ParagraphFinder
{
public:
    ParagraphFinder(const TagTree &tree, TaggedText &text)
        : m_tags(tree.tags)
        , m_text(text)
        , m_places(findTables(tree.tags, text.tables))
        , m_paragraphs(tree.tags.size(), nullptr)
        , m_firstText(tree.tags.size(), -1)
    {}

    TaggedContent contentOf(std::size_t tag)
    {
        const Around around = look(static_cast<int>(tag));
        if (around.artifact || around.figure || around.holder < 0) {
            return {nullptr, false, around.artifact};
        }
        const TagRole holderRole = role(around.holder);
        int key = around.holder;
        if (around.item >= 0) {
            int &first = m_firstText[static_cast<std::size_t>(around.item)];
            first = first < 0 && !around.label ? around.holder : first;
            key = around.label || first == around.holder ? around.item : around.holder;
        }
        TaggedParagraph *&paragraph = m_paragraphs[static_cast<std::size_t>(key)];
        if (!paragraph) {
            paragraph = &m_text.paragraphs.emplace_back();
            paragraph->number = m_text.paragraphs.size() - 1;
            paragraph->table = m_places[tag].table;
            paragraph->cell = m_places[tag].cell;
            paragraph->role = key == around.item ? role(around.item) : around.role;
            paragraph->level = key == around.item ? std::max(0, around.lists - 1) : 0;
            paragraph->language = around.language;
        }
        if (holderRole == TagRole::Heading) { // one with a number may be a list item
            const int level = m_tags[static_cast<std::size_t>(around.holder)].level;
            paragraph->role = TagRole::Heading;
            paragraph->level = std::clamp(level > 0 ? level : around.groups, 1, limits.headingLevel);
        }
        return {paragraph, around.label, false};
    }

private:
    /// What is around a piece of content.
    struct Around
    {
        int holder = -1;                   ///< the innermost tag that is no part of a paragraph
        int item = -1;                     ///< the list item or note that the holder is a paragraph of
        TagRole role = TagRole::Paragraph; ///< of the paragraph, unless it is a list item or a heading
        int lists = 0;
        int groups = 0;
        bool label = false;
        bool figure = false;
        bool artifact = false;
        QString language; ///< of the holder; a part of it may be in another one
    };

    TagRole role(int tag) const { return m_tags[static_cast<std::size_t>(tag)].role; }

    Around look(int tag) const
    {
        Around around;
        bool inItem = true; // nothing but the parts of an item is between it and the holder
        for (int at = tag; at >= 0; at = m_tags[static_cast<std::size_t>(at)].parent) {
            const TagRole here = role(at);
            if (around.holder < 0 && !isInline(here)) {
                around.holder = at;
                around.figure = here == TagRole::Figure;
                around.label = here == TagRole::ListLabel;
            } else if (around.holder >= 0 && !isItem(here) && here != TagRole::ListBody && here != TagRole::Group) {
                inItem = false;
            }
            if (isItem(here) && inItem) {
                around.item = at;
                inItem = false;
            }
            if (around.holder >= 0 && around.language.isEmpty()) {
                around.language = m_tags[static_cast<std::size_t>(at)].language;
            }
            around.lists += here == TagRole::List ? 1 : 0;
            around.groups += here == TagRole::Group ? 1 : 0;
            around.artifact = around.artifact || here == TagRole::Artifact;
            if (here == TagRole::Note || here == TagRole::Caption || here == TagRole::ContentsEntry) {
                around.role = around.role == TagRole::Paragraph ? here : around.role;
            }
        }
        around.label = around.label && around.item >= 0;
        around.holder = around.holder < 0 ? tag : around.holder;
        return around;
    }

    const std::vector<Tag> &m_tags;
    TaggedText &m_text;
    std::vector<GridPlace> m_places;
    std::vector<TaggedParagraph *> m_paragraphs; ///< by the tag that holds it
    std::vector<int> m_firstText;                ///< for list items, what holds their first paragraph
};

} // namespace

TaggedText taggedText(const TagTree &tree)
{
    TaggedText text;
    ParagraphFinder finder(tree, text);
    text.contents.reserve(tree.contents.size());
    for (const std::size_t tag : tree.contents) {
        text.contents.push_back(finder.contentOf(tag));
    }
    const auto has = [&text](TagRole role) {
        return std::any_of(
            text.paragraphs.begin(), text.paragraphs.end(), [role](const auto &each) { return each.role == role; });
    };
    const bool headings = has(TagRole::Heading);
    const bool lists = has(TagRole::ListItem);
    for (TaggedParagraph &paragraph : text.paragraphs) {
        paragraph.headingsTagged = headings;
        paragraph.listsTagged = lists;
    }
    return text;
}

} // namespace quorra::model
