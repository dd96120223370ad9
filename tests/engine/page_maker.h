// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "analysis/analysis.h"
#include "document/rotation.h"
#include "document/text.h"

#include <QStringList>

#include <string>
#include <utility>

/// Pages made by hand, as the PDF module delivers them.
class PageMaker
{
public:
    explicit PageMaker(int number = 1, double width = 600, double height = 800)
    {
        m_page.number = number;
        m_page.width = width;
        m_page.height = height;
    }

    /// Adds the words of a text, starting at x, with characters half as wide as the font size; returns the end of the
    /// text.
    double text(double x, double baseline, const QString &text, double size = 10)
    {
        quorra::model::Style style;
        style.family = QStringLiteral("Times New Roman");
        style.size = size;
        return styled(x, baseline, text, style);
    }

    double bold(double x, double baseline, const QString &text, double size = 10)
    {
        quorra::model::Style style;
        style.family = QStringLiteral("Times New Roman");
        style.size = size;
        style.bold = true;
        return styled(x, baseline, text, style);
    }

    double styled(double x, double baseline, const QString &text, const quorra::model::Style &style)
    {
        for (const QString &part : text.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
            quorra::model::RawWord word;
            word.index = m_page.words.size();
            word.text = part;
            word.baseline = baseline;
            word.style = style;
            const double width = 0.5 * style.size * static_cast<double>(part.size());
            word.box = {x, baseline - 0.8 * style.size, x + width, baseline + 0.2 * style.size};
            m_page.words.push_back(word);
            x += width + 0.25 * style.size;
        }
        return x;
    }

    /// Lines of running text, 12 points apart; returns the baseline after the last.
    double lines(double x, double baseline, const QStringList &texts)
    {
        for (const QString &line : texts) {
            text(x, baseline, line);
            baseline += 12;
        }
        return baseline;
    }

    void rule(double x1, double y1, double x2, double y2) { m_page.rules.push_back({x1, y1, x2, y2, 0.5, 0}); }

    /// Adds all lines of a grid with these edges.
    void grid(const std::vector<double> &xs, const std::vector<double> &ys)
    {
        for (const double y : ys) {
            rule(xs.front(), y, xs.back(), y);
        }
        for (const double x : xs) {
            rule(x, ys.front(), x, ys.back());
        }
    }

    quorra::model::RawPage &raw() { return m_page; }

    quorra::model::Document build() const { return quorra::model::buildDocument({m_page}); }

private:
    quorra::model::RawPage m_page;
};

/// The page rotated clockwise by 90 degrees, as a page with sideways text is displayed.
inline quorra::model::RawPage sideways(quorra::model::RawPage page)
{
    const quorra::model::PageRotation rotation{1, page.width, page.height};
    std::swap(page.width, page.height);
    for (quorra::model::RawWord &word : page.words) {
        word.baseline = rotation.point(0, word.baseline).first;
        word.box = rotation.box(word.box);
        word.rotation = 90;
    }
    for (quorra::model::Rule &rule : page.rules) {
        const quorra::Box box = rotation.box({rule.x1, rule.y1, rule.x2, rule.y2});
        rule = {box.left, box.top, box.right, box.bottom, rule.width, rule.colour};
    }
    for (quorra::model::RawPicture &picture : page.pictures) {
        picture.box = rotation.box(picture.box);
    }
    return page;
}

/// Different lines of prose, all about as wide as the column.
inline QStringList prose(int lines, const QString &mark = QStringLiteral("alpha"))
{
    QStringList texts;
    for (int i = 0; i < lines; ++i) {
        texts += QStringLiteral("%1 runs along this line until number %2 and").arg(mark, QString::number(10 + i));
    }
    return texts;
}

/// The texts of all paragraphs of the first page, in reading order.
inline QStringList paragraphTexts(const quorra::model::Document &document)
{
    QStringList texts;
    for (const auto &section : document.pages.front().sections) {
        for (const auto &block : section.blocks) {
            if (block.paragraph()) {
                texts += quorra::model::plainText(*block.paragraph());
            }
        }
    }
    return texts;
}

/// The texts of all labels of figures on the first page, in reading order.
inline QStringList labelTexts(const quorra::model::Document &document)
{
    QStringList texts;
    for (const auto &section : document.pages.front().sections) {
        for (const auto &block : section.blocks) {
            if (const auto *figure = block.figure()) {
                for (const auto &label : figure->labels) {
                    texts += quorra::model::plainText(label);
                }
            }
        }
    }
    return texts;
}

/// The first table of the first page; null if there is none.
inline const quorra::model::Table *firstTable(const quorra::model::Document &document)
{
    for (const auto &section : document.pages.front().sections) {
        for (const auto &block : section.blocks) {
            if (block.table()) {
                return block.table();
            }
        }
    }
    return nullptr;
}

/// The text of the cell at this position; "(none)" if no cell begins there.
inline QString cellText(const quorra::model::Table &table, int row, int column)
{
    for (const auto &cell : table.cells) {
        if (cell.row == row && cell.column == column) {
            QStringList texts;
            for (const auto &paragraph : cell.paragraphs) {
                texts += quorra::model::plainText(paragraph);
            }
            return texts.join(QLatin1Char('|'));
        }
    }
    return QStringLiteral("(none)");
}

/// The cell that begins at this position; null if there is none.
inline const quorra::model::Cell *cellAt(const quorra::model::Table &table, int row, int column)
{
    for (const quorra::model::Cell &cell : table.cells) {
        if (cell.row == row && cell.column == column) {
            return &cell;
        }
    }
    return nullptr;
}

/// Three columns of words and numbers without rules.
inline PageMaker plainTable()
{
    PageMaker page;
    const QStringList names{
        QStringLiteral("Year"), QStringLiteral("North"), QStringLiteral("South"), QStringLiteral("East")};
    for (int row = 0; row < 4; ++row) {
        const double y = 200 + 14 * row;
        page.text(60, y, names.at(row));
        page.text(200, y, row == 0 ? QStringLiteral("2019") : QString::number(100 + row));
        page.text(300, y, row == 0 ? QStringLiteral("2020") : QString::number(200 + row));
    }
    return page;
}
