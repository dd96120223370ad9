// SPDX-License-Identifier: GPL-3.0-or-later
#include "html_page_edges.h"

#include "document/line_pieces.h"
#include "document/text.h"

#include <QRegularExpression>
#include <QSet>
#include <QStringList>

#include <algorithm>

namespace quorra {

namespace {

using model::Page;
using model::Paragraph;

// Of the pages with a header, those that have a header of the document. Left and right pages may have different ones;
// the titles of chapters are on fewer.
constexpr double minShareOfDocument = 0.3;

/// Returns the digits or Roman numerals of a text that is nothing else; empty for any other text.
QString numberIn(const QString &text)
{
    static const QRegularExpression number(
        QStringLiteral(R"(^[-–—\s]*(?<number>\d{1,4}|[ivxlc]{1,8})[-–—.\s]*$)"),
        QRegularExpression::UseUnicodePropertiesOption);
    return number.match(text).captured(QStringLiteral("number"));
}

/// Returns the numbers among the parts of the page's footer and header.
QStringList numbersOf(const Page &page)
{
    QStringList numbers;
    for (const auto *edge : {&page.footer, &page.header}) {
        for (const Paragraph &paragraph : *edge) {
            for (const model::Line &part : pageHeaderParts(paragraph)) {
                numbers.append(numberIn(model::plainText(part)));
            }
        }
    }
    numbers.removeAll(QString());
    numbers.removeDuplicates();
    return numbers;
}

bool isOnlyPageNumber(const Paragraph &paragraph, const HtmlPageNumbers &numbers)
{
    const std::vector<model::Line> parts = pageHeaderParts(paragraph);
    return std::all_of(parts.begin(), parts.end(), [&numbers](const model::Line &part) {
        return numbers.isPageNumber(model::plainText(part));
    });
}

QString withoutNumbers(const Paragraph &paragraph)
{
    static const QRegularExpression number(
        QStringLiteral(R"(\d+|\b[ivxlc]+\b)"), QRegularExpression::UseUnicodePropertiesOption);
    return model::plainText(paragraph).replace(number, QStringLiteral("#")).simplified();
}

HtmlPageEdge edgeOf(const model::Document &document, const HtmlPageNumbers &numbers, std::vector<Paragraph> Page::*edge)
{
    HtmlPageEdge result;
    QHash<QString, int> counts;
    int pages = 0;
    for (const Page &page : document.pages) {
        pages += (page.*edge).empty() ? 0 : 1;
        for (const Paragraph &paragraph : page.*edge) {
            ++counts[withoutNumbers(paragraph)];
        }
    }
    QSet<QString> seen;
    for (const Page &page : document.pages) {
        for (const Paragraph &paragraph : page.*edge) {
            const QString text = withoutNumbers(paragraph);
            if (seen.contains(text) || (document.pages.size() > 1 && isOnlyPageNumber(paragraph, numbers))) {
                continue;
            }
            seen.insert(text);
            if (counts.value(text) >= minShareOfDocument * pages) {
                result.ofDocument.push_back({&page, &paragraph});
            } else {
                result.ofPages[&page].push_back(&paragraph);
            }
        }
    }
    return result;
}

} // namespace

HtmlPageEdge htmlPageHeaders(const model::Document &document, const HtmlPageNumbers &numbers)
{
    return edgeOf(document, numbers, &Page::header);
}

HtmlPageEdge htmlPageFooters(const model::Document &document, const HtmlPageNumbers &numbers)
{
    return edgeOf(document, numbers, &Page::footer);
}

std::vector<model::Line> pageHeaderParts(const Paragraph &header)
{
    std::vector<model::Line> parts;
    for (const model::Line &line : header.lines) {
        const std::vector<model::Line> pieces = linePieces(line, model::pageHeaderLimits);
        parts.insert(parts.end(), pieces.begin(), pieces.end());
    }
    return parts;
}

HtmlPageNumbers::HtmlPageNumbers(const model::Document &document) : m_pages(document.pages.size())
{
    for (const Page &page : document.pages) {
        for (const QString &number : numbersOf(page)) {
            ++m_counts[number];
        }
    }
}

bool HtmlPageNumbers::isPageNumber(const QString &text) const
{
    const QString number = numberIn(text);
    return !number.isEmpty() && (m_pages == 1 || 2 * m_counts.value(number) <= m_pages);
}

QString HtmlPageNumbers::of(const Page &page) const
{
    for (const QString &number : numbersOf(page)) {
        if (isPageNumber(number)) {
            return number;
        }
    }
    return page.label.isEmpty() ? QString::number(page.number) : page.label;
}

} // namespace quorra
