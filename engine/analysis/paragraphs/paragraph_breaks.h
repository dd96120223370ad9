// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text_lines/text_lines.h"

#include <vector>

namespace quorra::model {

/// Decides between which rows of a column one paragraph ends and the next begins. The rows must outlive it.
class ParagraphBreaks
{
public:
    ParagraphBreaks(const std::vector<TextLine> &rows, const Box &column);

    /// Whether a new paragraph begins with row `next`, when the current one began with row `first`; next > first.
    bool startsAt(std::size_t first, std::size_t next) const;

    /// The usual distance of baselines for text of that size.
    double usualStep(double size) const;

private:
    struct Look
    {
        bool bold = false;
        bool fixedPitch = false;
        bool rightToLeft = false;
        double size = 0;
    };

    bool differsInLook(std::size_t a, std::size_t b) const;
    bool isListStart(std::size_t first, std::size_t next) const;
    bool isIndentBreak(std::size_t first, std::size_t next) const;
    bool isCentred(std::size_t i) const;
    bool lineEndedEarly(std::size_t before, std::size_t next) const;
    QString lastWord(std::size_t i) const;
    QString firstWord(std::size_t i) const;

    const std::vector<TextLine> &m_rows;
    Box m_column;
    std::vector<Look> m_looks;
    double m_step = 0; ///< the usual step, in font sizes
};

} // namespace quorra::model
