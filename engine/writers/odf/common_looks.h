// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "odf/odf_styles.h"

#include <vector>

// Named styles carry the look that most of their paragraphs have, and automatic styles only what differs from it.
namespace quorra::office {

/// What the paragraphs of a named style have in common.
struct CommonLook
{
    QString style; ///< its name
    Attributes paragraph;
    Attributes text;
};

/// Returns the looks of those of the named styles that automatic paragraph styles are based on: of each property that
/// all of these state, the most frequent value.
std::vector<CommonLook> commonLooks(const std::vector<UsedStyle> &styles, const std::vector<Element> &named);

/// Returns the automatic style without what its named style states; other styles are returned unchanged.
Element withoutCommonLook(const Element &style, const std::vector<CommonLook> &looks);

/// Returns the named style with its look, if there is one.
Element withCommonLook(const Element &style, const std::vector<CommonLook> &looks);

} // namespace quorra::office
