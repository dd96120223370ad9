// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

namespace quorra {

/// Gives the next position from 1 on to whichever thread asks; 0 when there is none left.
using PageSource = std::function<int()>;

/// How many threads pay for so many pages (or pictures): each needs an opened file of its own.
int poolSize(int pageCount);

/// Gives 1 to `pageCount`; any number of threads may ask it.
PageSource pagesOneByOne(int pageCount);

/// Runs `work` in so many threads, which share the pages. The first failure stops the giving of pages and is thrown
/// here when all have ended.
void runPool(int threads, int pageCount, const std::function<void(const PageSource &)> &work);

/// Does the work for each page, numbered from 0, several pages at a time where there are many. The first failure is
/// thrown here when all threads have ended.
void forEachPage(int pageCount, const std::function<void(int)> &work);

} // namespace quorra
