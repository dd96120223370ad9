// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/raw_page.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace fuzz {

enum class Marks {
    Sane, ///< as drawn by a program: finite, inside the page, every word with a text of its own
    Wild  ///< as a hostile file could make them: huge, negative, infinite, empty, inside out
};

/// Interprets the bytes as instructions that put marks on pages. Every input is valid and always gives the same pages.
/// An instruction has a few bytes, so that changing a byte changes one thing.
std::vector<quorra::model::RawPage> pagesOf(const std::uint8_t *data, std::size_t size, Marks marks);

} // namespace fuzz
