// SPDX-License-Identifier: GPL-3.0-or-later
#include "page_builder.h"

#include "column_builder.h"
#include "columns/page_segmentation.h"
#include "document/rotation.h"
#include "figures/figures.h"
#include "figures/formulas.h"
#include "figures/networks.h"
#include "figures/plots.h"
#include "paragraphs/paragraphs.h"
#include "tables/leaders.h"
#include "tables/rulings.h"
#include "tables/table_content.h"
#include "tables/tagged_tables.h"
#include "tables/unruled_table.h"
#include "tags/tag_use.h"
#include "text_lines/word_fragments.h"

#include <algorithm>
#include <array>
#include <unordered_set>

namespace quorra::model {

namespace {

using pageBuilder::thresholds;

using WordSet = std::unordered_set<const RawWord *>;

bool isScan(const RawPage &raw)
{
    double area = 0;
    for (const RawPicture &picture : raw.pictures) {
        area += picture.box.area();
    }
    return raw.words.empty() && area > thresholds.minScanArea * raw.width * raw.height;
}

Page scannedPage(const RawPage &raw, StyleTable &styles)
{
    Page page;
    page.scanned = true;
    page.content = {0, 0, raw.width, raw.height};
    page.sections.push_back({{page.content}, figureBlocks({page.content, FigureKind::Page, {}}, styles)});
    return page;
}

void addPageHeaders(Page &page, const WordRefs &heads, StyleTable &styles)
{
    const Box whole{0, 0, page.width, page.height};
    WordRefs upright;
    std::copy_if(
        heads.begin(), heads.end(), std::back_inserter(upright), [](const RawWord *w) { return w->rotation == 0; });
    for (const TextLine &line : textLinesOf(std::move(upright))) {
        for (Paragraph &paragraph : paragraphsOf({line}, whole, styles)) {
            paragraph.role = Role::PageHeader;
            page.header.push_back(std::move(paragraph));
        }
    }
}

template <typename Wanted>
std::vector<Paragraph> rotatedParagraphs(const RawPage &raw, int rotation, const Wanted &isWanted, StyleTable &styles)
{
    RawPage upright;
    upright.width = raw.width;
    upright.height = raw.height;
    for (const RawWord &word : raw.words) {
        if (word.rotation == rotation && isWanted(&word)) {
            upright.words.push_back(word);
        }
    }
    upright = rotatedUpright(std::move(upright), rotation);
    WordRefs words;
    for (const RawWord &word : upright.words) {
        words.push_back(&word);
    }
    const Box column{0, 0, upright.width, upright.height};
    std::vector<Paragraph> paragraphs = paragraphsOf(textLinesOf(std::move(words)), column, styles);
    for (Paragraph &paragraph : paragraphs) {
        rotateToPage(paragraph, rotation, upright.width, upright.height);
    }
    return paragraphs;
}

// Adds text that runs in another direction than most of the page: paragraphs of their own at its end.
void addRotatedText(
    Page &page, const RawPage &raw, const std::set<const RawWord *> &heads, const WordSet &used, StyleTable &styles)
{
    for (const int rotation : {90, 180, 270}) {
        Section section{{{0, 0, raw.width, raw.height}}, {}};
        for (Paragraph &paragraph : rotatedParagraphs(
                 raw, rotation, [&](const RawWord *w) { return used.count(w) == 0; }, styles)) {
            section.blocks.push_back({std::move(paragraph), 0});
        }
        if (!section.blocks.empty()) {
            page.sections.push_back(std::move(section));
        }
        for (Paragraph &paragraph : rotatedParagraphs(
                 raw, rotation, [&](const RawWord *w) { return heads.count(w) > 0; }, styles)) {
            paragraph.role = Role::PageHeader;
            page.header.push_back(std::move(paragraph));
        }
    }
}

void addLeftovers(Page &page, const RawPage &raw, const Rulings &rulings)
{
    std::vector<Box> owned;
    for (const Section &section : page.sections) {
        for (const Block &block : section.blocks) {
            page.content = united(page.content, block.box());
            for (const Paragraph &label : block.figure() ? block.figure()->labels : std::vector<Paragraph>()) {
                page.content = united(page.content, label.box);
            }
            if (!block.paragraph()) {
                owned.push_back(block.box());
            }
        }
    }
    const auto isOwned = [&owned](double x, double y) {
        return std::any_of(owned.begin(), owned.end(), [x, y](const Box &box) {
            return expanded(box, thresholds.blockMargin).contains(x, y);
        });
    };
    for (const auto *rules : {&rulings.horizontal, &rulings.vertical}) {
        for (const Rule &rule : *rules) {
            if (!isOwned((rule.x1 + rule.x2) / 2, (rule.y1 + rule.y2) / 2)) {
                page.rules.push_back(rule);
            }
        }
    }
    bool lost = raw.watermark;
    for (const Fill &fill : raw.fills) {
        if (!isOwned(fill.box.centreX(), fill.box.centreY())) {
            page.fills.push_back(fill);
            lost = lost || !fill.exact;
        }
    }
    lost = lost || std::any_of(raw.ink.begin(), raw.ink.end(), [&](const Ink &ink) {
               return std::max(ink.box.width(), ink.box.height()) >= thresholds.minLostInk &&
                      !isOwned(ink.box.centreX(), ink.box.centreY());
           });
    if (lost) {
        page.background = Box{0, 0, page.width, page.height};
    }
}

bool isInAny(const std::vector<Box> &boxes, double x, double y)
{
    return std::any_of(boxes.begin(), boxes.end(), [x, y](const Box &box) { return box.contains(x, y); });
}

std::vector<Rule> rulesOutside(const std::vector<Box> &figures, std::vector<Rule> rules)
{
    const auto isInside = [&figures](const Rule &rule) {
        return isInAny(figures, (rule.x1 + rule.x2) / 2, (rule.y1 + rule.y2) / 2);
    };
    rules.erase(std::remove_if(rules.begin(), rules.end(), isInside), rules.end());
    return rules;
}

std::vector<Fill> fillsOutside(const std::vector<Box> &networks, std::vector<Fill> fills)
{
    const auto isInside = [&networks](const Fill &fill) {
        return isInAny(networks, fill.box.centreX(), fill.box.centreY());
    };
    fills.erase(std::remove_if(fills.begin(), fills.end(), isInside), fills.end());
    return fills;
}

std::vector<Section> sectionsOf(const std::vector<Band> &bands, const ColumnBuilder &builder)
{
    std::vector<Section> sections;
    for (const Band &band : bands) {
        Section section;
        for (const Band::Column &column : band.columns) {
            for (const RegionItems &part : column.parts) {
                for (Block &block : builder.blocks(part)) {
                    block.column = static_cast<int>(section.columns.size());
                    section.blocks.push_back(std::move(block));
                }
            }
            section.columns.push_back(column.box);
        }
        sections.push_back(std::move(section));
    }
    return sections;
}

void useWords(const std::vector<TableWords> &tables, WordSet &used)
{
    for (const TableWords &table : tables) {
        for (const WordRefs &cell : table.words) {
            used.insert(cell.begin(), cell.end());
        }
    }
}

// Tables of numbers may be as wide as the page. They are found before its
// columns: gaps between columns of a table would pass for those between columns of text. Adds their words to those in
// use.
void addOpenTables(
    std::vector<TableWords> &tables, const Rulings &dividers, const WordRefs &words, const PageFigures &figures,
    WordSet &used)
{
    WordRefs free;
    const auto isFree = [&used](const RawWord *word) { return word->rotation == 0 && used.count(word) == 0; };
    std::copy_if(words.begin(), words.end(), std::back_inserter(free), isFree);
    std::vector<Box> taken;
    taken.reserve(tables.size() + figures.placed.size());
    for (const TableWords &table : tables) {
        taken.push_back(table.table.box);
    }
    for (const FoundFigure &figure : figures.placed) {
        taken.push_back(figure.box);
    }
    const std::vector<TextLine> lines = textLinesOf(free);
    for (UnruledTable &table : findUnruledTables(lines, dividers, LinesOf::Page)) {
        const Box &box = table.found.table.box;
        const auto overlaps = [&box](const Box &other) { return !intersected(box, other).isEmpty(); };
        if (std::any_of(taken.begin(), taken.end(), overlaps)) {
            continue;
        }
        taken.push_back(box);
        tables.push_back(std::move(table.found));
    }
    useWords(tables, used);
    // Leaders and typed lines in tables are no text.
    for (const RawWord *word : free) {
        const Box body = bodyOf(*word);
        const bool inTable = std::any_of(tables.begin(), tables.end(), [&body](const TableWords &table) {
            return table.table.box.contains(body.centreX(), body.centreY());
        });
        if (inTable && isLeaderOrTypedRule(word->text)) {
            used.insert(word);
        }
    }
}

// The bands of the page. Columns that the tags contradict are none: the text is then read in the order of the tags.
std::vector<Band> bandsOf(RegionItems items, PageGaps &gaps)
{
    std::vector<Band> bands = segmentPage(items, gaps);
    if (tearTaggedLines(bands)) {
        Band::Column column;
        for (const Band &band : bands) {
            for (const Band::Column &each : band.columns) {
                column.box = united(column.box, each.box);
            }
        }
        column.parts.push_back(std::move(items));
        bands.assign(1, Band{{std::move(column)}});
    }
    return bands;
}

Page builtPage(
    const RawPage &raw, const std::set<const RawWord *> &heads, const std::vector<TaggedTable> &tagged,
    StyleTable &styles, PageGaps &gaps)
{
    Page page;
    page.width = raw.width;
    page.height = raw.height;
    WordRefs words;
    for (const RawWord &word : raw.words) {
        if (heads.count(&word) == 0) {
            words.push_back(&word);
        }
    }
    const KnownFigures known{findNetworks(raw), findFormulas(raw)};
    const std::vector<Fill> fills = fillsOutside(known.networks, raw.fills);
    const Rulings rulings = mergeRules(rulesOutside(known.formulas, rulesOutside(known.networks, raw.rules)), fills);
    const Rulings dividers = withFillEdges(rulings, fills);
    std::vector<TableWords> tables = findRuledTables(rulings, dividers, words);
    std::vector<Box> drawings = known.networks;
    drawings.insert(drawings.end(), known.formulas.begin(), known.formulas.end());
    addTablesBetweenRules(tables, drawings, rulings, dividers, words);
    const auto drawn = [&raw](const TableWords &table) { return isPlot(table.table, raw.ink); };
    tables.erase(std::remove_if(tables.begin(), tables.end(), drawn), tables.end());
    useTaggedTables(tables, tagged, rulings, words);
    std::vector<Box> tableBoxes;
    WordRefs headWords(heads.begin(), heads.end());
    std::vector<WordRefs *> groups{&headWords};
    for (TableWords &table : tables) {
        tableBoxes.push_back(table.table.box);
        for (WordRefs &cell : table.words) {
            groups.push_back(&cell);
        }
    }
    PageFigures figures = findFigures(raw, tableBoxes, known, words);
    for (FoundFigure &figure : figures.placed) {
        groups.push_back(&figure.words);
    }
    keepFragmentsTogether(raw, groups);
    addPageHeaders(page, headWords, styles);
    WordSet used;
    for (const WordRefs *group : groups) {
        used.insert(group->begin(), group->end());
    }
    addOpenTables(tables, dividers, words, figures, used);
    RegionItems items;
    for (const RawWord *word : words) {
        if (word->rotation == 0 && used.count(word) == 0) {
            items.words.push_back(word);
        }
    }
    for (const TableWords &table : tables) {
        items.obstacles.emplace_back(table.table.box, items.obstacles.size());
    }
    for (const FoundFigure &figure : figures.placed) {
        items.obstacles.emplace_back(figure.obstacle(), items.obstacles.size());
    }
    for (const FoundFigure &figure : figures.backgrounds) {
        page.sections.push_back({{figure.box}, figureBlocks(figure, styles)});
    }
    const ColumnBuilder builder(raw, dividers, std::move(tables), figures, styles);
    for (Section &section : sectionsOf(bandsOf(std::move(items), gaps), builder)) {
        page.sections.push_back(std::move(section));
    }
    addRotatedText(page, raw, heads, used, styles);
    addLeftovers(page, raw, rulings);
    return page;
}

} // namespace

Page buildPage(
    const RawPage &raw, const std::set<const RawWord *> &heads, const std::vector<TaggedTable> &tagged,
    StyleTable &styles, PageGaps &gaps)
{
    Page page = isScan(raw) ? scannedPage(raw, styles) : builtPage(raw, heads, tagged, styles, gaps);
    page.recognised = raw.recognised;
    page.number = raw.number;
    page.label = raw.label;
    page.width = raw.width;
    page.height = raw.height;
    page.marks = raw.rules.size() + raw.fills.size() + raw.ink.size();
    return page;
}

} // namespace quorra::model
