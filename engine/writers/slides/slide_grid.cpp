// SPDX-License-Identifier: GPL-3.0-or-later
#include "slide_grid.h"

#include "document/rotation.h"
#include "odf/exact_lines.h"
#include "odf/odf_frames.h"
#include "slide_frame.h"
#include "slide_text.h"

#include <algorithm>
#include <map>
#include <tuple>

namespace quorra::office {

namespace {

/// Appends a border to the line that it continues, or adds it as a new line. Borders are in ascending order.
void addPiece(std::vector<model::Rule> &rules, const model::Rule &piece)
{
    const auto continued = std::find_if(rules.begin(), rules.end(), [&](const model::Rule &rule) {
        return rule.x2 == piece.x1 && rule.y2 == piece.y1 && rule.isHorizontal() == piece.isHorizontal() &&
               rule.colour == piece.colour && rule.width == piece.width;
    });
    if (continued != rules.end()) {
        continued->x2 = piece.x2;
        continued->y2 = piece.y2;
    } else {
        rules.push_back(piece);
    }
}

} // namespace

std::vector<model::Rule> gridLines(const model::Table &table)
{
    // The key puts the borders in ascending order and makes a border between two cells one.
    std::map<std::tuple<double, double, double, double>, model::Border> pieces;
    for (const model::Cell &cell : table.cells) {
        const double left = *(table.columnEdges.begin() + cell.column);
        const double right = *(table.columnEdges.begin() + cell.column + cell.columnSpan);
        const double top = *(table.rowEdges.begin() + cell.row);
        const double bottom = *(table.rowEdges.begin() + cell.row + cell.rowSpan);
        const auto add = [&](double x1, double y1, double x2, double y2, const model::Border &border) {
            if (border.width > 0) {
                pieces.insert({{y1, x1, y2, x2}, border});
            }
        };
        add(left, top, right, top, cell.top);
        add(left, bottom, right, bottom, cell.bottom);
        add(left, top, left, bottom, cell.left);
        add(right, top, right, bottom, cell.right);
    }
    std::vector<model::Rule> rules;
    for (const auto &[place, border] : pieces) {
        const auto &[y1, x1, y2, x2] = place;
        addPiece(rules, {x1, y1, x2, y2, border.width, border.colour});
    }
    return rules;
}

void writeSlideGrid(const Sink &sink, const model::Page &page, const model::Table &table)
{
    const SlideOrientation orientation{table.rotation, page.width, page.height};
    for (const model::Cell &cell : table.cells) {
        if (cell.background && *cell.background != white) {
            writeFill(sink, {cell.box, *cell.background}, FrameAnchor::Slide);
        }
    }
    for (const model::Rule &rule : gridLines(table)) {
        writeRule(sink, onSlide(rule, orientation), FrameAnchor::Slide);
    }
    std::map<int, model::Paragraph> columns;
    for (const model::Cell &cell : table.cells) {
        for (const model::Paragraph &paragraph : cell.paragraphs) {
            if (paragraph.rotation != 0) {
                const model::Paragraph upright = model::uprightParagraph(paragraph, page.width, page.height);
                writeSlideBox(sink, page, {BoxKind::Text, paragraph.rotation, {upright}});
                continue;
            }
            std::vector<model::Line> &lines = columns[cell.column].lines;
            lines.insert(lines.end(), paragraph.lines.begin(), paragraph.lines.end());
        }
    }
    for (const auto &[number, column] : columns) {
        writeExactLines(sink, column, page.width, FrameAnchor::Slide);
    }
}

} // namespace quorra::office
