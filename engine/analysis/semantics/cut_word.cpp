// SPDX-License-Identifier: GPL-3.0-or-later
#include "semantics/cut_word.h"

#include <utility>

namespace quorra::model {

std::size_t cutWordEnd(Line &line, std::size_t index, qsizetype length)
{
    Word &word = line.words[index];
    const qsizetype before = word.text.size() - length;
    if (length <= 0 || before <= 0) {
        return index;
    }
    Word end = word;
    const double width = word.box.width() * static_cast<double>(before) / static_cast<double>(word.text.size());
    end.text = word.text.mid(before);
    end.box.left = word.box.left + width;
    word.text.truncate(before);
    word.box.right = end.box.left;
    word.separator = Separator::None;
    line.words.insert(line.words.begin() + static_cast<std::ptrdiff_t>(index) + 1, std::move(end));
    return index + 1;
}

} // namespace quorra::model
