// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <QList>
#include <QString>

#include <vector>

namespace quorra::model {

/// Whether the text contains a letter of a right-to-left script.
bool hasRightToLeft(const QString &text);

/// Whether most letters with a direction are right-to-left ones; text without letters is left-to-right.
bool isRightToLeft(const QString &text);

/// Converts a word from drawing order (left to right) to reading order. Latin letters and numbers inside a
/// right-to-left word keep their order. Other words are returned as they are.
QString logicalWord(const QString &drawn);

/// Exchanges opening and closing brackets of a word in reading order if it begins with a closing one or ends with an
/// opening one: many programs store the brackets of right-to-left text as they are drawn, which is mirrored. A word
/// without right-to-left letters must do both.
QString uprightBrackets(const QString &text);

/// Replaces presentation forms (Arabic letter shapes, ligatures such as fi and fl) by plain letters and removes control
/// characters. A soft hyphen that is drawn is visible: it becomes a hyphen.
/// Full-width characters are kept.
QString plainLetters(const QString &text);

/// Converts the words of a line from left-to-right order to reading order for a line of that direction: sequences of
/// words of the other direction are reversed as a whole.
void orderWords(std::vector<Word> &words, bool rightToLeft);

} // namespace quorra::model
