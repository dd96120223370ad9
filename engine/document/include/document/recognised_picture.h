// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/geometry.h"
#include "document/raw_page.h"

#include <QString>

#include <vector>

// What character recognition finds in the picture of a page, as plain data that does not depend on the library.
//
// All lengths are pixels of the picture. The origin is its top left corner, and y grows downwards. If the picture is
// skewed, everything is where it would be if it were turned straight about its centre: lines are exactly horizontal or
// vertical.
namespace quorra::model {

struct RecognisedWord
{
    QString text; ///< in reading order, also if it is right-to-left
    Box box;
    double baseline = 0;   ///< as in RawWord: y for upright text, x for text rotated by 90 or 270 degrees
    int rotation = 0;      ///< 0, 90, 180 or 270 degrees clockwise, relative to the picture
    double size = 0;       ///< the font size: em
    double confidence = 1; ///< from 0, a guess, to 1
    int line = 0;          ///< the number of its line in the picture
    bool spaceAfter = true;
    bool endsLine = false;
    bool bold = false;
    bool italic = false;
    bool fixedPitch = false;
    bool serif = true;
    QString language; ///< the code of the data that it was recognised with, such as "eng"; may be empty
};

struct RecognisedPicture
{
    std::vector<RecognisedWord> words; ///< in reading order
    std::vector<Rule> rules;
    std::vector<Fill> fills;  ///< flat colour behind text
    std::vector<Box> figures; ///< photographs and drawings; no word is on them
    double skew = 0;          ///< degrees clockwise by which the picture was skewed
    bool complete = true;     ///< false if a limit ended the work: the words are those found so far
};

} // namespace quorra::model
