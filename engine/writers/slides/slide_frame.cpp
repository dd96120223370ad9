// SPDX-License-Identifier: GPL-3.0-or-later
#include "slide_frame.h"

#include "document/rotation.h"

#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

constexpr double quarterTurn = 1.5707963268; // radians, the unit of angles in ODF

model::PageRotation toSlide(const SlideOrientation &orientation)
{
    return model::rotationToPage(orientation.rotation, orientation.width, orientation.height);
}

/// Writes what makes an open frame a text box, or a placeholder of the slide's layout.
void writeFrameKind(const Sink &sink, BoxKind kind, const Attributes &properties)
{
    if (kind == BoxKind::Text) {
        sink.xml.writeAttribute("draw:style-name"_L1, sink.styles.graphic(properties, "standard"_L1));
        return;
    }
    const bool title = kind == BoxKind::Title;
    const QString style = sink.styles.name(
        {"style:style"_L1,
         {{"style:family"_L1, u"presentation"_s},
          {"style:parent-style-name"_L1, title ? u"Default-title"_s : u"Default-outline1"_s}},
         {{"style:graphic-properties"_L1, properties}}});
    sink.xml.writeAttribute("presentation:style-name"_L1, style);
    sink.xml.writeAttribute("presentation:class"_L1, title ? "title"_L1 : "outline"_L1);
    sink.xml.writeAttribute("presentation:user-transformed"_L1, "true"_L1);
}

QString sideName(model::Alignment alignment)
{
    switch (alignment) {
    case model::Alignment::Centre:
        return u"center"_s;
    case model::Alignment::Right:
        return u"right"_s;
    default:
        return u"left"_s;
    }
}

} // namespace

Box onSlide(const Box &box, const SlideOrientation &orientation)
{
    return toSlide(orientation).box(box);
}

model::Rule onSlide(const model::Rule &rule, const SlideOrientation &orientation)
{
    const Box box = onSlide(Box{rule.x1, rule.y1, rule.x2, rule.y2}, orientation);
    return {box.left, box.top, box.right, box.bottom, rule.width, rule.colour};
}

TextFrame beginSlideFrame(const Sink &sink, const FrameLook &look)
{
    const Attributes properties = {
        {"fo:padding"_L1, u"0pt"_s},
        {"fo:border"_L1, u"none"_s},
        {"draw:fill"_L1, u"none"_s},
        {"draw:stroke"_L1, u"none"_s},
        {"draw:auto-grow-height"_L1, u"false"_s},
        {"draw:auto-grow-width"_L1, look.wraps ? u"false"_s : u"true"_s},
        {"draw:fit-to-size"_L1, u"false"_s},
        {"fo:wrap-option"_L1, look.wraps ? u"wrap"_s : u"no-wrap"_s},
        {"draw:textarea-horizontal-align"_L1, look.wraps ? u"justify"_s : sideName(look.alignment)},
        {"draw:textarea-vertical-align"_L1, u"top"_s}};
    QXmlStreamWriter &xml = sink.xml;
    const Box &box = look.box;
    const SlideOrientation &orientation = look.orientation;
    XmlElement frame(xml, "draw:frame"_L1);
    writeFrameKind(sink, look.kind, properties);
    const auto [x, y] = toSlide(orientation).point(box.left, box.top);
    if (orientation.rotation == 0) {
        xml.writeAttribute("svg:x"_L1, pt(x));
        xml.writeAttribute("svg:y"_L1, pt(y));
    } else {
        const QString angle = QString::number(-quarterTurn * orientation.rotation / 90, 'f', 6);
        xml.writeAttribute(
            "draw:transform"_L1, "rotate ("_L1 + angle + ") translate ("_L1 + pt(x) + u' ' + pt(y) + u')');
    }
    xml.writeAttribute("svg:width"_L1, pt(box.width()));
    xml.writeAttribute("svg:height"_L1, pt(box.height()));
    return {std::move(frame), XmlElement(xml, "draw:text-box"_L1)};
}

} // namespace quorra::office
