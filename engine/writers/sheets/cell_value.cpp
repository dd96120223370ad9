// SPDX-License-Identifier: GPL-3.0-or-later
#include "cell_value.h"

#include "odf/odf_runs.h"

#include <QStringList>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

constexpr qsizetype maxMarkLength = 4; // characters; a longer superscript is no mark of a note

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

} // namespace

QString cellText(const model::Cell &cell)
{
    QStringList lines;
    for (const model::Paragraph &paragraph : cell.paragraphs) {
        const QString mark = paragraph.listItem ? paragraph.listItem->mark + u' ' : QString();
        lines.push_back(mark + model::plainText(paragraph));
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
