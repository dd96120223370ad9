// SPDX-License-Identifier: GPL-3.0-or-later
#include "html_picture.h"

#include "base/xml_text.h"
#include "document/line_pieces.h"
#include "document/text.h"
#include "html_style.h"
#include "html_text.h"

#include <QXmlStreamWriter>

#include <algorithm>
#include <cmath>

namespace quorra {

namespace {

using model::Line;
using model::Word;

struct Label
{
    QString text;
    double left = 0;
    double top = 0;
    double size = 0;
};

/// Words of a line that are far apart belong to different parts of the drawing. A word hyphenated at a line end is
/// completed in the label where it begins.
std::vector<Label> labelsOf(const model::Paragraph &paragraph)
{
    std::vector<Label> labels;
    bool hyphenated = false;
    for (const Line &source : paragraph.lines) {
        Line line = source;
        if (hyphenated && !line.words.empty()) {
            labels.back().text.chop(1);
            labels.back().text += line.words.front().text;
        }
        const bool continues = !line.words.empty() && line.words.back().separator == model::Separator::Hyphen;
        if (hyphenated && !line.words.empty()) {
            line.words.erase(line.words.begin());
        }
        for (const Line &piece : linePieces(line, model::labelLimits)) {
            if (!piece.words.empty()) {
                const Word &first = piece.words.front();
                labels.push_back({model::plainText(piece), first.box.left, first.box.top, first.style->size});
            }
        }
        hyphenated = continues && !labels.empty();
    }
    return labels;
}

QString percent(double part, double whole)
{
    return QString::number(std::round(std::clamp(part / whole, 0.0, 1.0) * 1000) / 10) + QLatin1Char('%');
}

void writeLabel(QXmlStreamWriter &xml, const Label &label, const Box &box)
{
    const XmlElement element = startElement(xml, QStringLiteral("span"), "label");
    xml.writeAttribute(
        QStringLiteral("style"),
        QStringLiteral("left:%1;top:%2;font-size:%3pt")
            .arg(
                percent(label.left - box.left, box.width()), percent(label.top - box.top, box.height()),
                QString::number(std::round(label.size * 10) / 10)));
    xml.writeCharacters(xmlText(label.text));
}

} // namespace

void writeHtmlFigure(
    QXmlStreamWriter &xml, const model::EncodedPicture &encoded, const model::Figure &figure, const QString &alt,
    bool centred)
{
    const Box &box = figure.box;
    const XmlElement element = startBlock(xml, QStringLiteral("div"), centred ? "picture middle" : "picture");
    xml.writeEmptyElement(QStringLiteral("img"));
    xml.writeAttribute(QStringLiteral("alt"), alt);
    constexpr double pixelsInPoint = 96.0 / 72;
    xml.writeAttribute(QStringLiteral("width"), QString::number(std::lround(box.width() * pixelsInPoint)));
    xml.writeAttribute(QStringLiteral("height"), QString::number(std::lround(box.height() * pixelsInPoint)));
    xml.writeAttribute(QStringLiteral("src"), model::dataAddress(encoded));
    for (const model::Paragraph &paragraph : figure.labels) {
        for (const Label &label : labelsOf(paragraph)) {
            xml.writeCharacters(QStringLiteral("\n"));
            writeLabel(xml, label, box);
        }
    }
}

} // namespace quorra
