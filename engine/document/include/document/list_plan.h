// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "document/list_number.h"

#include <array>
#include <deque>
#include <optional>
#include <unordered_map>
#include <vector>

// The lists of a document: which items belong together, and how they are counted. Writers whose format has automatic
// numbers use it to show the numbers of the page.
namespace quorra::model {

/// Returns whether the mark is a bullet that can be an automatic one: a single character.
bool isBullet(const ListItem &item);

/// The number of levels that lists of word processors have.
inline constexpr int maxListLevels = 9;

/// A level of a list, as its first item shows it.
struct ListLevel
{
    const Paragraph *first = nullptr;
    std::optional<ListNumber> number; ///< none for bullets
};

struct List
{
    std::size_t id = 0; ///< counted from 0
    std::array<std::optional<ListLevel>, maxListLevels> levels;
};

/// The place of an item in its list.
struct ListPlace
{
    const List *list = nullptr;
    int level = 0;
    bool continues = false;     ///< the list has begun before
    std::optional<int> restart; ///< its number, where counting from the item before gives another one
};

/// The lists of a document, which must outlive them. Items whose mark cannot be automatic are missing.
struct ListPlan
{
    std::deque<List> lists; ///< their addresses do not change
    std::unordered_map<const Paragraph *, ListPlace> places;

    /// Returns the place of the paragraph, or null if it is in no list.
    const ListPlace *find(const Paragraph *paragraph) const
    {
        const auto at = places.find(paragraph);
        return at == places.end() ? nullptr : &at->second;
    }
};

/// Returns the lists of the document's text and cells, without headings, notes, page headers and footers.
ListPlan planLists(const Document &document);

} // namespace quorra::model
