// SPDX-License-Identifier: GPL-3.0-or-later
#include "raw_dump.h"

#include "dump_text.h"

#include <ostream>

namespace quorra::test {

namespace {

std::string exact(const Box &box)
{
    return tenths(box.left) + "," + tenths(box.top) + "-" + tenths(box.right) + "," + tenths(box.bottom);
}

} // namespace

void dumpRaw(const model::RawPage &page, std::ostream &out)
{
    out << "page " << page.number << " [" << tenths(page.width) << " x " << tenths(page.height) << "]\n";
    for (const model::RawWord &word : page.words) {
        out << "  word ["
            << joined(
                   {exact(word.box), "baseline " + tenths(word.baseline), styleText(word.style, word.link),
                    word.rotation == 0 ? "" : "rotated " + std::to_string(word.rotation),
                    word.spaceAfter ? "" : "no space after", word.endsLine ? "ends line" : ""},
                   "; ")
            << "] " << visible(word.text) << '\n';
    }
    for (const model::Rule &rule : page.rules) {
        out << "  line [" << exact({rule.x1, rule.y1, rule.x2, rule.y2}) << "; " << tenths(rule.width) << " "
            << colour(rule.colour) << "]\n";
    }
    for (const model::Fill &fill : page.fills) {
        out << "  fill [" << exact(fill.box) << "; " << colour(fill.colour) << (fill.exact ? "" : "; about") << "]\n";
    }
    for (const model::RawPicture &picture : page.pictures) {
        out << "  picture [" << exact(picture.box) << "]\n";
    }
    for (const model::Ink &ink : page.ink) {
        out << "  " << (ink.frame ? "frame" : "curve") << " [" << exact(ink.box) << "]\n";
    }
}

} // namespace quorra::test
