// SPDX-License-Identifier: GPL-3.0-or-later
#include "report.h"

#include <QtGlobal>

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <thread>

namespace benchmark {

namespace {

using Cells = std::array<std::string, 6>;

std::string number(double value, const std::string &unit, int decimals = 2)
{
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%.*f%s%s", decimals, value, unit.empty() ? "" : " ", unit.c_str());
    return text.data();
}

std::string processorName()
{
    std::ifstream info("/proc/cpuinfo");
    std::string line;
    while (std::getline(info, line)) {
        const std::size_t colon = line.find(": ");
        if (line.rfind("model name", 0) == 0 && colon != std::string::npos) {
            return line.substr(colon + 2);
        }
    }
    return "unknown processor";
}

std::string lineText(const Cells &cells, const std::array<std::size_t, 6> &widths)
{
    std::string line = "|";
    for (std::size_t column = 0; column < cells.size(); ++column) {
        line += " " + cells[column] + std::string(widths[column] - cells[column].size(), ' ') + " |";
    }
    return line + "\n";
}

} // namespace

Row ratioRow(const std::string &figure, const std::string &unit, const Sides &sides, double limit)
{
    if (sides.ours <= 0 || sides.floor <= 0) {
        return failedRow(figure);
    }
    const double ratio = sides.ours / sides.floor;
    return {figure,
            number(sides.ours, unit),
            number(sides.floor, unit),
            number(ratio, "x"),
            "<= " + number(limit, "x"),
            ratio <= limit};
}

Row memoryRow(const std::string &figure, double beforeKib, double peakKib, double limitKib)
{
    const double grown = std::max(0.0, peakKib - beforeKib);
    return {
        figure,
        number(grown / 1024, "MB more"),
        number(beforeKib / 1024, "MB before"),
        "",
        "< " + number(limitKib / 1024, "MB more", 0),
        grown < limitKib};
}

Row failedRow(const std::string &figure)
{
    return {figure, "not measured", "", "", "", false};
}

std::string machineText()
{
    const std::time_t now = std::time(nullptr);
    std::array<char, 32> day{};
    std::strftime(day.data(), day.size(), "%Y-%m-%d", std::localtime(&now));
    return "Machine: " + processorName() + ", " + std::to_string(std::thread::hardware_concurrency()) +
           " processors\nDate: " + day.data() + "\nQt: " + qVersion() + "\n";
}

std::string tableText(const std::vector<Row> &rows)
{
    std::vector<Cells> lines = {{"Figure", "Ours", "Floor", "Ratio", "Target", "Result"}};
    for (const Row &row : rows) {
        lines.push_back({row.figure, row.ours, row.floor, row.ratio, row.target, row.met ? "ok" : "missed"});
    }
    std::array<std::size_t, 6> widths{};
    for (const Cells &cells : lines) {
        for (std::size_t column = 0; column < cells.size(); ++column) {
            widths[column] = std::max(widths[column], cells[column].size());
        }
    }

    Cells rule;
    for (std::size_t column = 0; column < rule.size(); ++column) {
        rule[column] = std::string(widths[column], '-');
    }
    lines.insert(lines.begin() + 1, rule);

    std::string text;
    for (const Cells &cells : lines) {
        text += lineText(cells, widths);
    }
    return text;
}

} // namespace benchmark
