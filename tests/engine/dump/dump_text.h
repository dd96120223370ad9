// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/raw_page.h"

#include <QString>

#include <string>
#include <string_view>
#include <vector>

// Parts of lines used by both dumps.
namespace quorra::test {

/// A length in whole points.
std::string whole(double value);

/// A number with at most one decimal: "12", "10.5".
std::string tenths(double value);

/// left,top-right,bottom
std::string box(const Box &box);

/// #rrggbb
std::string colour(Colour colour);

/// UTF-8 with invisible characters as escapes.
std::string visible(const QString &text);

/// Family, size and special properties: "Liberation Serif 10.5 bold #0000c0 link https://..."
std::string styleText(const model::Style &style, const QString &link);

/// Joins the parts that are not empty with the separator.
std::string joined(const std::vector<std::string> &parts, std::string_view separator);

} // namespace quorra::test
