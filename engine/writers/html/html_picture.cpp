// SPDX-License-Identifier: GPL-3.0-or-later
#include "html_picture.h"

#include "base/xml_text.h"
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
    double right = 0;
    double size = 0;
};

// Words of a line far from one another belong to different parts of the drawing.
void addLabels(std::vector<Label> &labels, const Line &line, std::size_t firstWord)
{
    constexpr double wideGap = 0.8; // font sizes
    for (std::size_t i = firstWord; i < line.words.size(); ++i) {
        const Word &word = line.words[i];
        const bool joined = i > firstWord && std::abs(word.box.left - labels.back().right) < wideGap * word.style->size;
        if (joined) {
            labels.back().text += (line.words[i - 1].spaceAfter() ? QStringLiteral(" ") : QString()) + word.text;
            labels.back().right = word.box.right;
        } else {
            labels.push_back({word.text, word.box.left, word.box.top, word.box.right, word.style->size});
        }
    }
}

// A word cut at a line's end is whole in the label that begins it.
std::vector<Label> labelsOf(const model::Paragraph &paragraph)
{
    std::vector<Label> labels;
    bool cut = false;
    for (const Line &line : paragraph.lines) {
        if (cut && !line.words.empty()) {
            labels.back().text.chop(1);
            labels.back().text += line.words.front().text;
        }
        addLabels(labels, line, cut ? 1 : 0);
        cut = !labels.empty() && !line.words.empty() && line.words.back().separator == model::Separator::Hyphen;
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
    xml.writeAttribute(
        QStringLiteral("src"),
        QStringLiteral("data:%1;base64,%2")
            .arg(QString::fromLatin1(encoded.mimeType), QString::fromLatin1(encoded.bytes.toBase64())));
    for (const model::Paragraph &paragraph : figure.labels) {
        for (const Label &label : labelsOf(paragraph)) {
            xml.writeCharacters(QStringLiteral("\n"));
            writeLabel(xml, label, box);
        }
    }
}

} // namespace quorra
