// SPDX-License-Identifier: GPL-3.0-or-later
#include "semantics/roles.h"

#include "document/page_walk.h"
#include "document/text.h"
#include "paragraphs/paragraphs.h"

#include <QMap>
#include <QRegularExpression>

#include <algorithm>
#include <cmath>

namespace quorra::model {

namespace {

constexpr double largerThanBody = 1.12;
constexpr double smallerThanBody = 0.93;
constexpr int longestHeading = 180; // letters

// The font size of most letters, in tenths of a point so that it can be counted.
int tenths(double size)
{
    return static_cast<int>(std::lround(size * 10));
}

template <typename Use>
void forEachParagraph(Document &document, Use use)
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
    const bool listing = text.contains(QLatin1Char('\n'));
    const bool letters = std::any_of(text.begin(), text.end(), [](QChar c) { return c.isLetter(); });
    return letters && !listing && text.size() <= longestHeading && paragraph.lines.size() <= 3 &&
           paragraph.rotation == 0 && !text.endsWith(QLatin1Char(',')) && !text.endsWith(QLatin1Char(';'));
}

bool isCaption(const QString &text)
{
    static const QRegularExpression caption(
        QStringLiteral("^(?:Figure|Fig\\.|Table|Tab\\.|Abbildung|Abb\\.|Tabelle|Tableau|Tabla|Figura|Listing|図|表)\\s*"
                       "[A-Z]?\\.?\\d+[a-z]?(?:\\.\\d+)*\\s*([.:–—|)])?"));
    const QRegularExpressionMatch match = caption.match(text);
    constexpr qsizetype shortCaption = 150; // longer ones are sentences that begin with a figure's name
    return match.hasMatch() && (text.size() < shortCaption || !match.captured(1).isEmpty());
}

double bodySize(Document &document)
{
    QMap<int, qsizetype> letters;
    const auto count = [&letters](const Paragraph &paragraph) {
        for (const Run &run : runsOf(paragraph)) {
            letters[tenths(run.style.size)] += run.text.size();
        }
    };
    for (const Page &page : document.pages) {
        office::forEachBlock(page, [&count](const Block &block) {
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
    return best / 10.0;
}

// Heading sizes from the largest down; sizes that differ by less than 6 % are one.
std::vector<double> headingSizes(Document &document, double body)
{
    std::vector<double> sizes;
    forEachParagraph(document, [&](const Page &, const Paragraph &paragraph) {
        const double size = sizeOf(paragraph);
        if (paragraph.role == Role::Body && size > largerThanBody * body &&
            isHeadingLike(paragraph, plainText(paragraph))) {
            sizes.push_back(size);
        }
    });
    std::sort(sizes.rbegin(), sizes.rend());
    std::vector<double> ranks;
    for (const double size : sizes) {
        if (ranks.empty() || size < 0.94 * ranks.back()) {
            ranks.push_back(size);
        }
    }
    return ranks;
}

void setHeading(Paragraph &paragraph, std::size_t rank)
{
    constexpr std::size_t lowestRank = 2;
    paragraph.role = Role::Heading;
    paragraph.headingLevel = static_cast<int>(std::min(rank, lowestRank)) + 1;
}

void assignRole(const Page &page, Paragraph &paragraph, double body, const std::vector<double> &ranks)
{
    const QString text = plainText(paragraph).trimmed();
    const double size = sizeOf(paragraph);
    if (isCaption(text)) {
        paragraph.role = Role::Caption;
        return;
    }
    if (isHeadingLike(paragraph, text)) {
        if (size > largerThanBody * body) {
            const auto rank = std::find_if(ranks.begin(), ranks.end(), [size](double r) { return size >= 0.94 * r; });
            setHeading(paragraph, static_cast<std::size_t>(rank - ranks.begin()));
            return;
        }
        constexpr int longestBoldHeading = 100;
        if (isBold(paragraph) && size >= 0.98 * body && paragraph.lines.size() <= 2 &&
            text.size() <= longestBoldHeading && !text.endsWith(QLatin1Char('.')) && !text.endsWith(QLatin1Char(':'))) {
            setHeading(paragraph, ranks.size());
            return;
        }
    }
    if (size < smallerThanBody * body && paragraph.box.top > 0.6 * page.height && !text.isEmpty() &&
        (text.front().isDigit() || QStringLiteral("*†‡∗§¹²³").contains(text.front()))) {
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
                    if (!paragraph || paragraph->indentLeft < 2) {
                        lefts.clear();
                    }
                    continue;
                }
                constexpr double deeper = 5; // points
                const double left = paragraph->lines.front().box.left;
                while (!lefts.empty() && left < lefts.back() - deeper) {
                    lefts.pop_back();
                }
                if (lefts.empty() || left > lefts.back() + deeper) {
                    lefts.push_back(left);
                }
                paragraph->listItem->level = static_cast<int>(lefts.size()) - 1;
            }
        }
    }
}

} // namespace

void assignRoles(Document &document)
{
    const double body = bodySize(document);
    const std::vector<double> ranks = headingSizes(document, body);
    forEachParagraph(document, [&](const Page &page, Paragraph &paragraph) {
        if (paragraph.role == Role::Body) {
            assignRole(page, paragraph, body, ranks);
        }
    });
    assignListLevels(document);
}

} // namespace quorra::model
