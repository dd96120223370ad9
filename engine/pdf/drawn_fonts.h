// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class GfxFont;

namespace quorra {

/// The size at which the PDF library has to be told that a font is set so that it takes the characters to be as high as
/// `size` says. For fonts of type 3, whose characters are drawings, the library guesses the size by the width of one
/// letter, which a font of few letters may lack. Returns `size` for other fonts, and for those whose box shows that
/// the guess is closer to the height of their letters than their unit is.
double sizeForLibrary(const GfxFont &font, double size);

} // namespace quorra
