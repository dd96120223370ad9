// SPDX-License-Identifier: GPL-3.0-or-later
#include "cell_value.h"

#include "number_format.h"
#include "odf/odf_runs.h"

#include <QLocale>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

constexpr qsizetype maxMarkLength = 4; // characters; a longer superscript is no mark of a note
constexpr int exactDigits = 15;        // of a number in a spreadsheet
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
        const std::vector<std::vector<model::Run>> preformatted = model::preformattedLines(paragraph);
        if (!preformatted.empty()) {
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

std::optional<Number> cellNumber(const model::Cell &cell, const NumberHabits &habits)
{
    if (cell.paragraphs.size() != 1) {
        return readNumber(cellText(cell), habits);
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
            return readNumber(cellText(cell), habits);
        }
    }
    mark = mark.trimmed();
    if (mark.isEmpty() || mark.size() > maxMarkLength || paragraph.listItem) {
        return readNumber(cellText(cell), habits);
    }
    std::optional<Number> number = readNumber(before, habits);
    if (number) {
        number->suffix += superscriptCharacters(mark);
    }
    return number;
}

CellHabits cellHabits(const QStringList &texts, const QString &language)
{
    NumberHabits usual;
    if (!language.isEmpty()) {
        const QLocale locale(QString(language).replace(u'-', u'_'));
        usual.style = locale.decimalPoint() == u"," ? NumberStyle::Comma : NumberStyle::Point;
    }
    return {numberHabitsOf(texts, usual), dateHabitsOf(texts, language)};
}

CellHabits tableHabits(const QStringList &texts, const CellHabits &document)
{
    CellHabits habits = document;
    habits.numbers = numberHabitsOf(texts, document.numbers);
    return habits;
}

CellValue cellValue(const model::Cell &cell, const CellHabits &habits)
{
    if (const std::optional<Number> number = cellNumber(cell, habits.numbers)) {
        return *number;
    }
    if (const std::optional<SheetDate> date = readDate(cellText(cell), habits.dates)) {
        return *date;
    }
    return {};
}

QString dataStyle(StyleTable &styles, const CellValue &value)
{
    if (const auto *number = std::get_if<Number>(&value)) {
        return numberFormat(styles, *number);
    }
    const auto *date = std::get_if<SheetDate>(&value);
    return date ? dateFormat(styles, *date) : QString();
}

void writeValue(QXmlStreamWriter &xml, const CellValue &value)
{
    if (const auto *number = std::get_if<Number>(&value)) {
        xml.writeAttribute("office:value-type"_L1, number->percent ? "percentage"_L1 : "float"_L1);
        xml.writeAttribute("office:value"_L1, QString::number(number->value, 'g', exactDigits));
    } else if (const auto *date = std::get_if<SheetDate>(&value)) {
        if (!date->day.isValid()) {
            xml.writeAttribute("office:value-type"_L1, "time"_L1);
            xml.writeAttribute("office:time-value"_L1, date->time.toString(u"'PT'HH'H'mm'M'ss'S'"_s));
            return;
        }
        const QString time = date->time.isValid() ? date->time.toString(u"'T'HH:mm:ss"_s) : QString();
        xml.writeAttribute("office:value-type"_L1, "date"_L1);
        xml.writeAttribute("office:date-value"_L1, date->day.toString(Qt::ISODate) + time);
    }
}

} // namespace quorra::office
