// SPDX-License-Identifier: GPL-3.0-or-later
#include "odf/odf_frames.h"

#include "base/xml_text.h"
#include "document/page_walk.h"

#include <algorithm>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

Attributes anchoring(FrameAnchor anchor)
{
    Attributes properties;
    if (anchor == FrameAnchor::Page || anchor == FrameAnchor::Behind) {
        properties = {
            {"style:vertical-pos"_L1, u"from-top"_s},
            {"style:vertical-rel"_L1, u"page"_s},
            {"style:horizontal-pos"_L1, u"from-left"_s},
            {"style:horizontal-rel"_L1, u"page"_s},
            {"style:wrap"_L1, u"run-through"_s},
            {"style:run-through"_L1, anchor == FrameAnchor::Behind ? u"background"_s : u"foreground"_s}};
    } else if (anchor == FrameAnchor::Line) {
        properties = {{"style:vertical-pos"_L1, u"bottom"_s}, {"style:vertical-rel"_L1, u"baseline"_s}};
    }
    return properties;
}

QString frameStyle(const Sink &sink, FrameAnchor anchor, QLatin1String textParent, Attributes more)
{
    Attributes properties = anchoring(anchor);
    properties.insert(properties.end(), more.begin(), more.end());
    const bool inText = anchor != FrameAnchor::Slide && anchor != FrameAnchor::Sheet;
    return sink.styles.graphic(properties, inText ? textParent : "standard"_L1);
}

void writeAnchor(QXmlStreamWriter &xml, FrameAnchor anchor)
{
    if (anchor != FrameAnchor::Slide && anchor != FrameAnchor::Sheet) {
        xml.writeAttribute("text:anchor-type"_L1, anchor == FrameAnchor::Line ? "as-char"_L1 : "paragraph"_L1);
    }
}

void writePlace(QXmlStreamWriter &xml, const Box &box, FrameAnchor anchor)
{
    if (anchor != FrameAnchor::Line) {
        xml.writeAttribute("svg:x"_L1, pt(box.left));
        xml.writeAttribute("svg:y"_L1, pt(box.top));
    }
    xml.writeAttribute("svg:width"_L1, pt(box.width()));
}

} // namespace

TextFrame beginTextFrame(const Sink &sink, const Box &box, FrameAnchor anchor, bool grows, FrameDirection direction)
{
    QXmlStreamWriter &xml = sink.xml;
    Attributes properties = {
        {"fo:padding"_L1, u"0pt"_s},
        {"fo:border"_L1, u"none"_s},
        {"draw:fill"_L1, u"none"_s},
        {"draw:stroke"_L1, u"none"_s}};
    if (anchor == FrameAnchor::Slide) {
        properties.insert(
            properties.end(), {{"draw:auto-grow-height"_L1, u"false"_s},
                               {"draw:auto-grow-width"_L1, u"false"_s},
                               {"draw:textarea-vertical-align"_L1, u"top"_s}});
    } else {
        properties.emplace_back("style:background-transparency"_L1, u"100%"_s);
    }
    if (direction == FrameDirection::Down) {
        properties.emplace_back("style:writing-mode"_L1, u"tb-rl"_s);
    } else if (direction == FrameDirection::Up) {
        properties.emplace_back("loext:writing-mode"_L1, u"bt-lr"_s);
    }
    XmlElement frame(xml, "draw:frame"_L1);
    xml.writeAttribute("draw:style-name"_L1, frameStyle(sink, anchor, "Frame"_L1, properties));
    writeAnchor(xml, anchor);
    writePlace(xml, box, anchor);
    if (!grows) {
        xml.writeAttribute("svg:height"_L1, pt(box.height()));
    }
    XmlElement textBox(xml, "draw:text-box"_L1);
    if (grows) {
        xml.writeAttribute("fo:min-height"_L1, pt(box.height()));
    }
    return {std::move(frame), std::move(textBox)};
}

XmlElement beginTableFrame(const Sink &sink, const Box &box)
{
    XmlElement frame(sink.xml, "draw:frame"_L1);
    sink.xml.writeAttribute("draw:style-name"_L1, frameStyle(sink, FrameAnchor::Slide, {}, {}));
    writePlace(sink.xml, box, FrameAnchor::Slide);
    sink.xml.writeAttribute("svg:height"_L1, pt(box.height()));
    return frame;
}

void writePicture(
    const Sink &sink, const model::EncodedPicture &picture, const Box &box, FrameAnchor anchor,
    const PictureWords &words)
{
    if (picture.bytes.isEmpty() || box.isEmpty()) {
        return;
    }
    QXmlStreamWriter &xml = sink.xml;
    const XmlElement frame(xml, "draw:frame"_L1);
    xml.writeAttribute("draw:style-name"_L1, frameStyle(sink, anchor, "Graphics"_L1, {}));
    if (!words.name.isEmpty()) {
        xml.writeAttribute("draw:name"_L1, words.name);
    }
    writeAnchor(xml, anchor);
    writePlace(xml, box, anchor);
    xml.writeAttribute("svg:height"_L1, pt(box.height()));
    {
        const XmlElement image(xml, "draw:image"_L1);
        xml.writeTextElement("office:binary-data"_L1, QLatin1String(picture.bytes.toBase64()));
    }
    if (!words.alternative.isEmpty()) {
        xml.writeTextElement("svg:desc"_L1, xmlText(words.alternative));
    }
}

void writePictures(const Sink &sink, const model::Page &page, model::PictureSource &pictures, FrameAnchor anchor)
{
    forEachBlock(page, [&](const model::Block &block) {
        if (const model::Figure *figure = block.figure()) {
            writePicture(sink, pictures.encode(*figure, model::DrawingWords::Apart), figure->box, anchor);
        }
    });
}

std::vector<model::Fill> visibleFills(const model::Page &page)
{
    std::vector<model::Fill> visible;
    for (const model::Fill &fill : page.fills) {
        const auto isBelow = [&](const model::Fill &other) {
            return other.box.left < fill.box.right && other.box.right > fill.box.left &&
                   other.box.top < fill.box.bottom && other.box.bottom > fill.box.top;
        };
        const bool seen = fill.colour != white || std::any_of(visible.begin(), visible.end(), isBelow);
        if (seen && !fill.box.isEmpty()) {
            visible.push_back(fill);
        }
    }
    return visible;
}

void writeRule(const Sink &sink, const model::Rule &rule, FrameAnchor anchor)
{
    QXmlStreamWriter &xml = sink.xml;
    xml.writeEmptyElement("draw:line"_L1);
    xml.writeAttribute(
        "draw:style-name"_L1, frameStyle(
                                  sink, anchor, {},
                                  {{"draw:stroke"_L1, u"solid"_s},
                                   {"svg:stroke-width"_L1, pt(std::max(rule.width, minLineWidth))},
                                   {"svg:stroke-color"_L1, colourName(rule.colour)}}));
    writeAnchor(xml, anchor);
    xml.writeAttribute("svg:x1"_L1, pt(rule.x1));
    xml.writeAttribute("svg:y1"_L1, pt(rule.y1));
    xml.writeAttribute("svg:x2"_L1, pt(rule.x2));
    xml.writeAttribute("svg:y2"_L1, pt(rule.y2));
}

void writeFill(const Sink &sink, const model::Fill &fill, FrameAnchor anchor)
{
    if (fill.box.isEmpty()) {
        return;
    }
    QXmlStreamWriter &xml = sink.xml;
    xml.writeEmptyElement("draw:rect"_L1);
    xml.writeAttribute(
        "draw:style-name"_L1, frameStyle(
                                  sink, anchor, {},
                                  {{"draw:stroke"_L1, u"none"_s},
                                   {"draw:fill"_L1, u"solid"_s},
                                   {"draw:fill-color"_L1, colourName(fill.colour)}}));
    writeAnchor(xml, anchor);
    writePlace(xml, fill.box, anchor);
    xml.writeAttribute("svg:height"_L1, pt(fill.box.height()));
}

} // namespace quorra::office
