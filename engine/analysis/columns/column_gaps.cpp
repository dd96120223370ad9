// SPDX-License-Identifier: GPL-3.0-or-later
#include "columns/column_gaps.h"

#include "base/number.h"
#include "document/direction.h"

#include <algorithm>
#include <bitset>
#include <cmath>

namespace quorra::model {

namespace {

using columnGaps::thresholds;

/// Which parts of a region words and obstacles cover, as a bitmap of bins (across) and slices (down).
class Coverage
{
public:
    Coverage(const RegionItems &items, const std::vector<Box> &bodies, const Box &area)
        : m_area(area)
        , m_binWidth(std::max(thresholds.minBinWidth, area.width() / (thresholds.maxBins - 2)))
        , m_sliceHeight(std::max(thresholds.minSliceHeight, area.height() / (thresholds.maxSlices - 2)))
        , m_bins(static_cast<int>(area.width() / m_binWidth) + 1)
        , m_slices(static_cast<std::size_t>(area.height() / m_sliceHeight) + 1)
    {
        for (const Box &body : bodies) {
            mark(body);
        }
        for (const auto &obstacle : items.obstacles) {
            mark(obstacle.first);
        }
    }

    int bins() const { return m_bins; }
    int slices() const { return static_cast<int>(m_slices.size()); }
    double x(int bin) const { return m_area.left + bin * m_binWidth; }
    double y(int slice) const { return m_area.top + slice * m_sliceHeight; }
    double binWidth() const { return m_binWidth; }
    /// Extends what is covered to the left: a bin is covered afterwards if any of `width` bins from it on is.
    void coverStrips(int width)
    {
        for (Slice &slice : m_slices) {
            for (int done = 1; done < width;) {
                const int step = std::min(done, width - done);
                slice.bits |= slice.bits >> static_cast<std::size_t>(step);
                done += step;
            }
        }
    }
    /// The bins where an empty strip of that width has something on its left and on its right, not necessarily at the
    /// same height: only there can columns be divided. After coverStrips().
    std::bitset<thresholds.maxBins> promisingBins(int width) const
    {
        std::bitset<thresholds.maxBins> all;
        all.set();
        std::bitset<thresholds.maxBins> rightOfSomething;
        std::bitset<thresholds.maxBins> leftOfSomething;
        for (const Slice &slice : m_slices) {
            const auto empty = ~slice.bits;
            if (slice.last >= 0) {
                rightOfSomething |= empty & all << (static_cast<std::size_t>(slice.first) + 1);
            }
            if (slice.last >= width) {
                const std::size_t last = static_cast<std::size_t>(slice.last) - static_cast<std::size_t>(width);
                leftOfSomething |= empty & all >> (thresholds.maxBins - 1 - last);
            }
        }
        return rightOfSomething & leftOfSomething;
    }
    bool covered(int slice, int bin) const
    {
        return m_slices[static_cast<std::size_t>(slice)].bits[static_cast<std::size_t>(bin)];
    }
    int first(int slice) const { return m_slices[static_cast<std::size_t>(slice)].first; }
    int last(int slice) const { return m_slices[static_cast<std::size_t>(slice)].last; }

private:
    struct Slice
    {
        std::bitset<thresholds.maxBins> bits;
        int first = static_cast<int>(thresholds.maxBins);
        int last = -1;
    };

    void mark(const Box &box)
    {
        const int from = std::clamp(static_cast<int>((box.left - m_area.left) / m_binWidth), 0, m_bins - 1);
        const int to = std::clamp(static_cast<int>((box.right - m_area.left) / m_binWidth), from, m_bins - 1);
        const int top = std::clamp(static_cast<int>((box.top - m_area.top) / m_sliceHeight), 0, slices() - 1);
        const int bottom = std::clamp(static_cast<int>((box.bottom - m_area.top) / m_sliceHeight), top, slices() - 1);
        for (int s = top; s <= bottom; ++s) {
            Slice &slice = m_slices[static_cast<std::size_t>(s)];
            for (int b = from; b <= to; ++b) {
                slice.bits.set(static_cast<std::size_t>(b));
            }
            slice.first = std::min(slice.first, from);
            slice.last = std::max(slice.last, to);
        }
    }

    Box m_area;
    double m_binWidth;
    double m_sliceHeight;
    int m_bins;
    std::vector<Slice> m_slices;
};

struct Candidate
{
    int bin = 0;
    int from = 0; // slices, both included
    int to = 0;
    int score = 0; // slices with something on the left or on the right, whichever are fewer
};

// Adds the empty stretches of the strip that begins at `bin`. The coverage has been extended by the strip's width.
void addCandidates(const Coverage &coverage, int bin, int width, std::vector<Candidate> &candidates)
{
    Candidate current{bin, -1, -1, 0};
    int left = 0;
    int right = 0;
    const auto finish = [&] {
        current.score = std::min(left, right);
        if (current.from >= 0 && current.score > 0) {
            candidates.push_back(current);
        }
        current = {bin, -1, -1, 0};
        left = right = 0;
    };
    for (int slice = 0; slice < coverage.slices(); ++slice) {
        if (coverage.covered(slice, bin)) {
            finish();
            continue;
        }
        const bool hasLeft = coverage.first(slice) < bin;
        const bool hasRight = coverage.last(slice) >= bin + width;
        if (hasLeft || hasRight) {
            current.from = current.from < 0 ? slice : current.from;
            current.to = slice;
        }
        left += hasLeft ? 1 : 0;
        right += hasRight ? 1 : 0;
    }
    finish();
}

double usualSize(const WordRefs &words)
{
    std::vector<double> sizes;
    for (const RawWord *word : words) {
        sizes.push_back(word->style.size);
    }
    return median(std::move(sizes));
}

using Lines = std::vector<TextLine>;

/// What tells prose from other text, for each of some lines.
class ProseFacts
{
public:
    explicit ProseFacts(const Lines &lines)
    {
        m_facts.reserve(lines.size());
        for (const TextLine &line : lines) {
            Facts facts{line.box, line.words.size()};
            for (const RawWord *word : line.words) {
                facts.letters += letterCount(word->text);
                facts.numbers += looksNumeric(word->text) ? 1 : 0;
            }
            m_facts.push_back(facts);
        }
    }

    // Whether lines [first, first + count) are prose: long and made of letters.
    bool areProse(std::size_t first, std::size_t count) const
    {
        if (count < thresholds.minLines) {
            return false;
        }
        Box all;
        std::vector<double> letters;
        std::vector<double> widths;
        std::size_t words = 0;
        int numbers = 0;
        for (std::size_t i = first; i < first + count; ++i) {
            const Facts &line = m_facts[i];
            all = united(all, line.box);
            letters.push_back(line.letters);
            widths.push_back(line.box.width());
            words += line.words;
            numbers += line.numbers;
        }
        const double minLetters = count == 2 ? thresholds.minLettersOfTwoLines : thresholds.minLetters;
        return numbers < thresholds.maxNumericWords * static_cast<double>(words) &&
               median(std::move(letters)) >= minLetters &&
               median(std::move(widths)) >= thresholds.minLineWidth * all.width();
    }

    // Whether all lines are prose.
    bool areProse() const { return areProse(0, m_facts.size()); }

    // Whether some lines in a row are prose.
    bool holdProse() const
    {
        bool found = areProse();
        for (std::size_t i = 0; i + thresholds.stretch <= m_facts.size() && !found; ++i) {
            found = areProse(i, thresholds.stretch);
        }
        return found;
    }

private:
    struct Facts
    {
        Box box;
        std::size_t words = 0;
        int letters = 0;
        int numbers = 0; ///< words that are numbers
    };

    std::vector<Facts> m_facts;
};

// Whether enough lines begin in the middle of a sentence. Text in capitals, in scripts without them, and text of a few
// lines does not decide, and is taken for text that does.
bool goesOn(const Lines &lines, bool rightToLeft, std::size_t minCasedLines = thresholds.minCasedLines)
{
    std::size_t cased = 0;
    std::size_t small = 0;
    bool hasSmall = false;
    for (const TextLine &line : lines) {
        const QChar begin = (rightToLeft ? line.words.back() : line.words.front())->text.front();
        cased += begin.isUpper() || begin.isLower() ? 1 : 0;
        small += begin.isLower() ? 1 : 0;
        hasSmall = hasSmall || std::any_of(line.words.begin(), line.words.end(), [](const RawWord *word) {
                       return word->text.back().isLower();
                   });
    }
    return cased < minCasedLines || !hasSmall ||
           static_cast<double>(small) >= thresholds.minGoingOn * static_cast<double>(cased);
}

/// What is on one side of a strip.
class Side
{
public:
    void add(const RawWord *word) { m_words.push_back(word); }
    void addObstacle() { m_hasObstacle = true; }

    void finish()
    {
        m_rightToLeft =
            std::any_of(
                m_words.begin(), m_words.end(), [](const RawWord *word) { return hasRightToLeft(word->text); }) &&
            isRightToLeft(joinedText(m_words));
        m_lines = textLinesOf(std::move(m_words));
    }

    const Lines &lines() const { return m_lines; }
    bool hasObstacle() const { return m_hasObstacle; }

    bool isText() const { return goesOn(m_lines, m_rightToLeft) && ProseFacts(m_lines).areProse(); }

    // A column may hold a table or a list beside its text.
    bool hasText() const { return goesOn(m_lines, m_rightToLeft) && ProseFacts(m_lines).holdProse(); }

    // Whether most lines begin where others do: at the edge of the column, or at an indent.
    bool isAligned() const { return agree(m_rightToLeft, thresholds.minAligned); }

    // The same for a side of a gap that is known, where few lines need not be aligned.
    bool isAlignedToKnown() const
    {
        return m_lines.size() < thresholds.minHeight || agree(m_rightToLeft, thresholds.minAlignedOfKnown);
    }

    // Whether most lines also end where others do, and one begins in the middle of a sentence: few lines are enough.
    bool isJustified() const
    {
        return agree(true, thresholds.minAligned) && agree(false, thresholds.minAligned) &&
               goesOn(m_lines, m_rightToLeft, 1);
    }

private:
    // Whether that share of the right or left edges of the lines agrees with those of other lines.
    bool agree(bool rightEdges, double share) const
    {
        std::vector<double> edges;
        edges.reserve(m_lines.size());
        for (const TextLine &line : m_lines) {
            edges.push_back(rightEdges ? line.box.right : line.box.left);
        }
        std::sort(edges.begin(), edges.end());
        const std::size_t others = edges.size() < thresholds.minHeight ? 1 : 2;
        std::size_t agreeing = 0;
        for (const double edge : edges) {
            const auto from = std::lower_bound(edges.begin(), edges.end(), edge - textLines::thresholds.sameEdge);
            const auto to = std::upper_bound(edges.begin(), edges.end(), edge + textLines::thresholds.sameEdge);
            agreeing += static_cast<std::size_t>(to - from) > others ? 1 : 0;
        }
        return static_cast<double>(agreeing) >= share * static_cast<double>(edges.size());
    }

    WordRefs m_words;
    Lines m_lines;
    bool m_hasObstacle = false;
    bool m_rightToLeft = false;
};

// The share of the shorter side's lines that are on the baseline of a line of the other side.
double sharedBaselines(const Lines &a, const Lines &b)
{
    const Lines &fewer = a.size() < b.size() ? a : b;
    const Lines &more = a.size() < b.size() ? b : a;
    const auto shared = std::count_if(fewer.begin(), fewer.end(), [&more](const TextLine &line) {
        const double near = thresholds.sameBaseline * line.size;
        const auto at = std::lower_bound(
            more.begin(), more.end(), line.baseline - near,
            [](const TextLine &other, double baseline) { return other.baseline < baseline; });
        return at != more.end() && at->baseline <= line.baseline + near;
    });
    return static_cast<double>(shared) / std::max(1.0, static_cast<double>(fewer.size()));
}

/// What tells that a strip is a gap between columns.
enum class Evidence {
    None,
    IfKnown, ///< enough if the gap is known from elsewhere
    Enough
};

/// `bodies` are those of the region's words.
Evidence evidenceFor(const RegionItems &items, const std::vector<Box> &bodies, const ColumnGap &gap)
{
    Side left;
    Side right;
    const auto isBeside = [&gap](const Box &box) { return box.centreY() >= gap.top && box.centreY() <= gap.bottom; };
    for (std::size_t i = 0; i < bodies.size(); ++i) {
        if (isBeside(bodies[i])) {
            (bodies[i].centreX() < gap.left ? left : right).add(items.words[i]);
        }
    }
    for (const auto &obstacle : items.obstacles) {
        if (isBeside(obstacle.first)) {
            (obstacle.first.centreX() < gap.left ? left : right).addObstacle();
        }
    }
    left.finish();
    right.finish();
    if ((right.hasObstacle() && left.isText() && left.isAligned()) ||
        (left.hasObstacle() && right.isText() && right.isAligned())) {
        return Evidence::Enough;
    }
    const std::size_t fewer = std::min(left.lines().size(), right.lines().size());
    const std::size_t more = std::max(left.lines().size(), right.lines().size());
    if (fewer < thresholds.minLines) {
        return Evidence::None;
    }
    const bool isText = left.hasText() && right.hasText();
    const bool isHigh = more >= thresholds.minHeight ||
                        (fewer >= thresholds.minJustifiedHeight && left.isJustified() && right.isJustified());
    if (isHigh && left.isAligned() && right.isAligned() &&
        (isText || ((left.isText() || right.isText()) && fewer >= thresholds.minHeight &&
                    sharedBaselines(left.lines(), right.lines()) <= thresholds.maxShared))) {
        return Evidence::Enough;
    }
    return isText && left.isAlignedToKnown() && right.isAlignedToKnown() ? Evidence::IfKnown : Evidence::None;
}

// The candidates without those that overlap a better one: one for each white strip, the best one first.
std::vector<Candidate> oneOfEachStrip(std::vector<Candidate> candidates, int width)
{
    std::stable_sort(
        candidates.begin(), candidates.end(), [](const Candidate &a, const Candidate &b) { return a.score > b.score; });
    std::vector<Candidate> strips;
    for (const Candidate &candidate : candidates) {
        if (strips.size() == static_cast<std::size_t>(thresholds.maxCandidates)) {
            break;
        }
        const bool isNew = std::none_of(strips.begin(), strips.end(), [&](const Candidate &other) {
            const int shared = std::min(candidate.to, other.to) - std::max(candidate.from, other.from) + 1;
            return std::abs(candidate.bin - other.bin) <= width &&
                   shared > thresholds.sameStrip * (candidate.to - candidate.from + 1);
        });
        if (isNew) {
            strips.push_back(candidate);
        }
    }
    return strips;
}

} // namespace

bool areProseLines(const WordRefs &words)
{
    return ProseFacts(textLinesOf(words)).areProse();
}

bool continues(const ColumnGap &gap, const ColumnGap &other)
{
    return gap.left < other.right && gap.right > other.left;
}

std::optional<ColumnGap>
findColumnGap(const RegionItems &items, const std::vector<ColumnGap> &known, std::vector<ColumnGap> &possible)
{
    if (items.words.size() < thresholds.minWords) {
        return std::nullopt;
    }
    Box area;
    std::vector<Box> bodies;
    bodies.reserve(items.words.size());
    for (const RawWord *word : items.words) {
        bodies.push_back(bodyOf(*word));
        area = united(area, bodies.back());
    }
    for (const auto &obstacle : items.obstacles) {
        area = united(area, obstacle.first);
    }
    Coverage coverage(items, bodies, area);
    const double size = usualSize(items.words);
    const int width = std::max(2, static_cast<int>(std::lround(thresholds.minWidth * size / coverage.binWidth())));
    coverage.coverStrips(width);
    std::vector<Candidate> candidates;
    const auto promising = coverage.promisingBins(width);
    for (int bin = 1; bin + width < coverage.bins(); ++bin) {
        if (promising[static_cast<std::size_t>(bin)]) {
            addCandidates(coverage, bin, width, candidates);
        }
    }
    for (const Candidate &candidate : oneOfEachStrip(std::move(candidates), width)) {
        const ColumnGap gap{
            coverage.x(candidate.bin), coverage.x(candidate.bin + width),
            coverage.y(candidate.from) - thresholds.margin, coverage.y(candidate.to + 1) + thresholds.margin};
        const Evidence evidence = evidenceFor(items, bodies, gap);
        const bool isKnown =
            std::any_of(known.begin(), known.end(), [&gap](const ColumnGap &other) { return continues(gap, other); });
        if (evidence == Evidence::Enough || (evidence == Evidence::IfKnown && isKnown)) {
            return gap;
        }
        if (evidence == Evidence::IfKnown) {
            possible.push_back(gap);
        }
    }
    return std::nullopt;
}

} // namespace quorra::model
