// SPDX-License-Identifier: GPL-3.0-or-later
#include "figures/formulas.h"

#include "figures/rectangles.h"
#include "text_lines/text_lines.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <limits>

namespace quorra::model {

namespace {

/// Lengths in em of the words concerned unless another unit is named.
struct Thresholds
{
    double minBar = 4;             ///< points; shorter lines are minus signs
    double maxBar = 0.5;           ///< share of the page's width; longer lines divide the page
    double maxBarDistance = 0.9;   ///< between a fraction's bar and the baseline above it, or the capitals below it
    double maxBarOverhang = 3;     ///< points by which the parts of a fraction are wider than its bar
    double minBarFilled = 0.35;    ///< share of the bar's length that the wider part of the fraction fills
    double maxNeighbourGap = 1.5;  ///< between the bar and a sign beside it; lines in tables have none
    double maxLimitDistance = 0.8; ///< between a sum and its limits
    double maxLimitSize = 0.85;    ///< of the sum's font size
    double maxWordGap = 1.3;       ///< between the parts of one formula
    double margin = 1;             ///< points around a formula: the box of a word leaves out parts of large signs
    std::ptrdiff_t maxProse = 2;   ///< words of letters beside it; more are a sentence
    qsizetype minProseLength = 3;  ///< letters of a word of a sentence; shorter ones may be variables
    std::size_t maxSeeds = 200;    ///< on a page; more are no formulas
};
constexpr Thresholds thresholds;

bool isOperator(const RawWord &word)
{
    static const QString operators = QString::fromUtf8("∏∐∑∫∬∭∮⋀⋁⋂⋃⨀⨁⨂"); // sorted
    const QChar first = operators.front();
    return std::any_of(
        word.text.begin(), word.text.end(), [first](QChar c) { return c >= first && operators.contains(c); });
}

bool isNumber(const RawWord &word)
{
    static const QRegularExpression number(QStringLiteral("^[(\\[][A-Z]?\\d+(?:[.-]\\d+)*[a-z]?[)\\]]$"));
    return number.match(word.text).hasMatch();
}

bool isProse(const RawWord &word)
{
    static const QRegularExpression function(
        QStringLiteral("^(?:sin|cos|tan|log|exp|lim|max|min|mod|inf|sup|det|arg)$"));
    return word.text.size() >= thresholds.minProseLength &&
           std::all_of(word.text.begin(), word.text.end(), [](QChar c) { return c.isLetter(); }) &&
           !function.match(word.text).hasMatch();
}

/// The upright words of a page, sorted by their baselines.
struct UprightWords
{
    explicit UprightWords(const RawPage &page)
    {
        for (const RawWord &word : page.words) {
            if (word.rotation == 0) {
                words.push_back(&word);
                largest = std::max(largest, word.style.size);
            }
        }
        std::stable_sort(
            words.begin(), words.end(), [](const RawWord *a, const RawWord *b) { return a->baseline < b->baseline; });
    }

    /// The first word whose baseline is not above `y`.
    WordRefs::const_iterator from(double y) const
    {
        return std::partition_point(
            words.begin(), words.end(), [y](const RawWord *word) { return word->baseline < y; });
    }

    WordRefs words;
    double largest = 0; ///< font size
};

/// Extends the box by the words whose baselines are in [top, bottom] and that fulfil a condition; returns whether there
/// was one.
template <typename Condition>
bool addWords(Box &box, const UprightWords &page, double top, double bottom, const Condition &belongs)
{
    bool any = false;
    for (auto word = page.from(top); word != page.words.end() && (*word)->baseline <= bottom; ++word) {
        if (belongs(**word, bodyOf(**word))) {
            box = united(box, (*word)->box);
            any = true;
        }
    }
    return any;
}

/// The same for all words.
template <typename Condition>
bool addWords(Box &box, const UprightWords &page, const Condition &belongs)
{
    constexpr double all = std::numeric_limits<double>::infinity();
    return addWords(box, page, -all, all, belongs);
}

// The fraction around a bar; an empty box if the line is none.
Box fractionAt(const Rule &bar, const UprightWords &page)
{
    const auto fits = [&bar](const Box &body) {
        return body.left >= bar.x1 - thresholds.maxBarOverhang && body.right <= bar.x2 + thresholds.maxBarOverhang;
    };
    Box above;
    Box below;
    const bool filled =
        addWords(
            above, page, bar.y1 - thresholds.maxBarDistance * page.largest, bar.y1,
            [&](const RawWord &word, const Box &body) {
                return fits(body) && bar.y1 - word.baseline < thresholds.maxBarDistance * word.style.size;
            }) &&
        addWords(below, page, [&](const RawWord &word, const Box &body) {
            return fits(body) && body.centreY() > bar.y1 &&
                   body.top - bar.y1 < thresholds.maxBarDistance * word.style.size;
        });
    Box beside;
    const bool hasNeighbour = filled && addWords(beside, page, [&](const RawWord &word, const Box &body) {
                                  const double gap = std::max(body.left - bar.x2, bar.x1 - body.right);
                                  return body.top < bar.y1 && word.baseline > bar.y1 && gap > -1 &&
                                         gap < thresholds.maxNeighbourGap * word.style.size;
                              });
    const bool whole = std::max(above.width(), below.width()) >= thresholds.minBarFilled * bar.length();
    return hasNeighbour && whole ? united(united(above, below), beside) : Box{};
}

// The sum, product or integral with its limits; an empty box where it has none above or below it.
Box operatorWithLimits(const RawWord &sign, const UprightWords &page)
{
    Box box = sign.box;
    const Box body = bodyOf(sign);
    const bool any = addWords(box, page, [&](const RawWord &word, const Box &limit) {
        const double reach = thresholds.maxLimitDistance * sign.style.size;
        const bool near = limit.bottom > body.top - reach && limit.top < body.bottom + reach;
        const bool over = limit.bottom <= body.centreY() || limit.top >= body.centreY();
        return &word != &sign && word.style.size <= thresholds.maxLimitSize * sign.style.size && near && over &&
               limit.left < sign.box.right && limit.right > sign.box.left;
    });
    return any ? box : Box{};
}

bool isOnRow(const RawWord &word, const Box &formula)
{
    const Box body = bodyOf(word);
    return body.centreY() > formula.top && body.centreY() < formula.bottom;
}

// The formula that a fraction or sum belongs to, with everything beside it.
Box grown(Box formula, const UprightWords &page)
{
    Box before;
    while (before != formula) {
        before = formula;
        addWords(formula, page, [&formula](const RawWord &word, const Box &body) {
            const double gap = std::max(body.left - formula.right, formula.left - body.right);
            return isOnRow(word, formula) && gap < thresholds.maxWordGap * word.style.size && !isNumber(word);
        });
    }
    return formula;
}

bool isInSentence(const Box &formula, const UprightWords &page)
{
    return std::count_if(page.words.begin(), page.words.end(), [&formula](const RawWord *word) {
               return isOnRow(*word, formula) && isProse(*word);
           }) > thresholds.maxProse;
}

} // namespace

std::vector<Box> findFormulas(const RawPage &page)
{
    const UprightWords words(page);
    std::vector<Box> seeds;
    const auto add = [&seeds](const Box &box) {
        if (!box.isEmpty()) {
            seeds.push_back(box);
        }
    };
    std::size_t bars = 0;
    for (const Rule &rule : page.rules) {
        if (rule.isHorizontal() && rule.length() >= thresholds.minBar &&
            rule.length() <= thresholds.maxBar * page.width && ++bars <= thresholds.maxSeeds) {
            add(fractionAt(rule, words));
        }
    }
    for (const RawWord &word : page.words) {
        if (word.rotation == 0 && isOperator(word) && seeds.size() < thresholds.maxSeeds) {
            add(operatorWithLimits(word, words));
        }
    }
    std::vector<Box> formulas;
    for (const Box &seed : seeds) {
        Box formula = grown(seed, words);
        if (isInSentence(formula, words)) {
            continue;
        }
        formula = {
            formula.left - thresholds.margin, formula.top - thresholds.margin, formula.right + thresholds.margin,
            formula.bottom + thresholds.margin};
        for (std::size_t i = formulas.size(); i-- > 0;) {
            if (touch(formulas[i], formula, 0)) {
                formula = united(formula, formulas[i]);
                formulas.erase(formulas.begin() + static_cast<std::ptrdiff_t>(i));
            }
        }
        formulas.push_back(formula);
    }
    return formulas;
}

} // namespace quorra::model
