// SPDX-License-Identifier: GPL-3.0-or-later
#include "semantics/headings.h"

#include "analysis/headings.h"
#include "document/page_walk.h"
#include "document/text.h"
#include "document/text_key.h"

#include <QHash>
#include <QMap>
#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>
#include <vector>

namespace quorra::model {

namespace {

using headings::thresholds;

/// A paragraph that may be a heading.
struct Candidate
{
    Paragraph *paragraph = nullptr;
    std::size_t page = 0;  ///< in the document
    std::size_t place = 0; ///< among the blocks of the document
    double size = 0;       ///< points
    bool bold = false;     ///< and of the body's size
    int depth = 0;         ///< how many parts its number has; 0 without a number
    int outlineLevel = 0;  ///< from 1, where the outline has an entry for it
    std::size_t style = 0; ///< rank of its look: 0 for the largest
};

bool isBold(const Paragraph &paragraph)
{
    const std::vector<Run> runs = runsOf(paragraph);
    return !runs.empty() && std::all_of(runs.begin(), runs.end(), [](const Run &run) {
        return run.style.bold || run.text.trimmed().isEmpty();
    });
}

/// The mean font size of the paragraph's text in points. Small capitals count as capitals.
double headingSize(const Paragraph &paragraph)
{
    const std::vector<Run> runs = runsOf(paragraph);
    const QString text = plainText(runs);
    const bool capitals = text == text.toUpper() && text != text.toLower();
    if (capitals) {
        return largestSize(paragraph);
    }
    double sum = 0;
    for (const Run &run : runs) {
        sum += run.style.size * static_cast<double>(run.text.size());
    }
    return sum / std::max(1.0, static_cast<double>(text.size()));
}

bool hasLetters(const QString &text)
{
    return std::any_of(text.begin(), text.end(), [](QChar c) { return c.isLetter(); });
}

bool isHeadingLike(const Paragraph &paragraph, const QString &text)
{
    const bool entry = std::any_of(
        paragraph.tabStops.begin(), paragraph.tabStops.end(), [](const TabStop &stop) { return stop.leader; });
    return hasLetters(text) && !text.contains(QLatin1Char('\n')) && !entry && text.size() <= thresholds.maxLength &&
           paragraph.lines.size() <= thresholds.maxLines && paragraph.rotation == 0 &&
           !text.endsWith(QLatin1Char(',')) && !text.endsWith(QLatin1Char(';'));
}

/// The text with the mark of a list item.
QString wholeText(const Paragraph &paragraph)
{
    const QString text = plainText(paragraph).trimmed();
    return paragraph.listItem ? paragraph.listItem->mark + QLatin1Char(' ') + text : text;
}

/// How many parts the number has that the text begins with.
int numberDepth(const QString &text)
{
    static const QRegularExpression number(QStringLiteral(
        "^(?:(\\d{1,2}(?:\\.\\d{1,2})*)\\.?|([A-Z](?:\\.\\d{1,2})+)\\.?|[A-Z]\\.|[IVX]{1,5}\\.)\\s+\\S"));
    const QRegularExpressionMatch match = number.match(text);
    if (!match.hasMatch()) {
        return 0;
    }
    return 1 + static_cast<int>((match.captured(1) + match.captured(2)).count(QLatin1Char('.')));
}

/// Whether the paragraph may become a heading by what the outline or its look says.
bool isOpen(const Paragraph &paragraph)
{
    const bool counted =
        paragraph.role == Role::ListItem && paragraph.listItem->ordered && !paragraph.listItem->fromTags;
    return !paragraph.headingFromTags && (paragraph.role == Role::Body || counted) && !paragraph.preformatted;
}

/// The key of the text without the number at its beginning, which the outline may leave out.
QString keyWithoutNumber(const QString &text)
{
    static const QRegularExpression number(QStringLiteral("^(?:[A-Z]\\.|[\\dIVX]+[.)]?)(?:\\d+\\.?)*\\s+"));
    QString rest = text;
    return textKey(rest.remove(number));
}

void becomeHeading(Paragraph &paragraph, int level)
{
    paragraph.role = Role::Heading;
    paragraph.listItem.reset();
    paragraph.continuesPrevious = false;
    paragraph.headingLevel = std::clamp(level, 1, thresholds.maxLevel);
}

/// Goes through the headings of a document.
class HeadingFinder
{
public:
    HeadingFinder(Document &document, double bodySize) : m_document(document), m_bodySize(bodySize) {}

    void run()
    {
        matchOutline();
        collect();
        dropStacks();
        rankStyles();
        findTitle();
        setLevels();
    }

private:
    template <typename Use>
    void forEachOpenParagraph(const Use &use)
    {
        std::size_t place = 0;
        for (std::size_t page = 0; page < m_document.pages.size(); ++page) {
            for (Section &section : m_document.pages[page].sections) {
                for (Block &block : section.blocks) {
                    ++place;
                    if (Paragraph *paragraph = block.paragraph(); paragraph && isOpen(*paragraph)) {
                        use(page, place, *paragraph);
                    }
                }
            }
        }
    }

    /// Finds the paragraphs that entries of the outline lead to. An outline that agrees with few lines is ignored.
    void matchOutline()
    {
        QHash<QString, QList<std::size_t>> entries; // by page and text
        std::size_t inRange = 0;
        const std::vector<OutlineEntry> &outline = m_document.facts.outline;
        for (std::size_t i = 0; i < outline.size(); ++i) {
            const bool shown = std::any_of(m_document.pages.begin(), m_document.pages.end(), [&](const Page &page) {
                return page.number == outline[i].page;
            });
            if (!shown || textKey(outline[i].title).isEmpty()) {
                continue;
            }
            ++inRange;
            entries[pageKey(outline[i].page, textKey(outline[i].title))].append(i);
            if (const QString rest = keyWithoutNumber(outline[i].title); !rest.isEmpty()) {
                entries[pageKey(outline[i].page, rest)].append(i);
            }
        }
        std::vector<bool> taken(outline.size(), false);
        std::size_t found = 0;
        forEachOpenParagraph([&](std::size_t page, std::size_t, Paragraph &paragraph) {
            const QString text = wholeText(paragraph);
            if (entries.isEmpty() || !isHeadingLike(paragraph, text)) {
                return;
            }
            const int number = m_document.pages[page].number;
            for (const QString &key : {textKey(text), keyWithoutNumber(text)}) {
                for (const std::size_t entry : entries.value(pageKey(number, key))) {
                    if (!taken[entry]) {
                        taken[entry] = true;
                        ++found;
                        m_outlineLevel[&paragraph] = outline[entry].level + 1;
                        return;
                    }
                }
            }
        });
        if (found < thresholds.minEntries ||
            static_cast<double>(found) < thresholds.minOutline * static_cast<double>(inRange)) {
            m_outlineLevel.clear();
        }
    }

    static QString pageKey(int page, const QString &text) { return QString::number(page) + QLatin1Char(':') + text; }

    void collect()
    {
        forEachOpenParagraph([&](std::size_t page, std::size_t place, Paragraph &paragraph) {
            const QString text = wholeText(paragraph);
            const auto inOutline = m_outlineLevel.find(&paragraph);
            const bool listed = inOutline != m_outlineLevel.end();
            if (!isHeadingLike(paragraph, text)) {
                return;
            }
            const double size = headingSize(paragraph);
            const bool large = size > thresholds.minSize * m_bodySize;
            if (large || listed || isBoldHeading(paragraph, text, size)) {
                m_found.push_back(
                    {&paragraph, page, place, size, isBold(paragraph), numberDepth(text),
                     listed ? inOutline->second : 0, 0});
            }
        });
    }

    bool isBoldHeading(const Paragraph &paragraph, const QString &text, double size) const
    {
        return paragraph.role == Role::Body && isBold(paragraph) && size >= thresholds.minBoldSize * m_bodySize &&
               paragraph.lines.size() <= thresholds.maxBoldLines && text.size() <= thresholds.maxBoldLength &&
               (paragraph.tabStops.empty() || numberDepth(text) > 0) && !text.endsWith(QLatin1Char('.')) &&
               !text.endsWith(QLatin1Char(':'));
    }

    bool isLarge(const Candidate &each) const { return each.size > thresholds.minSize * m_bodySize; }

    /// Bold lines that follow one another are labels and addresses.
    void dropStacks()
    {
        std::vector<Candidate> kept;
        for (std::size_t start = 0; start < m_found.size();) {
            std::size_t end = start + 1;
            while (end < m_found.size() && m_found[end].place == m_found[end - 1].place + 1 && !isLarge(m_found[end]) &&
                   !isLarge(m_found[start])) {
                ++end;
            }
            const bool stack = end - start > thresholds.maxBoldStack && !isLarge(m_found[start]);
            for (std::size_t i = start; i < end; ++i) {
                if (!stack || m_found[i].outlineLevel > 0 || m_found[i].depth > 0) {
                    kept.push_back(m_found[i]);
                }
            }
            start = end;
        }
        m_found = std::move(kept);
    }

    /// Ranks the looks of the candidates from the largest size down, bold ones first.
    void rankStyles()
    {
        std::vector<double> sizes;
        for (const Candidate &each : m_found) {
            sizes.push_back(each.size);
        }
        std::sort(sizes.rbegin(), sizes.rend());
        std::vector<double> ranks;
        for (const double size : sizes) {
            if (ranks.empty() || size < thresholds.sameSize * ranks.back()) {
                ranks.push_back(size);
            }
        }
        std::map<std::pair<std::ptrdiff_t, bool>, std::size_t> styles;
        const auto lookOf = [&ranks](const Candidate &each) {
            const auto rank = std::find_if(
                ranks.begin(), ranks.end(), [&each](double r) { return each.size >= thresholds.sameSize * r; });
            return std::pair(rank - ranks.begin(), !each.bold);
        };
        for (const Candidate &each : m_found) {
            styles.emplace(lookOf(each), 0);
        }
        for (auto &[look, rank] : styles) {
            rank = m_styles++;
        }
        for (Candidate &each : m_found) {
            each.style = styles.at(lookOf(each));
        }
    }

    /// The document's title: the text in the largest type, which stands nowhere but above all headings on the first
    /// page. Office programs have a style for it that is no heading, so that the headings below begin at level 1, too.
    void findTitle()
    {
        std::size_t count = 0;
        while (count < m_found.size() && m_found[count].style == 0 && m_found[count].page == 0 &&
               m_found[count].outlineLevel == 0 && m_found[count].depth == 0 && isLarge(m_found[count]) &&
               (count == 0 || m_found[count].place == m_found[count - 1].place + 1)) {
            ++count;
        }
        const bool again =
            std::any_of(m_found.begin() + static_cast<std::ptrdiff_t>(count), m_found.end(), [](const Candidate &each) {
                return each.style == 0;
            });
        const bool fits = count > 0 && count <= thresholds.maxTitle && count < m_found.size() && !again;
        if (!fits || m_found.front().paragraph->box.top > thresholds.maxTitleTop * m_document.pages.front().height) {
            return;
        }
        for (std::size_t i = 0; i < count; ++i) {
            becomeHeading(*m_found[i].paragraph, 1);
            m_found[i].paragraph->title = true;
        }
        m_found.erase(m_found.begin(), m_found.begin() + static_cast<std::ptrdiff_t>(count));
    }

    /// The level that most headings of each look have by the outline or their numbers; 0 where neither says one.
    std::vector<int> knownLevels() const
    {
        const bool byOutline = !m_outlineLevel.empty();
        std::vector<std::map<int, std::size_t>> counts(m_styles);
        for (const Candidate &each : m_found) {
            const int level = byOutline ? each.outlineLevel : each.depth;
            if (level > 0) {
                ++counts[each.style][level];
            }
        }
        std::vector<int> levels(m_styles, 0);
        for (std::size_t style = 0; style < m_styles; ++style) {
            std::size_t most = 0;
            for (const auto &[level, count] : counts[style]) {
                levels[style] = count > most ? level : levels[style];
                most = std::max(most, count);
            }
        }
        return levels;
    }

    void setLevels()
    {
        const bool byOutline = !m_outlineLevel.empty();
        const std::vector<int> known = knownLevels();
        std::vector<int> levels(m_styles, 0); // of the looks that are in use
        std::vector<bool> used(m_styles, false);
        for (const Candidate &each : m_found) {
            used[each.style] = true;
        }
        // Larger headings without numbers stand above those with numbers.
        int above = 0;
        for (std::size_t style = 0; style < m_styles && known[style] == 0; ++style) {
            above += used[style] ? 1 : 0;
        }
        const bool anyKnown = std::any_of(known.begin(), known.end(), [](int level) { return level > 0; });
        const int offset = byOutline || !anyKnown ? 0 : above;
        int last = 0;
        for (std::size_t style = 0; style < m_styles; ++style) {
            if (used[style]) {
                levels[style] = known[style] > 0 ? known[style] + offset : last + 1;
                levels[style] = byOutline && known[style] == 0 && last == 0 ? 1 : levels[style];
                last = byOutline && known[style] == 0 && last == 0 ? 0 : std::max(last, levels[style]);
            }
        }
        for (const Candidate &each : m_found) {
            const int own = byOutline ? each.outlineLevel : each.depth > 0 ? each.depth + offset : 0;
            becomeHeading(*each.paragraph, own > 0 ? own : levels[each.style]);
        }
    }

    Document &m_document;
    double m_bodySize;
    std::map<const Paragraph *, int>
        m_outlineLevel;             ///< of paragraphs that the outline leads to; empty if it is of no use
    std::vector<Candidate> m_found; ///< in reading order
    std::size_t m_styles = 0;
};

} // namespace

double bodySizeOf(const Document &document)
{
    constexpr double perPoint = 10; // sizes are counted in tenths of a point
    QMap<int, qsizetype> letters;
    const auto count = [&letters](const Paragraph &paragraph) {
        for (const Run &run : runsOf(paragraph)) {
            letters[static_cast<int>(std::lround(run.style.size * perPoint))] += run.text.size();
        }
    };
    for (const Page &page : document.pages) {
        forEachBlock(page, [&count](const Block &block) {
            if (const Paragraph *paragraph = block.paragraph()) {
                count(*paragraph);
            } else if (const Figure *figure = block.figure()) {
                std::for_each(figure->labels.begin(), figure->labels.end(), count);
            }
        });
    }
    int best = 0;
    for (auto it = letters.cbegin(); it != letters.cend(); ++it) {
        best = best == 0 || it.value() > letters.value(best) ? it.key() : best;
    }
    return best / perPoint;
}

void findHeadings(Document &document)
{
    for (Page &page : document.pages) {
        forEachBlock(page, [](Block &block) {
            Paragraph *paragraph = block.paragraph();
            const bool fromLayout = paragraph && paragraph->role == Role::Heading && !paragraph->headingFromTags;
            if (fromLayout && paragraph->rotation == 0) { // on sideways pages they cannot be found again
                paragraph->role = Role::Body;
                paragraph->headingLevel = 0;
                paragraph->title = false;
            }
        });
    }
    HeadingFinder(document, bodySizeOf(document)).run();
}

void useOutline(Document &document)
{
    if (!document.facts.outline.empty()) {
        findHeadings(document);
    }
}

} // namespace quorra::model
