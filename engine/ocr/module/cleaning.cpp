// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/cleaning.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <vector>

namespace quorra::ocr {

namespace {

constexpr struct
{
    double darkPage = 0.6;          ///< part of the pixels that are dark on a page with bright text: text covers less
    int unevenPaper = 12;           ///< levels of brightness: paper this much darker than white is made white
    int grain = 7;                  ///< mean difference of neighbours on paper, in levels; scanners stay below 4
    double grainPerPass = 18;       ///< levels of grain that need one more pass of smoothing
    double specks = 0.03;           ///< part of the dark pixels that stand alone: print has hardly any
    int speckContrast = 40;         ///< levels by which a speck differs from what is around it
    std::int64_t samples = 500'000; ///< pixels that are looked at to find out about noise
} thresholds;

using Histogram = std::array<std::int64_t, 256>;

const l_uint32 *lineOf(PIX *pix, int y)
{
    return pixGetData(pix) + static_cast<std::size_t>(y) * pixGetWpl(pix);
}

l_uint32 *writableLine(PIX *pix, int y)
{
    return pixGetData(pix) + static_cast<std::size_t>(y) * pixGetWpl(pix);
}

/// Rows of bytes, in order whatever the byte order of the machine.
void readRow(PIX *pix, int y, std::vector<std::uint8_t> &row)
{
    const l_uint32 *line = lineOf(pix, y);
    for (std::size_t x = 0; x < row.size(); ++x) {
        row[x] = GET_DATA_BYTE(line, x);
    }
}

/// Every how many rows one is looked at.
int rowStep(PIX *gray)
{
    const std::int64_t pixels = std::int64_t(pixGetWidth(gray)) * pixGetHeight(gray);
    return static_cast<int>(std::max<std::int64_t>(1, pixels / thresholds.samples));
}

Histogram histogramOf(PIX *gray)
{
    Histogram histogram{};
    std::vector<std::uint8_t> row(static_cast<std::size_t>(pixGetWidth(gray)));
    for (int y = 0; y < pixGetHeight(gray); y += rowStep(gray)) {
        readRow(gray, y, row);
        for (const std::uint8_t value : row) {
            ++histogram[value];
        }
    }
    return histogram;
}

/// The threshold of Otsu: the classes on both sides differ most.
int otsuThreshold(const Histogram &histogram)
{
    double all = 0;
    double sum = 0;
    for (std::size_t i = 0; i < histogram.size(); ++i) {
        all += double(histogram[i]);
        sum += double(i) * double(histogram[i]);
    }
    double below = 0;
    double sumBelow = 0;
    double best = -1;
    int threshold = 128;
    for (std::size_t i = 0; i < histogram.size(); ++i) {
        below += double(histogram[i]);
        sumBelow += double(i) * double(histogram[i]);
        if (below == 0 || below == all) {
            continue;
        }
        const double difference = sumBelow / below - (sum - sumBelow) / (all - below);
        const double variance = below * (all - below) * difference * difference;
        if (variance > best) {
            best = variance;
            threshold = static_cast<int>(i) + 1;
        }
    }
    return threshold;
}

struct Noise
{
    double grain = 0;         ///< mean difference of neighbours on paper
    double grainPerPass = 18; ///< levels of grain that need one more pass of smoothing
    double specks = 0;        ///< part of the dark pixels that stand alone
};

Noise noiseOf(PIX *gray)
{
    const int width = pixGetWidth(gray);
    const int threshold = darkThreshold(gray);
    std::vector<std::uint8_t> above(static_cast<std::size_t>(width));
    std::vector<std::uint8_t> row = above;
    std::vector<std::uint8_t> below = above;
    std::int64_t dark = 0;
    std::int64_t alone = 0;
    std::int64_t pairs = 0;
    std::int64_t differences = 0;
    for (int y = 1; y + 1 < pixGetHeight(gray); y += rowStep(gray)) {
        readRow(gray, y - 1, above);
        readRow(gray, y, row);
        readRow(gray, y + 1, below);
        for (std::size_t x = 1; x + 1 < row.size(); ++x) {
            if (row[x] >= threshold) {
                if (row[x + 1] >= threshold) {
                    ++pairs;
                    differences += std::abs(row[x] - row[x + 1]);
                }
                continue;
            }
            ++dark;
            const int around = std::min(
                {above[x - 1], above[x], above[x + 1], row[x - 1], row[x + 1], below[x - 1], below[x], below[x + 1]});
            alone += around >= threshold ? 1 : 0;
        }
    }
    Noise noise;
    noise.grain = pairs > 0 ? double(differences) / double(pairs) : 0;
    noise.specks = dark > 0 ? double(alone) / double(dark) : 0;
    return noise;
}

/// The second darkest and second brightest of the eight neighbours limit each pixel: single specks vanish, thin strokes
/// stay.
void removeSpecks(PIX *gray)
{
    const auto width = static_cast<std::size_t>(pixGetWidth(gray));
    std::vector<std::uint8_t> above(width);
    std::vector<std::uint8_t> row(width);
    std::vector<std::uint8_t> below(width);
    const int rows = pixGetHeight(gray);
    readRow(gray, 0, above);
    readRow(gray, 1, row);
    for (int y = 1; y + 1 < rows; ++y) {
        readRow(gray, y + 1, below);
        l_uint32 *line = writableLine(gray, y);
        for (std::size_t x = 1; x + 1 < width; ++x) {
            std::array<std::uint8_t, 8> around = {above[x - 1], above[x],     above[x + 1], row[x - 1],
                                                  row[x + 1],   below[x - 1], below[x],     below[x + 1]};
            const auto [least, most] = std::minmax_element(around.begin(), around.end());
            if (row[x] + thresholds.speckContrast < *least || row[x] > *most + thresholds.speckContrast) {
                std::nth_element(around.begin(), around.begin() + 4, around.end());
                SET_DATA_BYTE(line, x, around[4]);
            }
        }
        above.swap(row);
        row.swap(below);
    }
}

/// A mean weighted 1-2-1 in both directions.
void smooth(PIX *gray)
{
    const auto width = static_cast<std::size_t>(pixGetWidth(gray));
    const int rows = pixGetHeight(gray);
    std::vector<std::uint8_t> above(width);
    std::vector<std::uint8_t> row(width);
    std::vector<std::uint8_t> below(width);
    std::vector<int> sums(width);
    readRow(gray, 0, above);
    readRow(gray, 1, row);
    for (int y = 1; y + 1 < rows; ++y) {
        readRow(gray, y + 1, below);
        l_uint32 *line = writableLine(gray, y);
        for (std::size_t x = 0; x < width; ++x) {
            sums[x] = above[x] + 2 * row[x] + below[x];
        }
        for (std::size_t x = 1; x + 1 < width; ++x) {
            SET_DATA_BYTE(line, x, (sums[x - 1] + 2 * sums[x] + sums[x + 1] + 8) / 16);
        }
        above.swap(row);
        row.swap(below);
    }
}

} // namespace

int darkThreshold(PIX *gray)
{
    return otsuThreshold(histogramOf(gray));
}

PixPtr darkPixels(PIX *gray)
{
    const PixPtr even = withWhitePaper(gray);
    PIX *source = even ? even.get() : gray;
    return checked(pixThresholdToBinary(source, darkThreshold(source)));
}

bool invertDarkPage(PIX *gray)
{
    const Histogram histogram = histogramOf(gray);
    const int threshold = otsuThreshold(histogram);
    std::int64_t dark = 0;
    std::int64_t all = 0;
    for (std::size_t i = 0; i < histogram.size(); ++i) {
        all += histogram[i];
        dark += static_cast<int>(i) < threshold ? histogram[i] : 0;
    }
    if (double(dark) < thresholds.darkPage * double(all)) {
        return false;
    }
    pixInvert(gray, gray);
    return true;
}

PixPtr withoutNoise(PIX *gray)
{
    const Noise noise = noiseOf(gray);
    if (noise.specks < thresholds.specks && noise.grain < thresholds.grain) {
        return nullptr;
    }
    PixPtr clean = checked(pixCopy(nullptr, gray));
    if (noise.specks >= thresholds.specks) {
        removeSpecks(clean.get());
    }
    const int passes = static_cast<int>(std::ceil((noise.grain - thresholds.grain) / thresholds.grainPerPass));
    for (int i = 0; i < passes; ++i) {
        smooth(clean.get());
    }
    return clean;
}

PixPtr withWhitePaper(PIX *gray)
{
    // Paper is what most bright pixels show.
    const Histogram histogram = histogramOf(gray);
    const auto bright = histogram.begin() + otsuThreshold(histogram);
    if (bright >= histogram.end()) {
        return nullptr;
    }
    const std::int64_t all = [&] {
        std::int64_t sum = 0;
        for (auto it = bright; it != histogram.end(); ++it) {
            sum += *it;
        }
        return sum;
    }();
    std::int64_t white = 0;
    for (auto it = histogram.end() - thresholds.unevenPaper; it != histogram.end(); ++it) {
        white += *it;
    }
    constexpr double mostlyWhite = 0.9;
    if (double(white) >= mostlyWhite * double(all)) {
        return nullptr;
    }
    return PixPtr(pixBackgroundNormSimple(gray, nullptr, nullptr)); // null for pictures that are too small
}

} // namespace quorra::ocr
