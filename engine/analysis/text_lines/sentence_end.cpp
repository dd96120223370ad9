// SPDX-License-Identifier: GPL-3.0-or-later
#include "text_lines/sentence_end.h"

namespace quorra::model {

bool endsSentence(const QString &text)
{
    static const QString ends = QStringLiteral(".!?:;。！？：；؟۔");
    static const QString closing = QStringLiteral("\"'”’)]»）」』");
    auto i = text.size() - 1;
    while (i >= 0 && (text.at(i).isSpace() || closing.contains(text.at(i)))) {
        --i;
    }
    return i >= 0 && ends.contains(text.at(i));
}

} // namespace quorra::model
