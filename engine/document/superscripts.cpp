// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/superscripts.h"

#include <algorithm>
#include <cmath>

namespace quorra::model {

namespace {

// In parts of the text's size.
constexpr double smallType = 0.85;
constexpr double leastRaise = 0.12;
constexpr double leastDrop = 0.08;
constexpr double farthestShift = 1.1; // the limits of a sum stand that far off
constexpr double widestGap = 0.45;    // a blank may stand before a footnote's sign

struct Ground
{
    double size = 0;
    double baseline = 0;
};

// The size and baseline that most letters of the line have.
Ground groundOf(const Line &line)
{
    Ground best;
    qsizetype most = 0;
    for (const Word &word : line.words) {
        qsizetype letters = 0;
        for (const Word &other : line.words) {
            const bool alike = std::abs(other.baseline - word.baseline) < 0.05 * word.style.size &&
                               std::abs(other.style.size - word.style.size) < 0.1 * word.style.size;
            letters += alike ? other.text.size() : 0;
        }
        if (letters > most || (letters == most && word.style.size > best.size)) {
            most = letters;
            best = {word.style.size, word.baseline};
        }
    }
    return best;
}

double gapBetween(const Box &a, const Box &b)
{
    return std::max(a.left - b.right, b.left - a.right);
}

Script shiftOf(const Word &word, const Ground &ground)
{
    const double raise = (ground.baseline - word.baseline) / ground.size;
    if (word.rotation != 0 || word.style.size > smallType * ground.size || std::abs(raise) > farthestShift) {
        return Script::None;
    }
    return raise > leastRaise ? Script::Raised : raise < -leastDrop ? Script::Lowered : Script::None;
}

bool isPlain(const Line &line)
{
    const Word &first = line.words.front();
    return std::all_of(
        line.words.begin(), line.words.end(), [&first](const Word &word) { return word.baseline == first.baseline; });
}

} // namespace

std::vector<Script> scriptsOf(const Line &line)
{
    std::vector<Script> scripts(line.words.size(), Script::None);
    if (line.words.size() < 2 || line.rotation != 0 || isPlain(line)) {
        return scripts;
    }
    const Ground ground = groundOf(line);
    std::vector<bool> carries(line.words.size()); // what a sign can hang on
    for (std::size_t i = 0; i < scripts.size(); ++i) {
        scripts[i] = shiftOf(line.words[i], ground);
        carries[i] = scripts[i] == Script::None && line.words[i].style.size > smallType * ground.size;
    }
    const auto hangs = [&](std::size_t i, std::size_t neighbour) {
        return neighbour < scripts.size() && carries[neighbour] &&
               gapBetween(line.words[i].box, line.words[neighbour].box) < widestGap * ground.size;
    };
    for (std::size_t i = 0; i < scripts.size(); ++i) {
        carries[i] = carries[i] || (scripts[i] != Script::None && hangs(i, i - 1));
    }
    for (std::size_t i = scripts.size(); i-- > 0;) { // a sign before its text, as at the head of a footnote
        if (scripts[i] != Script::None && !carries[i]) {
            carries[i] = hangs(i, i + 1);
            scripts[i] = carries[i] ? scripts[i] : Script::None;
        }
    }
    return scripts;
}

} // namespace quorra::model
