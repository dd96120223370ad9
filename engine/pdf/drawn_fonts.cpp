// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawn_fonts.h"

#include <GfxFont.h>

#include <cmath>
#include <cstring>

namespace quorra {

namespace {

struct Thresholds
{
    double usualHeight = 1.15;  ///< em; of the box around all characters
    double widthOfM = 0.6;      ///< em; what the library takes the letter m to be
    double widthOfOthers = 0.5; ///< em; the same for the letter that it takes otherwise
};
constexpr Thresholds thresholds;

bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

// The factor by which the library multiplies the size of the font: it compares the width of the m, of any other letter,
// or else of the first character with usual widths.
double guessedScale(const Gfx8BitFont &font)
{
    constexpr int codes = 256;
    double ofM = 0;
    int letter = -1;
    int any = -1;
    for (int code = 0; code < codes; ++code) {
        const char *name = font.getCharName(code);
        if (!name) {
            continue;
        }
        const double width = font.getWidth(static_cast<unsigned char>(code));
        const bool single = std::strlen(name) == 1;
        ofM = single && name[0] == 'm' ? width : ofM;
        letter = letter < 0 && single && isLetter(name[0]) ? code : letter;
        any = any < 0 && width > 0 ? code : any;
    }
    double scale = 1;
    const double ofLetter = letter < 0 ? 0 : font.getWidth(static_cast<unsigned char>(letter));
    if (ofM > 0) {
        scale = ofM / thresholds.widthOfM;
    } else if (ofLetter > 0) {
        scale = ofLetter / thresholds.widthOfOthers;
    } else if (any >= 0) {
        scale = font.getWidth(static_cast<unsigned char>(any)) / thresholds.widthOfOthers;
    }
    const double *matrix = font.getFontMatrix();
    return matrix[0] == 0 ? scale : scale * std::abs(matrix[3] / matrix[0]);
}

} // namespace

double sizeForLibrary(const GfxFont &font, double size)
{
    if (font.getType() != fontType3) {
        return size;
    }
    const double *matrix = font.getFontMatrix();
    const double *box = font.getFontBBox();
    const double height = std::abs((box[3] - box[1]) * matrix[3]);
    const double scale = guessedScale(static_cast<const Gfx8BitFont &>(font));
    if (scale <= 0 || height <= 0) {
        return size;
    }
    const auto distance = [height](double em) { return std::abs(std::log(height / em / thresholds.usualHeight)); };
    return distance(1) < distance(scale) ? size / scale : size;
}

} // namespace quorra
