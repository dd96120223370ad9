// SPDX-License-Identifier: GPL-3.0-or-later
#include "page_notes.h"

#include "link_target.h"
#include "text_string.h"

#include <Catalog.h>
#include <PDFDoc.h>
#include <Page.h>

#include <QRegularExpression>
#include <QTimeZone>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace quorra {

namespace {

struct Limits
{
    int annotations = 5'000;          ///< of a page; the rest is not looked at
    qsizetype labelLength = 40;       ///< characters
    qsizetype commentLength = 20'000; ///< characters
};

constexpr Limits limits;

/// The kinds of annotations whose text is a comment. The text of others is drawn on the page or describes them.
bool isCommentKind(std::string_view kind)
{
    static constexpr std::array<std::string_view, 13> kinds = {
        "Text",   "Highlight", "Underline", "StrikeOut", "Squiggly", "Caret",         "Square",
        "Circle", "Line",      "Polygon",   "PolyLine",  "Ink",      "FileAttachment"};
    return std::find(kinds.begin(), kinds.end(), kind) != kinds.end();
}

bool isHidden(const Object &annotation)
{
    constexpr unsigned invisibleFlags = 1U << 1U | 1U << 5U; // "Hidden" and "NoView"
    const Object flags = annotation.dictLookup("F");
    return flags.isInt() && (static_cast<unsigned>(flags.getInt()) & invisibleFlags) != 0;
}

/// Parses a date such as "D:20261122051500+01'00'". The offset is left out: the result is the time of the author.
QDateTime dateOf(const QString &text)
{
    static const QRegularExpression pattern(
        QStringLiteral("^D:(\\d{4})(\\d{2})(\\d{2})(?:(\\d{2})(\\d{2})(\\d{2})?)?"));
    const QRegularExpressionMatch match = pattern.match(text);
    const auto number = [&match](int group) { return match.captured(group).toInt(); };
    const QDate day(number(1), number(2), number(3));
    return match.hasMatch() && day.isValid() ? QDateTime(day, QTime(number(4), number(5), number(6)), QTimeZone::utc())
                                             : QDateTime();
}

Box boxOf(const Page &page, const Object &annotation)
{
    const Object rectangle = annotation.dictLookup("Rect");
    if (!rectangle.isArray() || rectangle.arrayGetLength() != 4) {
        return {};
    }
    std::array<double, 4> sides{};
    for (int i = 0; i < 4; ++i) {
        const Object side = rectangle.arrayGet(i);
        sides.at(static_cast<std::size_t>(i)) = side.isNum() ? side.getNum() : 0;
    }
    const auto [left, right] = std::minmax(sides[0], sides[2]);
    const auto [bottom, top] = std::minmax(sides[1], sides[3]);
    return shownBox(page, left, bottom, right, top);
}

} // namespace

void readPageNotes(PDFDoc &doc, int pageNumber, model::RawPage &page)
{
    GooString label;
    if (doc.getCatalog()->indexToLabel(pageNumber - 1, &label)) {
        page.label = textString(label.toStr()).left(limits.labelLength);
        page.label = page.label == QString::number(pageNumber) ? QString() : page.label;
    }
    Page *source = doc.getPage(pageNumber);
    const Object annotations = source ? source->getAnnotsObject() : Object(objNull);
    const int count = annotations.isArray() ? std::min(annotations.arrayGetLength(), limits.annotations) : 0;
    for (int i = 0; i < count; ++i) {
        const Object annotation = annotations.arrayGet(i);
        const Object kind = annotation.isDict() ? annotation.dictLookup("Subtype") : Object(objNull);
        if (!kind.isName() || !isCommentKind(kind.getName()) || isHidden(annotation)) {
            continue;
        }
        model::Comment comment;
        comment.text = textString(annotation.dictLookup("Contents")).left(limits.commentLength);
        if (!comment.text.isEmpty()) {
            comment.box = boxOf(*source, annotation);
            comment.author = textString(annotation.dictLookup("T")).simplified().left(limits.commentLength);
            comment.date = dateOf(textString(annotation.dictLookup("M")));
            page.comments.push_back(std::move(comment));
        }
    }
}

} // namespace quorra
