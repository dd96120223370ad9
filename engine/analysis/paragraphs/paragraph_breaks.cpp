// SPDX-License-Identifier: GPL-3.0-or-later
#include "paragraphs/paragraph_breaks.h"

#include "document/direction.h"
#include "paragraphs/dehyphenation.h"
#include "paragraphs/list_mark.h"
#include "paragraphs/paragraphs.h"

#include <algorithm>
#include <cmath>

namespace quorra::model {

namespace {

constexpr double indent = 0.7;     // font sizes that a line must be moved in to count as indented
constexpr double widerStep = 1.28; // of the usual distance of baselines

bool isFixedPitchLook(const TextLine &row)
{
    return std::all_of(row.words.begin(), row.words.end(), [](const RawWord *w) { return w->style.fixedPitch; });
}

} // namespace

ParagraphBreaks::ParagraphBreaks(const std::vector<TextLine> &rows, const Box &column) : m_rows(rows), m_column(column)
{
    std::vector<double> steps;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        Look look;
        QString all;
        std::size_t bold = 0;
        double weight = 0;
        double sizes = 0;
        for (const RawWord *word : rows[i].words) {
            all += word->text;
            bold += word->style.bold ? 1 : 0;
            const auto length = static_cast<double>(word->text.size());
            sizes += word->style.size * length;
            weight += length;
        }
        look.bold = bold == rows[i].words.size();
        look.fixedPitch = isFixedPitchLook(rows[i]);
        look.rightToLeft = isRightToLeft(all);
        look.size = sizes / std::max(1.0, weight);
        m_looks.push_back(look);
        if (i > 0) {
            const double step = (rows[i].baseline - rows[i - 1].baseline) / std::max(1.0, rows[i].size);
            if (step > 0.8 && step < 2.2) {
                steps.push_back(step);
            }
        }
    }
    m_step = steps.empty() ? 1.2 : std::clamp(median(steps), 0.95, 2.0);
}

double ParagraphBreaks::usualStep(double size) const
{
    return m_step * size;
}

bool ParagraphBreaks::startsAt(std::size_t first, std::size_t next) const
{
    const std::size_t before = next - 1;
    const double step = m_rows[next].baseline - m_rows[before].baseline;
    const double size = std::max(m_looks[before].size, m_looks[next].size);
    constexpr double nextLine = 1.9; // font sizes
    if (step > 0 && step < nextLine * size && endsInHyphen(lastWord(before), firstWord(next))) {
        return false; // a word cut at the line's end
    }
    const double own = before > first ? m_rows[before].baseline - m_rows[before - 1].baseline : usualStep(size);
    if (step > widerStep * std::max(own, 1.05 * size) || (before > first && step < 0.6 * own)) {
        return true;
    }
    if (before == first && step > widerStep * std::max(usualStep(size), 1.05 * size)) {
        return true;
    }
    if (differsInLook(before, next) || isListStart(first, next)) {
        return true;
    }
    if (m_looks[next].fixedPitch) { // a listing: its line ends and indents are its own
        return false;
    }
    return isIndentBreak(first, next) || lineEndedEarly(before, next);
}

bool ParagraphBreaks::differsInLook(std::size_t a, std::size_t b) const
{
    const Look &x = m_looks[a];
    const Look &y = m_looks[b];
    const double ratio = x.size / std::max(0.1, y.size);
    return ratio > 1.13 || ratio < 0.885 || x.bold != y.bold || x.fixedPitch != y.fixedPitch ||
           (x.rightToLeft != y.rightToLeft && m_rows[a].words.size() > 2 && m_rows[b].words.size() > 2);
}

bool ParagraphBreaks::isListStart(std::size_t first, std::size_t next) const
{
    const TextLine &row = m_rows[next];
    if (row.words.size() < 2) {
        return false;
    }
    const QString mark = row.words.front()->text;
    if (!isListMark(mark)) {
        return false;
    }
    const bool afterItem = isListMark(firstWord(first));
    const bool movedOut = row.box.left < m_rows[next - 1].box.left - indent * row.size;
    static const QString weak = QStringLiteral("-–—*");
    if (isBullet(mark) && !weak.contains(mark.front())) {
        return true;
    }
    return (afterItem && (movedOut || next - 1 == first)) || movedOut || endsSentence(lastWord(next - 1)) ||
           lineEndedEarly(next - 1, next);
}

bool ParagraphBreaks::isCentred(std::size_t i) const
{
    const Box &box = m_rows[i].box;
    const double left = box.left - m_column.left;
    const double right = m_column.right - box.right;
    return left > indent * m_rows[i].size && std::abs(left - right) < std::max(4.0, 0.03 * m_column.width());
}

bool ParagraphBreaks::isIndentBreak(std::size_t first, std::size_t next) const
{
    const std::size_t before = next - 1;
    const double moved = m_looks[next].rightToLeft ? m_rows[before].box.right - m_rows[next].box.right
                                                   : m_rows[next].box.left - m_rows[before].box.left;
    const double least = indent * m_rows[next].size;
    if (std::abs(moved) < least || (isCentred(before) && isCentred(next))) {
        return false;
    }
    if (moved < 0) { // moved out: after the first line of a paragraph this is its body, later a new hanging entry
        return before != first;
    }
    if (before != first) {
        return true;
    }
    // The second line is moved in: a hanging entry goes on like this, a new paragraph moves out again.
    if (isListMark(firstWord(first)) || next + 1 >= m_rows.size()) {
        return !isListMark(firstWord(first)) && endsSentence(lastWord(before));
    }
    const double after = m_rows[next + 1].box.left - m_rows[next].box.left;
    return after < -least && endsSentence(lastWord(before));
}

// The next line's first word would have stood on the line before, had the paragraph gone on.
bool ParagraphBreaks::lineEndedEarly(std::size_t before, std::size_t next) const
{
    const TextLine &line = m_rows[before];
    const TextLine &following = m_rows[next];
    const bool rightToLeft = m_looks[next].rightToLeft;
    const QString last = lastWord(before);
    const QString begin = firstWord(next);
    if (last.endsWith(QLatin1Char('-')) || last.endsWith(QLatin1Char(','))) {
        return false;
    }
    double room = rightToLeft ? line.box.left - m_column.left : m_column.right - line.box.right;
    if (isCentred(before) && isCentred(next)) {
        // Centred lines are often broken by hand, but hardly where less than half of the room is used.
        return endsSentence(last) || line.box.width() < 0.45 * m_column.width();
    }
    const RawWord *word = rightToLeft ? following.words.back() : following.words.front();
    room -= word->box.width() + 0.8 * line.size;
    if (room <= 0) {
        return false;
    }
    const bool goesOn = !begin.isEmpty() && begin.front().isLower() && !endsSentence(last);
    return !goesOn || room > 0.6 * m_column.width();
}

QString ParagraphBreaks::lastWord(std::size_t i) const
{
    return m_looks[i].rightToLeft ? m_rows[i].words.front()->text : m_rows[i].words.back()->text;
}

QString ParagraphBreaks::firstWord(std::size_t i) const
{
    return m_looks[i].rightToLeft ? m_rows[i].words.back()->text : m_rows[i].words.front()->text;
}

} // namespace quorra::model
