// SPDX-License-Identifier: GPL-3.0-or-later
#include "pdf/page_reader.h"

#include "base/units.h"
#include "character_texts.h"
#include "drawn_characters.h"
#include "drawn_fonts.h"
#include "font_families.h"
#include "library_versions.h"
#include "marked_content.h"
#include "page_links.h"
#include "page_notes.h"
#include "page_words.h"
#include "paths.h"
#include "pdf/page_renderer.h"
#include "pdf_file_handles.h"
#include "platform/page_time.h"
#include "scan_pictures.h"
#include "watermark.h"

#include <GfxState.h>
#include <TextOutputDev.h>

#include <QChar>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace quorra {

namespace {

constexpr double maxRuleWidth = 3.2;     // points; a filled rectangle that is not thicker is a rule
constexpr std::size_t maxMarks = 20'000; // a page with more lines is a drawing, not a table

Colour colourOf(const GfxRGB &rgb)
{
    const auto byte = [](GfxColorComp c) { return static_cast<Colour>(colToByte(c)); };
    return byte(rgb.r) << 16U | byte(rgb.g) << 8U | byte(rgb.b);
}

struct Thresholds
{
    double minOpacity = 0.02;    ///< less is not seen
    double maxOpacity = 0.99;    ///< more hides what is below
    double minRuleWidth = 0.1;   ///< points; of lines that are drawn as thin as possible
    double maxSlant = 0.002;     ///< of the direction of an image's rows: less is upright, but for inaccuracies
    double sameEdge = 1;         ///< points; the ends of marks that are no farther apart are one
    std::size_t maxBelow = 2000; ///< earlier marks of a kind among which those below a new one are looked for
    double signAscent = 0.75;    ///< em above the baseline that an unknown character takes up
    double signDescent = 0.2;    ///< em below the baseline likewise
    double minScanArea = 0.3;    ///< share of the page; smaller images are no scans that could contain pictures
    double scanResolution = 36;  ///< dots per inch; enough to distinguish pictures from paper
};
constexpr Thresholds thresholds;

/// The shape of the region that paint is clipped to, within its bounding box; the simplest first.
enum class ClipShape {
    Rectangle,
    Frame, ///< a rectangle with round corners
    Other
};

ClipShape narrowerClip(ClipShape clip, const GfxState *state)
{
    const GfxPath *path = state->getPath();
    ClipShape shape = ClipShape::Rectangle;
    for (int i = 0; i < path->getNumSubpaths() && shape != ClipShape::Other; ++i) {
        const GfxSubpath *subpath = path->getSubpath(i);
        if (uprightPoints(state, subpath).empty()) {
            const bool frame = path->getNumSubpaths() == 1 && isFrame(state, subpath);
            shape = frame ? ClipShape::Frame : ClipShape::Other;
        }
    }
    return std::max(clip, shape);
}

bool touches(const Box &a, const Box &b)
{
    return a.left <= b.right && b.left <= a.right && a.top <= b.bottom && b.top <= a.bottom;
}

/// Applies mix(upper, lower) to red, green and blue, each 0 to 255.
template <typename Mix>
Colour perChannel(Colour upper, Colour lower, Mix mix)
{
    Colour result = 0;
    for (const unsigned shift : {16U, 8U, 0U}) {
        const double value =
            mix(static_cast<double>(upper >> shift & 0xffU), static_cast<double>(lower >> shift & 0xffU));
        result |= static_cast<Colour>(std::lround(std::clamp(value, 0.0, 255.0))) << shift;
    }
    return result;
}

Colour mixed(Colour upper, Colour lower, double opacity)
{
    return opacity >= thresholds.maxOpacity
               ? upper
               : perChannel(upper, lower, [opacity](double u, double l) { return opacity * u + (1 - opacity) * l; });
}

bool isKnownBlend(GfxBlendMode blend)
{
    return blend == gfxBlendNormal || blend == gfxBlendMultiply || blend == gfxBlendScreen || blend == gfxBlendDarken ||
           blend == gfxBlendLighten;
}

/// The colour as a blend mode changes it; other modes than those of isKnownBlend() leave it as it is.
Colour blended(Colour upper, Colour lower, GfxBlendMode blend)
{
    constexpr double full = 255;
    switch (blend) {
    case gfxBlendMultiply:
        return perChannel(upper, lower, [](double u, double l) { return u * l / full; });
    case gfxBlendScreen:
        return perChannel(upper, lower, [](double u, double l) { return u + l - u * l / full; });
    case gfxBlendDarken:
        return perChannel(upper, lower, [](double u, double l) { return std::min(u, l); });
    case gfxBlendLighten:
        return perChannel(upper, lower, [](double u, double l) { return std::max(u, l); });
    default:
        return upper;
    }
}

/// The colour in the middle of a gradient.
std::optional<Colour> meanColour(GfxUnivariateShading *shading)
{
    GfxColorSpace *space = shading->getColorSpace();
    if (!space) {
        return {};
    }
    GfxColor colour{};
    shading->getColor((shading->getDomain0() + shading->getDomain1()) / 2, &colour);
    GfxRGB rgb;
    space->getRGB(&colour, &rgb);
    return colourOf(rgb);
}

Box clipBox(const GfxState *state)
{
    Box clip;
    state->getClipBBox(&clip.left, &clip.top, &clip.right, &clip.bottom);
    return clip;
}

/// Extends the text device of the PDF library, which finds words, to record all other marks on the page.
class Collector final : public FormDevice<TextOutputDev>
{
public:
    Collector(bool withPictures, const Structure *structure)
        : FormDevice(nullptr, false, 0, false, false)
        , m_withPictures(withPictures)
        , m_contents(structure)
    {}

    const MarkedContent &contents() const { return m_contents; }
    DrawnCharacters &characters() { return m_characters; }
    const FontFamilies &families() const { return m_families; }

    /// Around what is painted of each piece of content, text left out.
    const std::map<int, Box> &painted() const { return m_painted; }

    /// Clears the results before the next page.
    model::RawPage &newPage(int pageNumber)
    {
        m_contents.beginPage(pageNumber);
        m_characters.clear();
        m_painted.clear();
        m_seen = {};
        m_marks = 0;
        m_painted.clear();
        m_page = {};
        return m_page;
    }

    void startPage(int number, GfxState *state, XRef *xref) override
    {
        TextOutputDev::startPage(number, state, xref);
        m_file = xref;
        m_paint = {PaintState{}};
    }

    void saveState(GfxState *state) override
    {
        m_paint.push_back(m_paint.back());
        m_paint.back().outerOpacity = state->getFillOpacity();
        m_paint.back().outerBlend = state->getBlendMode();
    }

    void restoreState(GfxState *state) override
    {
        TextOutputDev::restoreState(state);
        if (m_paint.size() > 1) {
            m_paint.pop_back();
        }
    }

    void updateFont(GfxState *state) override
    {
        const std::shared_ptr<GfxFont> font = state->getFont();
        const double size = state->getFontSize();
        if (font) {
            state->setFont(font, sizeForLibrary(*font, size));
        }
        TextOutputDev::updateFont(state);
        state->setFont(font, size);
        if (m_withPictures && m_file && font) {
            m_families.add(*font, *m_file);
        }
    }

    void clip(GfxState *state) override { m_paint.back().clip = narrowerClip(m_paint.back().clip, state); }
    void eoClip(GfxState *state) override { clip(state); }
    void clipToStrokePath(GfxState * /*state*/) override { m_paint.back().clip = ClipShape::Other; }

    // The state's own opacity and blend are those inside of the group already.
    void beginTransparencyGroup(
        GfxState * /*state*/, const double * /*bbox*/, GfxColorSpace * /*blending*/, bool /*isolated*/,
        bool /*knockout*/, bool forSoftMask) override
    {
        PaintState &paint = m_paint.back();
        paint.hidden = paint.hidden || forSoftMask;
        paint.groupOpacity *= paint.outerOpacity;
        paint.groupBlend = paint.groupBlend == gfxBlendNormal ? paint.outerBlend : paint.groupBlend;
    }

    void setSoftMask(
        GfxState * /*state*/, const double * /*bbox*/, bool /*alpha*/, Function * /*transfer*/,
        GfxColor * /*backdrop*/) override
    {
        m_paint.back().masked = true;
    }

    void clearSoftMask(GfxState * /*state*/) override { m_paint.back().masked = false; }

    /// Also looks for pictures if only text was to be collected.
    void collectPictures(bool wanted) { m_withPictures = wanted; }

    bool needNonText() override { return m_withPictures; }
    bool useTilingPatternFill() override { return true; }
    bool useShadedFills(int /*type*/) override { return true; }

    void beginMarkedContent(const char *name, Dict *properties) override
    {
        takePainted();
        m_contents.begin(name, properties);
    }
    void endMarkedContent(GfxState * /*state*/) override
    {
        takePainted();
        m_contents.end();
    }
    void formBegins(int objectNumber) override { m_contents.beginForm(objectNumber); }
    void formEnds() override { m_contents.endForm(); }

    void drawChar(
        GfxState *state, double x, double y, double dx, double dy, double originX, double originY, CharCode code,
        int nBytes, const Unicode *u, int uLen) override
    {
        if (isWatermark(state)) {
            m_page.watermark = true;
            return;
        }
        const CharacterTexts::Text text = m_texts.textOf(*state->getFont(), code, u, uLen);
        if (text.length == 0 && m_withPictures) {
            addSign(state, x - originX, y - originY, dx, dy);
        }
        u = text.unicode;
        uLen = text.length;
        if (!m_characters.add(state, x - originX, y - originY, nBytes, u, uLen)) {
            return;
        }
        m_contents.addText(nBytes);
        // The library collects words from left to right; ligatures of right-to-left letters are in reading order.
        if (uLen > 1 && isRightToLeft(u, uLen)) {
            const std::vector<Unicode> reversed(std::make_reverse_iterator(u + uLen), std::make_reverse_iterator(u));
            TextOutputDev::drawChar(state, x, y, dx, dy, originX, originY, code, nBytes, reversed.data(), uLen);
            return;
        }
        TextOutputDev::drawChar(state, x, y, dx, dy, originX, originY, code, nBytes, u, uLen);
    }

    void incCharCount(int nChars) override
    {
        m_characters.skip(nChars);
        m_contents.addText(nChars);
        TextOutputDev::incCharCount(nChars);
    }

    void stroke(GfxState *state) override
    {
        const double opacity = state->getStrokeOpacity() * m_paint.back().groupOpacity;
        if (isUnseen(opacity)) {
            return;
        }
        GfxRGB rgb;
        state->getStrokeRGB(&rgb);
        const double width = std::max(thresholds.minRuleWidth, state->getTransformedLineWidth());
        forEachSubpath(state, [&](const GfxSubpath *subpath) {
            const std::vector<Point> points = uprightPoints(state, subpath);
            if (points.empty()) {
                addInk(state, boxAround(state, subpath), isFrame(state, subpath), colourOf(rgb));
            }
            for (std::size_t i = 1; i < points.size(); ++i) {
                addRule(state, points[i - 1], points[i], width, mixed(colourOf(rgb), white, opacity));
            }
        });
    }

    void fill(GfxState *state) override
    {
        const double opacity = fillOpacity(state);
        if (isUnseen(opacity)) {
            return;
        }
        GfxRGB rgb;
        state->getFillRGB(&rgb);
        const PaintState &paint = m_paint.back();
        forEachSubpath(state, [&](const GfxSubpath *subpath) {
            const std::vector<Point> points = uprightPoints(state, subpath);
            const Box box = intersected(boxAround(state, subpath), clipBox(state));
            const bool rectangle = points.size() >= 2 && points.size() <= 6;
            const bool frame = rectangle || isFrame(state, subpath);
            const bool whole = paint.clip != ClipShape::Other && !paint.masked;
            if (!rectangle || !whole || paint.clip == ClipShape::Frame) {
                addInk(state, box, frame && whole, colourOf(rgb));
            }
            if (frame && whole) {
                addFill(state, box, colourOf(rgb), rectangle && paint.clip == ClipShape::Rectangle);
                if (rectangle && isOpaque(state)) {
                    m_characters.cover(box, DrawnCharacters::Cover::Fill);
                }
            }
        });
    }

    void eoFill(GfxState *state) override { fill(state); }

    bool tilingPatternFill(
        GfxState *state, Gfx * /*gfx*/, Catalog * /*cat*/, GfxTilingPattern * /*pattern*/, const double * /*matrix*/,
        int /*x0*/, int /*y0*/, int /*x1*/, int /*y1*/, double /*xStep*/, double /*yStep*/) override
    {
        addPattern(state, {});
        return true;
    }

    bool functionShadedFill(GfxState *state, GfxFunctionShading * /*shading*/) override
    {
        return addPattern(state, {});
    }
    bool axialShadedFill(GfxState *state, GfxAxialShading *shading, double /*tMin*/, double /*tMax*/) override
    {
        return addPattern(state, meanColour(shading));
    }
    bool radialShadedFill(GfxState *state, GfxRadialShading *shading, double /*sMin*/, double /*sMax*/) override
    {
        return addPattern(state, meanColour(shading));
    }
    bool gouraudTriangleShadedFill(GfxState *state, GfxGouraudTriangleShading * /*shading*/) override
    {
        return addPattern(state, {});
    }
    bool patchMeshShadedFill(GfxState *state, GfxPatchMeshShading * /*shading*/) override
    {
        return addPattern(state, {});
    }

    void drawImageMask(
        GfxState *state, Object *ref, Stream *str, int width, int height, bool invert, bool interpolate,
        bool inlineImage) override
    {
        addImage(state, nullptr, {width, height});
        OutputDev::drawImageMask(state, ref, str, width, height, invert, interpolate, inlineImage);
    }

    void drawImage(
        GfxState *state, Object *ref, Stream *str, int width, int height, GfxImageColorMap *colours, bool interpolate,
        const int *maskColours, bool inlineImage) override
    {
        const bool masked = maskColours || m_maskedImages > 0;
        const Box box = addImage(state, masked || inlineImage ? nullptr : ref, {width, height});
        if (!masked && isOpaque(state) && isUpright(state)) {
            m_characters.cover(box, DrawnCharacters::Cover::Image);
        }
        OutputDev::drawImage(state, ref, str, width, height, colours, interpolate, maskColours, inlineImage);
    }

    void drawMaskedImage(
        GfxState *state, Object *ref, Stream *str, int width, int height, GfxImageColorMap *colours, bool interpolate,
        Stream *maskStream, int maskWidth, int maskHeight, bool maskInvert, bool maskInterpolate) override
    {
        ++m_maskedImages;
        OutputDev::drawMaskedImage(
            state, ref, str, width, height, colours, interpolate, maskStream, maskWidth, maskHeight, maskInvert,
            maskInterpolate);
        --m_maskedImages;
    }

    void drawSoftMaskedImage(
        GfxState *state, Object *ref, Stream *str, int width, int height, GfxImageColorMap *colours, bool interpolate,
        Stream *maskStream, int maskWidth, int maskHeight, GfxImageColorMap *maskColours, bool maskInterpolate) override
    {
        ++m_maskedImages;
        OutputDev::drawSoftMaskedImage(
            state, ref, str, width, height, colours, interpolate, maskStream, maskWidth, maskHeight, maskColours,
            maskInterpolate);
        --m_maskedImages;
    }

    /// Completes the page that has been drawn.
    void finishPage()
    {
        for (const PaintedPicture &painted : m_paintedPictures) {
            model::RawPicture &picture = m_page.pictures[painted.index];
            if (picture.stream && isPaintedOver(picture.box, painted)) {
                picture.stream.reset();
            }
        }
        m_paintedPictures.clear();
    }

private:
    /// What the graphics state does to paint besides its colour.
    struct PaintState
    {
        ClipShape clip = ClipShape::Rectangle;
        bool masked = false;     ///< by a soft mask
        bool hidden = false;     ///< what is painted is the mask itself
        double groupOpacity = 1; ///< of the groups around
        double outerOpacity = 1; ///< where the state was saved: of a group that begins next
        GfxBlendMode groupBlend = gfxBlendNormal;
        GfxBlendMode outerBlend = gfxBlendNormal;
    };

    /// Adds what was painted since the last call to the piece of content that it belongs to.
    void takePainted()
    {
        const int content = m_contents.current();
        const auto take = [&](const auto &marks, std::size_t &seen) {
            for (std::size_t i = seen; i < marks.size() && content >= 0; ++i) {
                m_painted[content] = united(m_painted[content], marks[i].box);
            }
            seen = marks.size();
        };
        if (m_contents.isUsed()) {
            take(m_page.pictures, m_seen[0]);
            take(m_page.fills, m_seen[1]);
            take(m_page.ink, m_seen[2]);
        }
    }

    static bool isUnseen(double opacity) { return opacity < thresholds.minOpacity; }

    double fillOpacity(const GfxState *state) const { return state->getFillOpacity() * m_paint.back().groupOpacity; }

    /// The colour below the box, if it is one colour: that of the last fill that contains all of it, or white paper.
    std::optional<Colour> colourBelow(const Box &box) const
    {
        const auto overlaps = [&box](const auto &mark) {
            const Box common = intersected(mark.box, box);
            return common.width() > thresholds.sameEdge && common.height() > thresholds.sameEdge;
        };
        if (std::any_of(m_page.pictures.begin(), m_page.pictures.end(), overlaps)) {
            return {};
        }
        const auto last = static_cast<std::ptrdiff_t>(std::min(m_page.fills.size(), thresholds.maxBelow));
        const auto fill = std::find_if(m_page.fills.rbegin(), m_page.fills.rbegin() + last, overlaps);
        if (fill == m_page.fills.rbegin() + last) {
            return white;
        }
        const Box common = intersected(fill->box, box);
        const bool all =
            common.width() > box.width() - thresholds.sameEdge && common.height() > box.height() - thresholds.sameEdge;
        return all && fill->exact ? std::optional<Colour>(fill->colour) : std::nullopt;
    }

    /// Whether white paint on the box changes anything.
    bool liesOnPaint(const Box &box) const
    {
        const auto anyBelow = [&box](const auto &marks) {
            const auto last = static_cast<std::ptrdiff_t>(std::min(marks.size(), thresholds.maxBelow));
            return std::any_of(
                marks.rbegin(), marks.rbegin() + last, [&box](const auto &mark) { return touches(mark.box, box); });
        };
        return anyBelow(m_page.fills) || anyBelow(m_page.pictures) || anyBelow(m_page.ink);
    }

    static bool isRightToLeft(const Unicode *text, int length)
    {
        return std::any_of(text, text + length, [](Unicode c) {
            const auto direction = QChar::direction(c);
            return direction == QChar::DirR || direction == QChar::DirAL;
        });
    }

    /// Whether what is filled now hides everything under it.
    bool isOpaque(const GfxState *state) const
    {
        const PaintState &paint = m_paint.back();
        return fillOpacity(state) > thresholds.maxOpacity && state->getBlendMode() == gfxBlendNormal &&
               paint.groupBlend == gfxBlendNormal && paint.clip == ClipShape::Rectangle && !paint.masked &&
               !paint.hidden;
    }

    static bool isUpright(const GfxState *state)
    {
        const auto ctm = state->getCTM();
        return (ctm[1] == 0 && ctm[2] == 0) || (ctm[0] == 0 && ctm[3] == 0);
    }

    template <typename Use>
    void forEachSubpath(const GfxState *state, Use use)
    {
        if (m_paint.back().hidden) {
            return;
        }
        const GfxPath *path = state->getPath();
        for (int i = 0; i < path->getNumSubpaths() && m_marks < maxMarks; ++i, ++m_marks) {
            if (path->getSubpath(i)->getNumPoints() > 1) {
                use(path->getSubpath(i));
            }
        }
    }

    void addRule(const GfxState *state, const Point &from, const Point &to, double width, Colour colour)
    {
        const bool horizontal = std::abs(from.x - to.x) >= std::abs(from.y - to.y);
        Box box{std::min(from.x, to.x), std::min(from.y, to.y), std::max(from.x, to.x), std::max(from.y, to.y)};
        const Box clip = clipBox(state);
        if (box.right < clip.left || box.left > clip.right || box.bottom < clip.top || box.top > clip.bottom) {
            return;
        }
        box = intersected(box, clip);
        if (width > maxRuleWidth) { // a thick stroke is a filled rectangle
            const double half = width / 2;
            const Box bar = horizontal ? Box{box.left, box.top - half, box.right, box.bottom + half}
                                       : Box{box.left - half, box.top, box.right + half, box.bottom};
            m_page.fills.push_back({intersected(bar, clip), colour});
            return;
        }
        addRule(box, horizontal, width, colour);
    }

    void addRule(const Box &box, bool horizontal, double width, Colour colour)
    {
        if (horizontal) {
            m_page.rules.push_back({box.left, box.centreY(), box.right, box.centreY(), width, colour});
        } else {
            m_page.rules.push_back({box.centreX(), box.top, box.centreX(), box.bottom, width, colour});
        }
    }

    void addFill(const GfxState *state, const Box &box, Colour colour, bool exact)
    {
        const double thickness = std::min(box.width(), box.height());
        if (thickness < 0 || std::max(box.width(), box.height()) <= 0) {
            return;
        }
        const double opacity = fillOpacity(state);
        const GfxBlendMode own = state->getBlendMode();
        const GfxBlendMode blend = own == gfxBlendNormal ? m_paint.back().groupBlend : own;
        Colour seen = colour;
        if (opacity < thresholds.maxOpacity || blend != gfxBlendNormal) {
            const std::optional<Colour> below = colourBelow(box);
            exact = exact && below && isKnownBlend(blend);
            seen = mixed(blended(colour, below.value_or(white), blend), below.value_or(white), opacity);
        }
        if (thickness <= maxRuleWidth) {
            addRule(box, box.width() >= box.height(), std::max(thresholds.minRuleWidth, thickness), seen);
        } else {
            m_page.fills.push_back({box, seen, exact});
        }
    }

    /// Adds a character that is a drawing, because nobody can tell what it stands for.
    void addSign(const GfxState *state, double x, double y, double dx, double dy)
    {
        constexpr int unpainted = 3;
        Point origin;
        Point advance;
        state->transform(x, y, &origin.x, &origin.y);
        state->transformDelta(dx, dy, &advance.x, &advance.y);
        const double length = std::hypot(advance.x, advance.y);
        if (m_paint.back().hidden || (state->getRender() & unpainted) == unpainted || length == 0) {
            return;
        }
        const double size = state->getTransformedFontSize();
        const auto at = [&](double along, double up) { // upwards is to the left of the direction of the text
            return Point{
                origin.x + along * advance.x + up * size * advance.y / length,
                origin.y + along * advance.y - up * size * advance.x / length};
        };
        const Point first = at(0, -thresholds.signDescent);
        const Point last = at(1, thresholds.signAscent);
        addInk(
            state,
            {std::min(first.x, last.x), std::min(first.y, last.y), std::max(first.x, last.x),
             std::max(first.y, last.y)},
            false, black);
    }

    void addInk(const GfxState *state, const Box &box, bool frame, Colour colour)
    {
        const Box seen = intersected(box, clipBox(state));
        if ((seen.width() > 0 || seen.height() > 0) && (colour != white || liesOnPaint(seen))) {
            m_page.ink.push_back({seen, frame});
        }
    }

    /// Adds what a pattern or gradient covers, with the colour that comes nearest to it, if any.
    bool addPattern(const GfxState *state, std::optional<Colour> colour)
    {
        const PaintState &paint = m_paint.back();
        const double opacity = fillOpacity(state);
        if (paint.hidden || isUnseen(opacity)) {
            return true;
        }
        const Box box = clipBox(state);
        const bool whole = paint.clip != ClipShape::Other && !paint.masked;
        addInk(state, box, whole, black);
        if (whole && colour && std::min(box.width(), box.height()) > maxRuleWidth) {
            m_page.fills.push_back({box, mixed(*colour, white, opacity), false});
        }
        return true;
    }

    /// The size of an image in the file.
    struct Pixels
    {
        int width;
        int height;
    };

    /// The resolution, in dots per inch, at which the page shows an image.
    static double resolutionOf(const GfxState *state, const Pixels &pixels)
    {
        const auto ctm = state->getCTM();
        const double across = std::hypot(ctm[0], ctm[1]);
        const double down = std::hypot(ctm[2], ctm[3]);
        return across > 0 && down > 0 ? pointsPerInch * std::max(pixels.width / across, pixels.height / down) : 0;
    }

    /// Adds an image; ref is its object if its pixels can be taken as they are, or null.
    Box addImage(const GfxState *state, const Object *ref, const Pixels &pixels)
    {
        if (m_paint.back().hidden || isUnseen(fillOpacity(state))) {
            return {};
        }
        Box whole{1e9, 1e9, -1e9, -1e9};
        for (const Point corner : {Point{0, 0}, Point{1, 0}, Point{0, 1}, Point{1, 1}}) {
            double x = 0;
            double y = 0;
            state->transform(corner.x, corner.y, &x, &y);
            whole = {
                std::min(whole.left, x), std::min(whole.top, y), std::max(whole.right, x), std::max(whole.bottom, y)};
        }
        const Box box = intersected(whole, clipBox(state));
        if (std::min(box.width(), box.height()) > maxRuleWidth) {
            m_paintedPictures.push_back(
                {m_page.pictures.size(), m_page.rules.size(), m_page.fills.size(), m_page.ink.size()});
            m_page.pictures.push_back(
                {box, ref ? imageSource(state, *ref, whole) : std::nullopt, false, false, resolutionOf(state, pixels)});
        } else if (std::max(box.width(), box.height()) > maxRuleWidth) {
            addRule(box, box.width() >= box.height(), std::min(box.width(), box.height()), black);
        }
        return box;
    }

    /// Where the pixels of an image are, if nothing but its colours changes what is seen of it.
    std::optional<model::ImageSource> imageSource(const GfxState *state, const Object &ref, const Box &whole) const
    {
        const PaintState &paint = m_paint.back();
        const bool plain = ref.isRef() && paint.clip == ClipShape::Rectangle && !paint.masked &&
                           fillOpacity(state) >= thresholds.maxOpacity && state->getBlendMode() == gfxBlendNormal &&
                           paint.groupBlend == gfxBlendNormal;
        double across[2] = {0, 0}; // along the rows of the image
        double down[2] = {0, 0};   // along its columns
        state->transformDelta(1, 0, &across[0], &across[1]);
        state->transformDelta(0, -1, &down[0], &down[1]);
        const auto isSmall = [](double part, double other) {
            return std::abs(part) <= thresholds.maxSlant * std::abs(other);
        };
        const bool upright = isSmall(across[1], across[0]) && isSmall(down[0], down[1]);
        const bool rotated = isSmall(across[0], across[1]) && isSmall(down[1], down[0]);
        if (!plain || upright == rotated) {
            return {};
        }
        model::ImageSource source{ref.getRefNum(), ref.getRefGen(), whole, 0, false};
        if (upright) {
            source.rotation = down[1] > 0 ? 0 : 180;
            source.mirrored = (across[0] > 0) != (down[1] > 0);
        } else {
            source.rotation = down[0] < 0 ? 90 : 270;
            source.mirrored = (across[1] > 0) != (down[0] < 0);
        }
        return source;
    }

    /// A picture and how many marks of each kind were there before it.
    struct PaintedPicture
    {
        std::size_t index;
        std::size_t rules;
        std::size_t fills;
        std::size_t ink;
    };

    bool isPaintedOver(const Box &box, const PaintedPicture &painted) const
    {
        const auto covers = [&box](const Box &mark) {
            const Box common = intersected(mark, box);
            return touches(mark, box) && std::max(common.width(), common.height()) > thresholds.sameEdge;
        };
        const std::size_t later = m_page.rules.size() - painted.rules + m_page.fills.size() - painted.fills +
                                  m_page.ink.size() - painted.ink + m_page.pictures.size() - painted.index;
        const auto from = [](const auto &marks, std::size_t first) {
            return marks.begin() + static_cast<std::ptrdiff_t>(first);
        };
        const auto isOver = [&covers](const auto &mark) { return covers(mark.box); };
        return later > thresholds.maxBelow ||
               std::any_of(
                   from(m_page.rules, painted.rules), m_page.rules.end(),
                   [&covers](const model::Rule &rule) {
                       return covers({rule.x1, rule.y1, rule.x2, rule.y2});
                   }) ||
               std::any_of(from(m_page.fills, painted.fills), m_page.fills.end(), isOver) ||
               std::any_of(from(m_page.ink, painted.ink), m_page.ink.end(), isOver) ||
               std::any_of(from(m_page.pictures, painted.index + 1), m_page.pictures.end(), isOver);
    }

    model::RawPage m_page;
    std::vector<PaintState> m_paint{PaintState{}};
    std::vector<PaintedPicture> m_paintedPictures;
    bool m_withPictures;
    MarkedContent m_contents;
    DrawnCharacters m_characters;
    CharacterTexts m_texts;
    FontFamilies m_families;
    XRef *m_file = nullptr;
    int m_maskedImages = 0; ///< images that are drawn with a mask
    std::map<int, Box> m_painted;
    std::array<std::size_t, 3> m_seen{}; ///< how many pictures, fills and pieces of ink have been taken
    std::size_t m_marks = 0;
};

/// Whether an image lies under most of the page and words on it are hidden, as on searchable scans.
bool hasScan(const model::RawPage &page)
{
    return std::any_of(page.words.begin(), page.words.end(), [](const model::RawWord &word) { return word.hidden; }) &&
           std::any_of(page.pictures.begin(), page.pictures.end(), [&page](const model::RawPicture &picture) {
               return picture.box.area() >= thresholds.minScanArea * page.width * page.height;
           });
}

} // namespace

void addScanPictures(PdfFile &file, model::RawPage &page)
{
    const double dot = thresholds.scanResolution / pointsPerInch;
    const PictureSize size{
        static_cast<int>(page.width * dot), static_cast<int>(page.height * dot), thresholds.scanResolution,
        thresholds.scanResolution};
    if (size.width < 1 || size.height < 1) {
        return;
    }
    const Raster raster = PageRenderer(file, ColourDepth::Gray).draw(page.number, size, 0, size.height);
    std::vector<Box> words;
    for (const model::RawWord &word : page.words) {
        words.push_back({word.box.left * dot, word.box.top * dot, word.box.right * dot, word.box.bottom * dot});
    }
    for (const Box &picture : findScanPictures(raster, words, dot)) {
        page.pictures.push_back(
            {{picture.left / dot, picture.top / dot, picture.right / dot, picture.bottom / dot}, {}, false, true});
    }
}

struct PageCollector::State
{
    PdfFile &file;
    Collect what;
    const Structure *structure;
    Collector device;
};

PageCollector::PageCollector(PdfFile &file, Collect what, const Structure *structure)
    : m_state(new State{file, what, structure, Collector(what == Collect::Everything, structure)})
{}

PageCollector::~PageCollector() = default;

model::RawPage PageCollector::collect(int pageNumber)
{
    auto &[file, what, structure, device] = *m_state;
    const PageSize size = file.pageSize(pageNumber);
    PDFDoc &doc = *file.handles().doc;
    const PageTime time(pageNumber);
    const auto read = [&, &collector = device]() -> model::RawPage & {
        model::RawPage &page = collector.newPage(pageNumber);
        page.number = pageNumber;
        page.width = size.width;
        page.height = size.height;
        doc.displayPage(&collector, pageNumber, pointsPerInch, pointsPerInch, 0, false, true, false);
        collector.finishPage();
        return page;
    };
    model::RawPage &page = read();
    if (what == Collect::TextAndRules && device.characters().hasInvisible()) {
        device.collectPictures(true); // what the text means depends on the pictures under it
        read();
        device.collectPictures(false);
    }
    readWords(device, device.contents(), device.families(), device.characters(), page);
    if (what == Collect::Everything) {
        if (hasScan(page)) {
            addScanPictures(file, page);
        }
        applyLinks(doc, pageNumber, page);
        readPageNotes(doc, pageNumber, page);
        for (const auto &[content, box] : device.painted()) {
            if (QString text = structure->alternativeOf(content); !text.isEmpty()) {
                page.alternatives.push_back({box, std::move(text)});
            }
        }
    }
    return std::move(page);
}

} // namespace quorra
