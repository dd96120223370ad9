// SPDX-License-Identifier: GPL-3.0-or-later
#include "shown_window.h"
#include "window_figures.h"

#include <QTableWidget>

namespace benchmark {

namespace {

/// Peak resident memory during a run over `count` files, compared with that just before pressing Start.
Row memoryOverRun(const std::string &figure, const std::string &engine, const std::string &folder, int count)
{
    placeEngine(engine, folder);
    const std::vector<double> sizes = inOwnProcess([&folder, count] {
        ShownWindow window(folder);
        window.drop(makeFiles(folder, count));
        ShownWindow::settle();
        if (window.table()->rowCount() != count) {
            return std::vector<double>();
        }
        resetPeakMemory();
        const long before = residentMemory();
        window.run(QString::fromStdString(folder));
        return std::vector<double>{static_cast<double>(before), static_cast<double>(peakMemory())};
    });
    return sizes.size() == 2 ? memoryRow(figure, sizes[0], sizes[1], 2 * 1024.0) : failedRow(figure);
}

} // namespace

Row longRunMemoryFigure(const Programs &programs, const std::string &folder)
{
    return memoryOverRun("Memory over a run of 10,000 files", programs.noopEngine, folder, 10'000);
}

Row floodMemoryFigure(const Programs &programs, const std::string &folder)
{
    return memoryOverRun("Memory while an engine prints 400 MB on each channel", programs.floodEngine, folder, 1);
}

} // namespace benchmark
