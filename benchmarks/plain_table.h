// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QStringList>
#include <QTableWidget>
#include <QUrl>

namespace benchmark {

/// The baseline for the file list: a visible table of the same size, used in the simplest fast way.
class PlainTable
{
public:
    PlainTable();

    /// One setRowCount, then the path and the size text of each file; sizes are read like in the window.
    void fill(const QStringList &paths);

    /// Removes all rows at once.
    void clear() { m_table.setRowCount(0); }

    /// Keeps rows 1, 3, 5, ... by clearing the table and adding their texts again.
    void refillWithEveryOther();

private:
    QTableWidget m_table;
};

/// The paths of local addresses.
QStringList localPaths(const QList<QUrl> &urls);

} // namespace benchmark
