// SPDX-License-Identifier: GPL-3.0-or-later
#include "paragraphs/paragraph_breaks.h"

#include "document/direction.h"
#include "paragraphs/dehyphenation.h"
#include "tags/tag_use.h"
#include "text_lines/list_mark.h"
#include "text_lines/sentence_end.h"

#include <algorithm>
#include <cmath>

namespace quorra::model {

namespace {

using paragraphBreaks::thresholds;

} // namespace

ParagraphBreaks::ParagraphBreaks(const std::vector<TextLine> &lines, const Box &column)
    : m_lines(lines)
    , m_column(column)
{
    std::vector<double> steps;
    std::vector<double> fullSteps; // to a line that goes on where the one before it was full
    for (std::size_t i = 0; i < lines.size(); ++i) {
        m_styles.push_back(styleOf(lines[i]));
        m_tabs.push_back(tabsOf(lines, i));
        if (i > 0) {
            const double step = (lines[i].baseline - lines[i - 1].baseline) / std::max(1.0, lines[i].size);
            if (step > thresholds.minSampleStep && step < thresholds.maxSampleStep) {
                steps.push_back(step);
            }
            if (step > thresholds.minSampleStep && step < thresholds.maxFullStep && roomAfter(i - 1) <= 0 &&
                !differsInStyle(i - 1, i) && m_tabs[i - 1].empty() && !endsInLeader(lines[i - 1])) {
                fullSteps.push_back(step);
            }
        }
    }
    if (fullSteps.size() >= thresholds.minFullSteps) {
        steps = std::move(fullSteps);
    }
    m_step = steps.empty() ? thresholds.defaultStep
                           : std::clamp(median(steps), thresholds.minUsualStep, thresholds.maxUsualStep);
}

ParagraphBreaks::LineStyle ParagraphBreaks::styleOf(const TextLine &line)
{
    LineStyle style;
    double sizes = 0;
    double letters = 0;
    style.bold = true;
    style.fixedPitch = true;
    for (std::size_t i = line.dropCapLines > 0 && line.words.size() > 1 ? 1 : 0; i < line.words.size(); ++i) {
        const RawWord *word = line.words[i];
        style.bold = style.bold && word->style.bold;
        style.fixedPitch = style.fixedPitch && word->style.fixedPitch;
        const auto length = static_cast<double>(word->text.size());
        sizes += word->style.size * length;
        letters += length;
    }
    style.rightToLeft = isRightToLeft(joinedText(line.words));
    style.size = sizes / std::max(1.0, letters);
    return style;
}

double ParagraphBreaks::usualStep(double size) const
{
    return m_step * size;
}

bool ParagraphBreaks::startsAt(std::size_t first, std::size_t next) const
{
    const std::size_t before = next - 1;
    if (const std::optional<bool> ends = paragraphEndsBetween(m_lines[before], m_lines[next])) {
        return *ends;
    }
    const double step = m_lines[next].baseline - m_lines[before].baseline;
    const double size = std::max(m_styles[before].size, m_styles[next].size);
    if (endsAtTab(before, next) || m_lines[next].dropCapLines > 0) {
        return true;
    }
    if (step > 0 && step < thresholds.maxHyphenatedStep * size && endsInHyphen(lastWord(before), firstWord(next))) {
        return false;
    }
    const double own = ownStep(first, next);
    const double minOwn = thresholds.minOwnStep * size;
    if (step > thresholds.minGap * std::max(own, minOwn) || (before > first && step < thresholds.maxShrink * own)) {
        return true;
    }
    if (differsInStyle(before, next) || isListStart(first, next)) {
        return true;
    }
    if (m_styles[next].fixedPitch) { // preformatted text may be indented and broken anywhere
        return false;
    }
    if (!m_tabs[before].empty()) { // continues below the text after the tab
        return false;
    }
    return isIndentBreak(first, next) || lineEndedEarly(before, next);
}

// Whether a tab makes the line before or the next one an entry of its own. An entry may have lines above its leader,
// and lines below the text after its gap.
bool ParagraphBreaks::endsAtTab(std::size_t before, std::size_t next) const
{
    const auto hasGap = [this](std::size_t line) {
        return std::any_of(m_tabs[line].begin(), m_tabs[line].end(), [](const LineTab &tab) { return !tab.leader; });
    };
    if (hasGap(next) || endsInLeader(m_lines[before])) {
        return true;
    }
    if (m_tabs[before].empty()) {
        return false;
    }
    const double start = m_lines[before].words[m_tabs[before].back().begin]->box.left;
    const bool hangs = std::abs(m_lines[next].box.left - start) < tabs::thresholds.hanging * m_lines[next].size;
    return !hangs || m_tabs[before].back().leader || lineEndedEarly(before, next);
}

// The distance of the lines of the paragraph that began with line `first`, as far as it goes. Its first two lines may
// have a distance of their own that is not the usual one of the column: then the third line has it too.
double ParagraphBreaks::ownStep(std::size_t first, std::size_t next) const
{
    const std::size_t before = next - 1;
    if (before > first) {
        return m_lines[before].baseline - m_lines[before - 1].baseline;
    }
    const double size = std::max(m_styles[before].size, m_styles[next].size);
    const double step = m_lines[next].baseline - m_lines[before].baseline;
    if (next + 1 < m_lines.size() && step < thresholds.maxFullStep * size && roomAfter(before) <= 0 &&
        roomAfter(next) <= 0 &&
        std::abs(m_lines[next + 1].baseline - m_lines[next].baseline - step) < thresholds.sameStep * step) {
        return step;
    }
    return usualStep(size);
}

bool ParagraphBreaks::differsInStyle(std::size_t a, std::size_t b) const
{
    const LineStyle &x = m_styles[a];
    const LineStyle &y = m_styles[b];
    const double ratio = x.size / y.size;
    const bool longEnough = std::min(m_lines[a].words.size(), m_lines[b].words.size()) >= thresholds.minDirectionWords;
    return ratio > thresholds.maxSizeRatio || ratio < thresholds.minSizeRatio || x.bold != y.bold ||
           x.fixedPitch != y.fixedPitch || (x.rightToLeft != y.rightToLeft && longEnough);
}

bool ParagraphBreaks::beginsWithMark(std::size_t i) const
{
    const std::vector<const RawWord *> &words = m_lines[i].words;
    if (isListMark(firstWord(i))) {
        return true;
    }
    if (m_styles[i].rightToLeft || !isSpacedMark(words.front()->text)) {
        return false;
    }
    std::vector<double> gaps;
    for (std::size_t word = 1; word < words.size(); ++word) {
        gaps.push_back(words[word]->box.left - words[word - 1]->box.right);
    }
    return isSpaced(gaps, words.front()->style.size);
}

bool ParagraphBreaks::isListStart(std::size_t first, std::size_t next) const
{
    const TextLine &line = m_lines[next];
    if (line.words.size() < 2) {
        return false;
    }
    const QString mark = line.words.front()->text;
    if (!beginsWithMark(next)) {
        return false;
    }
    const bool afterItem = beginsWithMark(first);
    const bool outdented = line.box.left < m_lines[next - 1].box.left - thresholds.minIndent * line.size;
    if ((isBullet(mark) && !isDashBullet(mark)) || isLetterBullet(mark)) {
        return true;
    }
    return (afterItem && next - 1 == first) || outdented || endsSentence(lastWord(next - 1)) ||
           lineEndedEarly(next - 1, next);
}

bool ParagraphBreaks::isCentred(std::size_t i) const
{
    const Box &box = m_lines[i].box;
    const double left = box.left - m_column.left;
    const double right = m_column.right - box.right;
    const double tolerance = std::max(thresholds.minCentredTolerance, thresholds.centredTolerance * m_column.width());
    return left > thresholds.minIndent * m_lines[i].size && std::abs(left - right) < tolerance;
}

bool ParagraphBreaks::isIndentBreak(std::size_t first, std::size_t next) const
{
    const std::size_t before = next - 1;
    const double moved = m_styles[next].rightToLeft ? m_lines[before].box.right - m_lines[next].box.right
                                                    : m_lines[next].box.left - m_lines[before].box.left;
    const double minIndent = thresholds.minIndent * m_lines[next].size;
    if (std::abs(moved) < minIndent || (isCentred(before) && isCentred(next))) {
        return false;
    }
    if (moved < 0) { // outdented: after a paragraph's first line its body, later a new entry with a hanging indent
        return before != first;
    }
    if (before != first) {
        return true;
    }
    // The second line is indented: so are entries with a hanging indent; a new paragraph is outdented again.
    if (beginsWithMark(first) || next + 1 >= m_lines.size()) {
        return !beginsWithMark(first) && endsSentence(lastWord(before));
    }
    const double after = m_lines[next + 1].box.left - m_lines[next].box.left;
    return after < -minIndent && endsSentence(lastWord(before));
}

// The space after the line that the first word of the next one would not have filled, in points; 0 or less in a line
// that was full.
double ParagraphBreaks::roomAfter(std::size_t before) const
{
    const TextLine &line = m_lines[before];
    const TextLine &following = m_lines[before + 1];
    const bool rightToLeft = m_styles[before + 1].rightToLeft;
    const double empty = rightToLeft ? line.box.left - m_column.left : m_column.right - line.box.right;
    const RawWord *word = rightToLeft ? following.words.back() : following.words.front();
    return empty - (word->box.width() + thresholds.wordSpace * line.size);
}

// Whether the next line's first word would have fitted on the line before.
bool ParagraphBreaks::lineEndedEarly(std::size_t before, std::size_t next) const
{
    const TextLine &line = m_lines[before];
    const QString last = lastWord(before);
    const QString begin = firstWord(next);
    if (last.endsWith(QLatin1Char('-')) || last.endsWith(QLatin1Char(','))) {
        return false;
    }
    if (isCentred(before) && isCentred(next)) {
        return endsSentence(last) || line.box.width() < thresholds.minCentredWidth * m_column.width();
    }
    const double room = roomAfter(before);
    if (room <= 0) {
        return false;
    }
    const bool goesOn = !begin.isEmpty() && begin.front().isLower() && !endsSentence(last);
    return !goesOn || room > thresholds.minEmptyShare * m_column.width();
}

QString ParagraphBreaks::lastWord(std::size_t i) const
{
    return m_styles[i].rightToLeft ? m_lines[i].words.front()->text : m_lines[i].words.back()->text;
}

QString ParagraphBreaks::firstWord(std::size_t i) const
{
    return m_styles[i].rightToLeft ? m_lines[i].words.back()->text : m_lines[i].words.front()->text;
}

} // namespace quorra::model
