// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawn_characters.h"

#include <GfxState.h>

#include <algorithm>
#include <cmath>

namespace quorra {

namespace {

struct Thresholds
{
    double maxShift = 0.1;        ///< em; characters drawn twice for bold or a shadow are no farther apart
    double sameSize = 0.05;       ///< share; font sizes of a character and its repetition differ by less
    double minCovered = 0.9;      ///< share of a word's area under something opaque
    double cellSize = 8;          ///< points; of the grid in which repetitions are looked up
    std::size_t maxCovers = 2000; ///< on a page; more are a drawing, whose words are worth no search
};
constexpr Thresholds thresholds;

constexpr std::size_t bucketCount = 4096; // a power of two
constexpr int invisibleMode = 3;          // text rendering modes 3 and 7 paint nothing

int cellOf(double value)
{
    return static_cast<int>(std::floor(std::clamp(value, -1e6, 1e6) / thresholds.cellSize));
}

std::size_t bucketOf(Unicode text, int cellX, int cellY)
{
    const auto mixed = static_cast<std::size_t>(text) * 2654435761U + static_cast<std::size_t>(cellX) * 40503U +
                       static_cast<std::size_t>(cellY) * 69069U;
    return (mixed ^ mixed >> 12U) & (bucketCount - 1);
}

Colour colourOf(const GfxState *state, bool stroked)
{
    GfxRGB rgb;
    if (stroked) {
        state->getStrokeRGB(&rgb);
    } else {
        state->getFillRGB(&rgb);
    }
    const auto byte = [](GfxColorComp c) { return static_cast<Colour>(colToByte(c)); };
    return byte(rgb.r) << 16U | byte(rgb.g) << 8U | byte(rgb.b);
}

bool isUnder(const Box &body, const Box &cover)
{
    const Box both = intersected(cover, body);
    return both.area() >= thresholds.minCovered * body.area();
}

} // namespace

void DrawnCharacters::clear()
{
    m_position = 0;
    m_characters.clear();
    m_buckets.assign(bucketCount, -1);
    m_repetitions.clear();
    m_invisible.clear();
    m_covers.clear();
}

bool DrawnCharacters::add(const GfxState *state, double x, double y, int bytes, const Unicode *text, int length)
{
    const int mode = state->getRender() & invisibleMode;
    Character drawn;
    drawn.text = length > 0 ? text[0] : 0;
    drawn.position = m_position;
    drawn.invisible = mode == invisibleMode;
    if (drawn.text > ' ') {
        state->transform(x, y, &drawn.x, &drawn.y);
        drawn.size = state->getTransformedFontSize();
        if (const Character *first = find(drawn)) {
            m_repetitions.push_back(
                {first->position, bytes, m_position, colourOf(state, mode == 1),
                 !(drawn.invisible && first->invisible)});
            return false;
        }
        remember(drawn);
    }
    if (drawn.invisible) {
        if (!m_invisible.empty() && m_invisible.back().end == m_position) {
            m_invisible.back().end += bytes;
        } else {
            m_invisible.push_back({m_position, m_position + bytes});
        }
    }
    m_position += bytes;
    return true;
}

const DrawnCharacters::Character *DrawnCharacters::find(const Character &wanted) const
{
    const double reach = std::min(thresholds.maxShift * wanted.size, thresholds.cellSize);
    const int firstX = cellOf(wanted.x - reach);
    const int firstY = cellOf(wanted.y - reach);
    const int lastX = cellOf(wanted.x + reach);
    const int lastY = cellOf(wanted.y + reach);
    for (int cellX = firstX; cellX <= lastX; ++cellX) {
        for (int cellY = firstY; cellY <= lastY; ++cellY) {
            for (int i = m_buckets[bucketOf(wanted.text, cellX, cellY)]; i >= 0;) {
                const Character &other = m_characters[static_cast<std::size_t>(i)];
                if (other.text == wanted.text && std::abs(other.x - wanted.x) <= reach &&
                    std::abs(other.y - wanted.y) <= reach &&
                    std::abs(other.size - wanted.size) <= thresholds.sameSize * wanted.size) {
                    return &other;
                }
                i = other.next;
            }
        }
    }
    return nullptr;
}

void DrawnCharacters::remember(const Character &character)
{
    int &bucket = m_buckets[bucketOf(character.text, cellOf(character.x), cellOf(character.y))];
    m_characters.push_back(character);
    m_characters.back().next = bucket;
    bucket = static_cast<int>(m_characters.size()) - 1;
}

void DrawnCharacters::cover(const Box &box, Cover kind)
{
    if (m_position > 0 && m_covers.size() < thresholds.maxCovers) {
        m_covers.push_back({box, m_position, kind});
    }
}

void DrawnCharacters::finish()
{
    std::stable_sort(m_repetitions.begin(), m_repetitions.end(), [](const Repetition &a, const Repetition &b) {
        return a.position < b.position;
    });
}

DrawnCharacters::Appearance DrawnCharacters::appearanceOf(int position, int bytes, const Box &body, Colour colour) const
{
    Appearance appearance;
    int invisible = 0;
    for (auto range = std::upper_bound(
             m_invisible.begin(), m_invisible.end(), position,
             [](int value, const Range &each) { return value < each.end; });
         range != m_invisible.end() && range->begin < position + bytes; ++range) {
        invisible += std::min(range->end, position + bytes) - std::max(range->begin, position);
    }
    int drawnAt = position;
    int repeated = 0;
    auto next =
        std::lower_bound(m_repetitions.begin(), m_repetitions.end(), position, [](const Repetition &each, int value) {
            return each.position < value;
        });
    for (; next != m_repetitions.end() && next->position < position + bytes; ++next) {
        const Repetition &repetition = *next;
        drawnAt = std::max(drawnAt, repetition.drawnAt);
        invisible -= repetition.visible ? repetition.bytes : 0;
        if (repetition.colour == colour) {
            repeated += repetition.bytes;
        } else {
            appearance.colour = repetition.colour;
        }
    }
    appearance.invisible = 2 * invisible > bytes;
    appearance.overprinted = 2 * repeated > bytes;
    auto cover = std::upper_bound(m_covers.begin(), m_covers.end(), position, [](int value, const Covered &each) {
        return value < each.position;
    });
    for (; cover != m_covers.end(); ++cover) {
        if (!isUnder(body, cover->box)) {
            continue;
        }
        if (cover->position > drawnAt) {
            appearance.covered = true;
            appearance.underImage = cover->kind == Cover::Image;
        } else { // drawn once more, on the cover
            appearance.overprinted = false;
        }
    }
    return appearance;
}

} // namespace quorra
