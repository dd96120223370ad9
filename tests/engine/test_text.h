// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <QStringList>

#include <vector>

/// Text made by hand, in the form that the analysis delivers.
namespace testText {

/// The style as an entry of a table that exists until the test program exits.
inline quorra::model::StyleRef styled(const quorra::model::Style &style)
{
    static quorra::model::StyleTable styles;
    return styles.add(style);
}

/// A line of words, cut at the spaces of the text, side by side from x 0 on at half the size of type a letter.
inline quorra::model::Line lineOf(const QString &text, const quorra::model::Style &style = {}, const QString &link = {})
{
    quorra::model::Line line;
    double x = 0;
    const double letter = style.size / 2;
    for (const QString &part : text.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        quorra::model::Word word;
        word.text = part;
        word.style = styled(style);
        word.link = link;
        word.box = {x, 0, x + letter * static_cast<double>(part.size()), style.size};
        word.baseline = style.size;
        x = word.box.right + letter;
        line.words.push_back(word);
    }
    line.box = {0, 0, x, style.size};
    line.baseline = style.size;
    return line;
}

/// A paragraph of one line of text of one style.
inline quorra::model::Paragraph
paragraphOf(const QString &text, const quorra::model::Style &style = {}, const QString &link = {})
{
    quorra::model::Paragraph paragraph;
    paragraph.lines = {lineOf(text, style, link)};
    paragraph.box = paragraph.lines.front().box;
    return paragraph;
}

} // namespace testText
