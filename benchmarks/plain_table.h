// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QStringList>
#include <QTableWidget>
#include <QUrl>

namespace benchmark {

/// The floor of the file list's figures: a shown table of the same shape, used in the plainest fast way.
class PlainTable
{
public:
    PlainTable();

    /// One setRowCount, then the path and the size text of each file; sizes are read as the window reads them.
    void fill(const QStringList &paths);

    /// Takes all rows away at once.
    void clear() { m_table.setRowCount(0); }

    /// Keeps the rows 1, 3, 5, ... by filling the emptied table with their texts again.
    void refillWithEveryOther();

private:
    QTableWidget m_table;
};

/// The paths of local addresses.
QStringList localPaths(const QList<QUrl> &urls);

} // namespace benchmark
