// SPDX-License-Identifier: GPL-3.0-or-later
#include "plain_table.h"
#include "shown_window.h"
#include "window_figures.h"

#include <QItemSelectionModel>
#include <QTableWidget>

namespace benchmark {

namespace {

using Side = std::function<double()>;

/// Shows the window and a plain table for `count` files in a child process, and measures the two functions returned by
/// `sidesOf` alternately.
Row listFigure(
    const std::string &figure, const std::string &folder, int count, int rounds, double limit,
    const std::function<Sides(ShownWindow &, PlainTable &, const QList<QUrl> &, int)> &measure)
{
    const std::vector<double> medians = inOwnProcess([&] {
        ShownWindow window(folder);
        PlainTable plain;
        // Many rows may refer to the same few files: only rows are measured.
        const QList<QUrl> files = makeFiles(folder, std::min(count, 20'000));
        QList<QUrl> urls;
        while (urls.size() < count) {
            urls.append(files);
        }
        const Sides sides = measure(window, plain, urls, rounds);
        return std::vector<double>{sides.ours, sides.floor};
    });
    return medians.size() == 2 ? ratioRow(figure, "ms", {medians[0], medians[1]}, limit) : failedRow(figure);
}

/// Selects rows 0, 2, 4, ...; row 1 is current and therefore also removed.
void selectEveryOther(QTableWidget *table)
{
    QItemSelection rows;
    for (int row = 0; row < table->rowCount(); row += 2) {
        rows.append(QItemSelectionRange(table->model()->index(row, 0), table->model()->index(row, 1)));
    }
    table->selectionModel()->setCurrentIndex(table->model()->index(1, 0), QItemSelectionModel::NoUpdate);
    table->selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect);
}

/// A measurement is valid only if the number of rows is correct afterwards.
double checked(double time, const QTableWidget *table, qsizetype rows)
{
    return table->rowCount() == rows ? time : 0;
}

Sides measureDrop(ShownWindow &window, PlainTable &plain, const QList<QUrl> &urls, int rounds)
{
    const QStringList paths = localPaths(urls);
    const auto ours = [&] {
        window.press("toolButton_Clear");
        ShownWindow::settle();
        const double time = milliseconds([&] {
            window.drop(urls);
            ShownWindow::handleEvents();
        });
        return checked(time, window.table(), urls.size());
    };
    const auto floor = [&] {
        plain.clear();
        ShownWindow::settle();
        return milliseconds([&] {
            plain.fill(paths);
            ShownWindow::handleEvents();
        });
    };
    return interleaved(rounds, ours, floor);
}

Sides measureClear(ShownWindow &window, PlainTable &plain, const QList<QUrl> &urls, int rounds)
{
    const QStringList paths = localPaths(urls);
    const auto ours = [&] {
        window.drop(urls);
        ShownWindow::settle();
        const double time = milliseconds([&] {
            window.press("toolButton_Clear");
            ShownWindow::handleEvents();
        });
        return checked(time, window.table(), 0);
    };
    const auto floor = [&] {
        plain.fill(paths);
        ShownWindow::settle();
        return milliseconds([&] {
            plain.clear();
            ShownWindow::handleEvents();
        });
    };
    return interleaved(rounds, ours, floor);
}

Sides measureDelete(ShownWindow &window, PlainTable &plain, const QList<QUrl> &urls, int rounds)
{
    const QStringList paths = localPaths(urls);
    const auto ours = [&] {
        window.press("toolButton_Clear");
        window.drop(urls);
        selectEveryOther(window.table());
        ShownWindow::settle();
        const double time = milliseconds([&] {
            window.press("toolButton_Delete");
            ShownWindow::handleEvents();
        });
        return checked(time, window.table(), urls.size() / 2 - 1);
    };
    const auto floor = [&] {
        plain.fill(paths);
        ShownWindow::settle();
        return milliseconds([&] {
            plain.refillWithEveryOther();
            ShownWindow::handleEvents();
        });
    };
    return interleaved(rounds, ours, floor);
}

} // namespace

Row dropFigure(const std::string &folder)
{
    return listFigure("Dropping 20,000 files", folder, 20'000, 15, 1.3, measureDrop);
}

Row clearFigure(const std::string &folder)
{
    return listFigure("Clear with 100,000 rows", folder, 100'000, 7, 3, measureClear);
}

Row deleteFigure(const std::string &folder)
{
    return listFigure("Delete with 20,000 rows, every other one selected", folder, 20'000, 15, 3, measureDelete);
}

} // namespace benchmark
