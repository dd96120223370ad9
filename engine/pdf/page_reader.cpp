// SPDX-License-Identifier: GPL-3.0-or-later
#include "pdf/page_reader.h"

#include "marked_content.h"
#include "page_links.h"
#include "page_notes.h"
#include "page_words.h"
#include "paths.h"
#include "pdf_file_handles.h"
#include "platform/page_time.h"

#include <GfxState.h>
#include <TextOutputDev.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace quorra {

namespace {

constexpr double maxRuleWidth = 3.2;     // points; a filled rectangle that is not thicker is a rule
constexpr std::size_t maxMarks = 20'000; // a page with more lines is a drawing, not a table

Colour colourOf(const GfxRGB &rgb)
{
    const auto byte = [](GfxColorComp c) { return static_cast<Colour>(colToByte(c)); };
    return byte(rgb.r) << 16U | byte(rgb.g) << 8U | byte(rgb.b);
}

Box clipBox(const GfxState *state)
{
    Box clip;
    state->getClipBBox(&clip.left, &clip.top, &clip.right, &clip.bottom);
    return clip;
}

/// Extends the text device of the PDF library, which finds words, to record all other marks on the page.
class Collector final : public TextOutputDev
{
public:
    Collector(bool withPictures, const Structure *structure)
        : TextOutputDev(nullptr, false, 0, false, false)
        , m_withPictures(withPictures)
        , m_contents(structure)
    {}

    const MarkedContent &contents() const { return m_contents; }

    /// Clears the results before the next page.
    model::RawPage &newPage(int pageNumber)
    {
        m_contents.beginPage(pageNumber);
        m_marks = 0;
        m_page = {};
        return m_page;
    }

    bool needNonText() override { return m_withPictures; }
    bool useTilingPatternFill() override { return true; }
    bool useShadedFills(int /*type*/) override { return true; }

    void beginMarkedContent(const char *name, Dict *properties) override { m_contents.begin(name, properties); }
    void endMarkedContent(GfxState * /*state*/) override { m_contents.end(); }
    void beginForm(Ref id) override { m_contents.beginForm(id.num); }
    void endForm(Ref /*id*/) override { m_contents.endForm(); }

    void drawChar(
        GfxState *state, double x, double y, double dx, double dy, double originX, double originY, CharCode code,
        int nBytes, const Unicode *u, int uLen) override
    {
        m_contents.addText(nBytes);
        TextOutputDev::drawChar(state, x, y, dx, dy, originX, originY, code, nBytes, u, uLen);
    }

    void incCharCount(int nChars) override
    {
        m_contents.addText(nChars);
        TextOutputDev::incCharCount(nChars);
    }

    void stroke(GfxState *state) override
    {
        GfxRGB rgb;
        state->getStrokeRGB(&rgb);
        const double width = std::max(0.1, state->getTransformedLineWidth());
        forEachSubpath(state, [&](const GfxSubpath *subpath) {
            const std::vector<Point> points = uprightPoints(state, subpath);
            if (points.empty()) {
                addInk(state, boxAround(state, subpath), isFrame(state, subpath));
            }
            for (std::size_t i = 1; i < points.size(); ++i) {
                addRule(state, points[i - 1], points[i], width, colourOf(rgb));
            }
        });
    }

    void fill(GfxState *state) override
    {
        GfxRGB rgb;
        state->getFillRGB(&rgb);
        forEachSubpath(state, [&](const GfxSubpath *subpath) {
            const std::vector<Point> points = uprightPoints(state, subpath);
            const Box box = intersected(boxAround(state, subpath), clipBox(state));
            if (points.size() < 2 || points.size() > 6) {
                addInk(state, box, isFrame(state, subpath));
            } else {
                addFill(state, box, colourOf(rgb));
            }
        });
    }

    void eoFill(GfxState *state) override { fill(state); }

    bool tilingPatternFill(
        GfxState *state, Gfx * /*gfx*/, Catalog * /*cat*/, GfxTilingPattern * /*pattern*/, const double * /*matrix*/,
        int /*x0*/, int /*y0*/, int /*x1*/, int /*y1*/, double /*xStep*/, double /*yStep*/) override
    {
        addInk(state, clipBox(state), true);
        return true;
    }

    bool functionShadedFill(GfxState *state, GfxFunctionShading * /*shading*/) override { return addShading(state); }
    bool axialShadedFill(GfxState *state, GfxAxialShading * /*shading*/, double /*tMin*/, double /*tMax*/) override
    {
        return addShading(state);
    }
    bool radialShadedFill(GfxState *state, GfxRadialShading * /*shading*/, double /*sMin*/, double /*sMax*/) override
    {
        return addShading(state);
    }
    bool gouraudTriangleShadedFill(GfxState *state, GfxGouraudTriangleShading * /*shading*/) override
    {
        return addShading(state);
    }
    bool patchMeshShadedFill(GfxState *state, GfxPatchMeshShading * /*shading*/) override { return addShading(state); }

    void drawImageMask(
        GfxState *state, Object *ref, Stream *str, int width, int height, bool invert, bool interpolate,
        bool inlineImage) override
    {
        addImage(state);
        OutputDev::drawImageMask(state, ref, str, width, height, invert, interpolate, inlineImage);
    }

    void drawImage(
        GfxState *state, Object *ref, Stream *str, int width, int height, GfxImageColorMap *colours, bool interpolate,
        const int *maskColours, bool inlineImage) override
    {
        addImage(state);
        OutputDev::drawImage(state, ref, str, width, height, colours, interpolate, maskColours, inlineImage);
    }

private:
    template <typename Use>
    void forEachSubpath(const GfxState *state, Use use)
    {
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

    void addFill(const GfxState *state, const Box &box, Colour colour)
    {
        const double thickness = std::min(box.width(), box.height());
        if (thickness < 0 || state->getFillOpacity() < 0.02 || std::max(box.width(), box.height()) <= 0) {
            return;
        }
        if (thickness <= maxRuleWidth) {
            addRule(box, box.width() >= box.height(), std::max(0.1, thickness), colour);
        } else {
            m_page.fills.push_back({box, colour});
        }
    }

    void addInk(const GfxState *state, const Box &box, bool frame)
    {
        const Box seen = intersected(box, clipBox(state));
        if (seen.width() > 0 || seen.height() > 0) {
            m_page.ink.push_back({seen, frame});
        }
    }

    bool addShading(const GfxState *state)
    {
        addInk(state, clipBox(state), true);
        return true;
    }

    void addImage(const GfxState *state)
    {
        Box box{1e9, 1e9, -1e9, -1e9};
        for (const Point corner : {Point{0, 0}, Point{1, 0}, Point{0, 1}, Point{1, 1}}) {
            double x = 0;
            double y = 0;
            state->transform(corner.x, corner.y, &x, &y);
            box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x), std::max(box.bottom, y)};
        }
        box = intersected(box, clipBox(state));
        if (std::min(box.width(), box.height()) > maxRuleWidth) {
            m_page.pictures.push_back({box});
        } else if (std::max(box.width(), box.height()) > maxRuleWidth) {
            addRule(box, box.width() >= box.height(), std::min(box.width(), box.height()), black);
        }
    }

    model::RawPage m_page;
    bool m_withPictures;
    MarkedContent m_contents;
    std::size_t m_marks = 0;
};

} // namespace

struct PageCollector::State
{
    PdfFile &file;
    Collect what;
    Collector device;
};

PageCollector::PageCollector(PdfFile &file, Collect what, const Structure *structure)
    : m_state(new State{file, what, Collector(what == Collect::Everything, structure)})
{}

PageCollector::~PageCollector() = default;

model::RawPage PageCollector::collect(int pageNumber)
{
    auto &[file, what, device] = *m_state;
    const PageSize size = file.pageSize(pageNumber);
    model::RawPage &page = device.newPage(pageNumber);
    page.number = pageNumber;
    page.width = size.width;
    page.height = size.height;
    PDFDoc &doc = *file.handles().doc;
    const PageTime time(pageNumber);
    constexpr double pointsPerInch = 72;
    doc.displayPage(&device, pageNumber, pointsPerInch, pointsPerInch, 0, false, true, false);
    readWords(device, device.contents(), page);
    if (what == Collect::Everything) {
        applyLinks(doc, pageNumber, page);
        readPageNotes(doc, pageNumber, page);
    }
    return std::move(page);
}

} // namespace quorra
