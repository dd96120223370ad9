// SPDX-License-Identifier: GPL-3.0-or-later
#include "semantics/roles.h"

#include "document/page_walk.h"
#include "document/text.h"
#include "paragraphs/paragraphs.h"
#include "semantics/notes.h"

#include <QMap>
#include <QRegularExpression>

#include <algorithm>
#include <cmath>

namespace quorra::model {

namespace {

using roles::thresholds;

// Font sizes are counted in tenths of a point.
constexpr int perPoint = 10;

int tenths(double size)
{
    return static_cast<int>(std::lround(size * perPoint));
}

template <typename Use>
void forEachBodyParagraph(Document &document, Use use)
{
    for (Page &page : document.pages) {
        for (Section &section : page.sections) {
            for (Block &block : section.blocks) {
                if (Paragraph *paragraph = block.paragraph()) {
                    use(page, *paragraph);
                }
            }
        }
    }
}

double sizeOf(const Paragraph &paragraph)
{
    double sum = 0;
    double letters = 0;
    for (const Run &run : runsOf(paragraph)) {
        sum += run.style.size * static_cast<double>(run.text.size());
        letters += static_cast<double>(run.text.size());
    }
    return letters > 0 ? sum / letters : 0;
}

bool isBold(const Paragraph &paragraph)
{
    const std::vector<Run> runs = runsOf(paragraph);
    return !runs.empty() && std::all_of(runs.begin(), runs.end(), [](const Run &run) {
        return run.style.bold || run.text.trimmed().isEmpty();
    });
}

bool isHeadingLike(const Paragraph &paragraph, const QString &text)
{
    const bool preformatted = text.contains(QLatin1Char('\n'));
    const bool entry = std::any_of(
        paragraph.tabStops.begin(), paragraph.tabStops.end(), [](const TabStop &stop) { return stop.leader; });
    const bool letters = std::any_of(text.begin(), text.end(), [](QChar c) { return c.isLetter(); });
    return letters && !preformatted && !entry && text.size() <= thresholds.maxHeadingLength &&
           paragraph.lines.size() <= thresholds.maxHeadingLines && paragraph.rotation == 0 &&
           !text.endsWith(QLatin1Char(',')) && !text.endsWith(QLatin1Char(';'));
}

bool isCaption(const QString &text)
{
    static const QRegularExpression caption(
        QStringLiteral("^(?:Figure|Fig\\.|Table|Tab\\.|Abbildung|Abb\\.|Tabelle|Tableau|Tabla|Figura|Listing|図|表)\\s*"
                       "[A-Z]?\\.?\\d+[a-z]?(?:\\.\\d+)*\\s*([.:–—|)])?"));
    const QRegularExpressionMatch match = caption.match(text);
    return match.hasMatch() && (text.size() < thresholds.maxCaption || !match.captured(1).isEmpty());
}

// The font size of most letters of the document.
double bodySize(Document &document)
{
    QMap<int, qsizetype> letters;
    const auto count = [&letters](const Paragraph &paragraph) {
        for (const Run &run : runsOf(paragraph)) {
            letters[tenths(run.style.size)] += run.text.size();
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
    return static_cast<double>(best) / perPoint;
}

// The font sizes of the heading levels, from the largest down.
std::vector<double> headingSizes(Document &document, double body)
{
    std::vector<double> sizes;
    forEachBodyParagraph(document, [&](const Page &, const Paragraph &paragraph) {
        const double size = sizeOf(paragraph);
        if (paragraph.role == Role::Body && !paragraph.headingTold && size > thresholds.minHeadingSize * body &&
            isHeadingLike(paragraph, plainText(paragraph))) {
            sizes.push_back(size);
        }
    });
    std::sort(sizes.rbegin(), sizes.rend());
    std::vector<double> ranks;
    for (const double size : sizes) {
        if (ranks.empty() || size < thresholds.sameHeadingSize * ranks.back()) {
            ranks.push_back(size);
        }
    }
    return ranks;
}

void setHeading(Paragraph &paragraph, std::size_t rank)
{
    paragraph.role = Role::Heading;
    paragraph.headingLevel = static_cast<int>(std::min(rank + 1, thresholds.maxHeadingLevel));
}

void assignRole(const Page &page, Paragraph &paragraph, double body, const std::vector<double> &ranks)
{
    const QString text = plainText(paragraph).trimmed();
    const double size = sizeOf(paragraph);
    if (isCaption(text)) {
        paragraph.role = Role::Caption;
        return;
    }
    if (!paragraph.headingTold && isHeadingLike(paragraph, text)) {
        if (size > thresholds.minHeadingSize * body) {
            const auto rank = std::find_if(
                ranks.begin(), ranks.end(), [size](double r) { return size >= thresholds.sameHeadingSize * r; });
            setHeading(paragraph, static_cast<std::size_t>(rank - ranks.begin()));
            return;
        }
        if (isBold(paragraph) && size >= thresholds.minBoldHeadingSize * body &&
            paragraph.lines.size() <= thresholds.maxBoldHeadingLines &&
            text.size() <= thresholds.maxBoldHeadingLength && !text.endsWith(QLatin1Char('.')) &&
            !text.endsWith(QLatin1Char(':'))) {
            setHeading(paragraph, ranks.size());
            return;
        }
    }
    if (size < thresholds.maxFootnoteSize * body && paragraph.box.top > thresholds.minFootnoteTop * page.height &&
        !text.isEmpty() && (text.front().isDigit() || QStringLiteral("*†‡∗§¹²³").contains(text.front()))) {
        paragraph.role = Role::Footnote;
    }
}

void assignListLevels(Document &document)
{
    for (Page &page : document.pages) {
        for (Section &section : page.sections) {
            std::vector<double> lefts; // of the open levels
            for (Block &block : section.blocks) {
                Paragraph *paragraph = block.paragraph();
                if (!paragraph || !paragraph->listItem) {
                    if (!paragraph || paragraph->indentLeft < thresholds.minIndent) {
                        lefts.clear();
                    }
                    continue;
                }
                const double left = paragraph->lines.front().box.left;
                while (!lefts.empty() && left < lefts.back() - thresholds.listLevelIndent) {
                    lefts.pop_back();
                }
                if (lefts.empty() || left > lefts.back() + thresholds.listLevelIndent) {
                    lefts.push_back(left);
                }
                if (!paragraph->listItem->told) {
                    paragraph->listItem->level = static_cast<int>(lefts.size()) - 1;
                }
            }
        }
    }
}

} // namespace

void assignRoles(Document &document)
{
    const double body = bodySize(document);
    const std::vector<double> ranks = headingSizes(document, body);
    forEachBodyParagraph(document, [&](const Page &page, Paragraph &paragraph) {
        if (paragraph.role == Role::Body) {
            assignRole(page, paragraph, body, ranks);
        }
    });
    linkNotes(document, body);
    assignListLevels(document);
}

} // namespace quorra::model
