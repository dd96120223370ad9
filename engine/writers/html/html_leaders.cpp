// SPDX-License-Identifier: GPL-3.0-or-later
#include "html_leaders.h"

#include "document/line_pieces.h"
#include "document/text.h"

#include <QRegularExpression>

#include <algorithm>

namespace quorra {

namespace {

using model::Line;
using model::Run;

const QRegularExpression &pageNumber()
{
    static const QRegularExpression pattern(
        QRegularExpression::anchoredPattern(QStringLiteral("[0-9]{1,4}|[ivxlc]{1,7}|[A-Z]{1,2}[-.]?[0-9]{1,3}")));
    return pattern;
}

const QRegularExpression &leader()
{
    static const QRegularExpression pattern(
        QStringLiteral("\\s*((?:[.\u00b7\u2026\u2025]\\s?){5,})\\s*(\\S{1,7})(?:\\s+|$)"));
    return pattern;
}

std::vector<Run> slice(const std::vector<Run> &runs, qsizetype from, qsizetype to)
{
    std::vector<Run> part;
    qsizetype start = 0;
    for (const Run &run : runs) {
        const qsizetype first = std::max(from, start);
        const qsizetype last = std::min(to, start + run.text.size());
        if (first < last) {
            part.push_back(run);
            part.back().text = run.text.mid(first - start, last - first);
        }
        start += run.text.size();
    }
    return part;
}

/// Divides text into entries after leader dots with a page number.
std::vector<LeaderLine> cutAtLeaders(const std::vector<Run> &runs)
{
    std::vector<LeaderLine> lines;
    const QString text = model::plainText(runs);
    qsizetype from = 0;
    auto matches = leader().globalMatch(text);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        if (pageNumber().match(match.captured(2)).hasMatch()) {
            lines.push_back(
                {slice(runs, from, match.capturedStart()), match.captured(1).trimmed(),
                 slice(runs, match.capturedStart(2), match.capturedEnd(2))});
            from = match.capturedEnd();
        }
    }
    if (from < text.size()) {
        lines.push_back({slice(runs, from, text.size()), {}, {}});
    }
    return lines;
}

/// Returns whether the line ends with a page number that is apart from the text.
bool endsInPage(const Line &line)
{
    if (line.words.size() < 2 || !pageNumber().match(line.words.back().text).hasMatch()) {
        return false;
    }
    const model::Word &before = line.words[line.words.size() - 2];
    const model::Word &number = line.words.back();
    return isApart(before, number, model::contentsLimits) || before.text.endsWith(QLatin1Char('.'));
}

} // namespace

std::vector<LeaderLine> leaderLines(const model::Paragraph &paragraph, const std::vector<Run> &runs)
{
    std::vector<LeaderLine> lines;
    const std::vector<LeaderLine> cut = cutAtLeaders(runs);
    if (std::none_of(cut.begin(), cut.end(), [](const LeaderLine &line) { return !line.dots.isEmpty(); })) {
        return lines;
    }
    model::Paragraph entry; // the lines of one entry
    const auto finish = [&](bool numbered) {
        std::vector<LeaderLine> more = cutAtLeaders(model::runsOf(entry));
        if (numbered && !more.empty() && more.back().page.empty()) {
            std::vector<Run> &last = more.back().entry;
            const QString text = model::plainText(last);
            const qsizetype number = text.lastIndexOf(QLatin1Char(' ')) + 1;
            more.back().page = slice(last, number, text.size());
            last = slice(last, 0, number);
        }
        std::move(more.begin(), more.end(), std::back_inserter(lines));
        entry.lines.clear();
    };
    for (const Line &line : paragraph.lines) {
        entry.lines.push_back(line);
        if (endsInPage(line)) {
            finish(true);
        }
    }
    finish(false);
    return lines;
}

} // namespace quorra
