// SPDX-License-Identifier: GPL-3.0-or-later
#include "slide_master.h"

#include "base/colour.h"
#include "base/xml_element.h"
#include "odf/odf_frames.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

/// Where the placeholders of new slides are: shares of the slide's width and height.
struct Placeholders
{
    double margin = 0.05;
    double titleTop = 0.04;
    double titleBottom = 0.2;
    double outlineTop = 0.24;
    double outlineBottom = 0.94;
};
constexpr Placeholders placeholders;

constexpr QLatin1String titleLayout("Title");
constexpr QLatin1String outlineLayout("TitleAndOutline");

Box placeholderBox(const model::Page &size, bool title)
{
    return {
        placeholders.margin * size.width, (title ? placeholders.titleTop : placeholders.outlineTop) * size.height,
        (1 - placeholders.margin) * size.width,
        (title ? placeholders.titleBottom : placeholders.outlineBottom) * size.height};
}

Attributes placeAttributes(const Box &box)
{
    return {
        {"svg:x"_L1, pt(box.left)},
        {"svg:y"_L1, pt(box.top)},
        {"svg:width"_L1, pt(box.width())},
        {"svg:height"_L1, pt(box.height())}};
}

Element layoutPlaceholder(const model::Page &size, bool title)
{
    Element placeholder{"presentation:placeholder"_L1, {{"presentation:object"_L1, title ? u"title"_s : u"outline"_s}}};
    const Attributes place = placeAttributes(placeholderBox(size, title));
    placeholder.attributes.insert(placeholder.attributes.end(), place.begin(), place.end());
    return placeholder;
}

Element masterPlaceholder(const model::Page &size, bool title)
{
    Element frame{
        "draw:frame"_L1,
        {{"presentation:style-name"_L1, title ? u"Default-title"_s : u"Default-outline1"_s},
         {"presentation:class"_L1, title ? u"title"_s : u"outline"_s},
         {"presentation:placeholder"_L1, u"true"_s}},
        {{"draw:text-box"_L1}}};
    const Attributes place = placeAttributes(placeholderBox(size, title));
    frame.attributes.insert(frame.attributes.end(), place.begin(), place.end());
    return frame;
}

void writeMaster(
    OdfFile &file, const QString &name, const QString &layout, const model::Page &size,
    const CommonBackground &background, model::PictureSource &pictures)
{
    const Sink sink{file.masters(), file.styles()};
    const bool filled = !background.fills.empty() && coversPage(background.fills.front(), size);
    const XmlElement master(sink.xml, "style:master-page"_L1);
    sink.xml.writeAttribute("style:name"_L1, name);
    sink.xml.writeAttribute("style:page-layout-name"_L1, layout);
    if (filled) {
        sink.xml.writeAttribute("draw:style-name"_L1, filledPageStyle(sink.styles, background.fills.front().colour));
    }
    for (std::size_t i = filled ? 1 : 0; i < background.fills.size(); ++i) {
        writeFill(sink, background.fills[i], FrameAnchor::Slide);
    }
    for (const model::Figure &picture : background.pictures) {
        writePicture(
            sink, pictures.encode(picture, model::DrawingWords::Apart), picture.box, FrameAnchor::Slide,
            {{}, picture.alternative});
    }
    writeElement(sink.xml, masterPlaceholder(size, true));
    writeElement(sink.xml, masterPlaceholder(size, false));
}

} // namespace

SlideMasters
writeMasters(OdfFile &file, const model::Page &size, const CommonBackground &common, model::PictureSource &pictures)
{
    const Element title = layoutPlaceholder(size, true);
    const Element outline = layoutPlaceholder(size, false);
    file.define({"style:presentation-page-layout"_L1, {{"style:name"_L1, titleLayout}}, {title}});
    file.define({"style:presentation-page-layout"_L1, {{"style:name"_L1, outlineLayout}}, {title, outline}});
    const QString layout = file.styles().name(
        {"style:page-layout"_L1,
         {},
         {{"style:page-layout-properties"_L1,
           {{"fo:page-width"_L1, pt(size.width)},
            {"fo:page-height"_L1, pt(size.height)},
            {"fo:margin"_L1, u"0pt"_s},
            {"style:print-orientation"_L1, size.width > size.height ? u"landscape"_s : u"portrait"_s}}}}});
    const auto write = [&](const QString &name, const CommonBackground &background) {
        writeMaster(file, name, layout, size, background, pictures);
        return name;
    };
    const QString plain = write(u"Default"_s, {});
    return {common.isEmpty() ? plain : write(u"Common"_s, common), plain};
}

QString filledPageStyle(StyleTable &styles, Colour colour)
{
    return styles.name(
        {"style:style"_L1,
         {{"style:family"_L1, u"drawing-page"_s}},
         {{"style:drawing-page-properties"_L1,
           {{"draw:background-size"_L1, u"border"_s},
            {"draw:fill"_L1, u"solid"_s},
            {"draw:fill-color"_L1, colourName(colour)},
            {"presentation:background-visible"_L1, u"true"_s},
            {"presentation:background-objects-visible"_L1, u"true"_s}}}}});
}

QString layoutName(const std::vector<SlideBox> &boxes)
{
    const auto has = [&](BoxKind kind) {
        return std::any_of(boxes.begin(), boxes.end(), [&](const SlideBox &box) { return box.kind == kind; });
    };
    return has(BoxKind::Outline) ? QString(outlineLayout) : has(BoxKind::Title) ? QString(titleLayout) : QString();
}

} // namespace quorra::office
