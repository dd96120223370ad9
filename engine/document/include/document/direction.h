// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <QList>
#include <QString>

#include <vector>

namespace quorra::model {

/// Whether the text holds a letter of a right-to-left script.
bool hasRightToLeft(const QString &text);

/// Whether most letters with a direction are right-to-left ones; text without letters is left-to-right.
bool isRightToLeft(const QString &text);

/// Turns a word that stands in drawing order (left to right) into reading order; Latin letters and numbers inside a
/// right-to-left word keep their order. Other words come back as they are.
QString logicalWord(const QString &drawn);

/// Replaces presentation forms (Arabic letter shapes, fi and fl ligatures, full-width signs stay) by plain letters and
/// drops control characters.
QString plainLetters(const QString &text);

/// Puts the words of one line, sorted from left to right, into reading order for a line of that direction: runs of
/// words of the other direction are turned as a whole.
void orderWords(std::vector<Word> &words, bool rightToLeft);

} // namespace quorra::model
