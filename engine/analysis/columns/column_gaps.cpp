// SPDX-License-Identifier: GPL-3.0-or-later
#include "columns/column_gaps.h"

#include "base/number.h"

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
    Coverage(const RegionItems &items, const Box &area)
        : m_area(area)
        , m_binWidth(std::max(thresholds.minBinWidth, area.width() / (thresholds.maxBins - 2)))
        , m_sliceHeight(std::max(thresholds.minSliceHeight, area.height() / (thresholds.maxSlices - 2)))
        , m_bins(static_cast<int>(area.width() / m_binWidth) + 1)
        , m_slices(static_cast<std::size_t>(area.height() / m_sliceHeight) + 1)
    {
        for (const RawWord *word : items.words) {
            mark(bodyOf(*word));
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

bool hasTextBeside(const RegionItems &items, const ColumnGap &gap)
{
    WordRefs left;
    WordRefs right;
    bool obstacleLeft = false;
    bool obstacleRight = false;
    for (const RawWord *word : items.words) {
        const Box body = bodyOf(*word);
        if (body.centreY() >= gap.top && body.centreY() <= gap.bottom) {
            (body.centreX() < gap.left ? left : right).push_back(word);
        }
    }
    for (const auto &obstacle : items.obstacles) {
        if (obstacle.first.centreY() >= gap.top && obstacle.first.centreY() <= gap.bottom) {
            (obstacle.first.centreX() < gap.left ? obstacleLeft : obstacleRight) = true;
        }
    }
    const bool textLeft = areProseLines(left);
    const bool textRight = areProseLines(right);
    return (textLeft && textRight) || (textLeft && obstacleRight) || (textRight && obstacleLeft);
}

} // namespace

bool areProseLines(const WordRefs &words)
{
    const std::vector<TextLine> lines = textLinesOf(words);
    if (lines.size() < thresholds.minLines) {
        return false;
    }
    Box all;
    std::vector<double> letters;
    std::vector<double> widths;
    int numeric = 0;
    for (const TextLine &line : lines) {
        all = united(all, line.box);
        int count = 0;
        for (const RawWord *word : line.words) {
            count += letterCount(word->text);
            numeric += looksNumeric(word->text) ? 1 : 0;
        }
        letters.push_back(count);
        widths.push_back(line.box.width());
    }
    const double minLetters = lines.size() == 2 ? thresholds.minLettersOfTwoLines : thresholds.minLetters;
    return median(letters) >= minLetters && median(widths) >= thresholds.minLineWidth * all.width() &&
           numeric < thresholds.maxNumericWords * static_cast<double>(words.size());
}

std::optional<ColumnGap> findColumnGap(const RegionItems &items)
{
    if (items.words.size() < thresholds.minWords) {
        return std::nullopt;
    }
    Box area;
    for (const RawWord *word : items.words) {
        area = united(area, bodyOf(*word));
    }
    for (const auto &obstacle : items.obstacles) {
        area = united(area, obstacle.first);
    }
    Coverage coverage(items, area);
    const double size = usualSize(items.words);
    const int width = std::max(2, static_cast<int>(std::lround(thresholds.minWidth * size / coverage.binWidth())));
    coverage.coverStrips(width);
    std::vector<Candidate> candidates;
    for (int bin = 1; bin + width < coverage.bins(); ++bin) {
        addCandidates(coverage, bin, width, candidates);
    }
    std::stable_sort(
        candidates.begin(), candidates.end(), [](const Candidate &a, const Candidate &b) { return a.score > b.score; });
    int tries = 0;
    int lastBin = -static_cast<int>(thresholds.maxBins);
    for (const Candidate &candidate : candidates) {
        if (std::abs(candidate.bin - lastBin) <= width) { // overlaps the strip tried before
            continue;
        }
        lastBin = candidate.bin;
        const ColumnGap gap{
            coverage.x(candidate.bin), coverage.x(candidate.bin + width),
            coverage.y(candidate.from) - thresholds.margin, coverage.y(candidate.to + 1) + thresholds.margin};
        if (hasTextBeside(items, gap)) {
            return gap;
        }
        if (++tries == thresholds.maxCandidates) {
            break;
        }
    }
    return std::nullopt;
}

} // namespace quorra::model
