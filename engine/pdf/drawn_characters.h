// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/colour.h"
#include "base/geometry.h"

#include <CharTypes.h>

#include <optional>
#include <vector>

class GfxState;

namespace quorra {

/// Records facts about the characters of a page that the PDF library's words do not contain. Characters are identified
/// by their position in the content stream, which the library counts in bytes of strings (TextWord::getCharPos()).
class DrawnCharacters
{
public:
    /// What can cover the characters drawn before it.
    enum class Cover { Fill, Image };

    /// What the page shows of the characters of a word.
    struct Appearance
    {
        bool invisible = false;       ///< most are drawn without paint
        bool covered = false;         ///< by something opaque that is drawn later
        bool underImage = false;      ///< covered by an image
        bool overprinted = false;     ///< most are drawn twice in one colour, which makes them bold
        std::optional<Colour> colour; ///< of the character drawn last, if it differs from the first one
    };

    /// Forgets everything, for the next page.
    void clear();

    /// Records a character that is drawn with its origin at (x, y) in user space, with that text. Returns false if the
    /// same character has been drawn there before: it makes the text bold or gives it a shadow, and must not become
    /// text again.
    bool add(const GfxState *state, double x, double y, int bytes, const Unicode *text, int length);

    /// Counts characters that are not drawn.
    void skip(int bytes) { m_position += bytes; }

    /// Records something opaque that is drawn over the characters so far.
    void cover(const Box &box, Cover kind);

    /// To be called at the end of the page, before appearanceOf().
    void finish();

    /// Whether a character has been drawn without paint.
    bool hasInvisible() const { return !m_invisible.empty(); }

    /// Returns what is known about the characters from `position` on. They fill the
    /// box `body`, and are first drawn in that colour.
    Appearance appearanceOf(int position, int bytes, const Box &body, Colour colour) const;

private:
    struct Character
    {
        double x = 0;
        double y = 0;
        double size = 0;
        Unicode text = 0;
        int position = 0;
        int next = -1; ///< index of another character of the same bucket
        bool invisible = false;
    };

    /// A character that is drawn again.
    struct Repetition
    {
        int position = 0; ///< of the character that was drawn first
        int bytes = 0;
        int drawnAt = 0; ///< the position at which it was drawn again
        Colour colour = black;
        bool visible = true;
    };

    struct Range
    {
        int begin = 0;
        int end = 0;
    };

    struct Covered
    {
        Box box;
        int position = 0; ///< characters before it are covered
        Cover kind = Cover::Fill;
    };

    const Character *find(const Character &wanted) const;
    void remember(const Character &character);

    int m_position = 0;
    std::vector<Character> m_characters;
    std::vector<int> m_buckets;
    std::vector<Repetition> m_repetitions;
    std::vector<Range> m_invisible;
    std::vector<Covered> m_covers; ///< sorted by position, as they are painted
};

} // namespace quorra
