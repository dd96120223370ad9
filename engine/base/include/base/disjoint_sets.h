// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <numeric>
#include <vector>

namespace quorra {

/// Numbered things in sets that grow together (union-find). At first each of them is a set of its own.
class DisjointSets
{
public:
    explicit DisjointSets(std::size_t count) : m_parent(count) { std::iota(m_parent.begin(), m_parent.end(), 0U); }

    /// The member that stands for the set of `i`, which must be below the count: the same for all members of a set.
    std::size_t find(std::size_t i)
    {
        while (m_parent[i] != i) {
            m_parent[i] = m_parent[m_parent[i]];
            i = m_parent[i];
        }
        return i;
    }

    /// Makes the sets of both one.
    void join(std::size_t a, std::size_t b) { m_parent[find(a)] = find(b); }

private:
    std::vector<std::size_t> m_parent;
};

} // namespace quorra
