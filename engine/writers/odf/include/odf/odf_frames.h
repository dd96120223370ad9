// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/picture_source.h"
#include "odf/odf_runs.h"

#include <QString>
#include <QXmlStreamWriter>

#include <vector>

namespace quorra::office {

/// The anchor of a frame.
enum class FrameAnchor {
    Line,   ///< in a line, like a character
    Page,   ///< at a position on the page, in front of the text
    Behind, ///< at a position on the page, behind the text
    Slide,  ///< at a position on the slide
    Sheet   ///< at a position on the sheet
};

/// The direction of the lines in a frame.
enum class FrameDirection { Across, Down, Up };

/// An open text frame: the frame and, inside it, the text box for its paragraphs.
struct TextFrame
{
    XmlElement frame;
    XmlElement textBox;
};

/// Begins a text frame at the box; its paragraphs follow. With `grows`, the frame grows to the height of its text.
[[nodiscard]] TextFrame beginTextFrame(
    const Sink &sink, const Box &box, FrameAnchor anchor, bool grows,
    FrameDirection direction = FrameDirection::Across);

/// Begins a frame for a table on a slide; the table follows.
[[nodiscard]] XmlElement beginTableFrame(const Sink &sink, const Box &box);

/// What programs tell about a picture. Empty texts are left out.
struct PictureWords
{
    QString name = {};
    QString alternative = {}; ///< what is read aloud in its place
};

/// Writes a picture at the box, unless it has no bytes.
void writePicture(
    const Sink &sink, const model::EncodedPicture &picture, const Box &box, FrameAnchor anchor,
    const PictureWords &words = {});

/// Writes the pictures of the page at their positions, drawings without their labels. The picture of a scanned page is
/// the whole page.
void writePictures(const Sink &sink, const model::Page &page, model::PictureSource &pictures, FrameAnchor anchor);

/// Returns the fills of the page that can be seen: white ones only on something else.
std::vector<model::Fill> visibleFills(const model::Page &page);

/// Draw a line or a filled rectangle at its position on the page or slide.
void writeRule(const Sink &sink, const model::Rule &rule, FrameAnchor anchor);
void writeFill(const Sink &sink, const model::Fill &fill, FrameAnchor anchor);

} // namespace quorra::office
