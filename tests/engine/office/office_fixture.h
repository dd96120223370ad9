// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "../test_text.h"

#include "document/document.h"
#include "document/picture_source.h"
#include "odf/odf_file.h"

#include <QFile>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <functional>
#include <stdexcept>

/// Hand-made documents, and the flat ODF files that writers create from them.
namespace fixture {

using namespace quorra;

inline model::Style style(double size = 10, bool bold = false)
{
    model::Style textStyle;
    textStyle.family = QStringLiteral("Liberation Serif");
    textStyle.serif = true;
    textStyle.size = size;
    textStyle.bold = bold;
    return textStyle;
}

/// Adds a word to the end of the paragraph's last line, 5 points per character and 5 points after the previous word.
inline void addWord(
    model::Paragraph &paragraph, const QString &text, const model::Style &textStyle = style(), const QString &link = {})
{
    model::Line &line = paragraph.lines.back();
    const double left = line.words.empty() ? line.box.left : line.words.back().box.right + 5;
    model::Word word;
    word.text = text;
    word.box = {left, line.box.top, left + 5 * static_cast<double>(text.size()), line.box.bottom};
    word.baseline = line.baseline;
    word.style = testText::styled(textStyle);
    word.link = link;
    line.words.push_back(word);
}

/// A paragraph of one line at the box, with words of 5 points per character.
inline model::Paragraph paragraph(const QString &text, const Box &box, const model::Style &textStyle = style())
{
    model::Paragraph result;
    result.box = box;
    result.lines = {{box, box.bottom - 2, 0, {}}};
    const QStringList words = text.split(u' ', Qt::SkipEmptyParts);
    for (const QString &word : words) {
        addWord(result, word, textStyle);
    }
    return result;
}

/// A list item whose first word is the mark.
inline model::Paragraph listItem(const QString &text, const Box &box)
{
    model::Paragraph result = paragraph(text, box);
    result.role = model::Role::ListItem;
    result.listItem = model::ListItem{result.lines[0].words[0].text, false, 0};
    return result;
}

inline model::Block block(model::Paragraph content, int column = 0)
{
    return {std::move(content), column};
}

/// A figure at the box, without labels.
inline model::Figure figure(const Box &box, model::FigureKind kind)
{
    model::Figure result;
    result.box = box;
    result.kind = kind;
    return result;
}

/// A page of one section with these columns.
inline model::Page page(std::vector<Box> columns = {{72, 72, 540, 720}})
{
    model::Page result;
    result.content = {72, 72, 540, 720};
    result.sections.push_back({std::move(columns), {}});
    return result;
}

inline model::Document document(std::vector<model::Page> pages)
{
    model::Document made;
    made.pages = std::move(pages);
    return made;
}

/// A ruled table with these texts, row by row, and cells of 100 x 20 points.
inline model::Table table(int columns, const QStringList &texts)
{
    model::Table result;
    result.ruled = true;
    const int rows = static_cast<int>(texts.size()) / columns;
    for (int column = 0; column <= columns; ++column) {
        result.columnEdges.push_back(72 + 100 * column);
    }
    for (int row = 0; row <= rows; ++row) {
        result.rowEdges.push_back(100 + 20 * row);
    }
    result.box = {72, 100, result.columnEdges.back(), result.rowEdges.back()};
    for (int i = 0; i < static_cast<int>(texts.size()); ++i) {
        model::Cell cell;
        cell.row = i / columns;
        cell.column = i % columns;
        cell.left = cell.right = cell.top = cell.bottom = {0.5, black};
        cell.box = {72.0 + 100 * cell.column, 100.0 + 20 * cell.row, 172.0 + 100 * cell.column, 120.0 + 20 * cell.row};
        if (!texts[i].isEmpty()) {
            cell.paragraphs.push_back(paragraph(texts[i], cell.box));
        }
        result.cells.push_back(cell);
    }
    return result;
}

/// Returns the same few bytes for every picture and counts the requests.
class Pictures : public model::PictureSource
{
public:
    model::EncodedPicture encode(const model::Figure &, model::DrawingWords) override
    {
        ++encoded;
        return {QByteArrayLiteral("picture"), QByteArrayLiteral("image/png"), 1, 1};
    }
    model::EncodedPicture background(int) override
    {
        ++backgrounds;
        return {QByteArrayLiteral("background"), QByteArrayLiteral("image/png"), 1, 1};
    }

    int encoded = 0;
    int backgrounds = 0;
};

/// Reads to the end. Throws an exception with the reason if the text is not well-formed XML.
template <typename Visitor>
void readXml(QXmlStreamReader &reader, const Visitor &visit)
{
    while (!reader.atEnd()) {
        reader.readNext();
        visit();
    }
    if (reader.hasError()) {
        throw std::runtime_error(reader.errorString().toStdString());
    }
}

/// The flat ODF file that `write` creates, as text. Throws if there is none or if it is not well-formed XML.
inline QString odf(office::OdfKind kind, const std::function<void(office::OdfFile &)> &write)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("made.xml"));
    office::OdfFile file(kind, path);
    write(file);
    file.finish();
    QFile made(path);
    if (!made.open(QIODevice::ReadOnly)) {
        throw std::runtime_error("the file cannot be read");
    }
    const QByteArray bytes = made.readAll();
    QXmlStreamReader reader(bytes);
    readXml(reader, [] {});
    return QString::fromUtf8(bytes);
}

/// The text of each paragraph of the body, without elements.
inline QStringList paragraphs(const QString &odfText)
{
    QStringList result;
    QXmlStreamReader reader(odfText);
    int depth = 0;
    readXml(reader, [&] {
        const bool isParagraph = reader.name() == QLatin1String("p") || reader.name() == QLatin1String("h");
        if (reader.isStartElement() && isParagraph && depth++ == 0) {
            result.push_back({});
        } else if (reader.isEndElement() && isParagraph) {
            --depth;
        } else if (reader.isStartElement() && depth > 0 && reader.name() == QLatin1String("tab")) {
            result.back() += u'\t';
        } else if (reader.isStartElement() && depth > 0 && reader.name() == QLatin1String("s")) {
            result.back() += u' ';
        } else if (reader.isCharacters() && depth > 0) {
            result.back() += reader.text();
        }
    });
    return result;
}

} // namespace fixture
