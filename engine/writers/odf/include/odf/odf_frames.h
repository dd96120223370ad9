// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/picture_source.h"
#include "odf/odf_runs.h"

#include <QXmlStreamWriter>

namespace quorra::office {

/// What a frame hangs on.
enum class FrameAnchor {
    Line,   ///< stands in the line like a letter
    Page,   ///< at a place of the page, in front of the text
    Behind, ///< at a place of the page, behind the text
    Slide,  ///< at a place of the slide
    Sheet   ///< at a place of the sheet
};

/// Which way the lines of a frame run on the page.
enum class FrameDirection { Across, Down, Up };

/// An open text frame: the frame and, inside it, the text box that its paragraphs go into.
struct TextFrame
{
    XmlElement frame;
    XmlElement textBox;
};

/// Begins a text frame at the box; its paragraphs follow. With grows the frame gets higher where its text needs it.
[[nodiscard]] TextFrame beginTextFrame(
    const Sink &sink, const Box &box, FrameAnchor anchor, bool grows,
    FrameDirection direction = FrameDirection::Across);

/// Begins a frame for a table on a slide; the table follows.
[[nodiscard]] XmlElement beginTableFrame(const Sink &sink, const Box &box);

/// Writes a picture at the box; nothing for a picture without bytes.
void writePicture(const Sink &sink, const model::EncodedPicture &picture, const Box &box, FrameAnchor anchor);

/// Writes all pictures of the page at their places, drawings without their labels; for a scanned page that is the page.
void writePictures(const Sink &sink, const model::Page &page, model::PictureSource &pictures, FrameAnchor anchor);

/// Draws a line, or a filled rectangle, at its place on the page or slide.
void writeRule(const Sink &sink, const model::Rule &rule, FrameAnchor anchor);
void writeFill(const Sink &sink, const model::Fill &fill, FrameAnchor anchor);

} // namespace quorra::office
