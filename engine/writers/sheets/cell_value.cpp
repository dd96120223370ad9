// SPDX-License-Identifier: GPL-3.0-or-later
#include "cell_value.h"

#include "odf/odf_runs.h"

#include <QStringList>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

constexpr qsizetype LongestMark = 4;

QString smallSigns(const QString &mark)
{
    static const QString plain = u"0123456789abcdefghijklmnoprstuvwxyz+-()"_s;
    static const QString small = u"⁰¹²³⁴⁵⁶⁷⁸⁹ᵃᵇᶜᵈᵉᶠᵍʰⁱʲᵏˡᵐⁿᵒᵖʳˢᵗᵘᵛʷˣʸᶻ⁺⁻⁽⁾"_s;
    QString result;
    for (const QChar sign : mark) {
        const qsizetype at = plain.indexOf(sign);
        result += at < 0 ? sign : small[at];
    }
    return result;
}

} // namespace

QString cellText(const model::Cell &cell)
{
    QStringList lines;
    for (const model::Paragraph &paragraph : cell.paragraphs) {
        QString text = paragraph.listMark.isEmpty() ? QString() : paragraph.listMark + u' ';
        for (const model::Run &run : paragraph.runs) {
            text += run.text;
        }
        lines.push_back(text);
    }
    return lines.join(u'\n');
}

std::optional<Number> cellNumber(const model::Cell &cell, NumberStyle style)
{
    if (cell.paragraphs.size() != 1) {
        return readNumber(cellText(cell), style);
    }
    const model::Paragraph &paragraph = cell.paragraphs.front();
    const std::vector<Rise> rises = risesOf(paragraph);
    QString before;
    QString mark;
    for (std::size_t i = 0; i < paragraph.runs.size(); ++i) {
        if (rises[i] == Rise::Above && !before.trimmed().isEmpty()) {
            mark += paragraph.runs[i].text;
        } else if (mark.isEmpty()) {
            before += paragraph.runs[i].text;
        } else {
            return readNumber(cellText(cell), style);
        }
    }
    mark = mark.trimmed();
    if (mark.isEmpty() || mark.size() > LongestMark || !paragraph.listMark.isEmpty()) {
        return readNumber(cellText(cell), style);
    }
    std::optional<Number> number = readNumber(before, style);
    if (number) {
        number->suffix += smallSigns(mark);
    }
    return number;
}

} // namespace quorra::office
