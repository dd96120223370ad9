// SPDX-License-Identifier: GPL-3.0-or-later
#include "cell_value.h"

#include "odf/odf_runs.h"

#include <QStringList>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

constexpr qsizetype maxMarkLength = 4; // characters; a longer superscript is no mark of a note
constexpr QLatin1String tabText("    ");

QString superscriptCharacters(const QString &mark)
{
    static const QString plain = u"0123456789abcdefghijklmnoprstuvwxyz+-()"_s;
    static const QString small = u"⁰¹²³⁴⁵⁶⁷⁸⁹ᵃᵇᶜᵈᵉᶠᵍʰⁱʲᵏˡᵐⁿᵒᵖʳˢᵗᵘᵛʷˣʸᶻ⁺⁻⁽⁾"_s;
    QString result;
    for (const QChar character : mark) {
        const qsizetype at = plain.indexOf(character);
        result += at < 0 ? character : small[at];
    }
    return result;
}

/// Adds the text of a run, which continues the last line and may contain line breaks.
void addLines(std::vector<std::vector<model::Run>> &lines, const model::Run &run)
{
    const QStringList parts = run.text.split(u'\n');
    for (const QString &part : parts) {
        if (&part != &parts.front()) {
            lines.emplace_back();
        }
        model::Run text = run;
        text.text = QString(part).replace(u'\t', tabText);
        if (!text.text.isEmpty()) {
            lines.back().push_back(text);
        }
    }
}

} // namespace

std::vector<std::vector<model::Run>> cellLines(const model::Cell &cell)
{
    std::vector<std::vector<model::Run>> lines;
    for (const model::Paragraph &paragraph : cell.paragraphs) {
        if (paragraph.preformatted) {
            const std::vector<std::vector<model::Run>> preformatted = model::preformattedLines(paragraph);
            lines.insert(lines.end(), preformatted.begin(), preformatted.end());
            continue;
        }
        const std::vector<model::Run> runs = model::runsOf(paragraph);
        lines.emplace_back();
        if (paragraph.listItem) {
            model::Run mark;
            mark.text = paragraph.listItem->mark + u' ';
            mark.style = runs.empty() ? model::Style{} : runs.front().style;
            lines.back().push_back(mark);
        }
        for (const model::Run &run : runs) {
            addLines(lines, run);
        }
    }
    return lines;
}

QString cellText(const model::Cell &cell)
{
    QStringList lines;
    for (const std::vector<model::Run> &line : cellLines(cell)) {
        lines.push_back(model::plainText(line));
    }
    return lines.join(u'\n');
}

std::optional<Number> cellNumber(const model::Cell &cell, NumberStyle style)
{
    if (cell.paragraphs.size() != 1) {
        return readNumber(cellText(cell), style);
    }
    const model::Paragraph &paragraph = cell.paragraphs.front();
    QString before;
    QString mark;
    for (const model::Run &run : model::runsOf(paragraph)) {
        if (run.shift == model::BaselineShift::Superscript && !before.trimmed().isEmpty()) {
            mark += run.text;
        } else if (mark.isEmpty()) {
            before += run.text;
        } else {
            return readNumber(cellText(cell), style);
        }
    }
    mark = mark.trimmed();
    if (mark.isEmpty() || mark.size() > maxMarkLength || paragraph.listItem) {
        return readNumber(cellText(cell), style);
    }
    std::optional<Number> number = readNumber(before, style);
    if (number) {
        number->suffix += superscriptCharacters(mark);
    }
    return number;
}

} // namespace quorra::office
