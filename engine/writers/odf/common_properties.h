// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "odf/odf_styles.h"

#include <vector>

// Named styles have the formatting that most of their paragraphs have, and automatic styles only what differs from it.
namespace quorra::office {

/// What the paragraphs of a named style have in common.
struct CommonProperties
{
    QString style; ///< its name
    Attributes paragraph;
    Attributes text;
};

/// Returns the common properties of those of the named styles that automatic paragraph styles are based on: of each
/// property that all of these state, the most frequent value.
std::vector<CommonProperties> commonProperties(const std::vector<UsedStyle> &styles, const std::vector<Element> &named);

/// Returns the automatic style without what its named style states; other styles are returned unchanged.
Element withoutCommonProperties(const Element &style, const std::vector<CommonProperties> &common);

/// Returns the named style with the common properties of its paragraphs, if there are any.
Element withCommonProperties(const Element &style, const std::vector<CommonProperties> &common);

} // namespace quorra::office
